// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "calc/filters.h"

/// \file
/// Finds peaks that stand out from the noise of a curve: the first half of the reflection finder.

namespace calc {

/// A local extremum of the smoothed trace, positive or negative.
struct Peak
{
    int at = 0; ///< its sample on the smoothed trace
    int crest = 0; ///< sample of the trace with the extreme level: \c at or one of its neighbours
    double height = 0.0; ///< sample steps above the baseline; below 0 for a negative peak
    double prominence = 0.0; ///< distance from the nearer of its two feet in sample steps, above 0
    double width = 0.0; ///< samples at half height
};
using Peaks = QVector<Peak>;

/// The result of the search.
struct Findings
{
    Peaks peaks; ///< from left to right
    double noise = 0.0; ///< sample steps: upper bound of the standard deviation after smoothing
};

/// Finds the peaks of \a curve, at least two samples of a trace in sample steps.
Findings peaksOf(const Curve &curve);

} // namespace calc
