// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/reflections.h"

#include "base/constants.h"
#include "calc/numeric.h"
#include "calc/peaks.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace calc {
namespace {

constexpr int leastSamples = 5; ///< a shorter trace is not searched

/// Fraction of its height by which a spike exceeds both its neighbours. A pulse of 1.5 samples at
/// half height, with its crest on a sample, exceeds them by 0.7.
constexpr double spikeShare = 0.7;
constexpr double spikeSteps = 4.0; ///< least excess in median steps between two samples

/// A multiple reflection is expected within this many samples plus this share of its width.
constexpr double placeError = 1.0;
constexpr double placeErrorShare = 1.0 / 6.0;
/// Greatest reflection coefficient of the instrument's own terminals: a mismatch of 7 to 3.
constexpr double terminalReflection = 0.4;

/// \a curve with each single sample that sticks out replaced by the mean of its neighbours.
Curve withoutSpikes(const Curve &curve)
{
    Curve steps;
    for (int i = 1; i < curve.size(); ++i)
        steps.append(std::abs(curve[i] - curve[i - 1]));
    const double noise = spikeSteps * std::max(median(steps), 1.0);
    Curve result = curve;
    for (int i = 1; i + 1 < curve.size(); ++i) {
        const auto [low, high] = std::minmax(curve[i - 1], curve[i + 1]);
        const double excess = std::max(curve[i] - high, low - curve[i]);
        const double height = std::abs(curve[i] - median(curve.mid(std::max(i - 3, 0), 7)));
        if (excess > noise && excess > spikeShare * height)
            result[i] = (low + high) / 2.0;
    }
    return result;
}

/// True when \a peak lies where a multiple reflection can be, and is no taller than it can be.
///
/// A pulse can be reflected by place k, then by a place j before it, and then by place i behind j.
/// Its echo arrives at i + k - j. The height of the echo is at most the product of the three
/// reflections, as shares of the tallest one; twice that when i and k differ, because the pulse
/// also meets them in the other order. The first of \a earlier is the terminals of the instrument.
bool isMultiple(const Peak &peak, const Peaks &earlier, double tallest, double noise)
{
    const double reach = placeError + placeErrorShare * peak.width;
    for (int i = 1; i < earlier.size(); ++i)
        for (int k = 1; k <= i; ++k) {
            const double pair = std::abs(earlier[i].height * earlier[k].height) * (i == k ? 1 : 2);
            for (int j = 0; j < k; ++j) {
                const double place
                    = double(earlier[i].at) + earlier[k].at - earlier[j].at - peak.at;
                const double height = pair * std::abs(earlier[j].height) / (tallest * tallest);
                if (std::abs(place) <= reach && std::abs(peak.height) <= height + noise)
                    return true;
            }
        }
    return false;
}

} // namespace

QVector<Echo> findEchoes(const QVector<int> &levels, int start)
{
    if (levels.size() < leastSamples)
        return {};
    Curve curve;
    for (int i = 0; i < levels.size() && i < constants::drawnSamples; ++i)
        curve.append(levels[i]);
    Findings found = peaksOf(withoutSpikes(curve));
    if (found.peaks.isEmpty()) {
        // On a trace without peaks, two or more spikes are echoes of a very narrow pulse.
        found = peaksOf(curve);
        if (found.peaks.size() < 2)
            return {};
    }
    double tallest = 0.0;
    for (const Peak &peak : std::as_const(found.peaks))
        tallest = std::max(tallest, std::abs(peak.height));
    Peak terminals;
    terminals.at = -std::max(start, 0);
    terminals.height = terminalReflection * tallest;
    Peaks earlier = { terminals };
    QVector<Echo> echoes;
    for (const Peak &peak : std::as_const(found.peaks)) {
        if (!isMultiple(peak, earlier, tallest, found.noise))
            echoes.append({ peak.crest, peak.height });
        earlier.append(peak);
    }
    return echoes;
}

QVector<Reflection> reflectionList(const QVector<QPointF> &points, double launch, int offset)
{
    QVector<int> levels;
    for (const QPointF &point : points)
        levels.append(truncated(point.y() - offset));
    int start = 0;
    if (points.size() > 1)
        start = truncated((points[0].x() - launch) / (points[1].x() - points[0].x()));
    const QVector<Echo> echoes = findEchoes(levels, start);
    QVector<Reflection> list;
    for (const Echo &echo : echoes) {
        const QPointF &crest = points[echo.sample];
        if (crest.x() >= 0.0 && crest.x() <= double{ constants::xLength })
            list.append({ truncated(crest.x()), truncated(crest.y()), echo.height > 0.0 });
    }
    return list;
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
