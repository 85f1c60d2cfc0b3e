// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "peer_model.h"

#include "base/constants.h"
#include "calc/cursor_level.h"
#include "calc/tdr_record.h"

#include <QFile>

namespace {

constexpr int linesPerSpan = 4; ///< that stand for a curved span

/// Control points of the span from \a i to \a i + 1.
QPair<QPointF, QPointF> controls(const QVector<QPointF> &points, int i)
{
    const QPointF before = points[qMax(0, i - 1)];
    const QPointF after = points[qMin(points.size() - 1, i + 2)];
    return { points[i] + (points[i + 1] - before) / 6.0,
             points[i + 1] - (after - points[i]) / 6.0 };
}

} // namespace

void PeerModel::load(const QStringList &files)
{
    traces.resize(files.size());
    for (int slot = 0; slot < files.size(); ++slot) {
        QFile file(files[slot]);
        if (!file.open(QIODevice::ReadOnly))
            qFatal("a trace of the benchmark has gone");
        const QByteArray bytes = file.readAll();
        Trace &trace = traces[slot];
        calc::fillRecord(bytes.constData(), bytes.size(), trace.record);
        trace.offset = trace.record.ch.params.shiftY;
        trace.scroll = 0;
    }
    selected = master = 0;
}

double PeerModel::metresPerCount() const
{
    return constants::distCoef0 / ku;
}

calc::TraceRef PeerModel::ref(int slot) const
{
    const Trace &trace = traces[slot];
    return { trace.record.samples, 1, 0, trace.scroll, trace.offset };
}

QVector<QPointF> PeerModel::points(int slot) const
{
    QVector<QPointF> result;
    const bool isDifference = difference && slot != master;
    if (smooth && isDifference)
        calc::splineDifference(ref(master), ref(slot), result);
    else if (smooth)
        calc::splinePoints(ref(slot), result);
    else if (isDifference)
        calc::stepDifference(ref(master), ref(slot), result);
    else
        calc::stepPoints(ref(slot), result);
    return result;
}

QVector<QPointF> PeerModel::polyline(int slot) const
{
    const QVector<QPointF> source = points(slot);
    if (!smooth || source.size() < 2)
        return source;
    QVector<QPointF> result;
    result.reserve(source.size() * linesPerSpan);
    for (int i = 0; i + 1 < source.size(); ++i) {
        const auto control = controls(source, i);
        for (int part = 0; part < linesPerSpan; ++part) {
            const double t = double(part) / linesPerSpan;
            const double u = 1.0 - t;
            result << source[i] * (u * u * u) + control.first * (3 * u * u * t)
                    + control.second * (3 * u * t * t) + source[i + 1] * (t * t * t);
        }
    }
    result << source.constLast();
    return result;
}

QPainterPath PeerModel::curve(const QVector<QPointF> &points)
{
    QPainterPath path;
    if (points.isEmpty())
        return path;
    path.moveTo(points[0]);
    for (int i = 0; i + 1 < points.size(); ++i) {
        const auto control = controls(points, i);
        path.cubicTo(control.first, control.second, points[i + 1]);
    }
    return path;
}

int PeerModel::level(int cursor) const
{
    return calc::levelUnder(cursors[cursor], ref(selected));
}

calc::GridPlan PeerModel::grid(double plotWidth) const
{
    return calc::planGrid(range, metresPerCount(), static_cast<float>(plotWidth));
}

QColor PeerModel::cursorColour(int cursor) const
{
    return cursor == active ? Qt::yellow : Qt::gray;
}

double PeerModel::penWidth(int slot) const
{
    return slot == selected ? double{ constants::tracePen } : constants::thinTracePen;
}

QColor PeerModel::background() const
{
    return QColor::fromRgba(difference ? constants::differenceBackground
                                       : constants::normalBackground);
}
