// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointF>
#include <QVector>

class LegendButton;
class MainWindow;
class QAction;

/// \file
/// The actions of the keys. Each uses an operation, a button or a menu entry of the window. A
/// disabled button or entry does nothing.

namespace extras {

/// One point for each sample of the selected trace as it is drawn; none for an empty slot.
QVector<QPointF> selectedSamples(const MainWindow &window);

/// Moves the active cursor by \a samples, to the right when positive: samples of the selected
/// trace, or in difference mode of the master if its step is larger. The view follows a cursor that
/// leaves it.
void moveCursor(MainWindow &window, int samples);

/// Places the active cursor at \a column. The view follows. Does nothing in delta mode.
void placeCursor(MainWindow &window, qint64 column);

/// Moves the active cursor to the first or, if \a last, the last drawn sample of the selected
/// trace; in an empty slot to the edge of the view.
void moveCursorToEnd(MainWindow &window, bool last);

/// Scrolls by \a steps steps of the scroll buttons, to the right when positive, at most to the end.
void scroll(MainWindow &window, int steps);

/// Shows the whole selected trace, as it is drawn, at the largest scale that holds it. Does nothing
/// when it is empty or lies outside the chart.
void fitTrace(MainWindow &window);

/// Brings the active cursor into the middle of the view, as far as the ends allow.
void showCursor(MainWindow &window);

/// Chooses \a entry in the menu of the selected slot.
void choose(MainWindow &window, QAction *LegendButton::*entry);

/// Switches the wheel over the plot between moving the cursor and changing the scale.
void switchWheel(MainWindow &window);

} // namespace extras
