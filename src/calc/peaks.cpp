// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/peaks.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace calc {
namespace {

/// Least height of a peak in standard deviations of the noise. With estimateErrors it keeps the
/// false peaks in noise alone, correlated over 0 to 10 samples, below 0.1 per trace.
constexpr double noiseMultiple = 2.7;
/// Standard errors that are added to the estimate of the noise. The standard error of a standard
/// deviation s from n independent values is s / sqrt(2 n).
constexpr double estimateErrors = 5.5;
/// Least height of a peak in sample steps. Rounding of the samples alone gives peaks of one; where
/// the baseline bends, its error is one or two.
constexpr double leastHeight = 3.0;
/// Sample steps at which the converter saturates. One with a symmetrical range saturates at -127.
constexpr double highestLevel = 127.0;
constexpr double lowestLevel = -128.0;
constexpr double roundingError = 0.29; ///< sample steps, standard deviation: 1 / sqrt(12)

/// Widths of the matched filters, samples at half height. A pulse is at most 1.3 times wider or
/// narrower than one of them, which costs 2 % of the signal-to-noise ratio.
constexpr double filterWidths[] = { 2.0, 3.0, 5.0, 8.0, 12.0, 18.0 };
constexpr double widestEcho = 50.0; ///< samples at half height: a pulse of 25, broadened twofold
/// Samples of the running median on each side: more than the widest echo, which the baseline must
/// not follow, and together at most half of the drawn trace.
constexpr int baselineReach = 60;
constexpr double baselineSmoothing = 5.0; ///< samples; removes the steps of the median
constexpr double lightSmoothing = 3.0; ///< samples; where the pulse width is not known yet
/// Smoothing as a share of the pulse width. The full width would be best against noise alone; half
/// of it costs 11 % of the signal-to-noise ratio and keeps neighbouring echoes apart.
constexpr double smoothingShare = 0.5;

constexpr double leastFree = 0.25; ///< least share of the samples that the noise is measured on
/// Distance of the three samples of a second difference: more than the correlation length of most
/// noise, and so short that a droop is straight over it.
constexpr int differenceStep = 8;
constexpr double valleySpan = 6.0; ///< widths; between peaks farther apart, no peak is a valley

double signOf(const Peak &peak)
{
    return peak.height > 0.0 ? 1.0 : -1.0;
}

Curve difference(Curve curve, const Curve &other)
{
    for (int i = 0; i < curve.size(); ++i)
        curve[i] -= other[i];
    return curve;
}

/// First and last sample of the run around \a at in which \a curve times \a sign is above \a floor.
std::pair<int, int> extent(const Curve &curve, int at, double sign, double floor)
{
    int first = at;
    while (first > 0 && sign * curve[first - 1] > floor)
        --first;
    int last = at;
    while (last + 1 < curve.size() && sign * curve[last + 1] > floor)
        ++last;
    return { first, last };
}

/// Marks the samples that show neither the noise nor the baseline: those at a limit of the
/// converter, and the falling half of the launched pulse.
Mask withoutNoise(const Curve &curve)
{
    Mask mask;
    for (const double level : curve)
        mask.append(std::abs(level) == highestLevel || level == lowestLevel);
    const Curve smooth = smoothed(curve, lightSmoothing);
    const double sign = smooth[0] > smooth[1] ? 1.0 : -1.0;
    int foot = 0;
    while (foot + 1 < smooth.size() && sign * smooth[foot + 1] < sign * smooth[foot])
        ++foot;
    const double middle = (smooth[0] + smooth[foot]) / 2.0;
    const int width = 2 * (extent(smooth, 0, sign, sign * middle).second + 1);
    if (width <= widestEcho)
        std::fill(mask.begin(), mask.begin() + std::min<int>(width + 1, int(mask.size())), true);
    return mask;
}

/// Slope per sample of the straight line through most of \a curve; 0 unless the curve is at least
/// twice as near to this line as to a horizontal one.
double slopeOf(const Curve &curve)
{
    const int half = static_cast<int>(curve.size()) / 2;
    Curve slopes;
    for (int i = 0; i + half < curve.size(); ++i)
        slopes.append((curve[i + half] - curve[i]) / half);
    const double slope = median(slopes);
    const auto deviation = [&curve](double tilt) {
        Curve rest;
        for (int i = 0; i < curve.size(); ++i)
            rest.append(curve[i] - tilt * i);
        const double middle = median(rest);
        for (double &value : rest)
            value = std::abs(value - middle);
        return median(rest);
    };
    return deviation(slope) <= deviation(0.0) / 2.0 ? slope : 0.0;
}

/// Baseline of the trace \a curve, which is straight under the \a covered samples.
Curve baselineOf(const Curve &curve, const Mask &covered)
{
    Curve line = bridged(smoothed(curve, lightSmoothing), covered);
    // The slope is removed before the median, which would follow the noise on a ramp.
    const double slope = slopeOf(line);
    for (int i = 0; i < line.size(); ++i)
        line[i] -= slope * i;
    line = smoothed(runningMedian(line, baselineReach), baselineSmoothing);
    for (int i = 0; i < line.size(); ++i)
        line[i] += slope * i;
    return line;
}

/// The \a values that are not \a masked.
Curve without(const Curve &values, const Mask &masked)
{
    Curve rest;
    for (int i = 0; i < values.size(); ++i)
        if (!masked[i])
            rest.append(values[i]);
    return rest;
}

/// Upper bound of the standard deviation of the noise of \a smooth where it is not \a covered.
/// \a deviation is the distance of \a smooth from the baseline. The number of its sign changes is
/// taken for the number of independent values.
double noiseOf(const Curve &smooth, const Curve &deviation, const Mask &covered)
{
    // On a slope the baseline follows the noise and hides it; second differences still show it.
    Curve bends;
    for (int i = differenceStep; i + differenceStep < smooth.size(); ++i) {
        const int before = i - differenceStep;
        const int behind = i + differenceStep;
        if (!covered[before] && !covered[i] && !covered[behind])
            bends.append(smooth[i] - (smooth[before] + smooth[behind]) / 2.0);
    }
    // The variance of a second difference is 1 + 1/4 + 1/4 times that of its independent values.
    const double noise
        = std::max(spread(without(deviation, covered)), spread(bends) / std::sqrt(1.5));
    int changes = 1;
    for (int i = 1; i < deviation.size(); ++i)
        if (!covered[i - 1] && !covered[i] && (deviation[i - 1] < 0.0) != (deviation[i] < 0.0))
            ++changes;
    return noise * (1.0 + estimateErrors / std::sqrt(2.0 * changes));
}

/// The filter width with the greatest ratio of \a curve to its noise, \a covered samples excluded.
double matchedWidth(const Curve &curve, const Curve &baseline, const Mask &covered)
{
    double matched = 0.0;
    double greatest = -1.0;
    for (const double width : filterWidths) {
        const Curve deviation = without(difference(smoothed(curve, width), baseline), covered);
        double tallest = 0.0;
        for (const double value : deviation)
            tallest = std::max(tallest, std::abs(value));
        const double ratio = tallest / std::max(spread(deviation), roundingError);
        if (ratio > greatest) {
            greatest = ratio;
            matched = width;
        }
    }
    return matched;
}

/// Adds the peaks of \a smooth with \a sign; \a deviation is its distance from the baseline.
void addPeaks(const Curve &smooth, const Curve &deviation, double sign, Peaks &peaks)
{
    const auto level = [&](int i) { return sign * smooth[i]; };
    const int count = static_cast<int>(smooth.size());
    for (int i = 1; i + 1 < count; ++i) {
        const double top = level(i);
        const double height = sign * deviation[i];
        if (height < leastHeight || level(i - 1) >= top || level(i + 1) > top)
            continue;
        double left = top;
        for (int k = i - 1; k >= 0 && level(k) < top; --k)
            left = std::min(left, level(k));
        double right = top;
        for (int k = i + 1; k < count && level(k) <= top; ++k)
            right = std::min(right, level(k));
        const double prominence = top - std::max(left, right);
        const auto [first, last] = extent(deviation, i, sign, height / 2.0);
        const int width = last - first + 1;
        if (prominence < leastHeight || width > widestEcho)
            continue;
        // A clipped peak has a flat top. The middle of an even number of samples is rounded to
        // even, so that the crests are not biased to one side.
        const auto [from, to] = extent(smooth, i, sign, top - 1.0e-6);
        const int middle = static_cast<int>(std::nearbyint((from + to) / 2.0));
        peaks.append({ middle, middle, sign * height, prominence, double(width) });
    }
}

/// Reduces \a peaks to those that stand out from the noise, and adds the samples that they cover to
/// \a covered. Returns the least height and prominence of a peak that stands out.
///
/// The peaks raise the measured noise. So they are removed from the trace one by one, the tallest
/// first, and the noise of the rest is measured each time. The last peak that is tall enough for
/// the noise of the rest stands out, and so do all taller ones.
double keepEchoes(Peaks &peaks, const Curve &smooth, const Curve &deviation, Mask &covered)
{
    const auto limit = [&](const Mask &mask) {
        return std::max(noiseMultiple * noiseOf(smooth, deviation, mask), leastHeight);
    };
    std::sort(peaks.begin(), peaks.end(),
              [](const Peak &a, const Peak &b) { return std::abs(a.height) > std::abs(b.height); });
    const int count = static_cast<int>(deviation.size());
    Mask removed = covered;
    double floor = limit(covered);
    int kept = 0;
    for (int i = 0; i < peaks.size(); ++i) {
        const int reach = static_cast<int>(peaks[i].width);
        const int first = std::max(peaks[i].at - reach, 0);
        const int end = std::min(peaks[i].at + reach + 1, count);
        std::fill(removed.begin() + first, removed.begin() + end, true);
        if (static_cast<double>(removed.count(false)) < leastFree * count)
            break;
        const double rest = limit(removed);
        if (std::abs(peaks[i].height) >= rest) {
            kept = i + 1;
            floor = rest;
            covered = removed;
        }
    }
    peaks.resize(kept);
    const auto low = [floor](const Peak &peak) { return peak.prominence < floor; };
    peaks.erase(std::remove_if(peaks.begin(), peaks.end(), low), peaks.end());
    return floor;
}

/// True when peak \a i of \a peaks may be only the valley between two close peaks of the other
/// sign: it goes less than \a floor beyond the level outside of them. That level is read as far
/// outside of their crests as the valley is inside, where each of them adds the same.
bool isValley(const Peaks &peaks, int i, const Curve &smooth, double floor)
{
    if (i == 0 || i + 1 == peaks.size())
        return false;
    const Peak &left = peaks[i - 1];
    const Peak &peak = peaks[i];
    const Peak &right = peaks[i + 1];
    if (left.height * peak.height > 0.0 || right.height * peak.height > 0.0
        || right.at - left.at > valleySpan * std::max(left.width, right.width))
        return false;
    const int before = std::max(2 * left.at - peak.at, 0);
    const int behind = std::min(2 * right.at - peak.at, static_cast<int>(smooth.size()) - 1);
    const double outside = (smooth[before] + smooth[behind]) / 2.0;
    return signOf(peak) * (smooth[peak.at] - outside) < floor;
}

} // namespace

