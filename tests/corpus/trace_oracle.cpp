// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "trace_oracle.h"

#include "trace_recipe.h"

#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

namespace {

using Points = std::vector<std::pair<qint64, int>>;

constexpr double metresAtLightSpeed = 0.18737028625;
constexpr qint64 widest = 64000;

/// What a slot holds once a record is in it.
struct Slot
{
    QByteArray record;
    qint64 step = 0; ///< as kept: the truncated value
    qint64 used = 1; ///< as every use reads it, 1..64000
    qint64 delay = 0;
    qint64 scroll = 0;
    int offset = 0;

    int sample(qint64 i) const
    {
        return static_cast<qint8>(record[static_cast<int>(corpus::samplesAt + i)]);
    }
};

qint64 countsOf(float minstep)
{
    const double counts = static_cast<double>(minstep) / 1.25;
    if (std::isnan(counts))
        return 0;
    return static_cast<qint64>(qBound(-2147483648.0, counts, 2147483647.0));
}

/// The slot that held \a former after the file of \a recipe was read into it.
Slot loaded(QByteArray former, const QString &recipe)
{
    const QByteArray bytes = corpus::bytesOf(recipe).left(corpus::recordSize);
    Slot slot;
    slot.record = former.replace(0, bytes.size(), bytes);
    slot.step = countsOf(corpus::floatAt(slot.record, 25));
    slot.used = qBound(qint64{ 1 }, slot.step, widest);
    slot.delay = static_cast<qint64>(corpus::numberAt(slot.record, 29, 4));
    const auto wrapped = static_cast<std::uint32_t>(corpus::numberAt(slot.record, 53, 4)
                                                    * static_cast<quint64>(slot.step));
    slot.scroll = static_cast<std::int32_t>(wrapped);
    slot.offset = static_cast<std::int16_t>(corpus::numberAt(slot.record, 57, 2));
    return slot;
}

int bcd(const Slot &slot, int offset)
{
    const auto byte = static_cast<quint8>(slot.record[offset]);
    return byte / 16 * 10 + byte % 16;
}

QString dateText(const Slot &slot)
{
    static const char *const months[]
        = { "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec" };
    const int year = 2000 + bcd(slot, 178);
    const int month = bcd(slot, 176);
    const int day = bcd(slot, 177);
    if (month < 1 || month > 12 || day < 1)
        return {};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    const int short30 = month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
    if (day > (month == 2 ? (leap ? 29 : 28) : short30))
        return {};
    return QStringLiteral("%1 %2 %3").arg(day).arg(QLatin1String(months[month - 1])).arg(year);
}

QString timeText(const Slot &slot)
{
    const int hours = bcd(slot, 171);
    const int minutes = bcd(slot, 172);
    const int seconds = bcd(slot, 173);
    if (hours > 23 || minutes > 59 || seconds > 59)
        return {};
    return QString::asprintf("%02d:%02d:%02d", hours, minutes, seconds);
}

QString metres(qint64 counts, double perCount)
{
    return QString::asprintf("%.2f m", static_cast<double>(counts) * perCount);
}

QString levelText(int level)
{
    return level == 129 ? QString() : QString::number(level);
}

QString pointsText(const Points &points)
{
    if (points.empty())
        return QStringLiteral("none");
    int low = points.front().second;
    int high = low;
    for (const auto &point : points) {
        low = qMin(low, point.second);
        high = qMax(high, point.second);
    }
    const auto text = [](const std::pair<qint64, int> &point) {
        return QStringLiteral("(%1, %2)").arg(point.first).arg(point.second);
    };
    return QStringLiteral("%1 from %2 by %3 to %4 within %5..%6")
        .arg(points.size())
        .arg(text(points.front()), points.size() > 1 ? text(points[1]) : QStringLiteral("nothing"),
             text(points.back()))
        .arg(low)
        .arg(high);
}

Points steps(const Slot &slot)
{
    Points points;
    for (qint64 i = 0; i < 250; ++i) {
        const qint64 x = slot.scroll + (slot.delay + i) * slot.used;
        const int y = slot.offset + slot.sample(i);
        points.emplace_back(x, y);
        points.emplace_back(x + slot.used, y);
    }
    points.pop_back();
    return points;
}

Points smoothed(const Slot &slot)
{
    Points points;
    for (qint64 i = 0; i < 250; ++i)
        points.emplace_back(slot.scroll + (slot.delay + i) * slot.used,
                            slot.offset + slot.sample(i));
    return points;
}

Points difference(const Slot &master, const Slot &slot)
{
    Points points;
    for (qint64 j = 0; j < 250; ++j) {
        const qint64 at = master.scroll + (master.delay + j) * master.used;
        const qint64 k = (at - slot.scroll) / slot.used - slot.delay;
        if (k < 0 || k >= 250 || slot.scroll + (slot.delay + k) * slot.used != at)
            continue;
        const int y = (master.offset + master.sample(j)) - (slot.offset + slot.sample(k));
        points.emplace_back(at, y);
        points.emplace_back(at + qMax(master.used, slot.used), y);
    }
    if (!points.empty())
        points.pop_back();
    return points;
}

QString slotText(const Slot &slot)
{
    return QStringLiteral("step %1, scroll %2, offset %3, '%4' '%5', %6")
        .arg(slot.step)
        .arg(slot.scroll)
        .arg(slot.offset)
        .arg(dateText(slot), timeText(slot), pointsText(steps(slot)));
}

int levelAt(const Slot &slot, qint64 column)
{
    const qint64 i = (column - slot.scroll) / slot.used - slot.delay;
    return i >= 0 && i <= 249 ? slot.offset + slot.sample(i) : 129;
}

QString cursorText(const Slot &slot, double perCount)
{
    const qint64 column = corpus::cursorColumn / slot.used * slot.used;
    return QStringLiteral("'Cursor A| x = %1| y = %2'")
        .arg(metres(column, perCount), levelText(levelAt(slot, column)));
}

QString captions(const Slot &slot, double perCount)
{
    const auto number = [&slot](int offset, int width) {
        return QString::number(corpus::numberAt(slot.record, offset, width));
    };
    return QStringList{
        QStringLiteral("captions: Gain|") + number(45, 2),
        QStringLiteral("KU|1.499"),
        QStringLiteral("Average|") + number(43, 2),
        QStringLiteral("Y Shift|%1").arg(slot.offset),
        QStringLiteral("Pulse Width|%1ns").arg(number(37, 4)),
        QStringLiteral("Pulse Amp|%1V").arg(number(41, 2)),
        QStringLiteral("Impedance|") + number(47, 2),
        QStringLiteral("X Shift|") + metres(slot.scroll, perCount),
        QStringLiteral("Scale|31.25 m"),
        QStringLiteral("dial %1 'X Shift|%2'").arg(slot.scroll).arg(metres(slot.scroll, perCount))
    }
        .join(QStringLiteral(", "));
}

int exponentOf(const Slot &slot)
{
    const double exponent = std::log2(static_cast<double>(corpus::floatAt(slot.record, 25)) / 1.25);
    // Not a number, as of a negative step, counts as 0.
    if (!(exponent > 0.0))
        return 0;
    return exponent >= 8.0 ? 8 : static_cast<int>(exponent);
}

QString masterText(const Slot &slot)
{
    constexpr qint64 latestStart = 2147483647LL - widest;
    const int exponent = exponentOf(slot);
    const qint64 begin = qMin(slot.delay, latestStart);
    const qint64 end = begin + (qint64{ 250 } << exponent);
    float ku = corpus::floatAt(slot.record, 49);
    if (!(ku >= 1.0F))
        ku = 1.0F;
    if (ku > 10.0F)
        ku = 10.0F;
    const double perCount = metresAtLightSpeed / static_cast<double>(ku);
    const auto can = [](bool yes) { return QLatin1String(yes ? "can" : "cannot"); };
    // At either end the other zoom button stays as it was: up could, down could not.
    return QStringLiteral("master: scale %1, range %2..%3, factor %4, %5 m a count, ")
               .arg(exponent)
               .arg(begin)
               .arg(end)
               .arg(QString::asprintf("%.9g", static_cast<double>(ku)),
                    QString::asprintf("%.15g", perCount))
        + QStringLiteral("KU|%1, Scale|%2 m, X Shift|%3, cursor step = %4, %5, ")
              .arg(QString::asprintf("%.3f", static_cast<double>(ku)),
                   QString::asprintf("%g", 31.25 * (1 << exponent)), metres(slot.scroll, perCount),
                   metres(slot.used, perCount), cursorText(slot, perCount))
        + QStringLiteral("left %1, right %2, down %3, up %4")
              .arg(can(begin != 0), can(end != widest), can(exponent > 0 && exponent < 8),
                   can(exponent < 8));
}

} // namespace

QStringList corpus::expectedOutcome(const QString &recipe)
{
    const double perCount = metresAtLightSpeed / static_cast<double>(1.49896229F);
    const Slot good = loaded(QByteArray(recordSize, '\0'), QString::fromLatin1(goodTrace));
    const Slot second = loaded(QByteArray(recordSize, '\0'), QString::fromLatin1(secondTrace));
    const Slot slot = loaded(QByteArray(recordSize, '\0'), recipe);
    return {
        QStringLiteral("beside: ") + slotText(slot),
        QStringLiteral("selected: 'NAME, /FOLDER, %1 %2', 'RFG 2|%1', cursor step = %3, %4")
            .arg(dateText(slot), timeText(slot), metres(slot.used, perCount),
                 cursorText(slot, perCount)),
        captions(slot, perCount),
        QStringLiteral("difference: ") + pointsText(difference(good, slot)),
        QStringLiteral("smooth: ") + pointsText(smoothed(slot)),
        masterText(slot),
        QStringLiteral("over: ") + slotText(loaded(second.record, recipe)),
    };
}
