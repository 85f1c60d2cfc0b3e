// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// \file
/// Numbers as texts for the user, always with a decimal point. Translated words and units are
/// arguments.

namespace calc {

constexpr int distanceDecimals = 2; ///< metres are shown to the centimetre
constexpr int kuDecimals = 3;

/// Metres along the cable for \a counts of echo time (one count is 1.25 ns, there and back).
/// \a metresPerCount includes the shortening factor and the halving for the two ways.
double countsToMetres(int counts, double metresPerCount);

/// Distance text of \a counts: metres with two decimals, a blank and \a suffix.
QString distanceText(int counts, double metresPerCount, const QString &suffix);

/// Level text: the number, or an empty text for 129, which means "no level".
QString levelText(int level);

/// Shortening factor with three decimals.
QString kuText(float ku);

/// \a value in general notation with at most six significant digits: 31.25, 8000.
QString generalText(double value);

/// Caption of the scale: \a metres in general notation, a blank and "m" in every language.
QString scaleText(float metres);

} // namespace calc
