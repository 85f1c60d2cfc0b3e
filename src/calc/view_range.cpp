// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/view_range.h"

#include "base/constants.h"
#include "calc/numeric.h"
#include "calc/tdr_record.h"
#include "miscfunc.h"

#include <cmath>
#include <limits>

namespace {

/// Metres per count in the scale caption: a round number that ignores KU.
constexpr double captionMetresPerCount = constants::nsPerCount / 10.0;

} // namespace

namespace calc {

int clampedScale(int exponent)
{
    return qBound(constants::minScale, exponent, constants::maxScale);
}

int visibleCounts(int exponent)
{
    return constants::drawnSamples << clampedScale(exponent);
}

float scaleDistance(int exponent)
{
    return static_cast<float>(visibleCounts(exponent) * captionMetresPerCount);
}

int exponentForMinstep(float minstep)
{
    return truncated(std::log2(static_cast<double>(minstep) / constants::nsPerCount));
}

int exponentOfDistance(double metres)
{
    const double factor = metres * 10.0 / constants::drawnSamples / constants::nsPerCount;
    return truncated(std::log(factor) / std::log(2.0));
}

Range scrolled(const Range &range, int step)
{
    qint64 left = qint64{ range.min } + step;
    qint64 right = qint64{ range.max } + step;
    if (left < 0 || right > constants::xLength) {
        left = range.min;
        right = range.max;
    }
    if (left < 0)
        return { 0, saturated(right - left) };
    return { saturated(left), saturated(right) };
}

Range centredOn(int column, const Range &range)
{
    const auto half
        = static_cast<float>(static_cast<double>(qint64{ range.max } - range.min) / 2.0);
    const auto position = static_cast<float>(column);
    const auto end = static_cast<float>(constants::xLength);
    if (position > end - half)
        return { truncated(end - 2.0F * half), constants::xLength };
    if (position > half)
        return { truncated(position - half), truncated(position + half) };
    return { 0, truncated(2.0F * half) };
}

Range rangeFromDelay(quint32 delay, int exponent)
{
    constexpr auto latest
        = static_cast<quint32>(std::numeric_limits<int>::max() - constants::xLength);
    const auto min = static_cast<int>(qMin(delay, latest));
    return { min, min + visibleCounts(exponent) };
}

int panStep(int exponent, double pixels, float plotWidth)
{
    if (!(plotWidth > 0.0F))
        return 0;
    const double countsPerPixel = static_cast<double>(m_pow2(clampedScale(exponent)))
        * (constants::drawnSamples / static_cast<double>(plotWidth));
    return truncated(countsPerPixel * pixels);
}

int wholeSamples(int counts, int step)
{
    return qBound(-constants::xLength, counts, constants::xLength) / usableStep(step);
}

int clampedVerticalOffset(int offset)
{
    return qBound(-constants::verticalOffsetLimit, offset, constants::verticalOffsetLimit);
}

float clampedKU(double ku)
{
    if (ku > static_cast<double>(constants::maxKU))
        return constants::maxKU;
    // Also true for NaN.
    if (!(ku >= static_cast<double>(constants::minKU)))
        return constants::minKU;
    return static_cast<float>(ku);
}

double metresPerCount(float ku)
{
    return constants::distCoef0 / static_cast<double>(clampedKU(static_cast<double>(ku)));
}

int dialOfKU(float ku)
{
    return truncated((ku - constants::minKU) * constants::kuDialUnits);
}

double kuOfDial(int position)
{
    return position / static_cast<double>(constants::kuDialUnits)
        + static_cast<double>(constants::minKU);
}

} // namespace calc
