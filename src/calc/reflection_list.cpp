// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/reflection_list.h"

#include "base/qtcompat.h"
#include "calc/numeric.h"
#include "calc/reflections.h"

#include <algorithm>

namespace calc {

namespace {

constexpr int widestHalfEcho = 30; ///< samples; beyond them lies something else than the echo

/// True when the echo at sample \a place is a crest: it is compared with the samples half way to
/// its neighbours \a before and \a after, because the noise hides the curvature of a wide echo.
bool isCrest(const QVector<int> &levels, int before, int place, int after)
{
    const int left = place - std::min((place - before + 1) / 2, widestHalfEcho);
    const int right = place + std::min((after - place + 1) / 2, widestHalfEcho);
    return 2 * levels[place] >= levels[left] + levels[right];
}

} // namespace

QVector<Reflection> reflectionList(const QVector<QPointF> &points)
{
    QVector<int> levels;
    for (const QPointF &point : points)
        levels.append(truncated(point.y()));
    const QVector<int> places = reflections(levels);
    const int last = static_cast<int>(levels.size()) - 1;
    QVector<Reflection> list;
    for (qtcompat::Size i = 0; i < places.size(); ++i) {
        const int place = places[i];
        const int before = i > 0 ? places[i - 1] : 0;
        const int after = i + 1 < places.size() ? places[i + 1] : last;
        list.append({ static_cast<qint64>(points[place].x()), levels[place],
                      isCrest(levels, before, place, after) });
    }
    return list;
}

} // namespace calc
