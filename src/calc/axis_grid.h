// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/constants.h"
#include "calc/view_range.h"

#include <QString>

/// \file
/// The vertical grid lines under the traces, at round distances in metres on an axis in counts.

namespace calc {

/// Metres between two grid lines for \a span metres across the plot: 1.25, 2.5 or 5 times a power
/// of ten, the largest of them that gives 7 to 20 intervals. 0 when \a span is not a finite number
/// above 0, or so small that the step underflows.
double gridStep(double span);

/// Positions and labels of the visible grid lines.
struct GridPlan
{
    /// One grid line with its label. An invisible one has offset 0 and no text.
    struct Line
    {
        bool visible = false;
        double offset = 0.0; ///< pixels to the right of the plot's left edge
        QString text; ///< metres without a unit; empty on some of the visible lines
    };

    Line edges[constants::gridEdges]; ///< at the left and at the right edge of the plot
    Line interior[constants::gridLines]; ///< from left to right; the visible ones are the first
};

/// Grid for \a range, at \a metresPerCount, on a plot \a plotWidth pixels wide. Offsets are 0 while
/// the plot has no width. No line is visible when the visible distance has no grid step.
GridPlan planGrid(const Range &range, double metresPerCount, float plotWidth);

} // namespace calc
