// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointF>
#include <QVector>

namespace calc {

/// Control points of the cubic spline through \a knots, two for each stretch between neighbours.
/// Slope and curvature are continuous; the curvature is 0 at both ends. Empty for fewer than two
/// knots. The order of the operations is that of the chart module, because a difference in the
/// last bit can change a pixel.
QVector<QPointF> splineControls(const QVector<QPointF> &knots);

} // namespace calc
