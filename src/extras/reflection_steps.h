// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVector>

class MainWindow;

namespace extras {

/// Moves the active cursor of \a window to the nearest place right of it where the selected trace,
/// as it is drawn, turns. It is the window's own cursor step, so that snapping, readouts and dial
/// are those of a cursor moved by hand; the view follows when the cursor would leave it. Nothing
/// happens without an active cursor, in an empty slot, and behind the last place.
void toNextReflection(MainWindow &window);

/// The same to the left.
void toPreviousReflection(MainWindow &window);

/// Columns on which the selected trace of \a window turns, ascending, those outside the chart left
/// out. In difference mode the trace is the drawn difference, which turns where the cables differ.
QVector<int> reflectionColumns(const MainWindow &window);

} // namespace extras
