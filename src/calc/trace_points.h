// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointF>
#include <QVector>
#include <QtGlobal>

/// \file
/// From samples to points of the chart: x in counts, y in sample steps. Sample i of a trace stands
/// at scroll + (delay + i) * step.

namespace calc {

/// A trace as the transform sees it. Any values of \c delay, \c scroll and \c offset are defined:
/// positions are computed in 64 bits, so that a large delay or a shift to the left does not wrap.
struct TraceRef
{
    const qint8 *samples = nullptr; ///< at least the 250 that are drawn
    int step = 1; ///< counts per sample, 1..64000; values outside act as the nearer bound
    quint32 delay = 0; ///< index of the first sample on the axis, in samples
    int scroll = 0; ///< shift to the right, counts
    int offset = 0; ///< shift upwards, sample steps
};

/// \a trace.step within the bounds that every computation here and under the cursors uses.
qint64 boundedStep(const TraceRef &trace);

/// Step form of a trace: each sample becomes (x, y) and (x + step, y), a tread as wide as the time
/// it stands for. The last tread has no right end because no sample follows it: 250 samples, 499
/// points. \a out is resized, never shrunk in capacity; pass the same buffer again.
void stepPoints(const TraceRef &trace, QVector<QPointF> &out);

/// Spline form of a trace: one point for each of the 250 samples. Nothing is filtered; the curve
/// goes through every sample. \a out as in stepPoints.
void splinePoints(const TraceRef &trace, QVector<QPointF> &out);

/// Step form of \a master minus \a trace. There is a point only where a sample of the master stands
/// exactly above one of the trace: n such places give 2n - 1 points, treads as wide as the wider of
/// the two steps, and grids that never meet give none. \a out as in stepPoints.
void stepDifference(const TraceRef &master, const TraceRef &trace, QVector<QPointF> &out);

/// Spline form of the same difference: one point for each place where the two grids meet.
void splineDifference(const TraceRef &master, const TraceRef &trace, QVector<QPointF> &out);

} // namespace calc
