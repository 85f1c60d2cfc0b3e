// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "trace_rows.h"

#include "trace_oracle.h"

#include <QStringList>

using corpus::Family;
using corpus::Recipe;

namespace {

QString word(const char *field, const QString &value)
{
    return QLatin1String(field) + QLatin1Char('=') + value;
}

/// A file per value of \a field, each with \a rest.
void addValues(Family &family, const char *field, const char *values, const char *rest = "")
{
    const QStringList list = QString::fromLatin1(values).split(QLatin1Char(' '));
    for (const QString &value : list) {
        QString name = QLatin1String(field) + QLatin1Char('-') + value;
        name.replace(QLatin1Char(':'), QLatin1Char('-'));
        family.recipes.append(
            { name, (word(field, value) + QLatin1Char(' ') + QLatin1String(rest)).trimmed() });
    }
}

/// A file per pair of a value of one field and a value of another.
void addPairs(Family &family, const char *field, const char *values, const char *other,
              const char *otherValues)
{
    const QStringList list = QString::fromLatin1(otherValues).split(QLatin1Char(' '));
    for (const QString &value : list) {
        Family row;
        const QByteArray rest = word(other, value).toLatin1();
        addValues(row, field, values, rest.constData());
        for (Recipe &recipe : row.recipes)
            recipe.name += QLatin1Char('-') + QLatin1String(other) + QLatin1Char('-') + value;
        family.recipes += row.recipes;
    }
}

Family sizes()
{
    Family family{ QStringLiteral("sizes"), {} };
    // Before, in and behind every field that is interpreted; the record's end; beyond it.
    addValues(
        family, "size",
        "0 1 2 24 25 26 27 28 29 30 32 33 37 40 41 42 43 45 47 49 51 52 53 56 57 58 59 99 100 "
        "171 172 173 174 176 177 178 179 260 261 262 300 510 511 512 32260 32261 37773 37774 "
        "37775 37776 40000 10485760 5368709120",
        "minstep=5 delay=3 shift_x=2 shift_y=9 ku=3 gain=513 impedance=300");
    return family;
}

Family stepFamily()
{
    Family family{ QStringLiteral("step"), {} };
    addValues(
        family, "minstep",
        "0 -0 1e-45 1e-38 0.3 1 1.2499999 1.25 1.2500001 2.4999998 2.5 2.5000002 3.7 3.75 5 10 "
        "20 40 80 160 320 639.9 640 79998.75 80000 80001.25 1e6 2684354560 1e30 3.4028235e38 "
        "inf -inf nan bits:ffc00000 bits:7f800001 -1.25 -5 -1e30");
    return family;
}

Family delayAndShift()
{
    Family family{ QStringLiteral("delay_and_shift"), {} };
    addValues(family, "delay",
              "1 2 100 150 151 249 250 255 256 31999 32000 63750 63999 64000 64001 65535 65536 "
              "2147419646 2147419647 2147419648 2147483647 2147483648 4294967046 4294967295");
    addValues(family, "shift_x",
              "1 2 150 249 250 251 63999 64000 64001 2147483647 2147483648 4294903296 4294967046 "
              "4294967145 4294967292 4294967295");
    addValues(family, "shift_y",
              "1 -1 28 29 127 128 129 130 255 256 257 -127 -128 -129 -256 -257 32767 -32768");
    return family;
}

Family factor()
{
    Family family{ QStringLiteral("factor"), {} };
    addValues(
        family, "ku",
        "0 -0 1e-45 -1 0.5 0.9999999 1 1.0000001 1.4989622 1.49896229 1.4989624 1.5 2 9.999999 "
        "10 10.000001 11 1e30 inf -inf nan bits:ffc00001 bits:7f800001");
    return family;
}

Family captionFields()
{
    Family family{ QStringLiteral("captions"), {} };
    for (const char *field : { "pulse_amplitude", "average", "gain", "impedance" })
        addValues(family, field, "0 1 255 256 32767 32768 65535");
    addValues(family, "pulse_width", "0 1 255 256 65535 65536 2147483647 2147483648 4294967295");
    return family;
}

Family dates()
{
    Family family{ QStringLiteral("dates"), {} };
    addValues(family, "year", "0x00 0x0a 0x24 0x99 0x9a 0xa0 0xf9 0xff");
    addValues(family, "month", "0x00 0x01 0x09 0x0a 0x0c 0x0d 0x10 0x12 0x13 0x1f 0x20 0xff");
    addValues(family, "day", "0x00 0x01 0x0a 0x1f 0x29 0x30 0x31 0x32 0x99 0xff");
    addValues(family, "day", "0x28 0x29 0x30", "month=0x02 year=0x24");
    addValues(family, "year", "0x23 0x01", "month=0x02 day=0x29");
    addValues(family, "hours", "0x00 0x1a 0x23 0x24 0x99 0xff");
    addValues(family, "minutes", "0x00 0x0f 0x59 0x5a 0x60 0xff");
    addValues(family, "seconds", "0x00 0x0f 0x59 0x5a 0x60 0xff");
    for (int i = 0; i < family.recipes.size(); ++i)
        family.recipes[i].name = QStringLiteral("%1-%2").arg(i + 1).arg(family.recipes[i].name);
    return family;
}

Family samples()
{
    Family family{ QStringLiteral("samples"), {} };
    addValues(family, "samples", "0,1,-128 0,1,127 0,1,-1 0,1,0 1,2,0 255,256,-128 1,256,-128");
    addValues(family, "sample0", "-128 127");
    addValues(family, "sample249", "-128 127");
    addValues(family, "sample250", "-128 127");
    addValues(family, "sample150", "127 -128 1", "shift_y=2");
    // What nothing reads.
    addValues(family, "type", "65535");
    addValues(family, "len_samples", "0 1 250 65535");
    addValues(family, "bytes_in_sample", "0 2 255");
    addValues(family, "mode", "4294967295");
    addValues(family, "status", "4294967295");
    addValues(family, "diff_mode", "255");
    addValues(family, "weekday", "255");
    addValues(family, "h12", "255");
    addValues(family, "crc", "1 255");
    addValues(family, "raw@32261", "ffffffffffffffffffffffff");
    return family;
}

Family wholeRecords()
{
    Family family{ QStringLiteral("whole_records"), {} };
    addValues(family, "fill", "00 01 20 55 7f 80 aa ff");
    addValues(family, "random", "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16");
    return family;
}

Family pairs()
{
    Family family{ QStringLiteral("pairs"), {} };
    addPairs(family, "minstep", "0 2.5 1e30 nan", "delay", "1 250 2147483648 4294967295");
    addPairs(family, "minstep", "0 2.5 80000 nan", "shift_x", "1 75 67109 2147483648 4294967295");
    addPairs(family, "minstep", "0 2.5 nan", "ku", "nan 0 10");
    addPairs(family, "delay", "1 250 4294967295", "shift_x", "1 2147483648 4294967046 4294967295");
    addPairs(family, "shift_y", "1 2 -32768 32767", "samples", "0,1,127 0,1,-128");
    addPairs(family, "size", "33 57 58 59", "shift_y", "-2 300");
    return family;
}

} // namespace

QVector<Family> corpus::traceFamilies()
{
    return { sizes(), stepFamily(), delayAndShift(), factor(), captionFields(),
             dates(), samples(),    wholeRecords(),  pairs() };
}

QString corpus::tableOf(const Family &family)
{
    QString table;
    for (const Recipe &recipe : family.recipes) {
        table += recipe.name + QStringLiteral(": ") + recipe.text + QLatin1Char('\n');
        const QStringList lines = expectedOutcome(recipe.text);
        for (const QString &line : lines)
            table += QStringLiteral("  ") + line + QLatin1Char('\n');
    }
    return table;
}
