// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tdr/record.h"

#include "calc/tdr_record.h"

#include <algorithm>

namespace tdr {

using Protocol_VX840::TDR_FILE_t;

TDR_FILE_t recordOf(const QByteArray &bytes)
{
    TDR_FILE_t record = {};
    calc::fillRecord(bytes.constData(), bytes.size(), record);
    return record;
}

int clippedSamples(const TDR_FILE_t &record)
{
    return static_cast<int>(
        std::count_if(record.samples, record.samples + constants::drawnSamples,
                      [](qint8 level) { return level == 127 || level <= -127; }));
}

QVector<calc::Reflection> reflectionsOf(const calc::TraceRef &trace)
{
    QVector<QPointF> points;
    calc::splinePoints(trace, points);
    return calc::reflectionList(points, trace.scroll, trace.offset);
}

} // namespace tdr
