// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "contrast.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

double linear(int channel)
{
    const double part = channel / 255.0;
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

/// Relative luminance of \a colour, 0 for black to 1 for white.
double luminance(QRgb colour)
{
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour))
        + 0.0722 * linear(qBlue(colour));
}

} // namespace

double contrast(QRgb one, QRgb other)
{
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

int apart(QRgb one, QRgb other)
{
    return std::max({ std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                      std::abs(qBlue(one) - qBlue(other)) });
}
