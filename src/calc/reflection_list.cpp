// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/reflection_list.h"

#include "base/constants.h"
#include "calc/numeric.h"
#include "calc/reflections.h"

namespace calc {

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

} // namespace calc
