// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tdr/check.h"

#include "calc/tdr_record.h"
#include "tdr/record.h"

#include <algorithm>
#include <cmath>

namespace tdr {

namespace {

using Protocol_VX840::TDR_FILE_t;

QString sizeFinding(const QByteArray &bytes)
{
    if (bytes.size() > recordBytes)
        return QStringLiteral("size is more than %1 bytes").arg(recordBytes);
    if (bytes.size() == recordBytes)
        return {};
    return QStringLiteral("size is %1 bytes instead of %2%3")
        .arg(bytes.size())
        .arg(recordBytes)
        .arg(QLatin1String(bytes.size() < traceBytes ? ": the trace is cut off" : ""));
}

QString stepFinding(double step)
{
    if (!(step > 0.0))
        return QStringLiteral("sampling step %1 ns is not above 0").arg(step);
    if (step > constants::xLength * constants::nsPerCount)
        return QStringLiteral("sampling step %1 ns is longer than the axis").arg(step);
    if (std::fmod(step, constants::nsPerCount) != 0.0)
        return QStringLiteral(
                   "sampling step %1 ns is no multiple of %2 ns: every distance is wrong")
            .arg(step)
            .arg(constants::nsPerCount);
    return {};
}

QString factorFinding(double ku)
{
    if (ku >= double{ constants::minKU } && ku <= double{ constants::maxKU })
        return {};
    return QStringLiteral("KU %1 is not between 1 and 10").arg(ku);
}

bool areDecimal(std::initializer_list<quint8> bytes)
{
    return std::all_of(bytes.begin(), bytes.end(),
                       [](quint8 byte) { return byte >> 4 <= 9 && (byte & 0x0F) <= 9; });
}

QString hexText(std::initializer_list<quint8> bytes)
{
    QByteArray text;
    for (const quint8 byte : bytes)
        text += static_cast<char>(byte);
    return QString::fromLatin1(text.toHex(' '));
}

QStringList dateFindings(const TDR_FILE_t &record)
{
    QStringList list;
    const auto date = record.ch.test_date;
    const auto dateBytes = { date.RTC_Year, date.RTC_Month, date.RTC_Date };
    if (!areDecimal(dateBytes) || !calc::measurementDate(record).isValid())
        list.append(
            QStringLiteral("year, month and day %1 are no BCD date").arg(hexText(dateBytes)));
    const auto time = record.ch.test_time;
    const auto timeBytes = { time.RTC_Hours, time.RTC_Minutes, time.RTC_Seconds };
    if (!areDecimal(timeBytes) || !calc::measurementTime(record).isValid())
        list.append(QStringLiteral("hours, minutes and seconds %1 are no BCD time")
                        .arg(hexText(timeBytes)));
    return list;
}

QStringList sampleFindings(const TDR_FILE_t &record)
{
    QStringList list;
    const int clipped = clippedSamples(record);
    if (clipped > 0)
        list.append(QStringLiteral("%1 samples are clipped at +-127").arg(clipped));
    QVector<QPointF> points;
    calc::splinePoints(calc::traceOf(record), points);
    const auto beyond = std::count_if(points.cbegin(), points.cend(), [](const QPointF &point) {
        return point.x() > double{ constants::xLength };
    });
    if (beyond > 0)
        list.append(QStringLiteral("%1 samples lie beyond the end of the axis").arg(beyond));
    const qint8 *samples = record.samples;
    if (std::all_of(samples, samples + constants::drawnSamples,
                    [samples](qint8 level) { return level == samples[0]; }))
        list.append(QStringLiteral("all samples are equal"));
    return list;
}

} // namespace

QStringList findings(const QByteArray &bytes)
{
    QStringList list{ sizeFinding(bytes) };
    if (bytes.size() >= traceBytes) {
        const TDR_FILE_t record = recordOf(bytes);
        const auto params = record.ch.params;
        list.append(stepFinding(double{ params.sample_minstep }));
        list.append(factorFinding(double{ params.KU }));
        list += dateFindings(record);
        if (record.name.bytes_in_sample != 1)
            list.append(QStringLiteral("bytes_in_sample is %1 instead of 1")
                            .arg(record.name.bytes_in_sample));
        list += sampleFindings(record);
    }
    list.removeAll(QString());
    return list;
}

} // namespace tdr
