// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointF>
#include <QVector>
#include <QtGlobal>

namespace calc {

/// One reflection of a trace.
struct Reflection
{
    qint64 column = 0; ///< counts from the origin of the axis
    int level = 0; ///< sample steps, vertical shift included
    bool positive = true; ///< true: a crest (the impedance rises); false: a dip (it falls)
};

/// The reflections of the trace whose samples are \a points, x in counts and y in sample steps, as
/// splinePoints and splineDifference make them. Ascending. Each stands at a sample that
/// findEchoes() finds. \a launch is the column of the launched pulse's crest and \a offset the
/// level of zero, in sample steps: the horizontal and the vertical shift of the trace.
QVector<Reflection> reflectionList(const QVector<QPointF> &points, double launch, int offset = 0);

} // namespace calc
