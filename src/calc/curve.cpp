// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/curve.h"

namespace calc {

namespace {

using Numbers = QVector<qreal>;

/// The first control of each stretch in one coordinate: the solution of a tridiagonal system in
/// which slope and curvature of neighbouring stretches agree.
Numbers firstControls(const Numbers &knots)
{
    const int count = static_cast<int>(knots.size()) - 1;
    Numbers right(count);
    right[0] = knots[0] + 2 * knots[1];
    for (int i = 1; i < count - 1; ++i)
        right[i] = 4 * knots[i] + 2 * knots[i + 1];
    right[count - 1] = (8 * knots[count - 1] + knots[count]) / 2.0;

    Numbers result(count);
    Numbers band(count);
    qreal pivot = 2.0;
    result[0] = right[0] / pivot;
    for (int i = 1; i < count; ++i) {
        band[i] = 1 / pivot;
        pivot = (i < count - 1 ? 4.0 : 3.5) - band[i];
        result[i] = (right[i] - result[i - 1]) / pivot;
    }
    for (int i = count - 1; i > 0; --i)
        result[i - 1] -= band[i] * result[i];
    return result;
}

/// First and second control of each stretch in one coordinate.
Numbers controls(const Numbers &knots)
{
    const int count = static_cast<int>(knots.size()) - 1;
    if (count == 1) {
        const qreal first = (2 * knots[0] + knots[1]) / 3;
        return { first, 2 * first - knots[0] };
    }
    Numbers result;
    const Numbers first = firstControls(knots);
    for (int i = 0; i < count - 1; ++i)
        result << first[i] << 2 * knots[i + 1] - first[i + 1];
    result << first[count - 1] << (knots[count] + first[count - 1]) / 2;
    return result;
}

} // namespace

QVector<QPointF> curveControls(const QVector<QPointF> &knots)
{
    if (knots.size() < 2)
        return {};
    Numbers xs;
    Numbers ys;
    for (const QPointF &knot : knots) {
        xs << knot.x();
        ys << knot.y();
    }
    xs = controls(xs);
    ys = controls(ys);
    QVector<QPointF> result;
    for (int i = 0; i < xs.size(); ++i)
        result << QPointF(xs[i], ys[i]);
    return result;
}

} // namespace calc
