// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "calc/trace_points.h"

/// \file
/// Position and level of a cursor. A column is a position on the horizontal axis in counts,
/// 0..64000; a level is a height in sample steps. The level 129, which no sample can have, means
/// "no level" and is shown as an empty text.

namespace calc {

/// Position of a cursor and the level there.
struct CursorPoint
{
    int column = 0;
    int level = 0;
};

/// \a column clamped to 0..64000.
int clampedColumn(int column);

/// \a column, clamped and rounded down to a multiple of \a step, which is bounded to 1..64000.
int snapped(int column, int step);

/// Level of \a trace at \a column, which is not clamped: offset plus sample, or 129 where the trace
/// has no sample. The division by the step rounds toward zero, so with a delay of 0 a column less
/// than one step left of the first sample reads that sample.
int levelUnder(int column, const TraceRef &trace);

/// Cursor on \a trace: \a column snapped to the step of the trace, with the level there.
CursorPoint cursorOn(int column, const TraceRef &trace);

/// Cursor on \a trace drawn as its difference from \a master. The column is at most the master's
/// snapped column minus the master's delay, and not below 0. The level is always 129.
CursorPoint cursorOnDifference(int column, const TraceRef &master, const TraceRef &trace);

} // namespace calc
