// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/trace_points.h"

#include "base/constants.h"
#include "calc/tdr_record.h"

namespace calc {

namespace {

constexpr int pointLimit = constants::stepPointCount;

// x of the first sample. 2^32 samples of 64000 counts do not overflow 64 bits.
qint64 startOf(const TraceRef &trace)
{
    return trace.scroll + qint64{ trace.delay } * boundedStep(trace);
}

qint64 levelOf(const TraceRef &trace, qint64 index)
{
    return qint64{ trace.offset } + trace.samples[index];
}

QPointF point(qint64 x, qint64 y)
{
    return QPointF(static_cast<qreal>(x), static_cast<qreal>(y));
}

// Calls emitPoint(x, y) for every sample of a trace, from left to right.
template <typename EmitPoint> void eachSample(const TraceRef &trace, EmitPoint emitPoint)
{
    const qint64 step = boundedStep(trace);
    qint64 x = startOf(trace);
    for (int i = 0; i < constants::drawnSamples; ++i, x += step)
        emitPoint(x, levelOf(trace, i));
}

// Calls emitPoint(x, y) for every x at which both the master and the trace have a sample.
template <typename EmitPoint>
void eachMeeting(const TraceRef &master, const TraceRef &trace, EmitPoint emitPoint)
{
    const qint64 step = boundedStep(trace);
    const qint64 start = startOf(trace);
    eachSample(master, [&](qint64 x, qint64 masterLevel) {
        // The division truncates, so the sample found may lie at another x.
        const qint64 index = (x - trace.scroll) / step - trace.delay;
        if (index >= 0 && index < constants::drawnSamples && start + index * step == x)
            emitPoint(x, masterLevel - levelOf(trace, index));
    });
}

// Collects treads of \a width counts and drops the right end of the last one.
class TreadWriter
{
public:
    TreadWriter(QVector<QPointF> &out, qint64 width)
        : m_out(out)
        , m_width(width)
    {
        m_out.resize(pointLimit);
        m_next = m_out.data();
    }

    void operator()(qint64 x, qint64 y)
    {
        *m_next++ = point(x, y);
        *m_next++ = point(x + m_width, y);
    }

    void finish()
    {
        const auto written = static_cast<int>(m_next - m_out.constData());
        m_out.resize(qMax(0, written - 1));
    }

private:
    QVector<QPointF> &m_out;
    QPointF *m_next = nullptr;
    qint64 m_width;
};

} // namespace

TraceRef traceOf(const Protocol_VX840::TDR_FILE_t &record)
{
    const auto params = record.ch.params;
    const int step = countsPerSample(params.sample_minstep);
    return { record.samples, usableStep(step), params.delay, initialScroll(params.shiftX, step),
             params.shiftY };
}

qint64 boundedStep(const TraceRef &trace)
{
    return usableStep(trace.step);
}

void stepPoints(const TraceRef &trace, QVector<QPointF> &out)
{
    TreadWriter writer(out, boundedStep(trace));
    eachSample(trace, [&](qint64 x, qint64 y) { writer(x, y); });
    writer.finish();
}

void splinePoints(const TraceRef &trace, QVector<QPointF> &out)
{
    out.resize(constants::drawnSamples);
    QPointF *next = out.data();
    eachSample(trace, [&](qint64 x, qint64 y) { *next++ = point(x, y); });
}

void stepDifference(const TraceRef &master, const TraceRef &trace, QVector<QPointF> &out)
{
    TreadWriter writer(out, qMax(boundedStep(master), boundedStep(trace)));
    eachMeeting(master, trace, [&](qint64 x, qint64 y) { writer(x, y); });
    writer.finish();
}

void splineDifference(const TraceRef &master, const TraceRef &trace, QVector<QPointF> &out)
{
    out.resize(constants::drawnSamples);
    QPointF *next = out.data();
    eachMeeting(master, trace, [&](qint64 x, qint64 y) { *next++ = point(x, y); });
    out.resize(static_cast<int>(next - out.constData()));
}

} // namespace calc
