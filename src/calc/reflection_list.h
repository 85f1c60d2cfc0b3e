// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointF>
#include <QVector>

namespace calc {

/// One reflection of a trace.
struct Reflection
{
    int column = 0; ///< counts, 0 to 64000
    int level = 0; ///< sample steps, vertical shift included
    bool positive = true; ///< true: a crest (the impedance rises); false: a dip (it falls)
};

/// The reflections of the trace whose samples are \a points, x in counts and y in sample steps, as
/// splinePoints and splineDifference make them. Ascending. Each is at a sample that findEchoes()
/// finds and that lies on the axis. \a launch is the column of the launched pulse's crest and \a
/// offset the level of zero, in sample steps: the horizontal and the vertical shift of the trace.
QVector<Reflection> reflectionList(const QVector<QPointF> &points, double launch, int offset = 0);

} // namespace calc
