// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// \file
/// Numbers as the user reads them, always with a decimal point. Words and units that are translated
/// come as arguments.

namespace calc {

/// Metres along the cable for \a counts of echo time (one count is 1.25 ns, there and back).
/// \a metresPerCount already holds the velocity factor and the halving; nothing is divided again
/// here.
double countsToMetres(int counts, double metresPerCount);

/// Distance text of \a counts: metres with two decimals, a blank and \a suffix.
QString distanceText(int counts, double metresPerCount, const QString &suffix);

/// Level text: the number, or nothing at all for 129, which stands for "no level". A vertical
/// offset that happens to be 129 is therefore shown as nothing too wherever this is used.
QString levelText(int level);

/// Velocity factor with three decimals.
QString kuText(float ku);

/// \a value in general notation with at most six significant digits: 31.25, 8000.
QString generalText(double value);

/// Caption value of the scale: \a metres in general notation, a blank and "m", which no language
/// and no velocity factor changes.
QString scaleText(float metres);

} // namespace calc
