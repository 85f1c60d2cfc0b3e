// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "calc/filters.h"

/// \file
/// Peaks that stand out from the noise of a curve: the first half of the search for reflections.

namespace calc {

/// A crest or a dip of the smoothed trace.
struct Peak
{
    int at = 0; ///< its sample on the smoothed trace
    int crest = 0; ///< the sample of the trace with the highest level, the lowest of a dip: \c at
                   ///< or one of its neighbours
    double height = 0.0; ///< above the baseline, negative for a dip
    double prominence = 0.0; ///< height above the higher one of its two feet
    double width = 0.0; ///< samples at half height
};
using Peaks = QVector<Peak>;

/// What stands out on a curve.
struct Findings
{
    Peaks peaks; ///< from left to right
    double noise = 0.0; ///< sample steps: upper bound of the standard deviation after smoothing
};

/// Finds the peaks of \a curve, at least two samples of a trace in sample steps.
Findings peaksOf(const Curve &curve);

} // namespace calc
