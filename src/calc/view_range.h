// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

/// \file
/// Which stretch of the cable is visible, and the bounds of everything that moves it. Positions are
/// counts, zoom is an exponent 0..8: the view is 250 * 2^exponent counts wide.

namespace calc {

/// A stretch of the horizontal axis, counts.
struct Range
{
    int min = 0;
    int max = 0;

    bool operator==(const Range &other) const
    {
        return min == other.min && max == other.max;
    }
    bool operator!=(const Range &other) const
    {
        return !(*this == other);
    }
};

// ---- Zoom ----

/// \a exponent brought into 0..8.
int clampedScale(int exponent);

/// Counts across the view at zoom \a exponent, which is clamped to 0..8: 250, 500, ... 64000.
int visibleCounts(int exponent);

/// What the scale button shows for zoom \a exponent, clamped to 0..8: 31.25 * 2^exponent. Metres
/// across the view at 0.125 m per count, whatever the velocity factor is.
float scaleDistance(int exponent);

/// Zoom exponent that suits a master with \a minstep ns between samples, one count to a sample: 0
/// for 1.25, 1 for 2.5, 2 for 5. Not clamped: 0 ns gives the smallest int; negative and NaN give 0.
int exponentForMinstep(float minstep);

/// Zoom exponent of a caption value as scaleDistance makes them, in metres; between two of them,
/// the lower exponent. Not clamped: 0 gives the smallest int, negative and NaN give 0.
int exponentOfDistance(double metres);

// ---- Range ----

/// \a range moved by \a step counts. A step that would pass 0 or 64000 is refused whole: the view
/// never creeps up to an end. A range that lies left of 0 already is put back to 0 in its width.
Range scrolled(const Range &range, int step);

/// \a range moved so that \a column lies in its middle, or as near to it as 0 and 64000 allow. The
/// width is kept. Computed in single precision, as the view always has been: half counts truncate.
Range centredOn(int column, const Range &range);

/// The stretch to show for a master whose samples start at \a delay: the whole width at \a exponent
/// (clamped to 0..8) from \a delay on. A delay that would overflow the right end is lowered; it is
/// otherwise free to lie beyond the axis.
Range rangeFromDelay(quint32 delay, int exponent);

/// Counts to scroll by when the mouse drags the plot by \a pixels at zoom \a exponent; positive is
/// to the right. 0 while \a plotWidth, in pixels, is not above 0.
int panStep(int exponent, double pixels, float plotWidth);

// ---- Shifts of one trace ----

/// Horizontal shift in whole samples for one of \a counts, which is clamped to -64000..64000. The
/// division by \a step, counts per sample and at least 1, rounds toward zero: 7 and -7 counts in
/// steps of 4 are 1 and -1.
int wholeSamples(int counts, int step);

/// \a offset brought into -256..256 sample steps.
int clampedVerticalOffset(int offset);

// ---- Velocity factor ----

/// \a ku brought into 1.0..10.0; NaN gives 1.0. Single precision on purpose: the whole view is
/// computed from the rounded factor.
float clampedKU(double ku);

/// Metres of cable per count at velocity factor \a ku, which is clamped as in clampedKU. The way
/// there and back is halved already.
double metresPerCount(float ku);

/// Dial position for velocity factor \a ku: thousandths above 1.0, truncated in single precision,
/// so that the start-up factor 1.49896229 stands at 498.
int dialOfKU(float ku);

/// Velocity factor for dial position \a position; the inverse of dialOfKU but for the truncation.
double kuOfDial(int position);

} // namespace calc
