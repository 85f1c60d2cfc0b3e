// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/numeric.h"

#include <cmath>
#include <limits>

namespace calc {

namespace {

constexpr int smallest = std::numeric_limits<int>::min();
constexpr int largest = std::numeric_limits<int>::max();

} // namespace

int truncated(double value)
{
    if (std::isnan(value))
        return 0;
    // Both bounds are exact as doubles. A cast of a value beyond them is undefined behaviour.
    if (value <= static_cast<double>(smallest))
        return smallest;
    if (value >= static_cast<double>(largest))
        return largest;
    return static_cast<int>(value);
}

int truncated(float value)
{
    return truncated(static_cast<double>(value));
}

int saturated(qint64 value)
{
    if (value < smallest)
        return smallest;
    if (value > largest)
        return largest;
    return static_cast<int>(value);
}

} // namespace calc
