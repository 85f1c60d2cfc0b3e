// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tdr/from_csv.h"

#include "calc/numeric.h"
#include "calc/view_range.h"
#include "tdr/check.h"
#include "tdr/curve.h"
#include "tdr/record.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tdr {

namespace {

using Protocol_VX840::TDR_FILE_t;

constexpr double stepTolerance = 0.001; ///< counts by which a computed step may be too short
constexpr double placeTolerance = 0.05; ///< counts; a nearer row lies on the sample

QString numberText(double value)
{
    return QString::number(value, 'g', 7);
}

/// The places of the samples: \c start is in samples from the origin of the axis.
struct Grid
{
    int step = 1; ///< counts
    qint64 start = 0;

    double countsOf(int sample) const
    {
        return static_cast<double>((start + sample) * step);
    }
};

/// Replaces the places of \a curve by counts.
void convertToCounts(Curve &curve, float ku)
{
    const double unit = curve.isTime ? constants::nsPerCount : calc::metresPerCount(ku);
    for (Curve::Point &point : curve.points)
        point.place /= unit;
}

/// Counts per sample.
int stepFor(const Curve &curve, const Demands &demands, QStringList &remarks)
{
    const double span = curve.points.constLast().place - curve.points.constFirst().place;
    const double wanted
        = demands.step ? *demands.step / constants::nsPerCount : span / constants::lastSample;
    const double legal = demands.step ? std::round(wanted) : std::ceil(wanted - stepTolerance);
    const int step = calc::truncated(std::clamp(legal, 1.0, double{ constants::xLength }));
    if (demands.step && step != wanted)
        remarks.append(
            QStringLiteral("step rounded from %1 ns to %2 ns")
                .arg(numberText(*demands.step), numberText(step * constants::nsPerCount)));
    return step;
}

/// Numbers of samples by the source of their levels.
struct Tally
{
    int met = 0; ///< level of a row at the same place
    int interpolated = 0;
    int repeated = 0; ///< beyond the rows: level of the first or last row
    int rounded = 0;
    int clipped = 0;
};

double levelAt(const QVector<Curve::Point> &points, double place, Tally &tally)
{
    const auto after
        = std::lower_bound(points.cbegin(), points.cend(), place - placeTolerance,
                           [](const Curve::Point &point, double x) { return point.place < x; });
    if (after != points.cend() && after->place <= place + placeTolerance) {
        ++tally.met;
        return after->level;
    }
    if (after == points.cbegin() || after == points.cend()) {
        ++tally.repeated;
        return after == points.cend() ? points.constLast().level : after->level;
    }
    ++tally.interpolated;
    const auto before = after - 1;
    const double share = (place - before->place) / (after->place - before->place);
    return before->level * (1.0 - share) + after->level * share;
}

Tally putSamples(const Curve &curve, const Grid &grid, TDR_FILE_t &record)
{
    Tally tally;
    for (int i = 0; i < constants::drawnSamples; ++i) {
        const double level = levelAt(curve.points, grid.countsOf(i), tally) - curve.levelShift;
        const double whole = std::round(level);
        const double legal = std::clamp(whole, -128.0, 127.0);
        tally.rounded += whole != level ? 1 : 0;
        tally.clipped += whole != legal ? 1 : 0;
        record.samples[i] = static_cast<qint8>(calc::truncated(legal));
    }
    return tally;
}

QStringList remarksOn(const Tally &tally, const QVector<Curve::Point> &points, const Grid &grid)
{
    const auto rows = static_cast<int>(points.size());
    const double first = grid.countsOf(0) - placeTolerance;
    const double last = grid.countsOf(constants::lastSample) + placeTolerance;
    const auto outside = static_cast<int>(
        std::count_if(points.cbegin(), points.cend(), [=](const Curve::Point &point) {
            return point.place < first || point.place > last;
        }));
    const std::pair<int, QString> remarks[] = {
        { rows - tally.met,
          QStringLiteral("%1 of %2 rows lie on no sample of %3 ns")
              .arg(QStringLiteral("%1"), QString::number(rows),
                   numberText(grid.step * constants::nsPerCount)) },
        { outside, QStringLiteral("%1 rows lie outside the samples and are left out") },
        { tally.interpolated, QStringLiteral("%1 samples interpolated between two rows") },
        { tally.repeated, QStringLiteral("%1 samples beyond the rows repeat the nearest level") },
        { tally.rounded, QStringLiteral("%1 levels rounded to whole numbers") },
        { tally.clipped, QStringLiteral("%1 levels clipped to -128..127") },
    };
    QStringList list;
    for (const auto &[count, remark] : remarks)
        if (count > 0)
            list.append(remark.arg(count));
    return list;
}

quint8 toBcd(int value)
{
    return static_cast<quint8>(value / 10 * 16 + value % 10);
}

void putDate(const QDateTime &moment, TDR_FILE_t &record)
{
    const QDate date = moment.date();
    const QTime time = moment.time();
    record.ch.test_date = { static_cast<quint8>(date.dayOfWeek()), toBcd(date.month()),
                            toBcd(date.day()), toBcd(date.year() - constants::centuryStart) };
    record.ch.test_time = { toBcd(time.hour()), toBcd(time.minute()), toBcd(time.second()), 0 };
}

void putGrid(const Grid &grid, TDR_FILE_t &record)
{
    // A delay cannot be negative; a trace that begins left of the axis gets a shift.
    auto &params = record.ch.params;
    params.sample_minstep = static_cast<float>(grid.step * constants::nsPerCount);
    params.delay = static_cast<quint32>(std::max<qint64>(0, grid.start));
    params.shiftX = static_cast<quint32>(std::min<qint64>(0, grid.start));
}

} // namespace

