// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "protocol_vx840.h"

#include <QPointF>
#include <QVector>
#include <QtGlobal>

/// \file
/// Chart points of traces: x in counts, y in sample steps. Sample i of a trace has
/// x = scroll + (delay + i) * step.

namespace calc {

/// A trace to be drawn. Any \c delay, \c scroll and \c offset is valid: positions are computed in
/// 64 bits, so a large delay or a shift to the left does not wrap.
struct TraceRef
{
    const qint8 *samples = nullptr; ///< at least the 250 that are drawn
    int step = 1; ///< counts per sample; clamped to 1..64000
    quint32 delay = 0; ///< index of the first sample on the axis, in samples
    int scroll = 0; ///< shift to the right, counts
    int offset = 0; ///< shift upwards, sample steps
};

/// The trace of \a record with the shifts that are saved in it, as the viewer draws it after
/// loading. \c samples points into \a record.
TraceRef traceOf(const Protocol_VX840::TDR_FILE_t &record);

/// \c step of \a trace clamped to 1..64000.
qint64 boundedStep(const TraceRef &trace);

/// Step form of a trace: each sample becomes a tread from (x, y) to (x + step, y). The last tread
/// has no right end because no sample follows it: 250 samples give 499 points. \a out is resized
/// and keeps its capacity: pass the same buffer for every trace.
void stepPoints(const TraceRef &trace, QVector<QPointF> &out);

/// Spline form of a trace: one point for each of the 250 samples; the curve passes through all of
/// them. \a out as in stepPoints.
void splinePoints(const TraceRef &trace, QVector<QPointF> &out);

/// Step form of \a master minus \a trace. It has a tread for each x at which both have a sample; a
/// tread is as wide as the larger step. n such positions give 2n - 1 points; without one there are
/// no points. \a out as in stepPoints.
void stepDifference(const TraceRef &master, const TraceRef &trace, QVector<QPointF> &out);

/// Spline form of the same difference: one point for each shared position.
void splineDifference(const TraceRef &master, const TraceRef &trace, QVector<QPointF> &out);

} // namespace calc
