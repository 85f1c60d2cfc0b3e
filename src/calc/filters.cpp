// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/filters.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace calc {

Curve smoothed(const Curve &curve, double width)
{
    // Beyond 1.25 widths the weights are below 2 %.
    const int reach = static_cast<int>(std::ceil(1.25 * width));
    Curve weights;
    for (int k = 0; k <= reach; ++k)
        weights.append(std::exp2(-4.0 * k * k / (width * width)));
    const int count = static_cast<int>(curve.size());
    Curve result(count);
    for (int i = 0; i < count; ++i) {
        double sum = curve[i];
        double total = 1.0;
        for (int k = 1; k <= std::min({ reach, i, count - 1 - i }); ++k) {
            sum += weights[k] * (curve[i - k] + curve[i + k]);
            total += 2.0 * weights[k];
        }
        result[i] = sum / total;
    }
    return result;
}

double median(Curve values)
{
    if (values.isEmpty())
        return 0.0;
    const auto middle = values.begin() + values.size() / 2;
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

Curve runningMedian(const Curve &curve, int reach)
{
    const int count = static_cast<int>(curve.size());
    Curve result(count);
    Curve window; // sorted
    int first = 0;
    int end = 0;
    for (int i = 0; i < count; ++i) {
        const int side = std::min({ reach, i, count - 1 - i });
        for (; end <= i + side; ++end)
            window.insert(std::upper_bound(window.begin(), window.end(), curve[end]), curve[end]);
        for (; first < i - side; ++first)
            window.erase(std::lower_bound(window.begin(), window.end(), curve[first]));
        result[i] = window[window.size() / 2];
    }
    return result;
}

Curve bridged(Curve curve, const Mask &masked)
{
    const int count = static_cast<int>(curve.size());
    int left = -1; // the nearest sample that is not masked
    for (int right = 0; right <= count; ++right) {
        if (right < count && masked[right])
            continue;
        if (left < 0 && right == count)
            break;
        const double from = curve[left < 0 ? right : left];
        const double to = curve[right == count ? left : right];
        for (int i = left + 1; i < right; ++i)
            curve[i] = from + (to - from) * (i - left) / (right - left);
        left = right;
    }
    return curve;
}

double spread(Curve values)
{
    // The lower 80 % of the magnitudes end at z = 1.281552 standard deviations; their mean is
    // sqrt(2 / pi) (1 - exp(-z^2 / 2)) / 0.8 of one.
    constexpr double share = 0.8;
    constexpr double meanMagnitude = 0.558610;
    if (values.isEmpty())
        return 0.0;
    for (double &value : values)
        value = std::abs(value);
    const int kept = std::max(1, static_cast<int>(share * double(values.size())));
    const auto end = values.begin() + kept;
    std::nth_element(values.begin(), end - 1, values.end());
    return std::accumulate(values.begin(), end, 0.0) / kept / meanMagnitude;
}

} // namespace calc