Findings peaksOf(const Curve &curve)
{
    const Mask excluded = withoutNoise(curve);
    Curve baseline = baselineOf(curve, excluded);
    const double width = smoothingShare * matchedWidth(curve, baseline, excluded);
    const Curve smooth = smoothed(curve, width);
    Peaks peaks;
    double floor = 0.0;
    for (int pass = 0; pass < 2; ++pass) {
        const Curve deviation = difference(smooth, baseline);
        peaks.clear();
        addPeaks(smooth, deviation, 1.0, peaks);
        addPeaks(smooth, deviation, -1.0, peaks);
        Mask covered = excluded;
        floor = keepEchoes(peaks, smooth, deviation, covered);
        baseline = baselineOf(curve, covered);
    }
    std::sort(peaks.begin(), peaks.end(), [](const Peak &a, const Peak &b) { return a.at < b.at; });
    Findings found;
    found.noise = floor / noiseMultiple;
    for (int i = 0; i < peaks.size(); ++i) {
        if (isValley(peaks, i, smooth, floor))
            continue;
        const double sign = signOf(peaks[i]);
        const auto lower = [&](int a, int b) {
            return std::make_pair(sign * curve[a], sign * smooth[a])
                < std::make_pair(sign * curve[b], sign * smooth[b]);
        };
        Peak peak = peaks[i];
        peak.crest = std::max({ peak.at, peak.at - 1, peak.at + 1 }, lower);
        found.peaks.append(peak);
    }
    return found;
}

} // namespace calc
