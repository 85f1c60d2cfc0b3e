// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "calc/trace_points.h"

/// \file
/// What stands under a cursor. A column is a position on the horizontal axis in counts, 0..64000; a
/// level is a height in sample steps. The level 129 says that there is none: no sample can have it,
/// and it is shown as an empty text.

namespace calc {

/// Where a cursor stands and what it reads there.
struct CursorPoint
{
    int column = 0;
    int level = 0;
};

/// \a column clamped to 0..64000.
int clampedColumn(int column);

/// \a column, clamped, at the nearest whole multiple of \a step at or left of it; \a step is bounded
/// to 1..64000.
int snapped(int column, int step);

/// Level of \a trace at \a column, which is taken as it is: offset plus sample, or 129 where the
/// trace has no sample. The division by the step rounds toward zero, so less than one step left of
/// the first sample still reads that sample when the delay is 0.
int levelUnder(int column, const TraceRef &trace);

/// A cursor on \a trace as it is drawn by itself: snapped to its step, with the level there.
CursorPoint cursorOn(int column, const TraceRef &trace);

/// A cursor on \a trace while it is drawn as its difference from \a master. The column is also held
/// at or left of the master's own snapped column less the master's delay, but not below 0. The
/// level is always 129: under a difference the viewer reads none.
CursorPoint cursorOnDifference(int column, const TraceRef &master, const TraceRef &trace);

} // namespace calc
