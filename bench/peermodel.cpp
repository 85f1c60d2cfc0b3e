// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/cursor_level.h"
#include "calc/readout.h"
#include "calc/tdr_record.h"
#include "peerplot.h"

#include <QFile>
#include <QPolygonF>

namespace {

constexpr double selectedPen = 2.0;
constexpr double otherPen = 1.0;

} // namespace

void PeerModel::load(const QStringList &files)
{
    traces.resize(files.size());
    for (int slot = 0; slot < files.size(); ++slot) {
        QFile file(files[slot]);
        if (!file.open(QIODevice::ReadOnly))
            qFatal("cannot read %s", qPrintable(files[slot]));
        const QByteArray bytes = file.readAll();
        Trace &trace = traces[slot];
        calc::fillRecord(bytes.constData(), bytes.size(), trace.record);
        trace.offset = trace.record.ch.params.shiftY;
        trace.scroll = 0;
    }
    selected = 0;
}

calc::TraceRef PeerModel::ref(int slot) const
{
    const Trace &trace = traces[slot];
    return { trace.record.samples, 1, 0, trace.scroll, trace.offset };
}

QVector<QPointF> PeerModel::points(int slot) const
{
    QVector<QPointF> result;
    const bool isDifference = difference && slot != 0;
    if (smooth && isDifference)
        calc::splineDifference(ref(0), ref(slot), result);
    else if (smooth)
        calc::splinePoints(ref(slot), result);
    else if (isDifference)
        calc::stepDifference(ref(0), ref(slot), result);
    else
        calc::stepPoints(ref(slot), result);
    return result;
}

QVector<QPointF> PeerModel::polyline(int slot) const
{
    return smooth ? curve(points(slot)).toSubpathPolygons().value(0) : points(slot);
}

QPainterPath PeerModel::curve(const QVector<QPointF> &points)
{
    QPainterPath path;
    if (points.isEmpty())
        return path;
    path.moveTo(points[0]);
    for (int i = 0; i + 1 < points.size(); ++i) {
        const QPointF before = points[qMax(0, i - 1)];
        const QPointF after = points[qMin(points.size() - 1, i + 2)];
        path.cubicTo(points[i] + (points[i + 1] - before) / 6.0,
                     points[i + 1] - (after - points[i]) / 6.0, points[i + 1]);
    }
    return path;
}

int PeerModel::level(int cursor) const
{
    return calc::levelUnder(cursors[cursor], ref(selected));
}

QPen PeerModel::tracePen(int slot) const
{
    return { QColor::fromHsv(slot * 60, 255, 255).toRgb(),
             slot == selected ? selectedPen : otherPen };
}

QColor PeerModel::cursorColour(int cursor) const
{
    return cursor == 0 ? Qt::yellow : Qt::gray;
}

QColor PeerModel::background() const
{
    return difference ? QColor(0x28, 0x28, 0x3C) : QColor(0x0B, 0x0C, 0x0D);
}

double PeerModel::metresPerCount() const
{
    return calc::metresPerCount(static_cast<float>(ku));
}

QString PeerModel::title() const
{
    return QStringLiteral("trace%1, /traces, 5 Mar 2024 09:05:07").arg(selected + 1);
}

QString PeerModel::stepText() const
{
    return QStringLiteral("cursor step = ")
        + calc::distanceText(1, metresPerCount(), QStringLiteral("m"));
}
