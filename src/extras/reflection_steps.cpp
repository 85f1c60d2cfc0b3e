// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/reflection_steps.h"

#include "calc/numeric.h"
#include "calc/reflections.h"
#include "cont_dial.h"
#include "extras/commands.h"
#include "mainwindow.h"

#include <algorithm>

namespace extras {

QVector<int> reflectionColumns(const MainWindow &window)
{
    const QVector<QPointF> samples = selectedSamples(window);
    QVector<int> levels;
    for (const QPointF &sample : samples)
        levels.append(calc::truncated(sample.y()));
    QVector<int> columns;
    const QVector<int> places = calc::reflections(levels);
    for (const int place : places) {
        const double column = samples[place].x();
        if (column >= 0.0 && column <= constants::xLength)
            columns.append(calc::truncated(column));
    }
    return columns;
}

void toNextReflection(MainWindow &window)
{
    // The dial keeps the column that the cursor was sent to, snapping may have put it left of that.
    const int reached = std::max(window.cursorPosition(window.state().Cur_flag),
                                 window.parts().cursor_dial->trueValue);
    const int next = calc::nextColumn(reflectionColumns(window), reached);
    if (next >= 0)
        placeCursor(window, next);
}

void toPreviousReflection(MainWindow &window)
{
    const int column = window.cursorPosition(window.state().Cur_flag);
    const int previous = calc::previousColumn(reflectionColumns(window), column);
    if (previous >= 0)
        placeCursor(window, previous);
}

} // namespace extras
