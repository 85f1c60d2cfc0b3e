// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/reflections.h"

#include "base/constants.h"
#include "calc/numeric.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <vector>

namespace calc {
namespace {

/// How many standard deviations of a single sample a turn must differ from its surroundings. They
/// are looked at smoothed, which halves the noise: in truth this is twice as far out.
constexpr double noiseMultiple = 4.5;
/// Less than this is no turn even without noise: rounding alone makes steps of one.
constexpr double leastHeight = 2.0;
/// Median of the magnitude of normal noise, in standard deviations.
constexpr double medianMagnitude = 0.674489750196;
/// Weights of the smoothing: a bell narrower than any pulse that is sampled well.
constexpr int smoothing[] = { 1, 4, 6, 4, 1 };
constexpr int smoothingSum = 16;
constexpr int smoothingReach = 2;
/// The top of a turn is what lies within this share of its height from the extreme. The middle of
/// the top is steadier than the extreme sample, and right for a top that the converter cut off.
constexpr double topShare = 0.2;

/// A sloping quiet line is believed when the trace is nearer to it by this factor than to a level
/// one. Echoes that all point one way in one half of the trace look like a slope, but a poor one.
constexpr double believedSlope = 0.5;

/// A crest or a dip, in samples and in sample steps.
struct Turn
{
    double place = 0.0; ///< middle of its top
    double height = 0.0; ///< above its higher side
    double width = 0.0; ///< at half height
};

using Curve = std::vector<double>;
using Index = std::ptrdiff_t;

double medianOf(Curve values)
{
    const auto middle = values.begin() + static_cast<Index>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

Curve smoothed(const QVector<int> &levels, Index count)
{
    Curve curve(static_cast<std::size_t>(count));
    for (Index i = 0; i < count; ++i) {
        double sum = 0.0;
        for (Index k = -smoothingReach; k <= smoothingReach; ++k) {
            const Index at = std::clamp<Index>(i + k, 0, count - 1);
            sum += static_cast<double>(smoothing[k + smoothingReach])
                * levels[static_cast<int>(at)];
        }
        curve[static_cast<std::size_t>(i)] = sum / smoothingSum;
    }
    return curve;
}

/// Takes the median off \a curve and says how far, in the median, its values are from there.
double levelOut(Curve &curve)
{
    const double height = medianOf(curve);
    Curve distances;
    distances.reserve(curve.size());
    for (double &value : curve) {
        value -= height;
        distances.push_back(std::abs(value));
    }
    return medianOf(std::move(distances));
}

/// Takes the quiet line off \a curve: the level one of median height, or that of median slope.
void flatten(Curve &curve)
{
    Curve slopes;
    slopes.reserve(curve.size() * (curve.size() - 1) / 2);
    for (std::size_t left = 0; left < curve.size(); ++left)
        for (std::size_t right = left + 1; right < curve.size(); ++right)
            slopes.push_back((curve[right] - curve[left]) / static_cast<double>(right - left));
    const double slope = medianOf(std::move(slopes));
    Curve tilted = curve;
    for (std::size_t i = 0; i < tilted.size(); ++i)
        tilted[i] -= slope * static_cast<double>(i);
    const double level = levelOut(curve);
    if (levelOut(tilted) <= believedSlope * level)
        curve = std::move(tilted);
}

/// The outermost samples that \a curve reaches from \a at to both sides without falling to
/// \a floor.
std::pair<Index, Index> extent(const Curve &curve, Index at, double floor)
{
    const auto above = [&](Index i) { return curve[static_cast<std::size_t>(i)] > floor; };
    Index first = at;
    while (first > 0 && above(first - 1))
        --first;
    Index last = at;
    while (last + 1 < static_cast<Index>(curve.size()) && above(last + 1))
        ++last;
    return { first, last };
}

/// How deep \a curve falls left of \a from before it is as high as there again, or ends.
double lowestLeftOf(const Curve &curve, Index from)
{
    const double top = curve[static_cast<std::size_t>(from)];
    double lowest = top;
    for (Index i = from - 1; i >= 0 && curve[static_cast<std::size_t>(i)] < top; --i)
        lowest = std::min(lowest, curve[static_cast<std::size_t>(i)]);
    return lowest;
}

/// How deep \a curve falls right of \a from before it is higher than there, or ends. Of two tops
/// of one height this makes the first one the crest.
double lowestRightOf(const Curve &curve, Index from)
{
    const double top = curve[static_cast<std::size_t>(from)];
    double lowest = top;
    const auto end = static_cast<Index>(curve.size());
    for (Index i = from + 1; i < end && curve[static_cast<std::size_t>(i)] <= top; ++i)
        lowest = std::min(lowest, curve[static_cast<std::size_t>(i)]);
    return lowest;
}

/// Adds the crests of \a curve that are at least \a least high, measured from 0 and from the higher
/// one of their two sides, as turns of sign \a sign.
void addCrests(const Curve &curve, double least, double sign, std::vector<Turn> &turns)
{
    const auto end = static_cast<Index>(curve.size());
    for (Index i = 0; i < end; ++i) {
        const double top = curve[static_cast<std::size_t>(i)];
        if (top < least)
            continue;
        // Where the trace ends before it falls, there is no side, and the height is 0.
        const double side = std::max(lowestLeftOf(curve, i), lowestRightOf(curve, i));
        const double height = top - std::max(side, 0.0);
        if (height < least)
            continue;
        const auto crown = extent(curve, i, top - topShare * height);
        const auto half = extent(curve, i, top - height / 2.0);
        turns.push_back({ static_cast<double>(crown.first + crown.second) / 2.0, sign * height,
                          static_cast<double>(half.second - half.first + 1) });
    }
}

/// True when \a turn is no taller than an echo of echoes that would stand at its place: those of
/// all pairs of \a earlier turns, thrown forward again by a third one before both.
bool isEchoOfEchoes(const Turn &turn, const std::vector<Turn> &earlier, double tallest)
{
    // Noise moves a crest, and two bells at less than half their width are one.
    const double reach = turn.width / 3.0;
    for (std::size_t i = 0; i < earlier.size(); ++i) {
        for (std::size_t k = 0; k <= i; ++k) {
            const double pair = std::abs(earlier[i].height * earlier[k].height) * (i == k ? 1 : 2);
            for (std::size_t j = 0; j < k; ++j) {
                const double place = earlier[i].place + earlier[k].place - earlier[j].place;
                const double height = pair * std::abs(earlier[j].height) / (tallest * tallest);
                if (std::abs(place - turn.place) <= reach && std::abs(turn.height) <= height)
                    return true;
            }
        }
    }
    return false;
}

} // namespace

double noiseOf(const QVector<int> &levels)
{
    const Index count = std::min<Index>(levels.size(), constants::drawnSamples);
    if (count < 3)
        return 0.0;
    std::vector<double> bends;
    for (int i = 1; i + 1 < count; ++i)
        bends.push_back(std::abs(static_cast<double>(levels[i - 1])
                                 - 2.0 * static_cast<double>(levels[i])
                                 + static_cast<double>(levels[i + 1])));
    std::sort(bends.begin(), bends.end());
    // The median of whole numbers jumps by whole steps. Those that share its value are spread
    // evenly over what was rounded to it, and the median is where half of them all lie below.
    const double value = bends[bends.size() / 2];
    const auto range = std::equal_range(bends.begin(), bends.end(), value);
    const double below = static_cast<double>(std::distance(bends.begin(), range.first));
    const double equal = static_cast<double>(std::distance(range.first, range.second));
    const double from = std::max(0.0, value - 0.5);
    const double share = (static_cast<double>(bends.size()) / 2.0 - below) / equal;
    const double median = from + (value + 0.5 - from) * share;
    // The noise of three samples is in each, that of the middle one twice: 1 + 4 + 1.
    return median / medianMagnitude / std::sqrt(6.0);
}

QVector<int> reflections(const QVector<int> &levels)
{
    const Index count = std::min<Index>(levels.size(), constants::drawnSamples);
    if (count < static_cast<Index>(std::size(smoothing)))
        return {};
    const double least = std::max(noiseMultiple * noiseOf(levels), leastHeight);
    Curve curve = smoothed(levels, count);
    flatten(curve);

    std::vector<Turn> turns;
    addCrests(curve, least, 1.0, turns);
    for (double &value : curve)
        value = -value;
    addCrests(curve, least, -1.0, turns);
    std::sort(turns.begin(), turns.end(),
              [](const Turn &a, const Turn &b) { return a.place < b.place; });

    double tallest = 0.0;
    for (const Turn &turn : turns)
        tallest = std::max(tallest, std::abs(turn.height));
    QVector<int> places;
    std::vector<Turn> earlier;
    for (const Turn &turn : turns) {
        if (!isEchoOfEchoes(turn, earlier, tallest))
            places.append(truncated(turn.place));
        earlier.push_back(turn);
    }
    return places;
}

int nextColumn(const QVector<int> &columns, int column)
{
    const auto found = std::upper_bound(columns.begin(), columns.end(), column);
    return found == columns.end() ? -1 : *found;
}

int previousColumn(const QVector<int> &columns, int column)
{
    const auto found = std::lower_bound(columns.begin(), columns.end(), column);
    return found == columns.begin() ? -1 : *std::prev(found);
}

} // namespace calc
