// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

/// \file
/// The visible range, and the bounds of the values that move it. Positions are counts. The zoom is
/// an exponent 0..8: the view is 250 * 2^exponent counts wide.

namespace calc {

/// A range of the horizontal axis, counts.
struct Range
{
    int min = 0;
    int max = 0;

    bool operator==(const Range &other) const
    {
        return min == other.min && max == other.max;
    }
};

// ---- Zoom ----

/// \a exponent clamped to 0..8.
int clampedScale(int exponent);

/// Counts across the view at zoom \a exponent, which is clamped to 0..8: 250, 500, ... 64000.
int visibleCounts(int exponent);

/// Caption of the scale button for zoom \a exponent, clamped to 0..8: 31.25 * 2^exponent, the
/// metres across the view at 0.125 m per count. The shortening factor is ignored.
float scaleDistance(int exponent);

/// Zoom exponent for a master with \a minstep ns between two samples: 0 for 1.25, 1 for 2.5, 2 for
/// 5. Not clamped: 0 ns gives the smallest int; negative values and NaN give 0.
int exponentForMinstep(float minstep);

/// Zoom exponent for the caption \a metres; the lower one between two captions. Not clamped: 0
/// gives the smallest int, negative values and NaN give 0.
int exponentOfDistance(double metres);

// ---- Range ----

/// \a range moved by \a step counts. A step that would pass 0 or 64000 is refused, not clipped. A
/// range that starts left of 0 is moved to 0.
Range scrolled(const Range &range, int step);

/// \a range moved so that \a column is in its middle, as far as 0 and 64000 allow. Computed in
/// single precision; half counts are truncated.
Range centredOn(int column, const Range &range);

/// Range for a master whose samples start at \a delay: the width at \a exponent, clamped to 0..8,
/// from \a delay on. It may lie beyond the axis; a delay that would overflow the right end is
/// lowered.
Range rangeFromDelay(quint32 delay, int exponent);

/// Counts to scroll by for a drag of \a pixels, positive to the right, at zoom \a exponent. 0 while
/// \a plotWidth, in pixels, is not above 0.
int panStep(int exponent, double pixels, float plotWidth);

// ---- Shifts of one trace ----

/// \a counts, clamped to -64000..64000, in whole samples of \a step counts, bounded to 1..64000.
/// Rounds toward zero: 7 and -7 counts in steps of 4 are 1 and -1.
int wholeSamples(int counts, int step);

/// \a offset clamped to -256..256 sample steps.
int clampedVerticalOffset(int offset);

// ---- Shortening factor ----

/// \a ku clamped to 1.0..10.0; NaN gives 1.0. Single precision on purpose: all distances are
/// computed from the rounded factor.
float clampedKU(double ku);

/// Metres of cable per count, one-way, at shortening factor \a ku, clamped as in clampedKU.
double metresPerCount(float ku);

/// Dial position for shortening factor \a ku: thousandths above 1.0, truncated in single precision;
/// 498 for the start-up factor 1.49896229.
int dialOfKU(float ku);

/// Shortening factor for dial position \a position, in thousandths above 1.0.
double kuOfDial(int position);

} // namespace calc
