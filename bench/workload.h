// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSize>

/// What every subject does alike, in counts unless named otherwise.
namespace workload {

constexpr int cursorA = 150; ///< right of the middle: zooming in has to scroll to it
constexpr int cursorB = 200;
constexpr int turn = 40; ///< operations in one direction, before as many back
constexpr int panTurn = 20; ///< likewise for pans
constexpr int panCounts = 3; ///< of one pan
constexpr int dragCounts = 2; ///< of one move of a drag
constexpr int resizePixels = 4; ///< wider and higher
/// Larger than asked for while resizing, so that the plot is above its least size and follows.
constexpr int resizeRoom = 60;

/// The size that the \a number-th resize of a window of \a size asks for: larger, and back.
constexpr QSize resized(QSize size, int number)
{
    const int more = resizeRoom + (number % 2 == 0 ? resizePixels : 0);
    return { size.width() + more, size.height() + more };
}

} // namespace workload
