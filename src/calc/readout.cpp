// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/readout.h"

#include "base/constants.h"

namespace calc {

namespace {

constexpr int generalDigits = 6; ///< significant digits where no decimals are prescribed

} // namespace

double countsToMetres(int counts, double metresPerCount)
{
    return counts * metresPerCount;
}

QString distanceText(int counts, double metresPerCount, const QString &suffix)
{
    const double metres = countsToMetres(counts, metresPerCount);
    return QString::number(metres, 'f', distanceDecimals) + QLatin1Char(' ') + suffix;
}

QString levelText(int level)
{
    return level == constants::noLevel ? QString() : QString::number(level);
}

QString kuText(float ku)
{
    return QString::number(static_cast<double>(ku), 'f', kuDecimals);
}

QString generalText(double value)
{
    return QString::number(value, 'g', generalDigits);
}

QString scaleText(float metres)
{
    return generalText(static_cast<double>(metres)) + QLatin1String(" m");
}

} // namespace calc
