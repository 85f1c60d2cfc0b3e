// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVector>

/// \file
/// Operations on sampled curves, for the reflection finder.

namespace calc {

using Curve = QVector<double>; ///< one value per sample
using Mask = QVector<bool>; ///< one flag per sample

/// \a curve filtered with a Gaussian of \a width samples (above 0) at half height. Near an end the
/// kernel is cut to the same length on both sides, so that the filter shifts nothing.
Curve smoothed(const Curve &curve, double width);

/// Median of \a values, the upper one of the middle two for an even count; 0 for none.
double median(Curve values);

/// Median of the samples up to \a reach before and behind each sample. Near an end the window is
/// cut to the same length on both sides: a curve that only rises or only falls stays as it is.
Curve runningMedian(const Curve &curve, int reach);

/// \a curve with each run of \a masked samples replaced by the straight line between the two
/// samples beside it, or at an end by the value of the one beside it. Unchanged if all are masked.
Curve bridged(Curve curve, const Mask &masked);

/// Standard deviation of normally distributed \a values of mean 0, estimated from the smallest
/// 80 % of their magnitudes; 0 when there are none.
double spread(Curve values);

} // namespace calc
