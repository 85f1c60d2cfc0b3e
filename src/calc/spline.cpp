// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/spline.h"

namespace {

/// The first control point of each stretch: the solution of a tridiagonal system of equations.
QVector<QPointF> firstControls(const QVector<QPointF> &knots)
{
    const int last = static_cast<int>(knots.size()) - 2;
    QVector<QPointF> result(last + 1);
    result[0] = knots[0] + 2 * knots[1];
    for (int i = 1; i < last; ++i)
        result[i] = 4 * knots[i] + 2 * knots[i + 1];
    result[last] = (8 * knots[last] + knots[last + 1]) / 2.0;

    // Thomas algorithm; both coordinates have the same matrix.
    QVector<qreal> band(last + 1);
    qreal pivot = 2.0;
    result[0] /= pivot;
    for (int i = 1; i <= last; ++i) {
        band[i] = 1 / pivot;
        pivot = (i < last ? 4.0 : 3.5) - band[i];
        result[i] = (result[i] - result[i - 1]) / pivot;
    }
    for (int i = last; i > 0; --i)
        result[i - 1] -= band[i] * result[i];
    return result;
}

} // namespace

QVector<QPointF> calc::splineControls(const QVector<QPointF> &knots)
{
    const int stretches = static_cast<int>(knots.size()) - 1;
    if (stretches < 1)
        return {};
    QVector<QPointF> result;
    result.reserve(2 * stretches);
    if (stretches == 1) {
        result << (2 * knots[0] + knots[1]) / 3;
        result << 2 * result[0] - knots[0];
        return result;
    }
    const QVector<QPointF> first = firstControls(knots);
    for (int i = 0; i < stretches - 1; ++i)
        result << first[i] << 2 * knots[i + 1] - first[i + 1];
    result << first[stretches - 1] << (knots[stretches] + first[stretches - 1]) / 2;
    return result;
}
