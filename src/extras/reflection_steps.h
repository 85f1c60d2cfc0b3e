// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "calc/reflections.h"

class MainWindow;

namespace extras {

/// Moves the active cursor to the next reflection to the right on the selected trace, as it is
/// drawn. The cursor snaps to a sample and the view follows. Does nothing in delta mode, in an
/// empty slot and after the last reflection.
void toNextReflection(MainWindow &window);

/// The same to the left.
void toPreviousReflection(MainWindow &window);

/// The reflections of the selected trace inside the chart, ascending. In difference mode the trace
/// is the difference that is drawn, which has reflections where the cables differ.
QVector<calc::Reflection> reflectionsOf(const MainWindow &window);

/// Their columns.
QVector<int> reflectionColumns(const MainWindow &window);

} // namespace extras