bool isStorable(const QDateTime &moment)
{
    const int year = moment.date().year();
    return moment.isValid() && year >= constants::centuryStart
        && year < constants::centuryStart + 100;
}

Conversion fromCsv(const QByteArray &text, const Demands &demands)
{
    Conversion result;
    Curve curve;
    result.failure = readCurve(text, curve);
    if (!result.failure.isEmpty())
        return result;

    TDR_FILE_t record = {};
    record.name.len_samples = constants::drawnSamples;
    record.name.bytes_in_sample = 1;
    record.ch.mode = Protocol_VX840::CH_TDR;
    record.ch.status = Protocol_VX840::CH_SKIPPED;

    const bool hasKu = demands.ku || curve.ku > 0.0;
    const float ku = hasKu ? calc::clampedKU(demands.ku.value_or(curve.ku)) : constants::startKU;
    if (!hasKu)
        result.remarks.append(QStringLiteral("KU taken as %1").arg(double{ ku }));
    record.ch.params.KU = ku;
    convertToCounts(curve, ku);
    const double first = curve.points.constFirst().place;
    if (!(std::abs(first) <= constants::xLength)) {
        result.failure = QStringLiteral("the first row lies outside the axis");
        return result;
    }

    Grid grid;
    grid.step = stepFor(curve, demands, result.remarks);
    grid.start = demands.delay ? qint64{ *demands.delay } : std::llround(first / grid.step);
    const double start = grid.countsOf(0);
    if (!demands.delay && std::abs(start - first) > placeTolerance)
        result.remarks.append(QStringLiteral("start moved from %1 ns to %2 ns")
                                  .arg(numberText(first * constants::nsPerCount),
                                       numberText(start * constants::nsPerCount)));
    putGrid(grid, record);
    record.ch.params.shiftY = static_cast<qint16>(curve.levelShift);
    const Tally tally = putSamples(curve, grid, record);
    result.remarks += remarksOn(tally, curve.points, grid);

    QDateTime date = demands.date.isValid() ? demands.date : curve.date;
    if (!isStorable(date)) {
        date = QDateTime::currentDateTime();
        result.remarks.append(QStringLiteral("date taken as %1").arg(date.toString(Qt::ISODate)));
    }
    putDate(date, record);
    result.record = QByteArray(reinterpret_cast<const char *>(&record), recordBytes);
    result.remarks += findings(result.record);
    return result;
}

} // namespace tdr
