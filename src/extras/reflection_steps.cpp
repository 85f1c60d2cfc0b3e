// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/reflection_steps.h"

#include "calc/reflections.h"
#include "cont_dial.h"
#include "extras/commands.h"
#include "mainwindow.h"

#include <algorithm>

namespace extras {

QVector<calc::Reflection> reflectionsOf(const MainWindow &window)
{
    const QVector<QPointF> samples = selectedSamples(window);
    if (samples.isEmpty())
        return {};
    const MainWindowState &state = window.state();
    const rfg_SHOWN &trace = state.rfg_DATA[state.rfg_ID];
    return calc::reflectionList(samples, trace.scroll, trace.offset);
}

QVector<int> reflectionColumns(const MainWindow &window)
{
    const QVector<calc::Reflection> reflections = reflectionsOf(window);
    QVector<int> columns;
    for (const calc::Reflection &reflection : reflections)
        columns.append(reflection.column);
    return columns;
}

void toNextReflection(MainWindow &window)
{
    // The dial keeps the requested column; snapping may have put the cursor to the left of it.
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
