// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointF>
#include <QVector>

namespace calc {

/// Control points of the smooth curve through \a knots, two for each stretch between neighbours;
/// none for fewer than two knots. The computation is the one of the chart module's splines, step by
/// step, so that both draw the same curve.
QVector<QPointF> curveControls(const QVector<QPointF> &knots);

} // namespace calc
