// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "trace_recipe.h"

#include "tracebuilder.h"

#include <QFile>
#include <QStringList>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int samplesAt = 261;
constexpr int sampleCount = 32000;
constexpr qint64 mostBytes = 64 << 20;

struct Field
{
    const char *name;
    int offset;
    int width;
};

// Literal offsets, so a wrong declaration in the viewer is detected.
constexpr Field fields[] = {
    { "type", 0, 2 },
    { "len_samples", 2, 2 },
    { "bytes_in_sample", 4, 1 },
    { "mode", 18, 4 },
    { "minstep", 25, 4 },
    { "delay", 29, 4 },
    { "pulse_width", 37, 4 },
    { "pulse_amplitude", 41, 2 },
    { "average", 43, 2 },
    { "gain", 45, 2 },
    { "impedance", 47, 2 },
    { "ku", 49, 4 },
    { "shift_x", 53, 4 },
    { "shift_y", 57, 2 },
    { "diff_mode", 59, 1 },
    { "status", 159, 4 },
    { "hours", 171, 1 },
    { "minutes", 172, 1 },
    { "seconds", 173, 1 },
    { "h12", 174, 1 },
    { "weekday", 175, 1 },
    { "month", 176, 1 },
    { "day", 177, 1 },
    { "year", 178, 1 },
    { "crc", 37774, 1 },
};

quint32 floatBits(const QString &value)
{
    if (value.startsWith(QLatin1String("bits:")))
        return value.mid(5).toUInt(nullptr, 16);
    const float number = std::strtof(value.toLatin1().constData(), nullptr);
    quint32 bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return bits;
}

void putSamples(QByteArray &record, int factor, int modulus, int shift)
{
    char *samples = record.data() + samplesAt;
    for (int i = 0; i < sampleCount; ++i)
        samples[i] = static_cast<char>((i * factor) % modulus + shift);
}

void putRandom(QByteArray &record, quint32 seed)
{
    // Marsaglia's xorshift: the same on every machine.
    quint32 state = seed * 2654435761U + 1;
    for (char &byte : record) {
        state ^= state << 13;
        state ^= state >> 17;
        state ^= state << 5;
        byte = static_cast<char>(state >> 24);
    }
}

void putNumber(QByteArray &record, const Field &field, const QString &value)
{
    const QString name = QLatin1String(field.name);
    const bool isFloat = name == QLatin1String("minstep") || name == QLatin1String("ku");
    const quint64 number
        = isFloat ? floatBits(value) : static_cast<quint64>(value.toLongLong(nullptr, 0));
    for (int i = 0; i < field.width; ++i)
        record[field.offset + i] = static_cast<char>((number >> (8 * i)) & 0xFF);
}

void apply(QByteArray &record, const QString &name, const QString &value)
{
    const auto *field = std::find_if(std::begin(fields), std::end(fields), [&](const Field &one) {
        return name == QLatin1String(one.name);
    });
    const QStringList parts = value.split(QLatin1Char(','));
    if (field != std::end(fields))
        putNumber(record, *field, value);
    else if (name == QLatin1String("samples"))
        putSamples(record, parts.value(0).toInt(), parts.value(1).toInt(), parts.value(2).toInt());
    else if (name.startsWith(QLatin1String("sample")))
        record[samplesAt + name.mid(6).toInt()] = static_cast<char>(value.toInt());
    else if (name.startsWith(QLatin1String("raw@")))
        record.replace(name.mid(4).toInt(), static_cast<int>(value.size()) / 2,
                       QByteArray::fromHex(value.toLatin1()));
    else if (name == QLatin1String("fill"))
        record.fill(static_cast<char>(value.toInt(nullptr, 16)));
    else if (name == QLatin1String("random"))
        putRandom(record, value.toUInt());
    else
        qFatal("unknown word in a recipe: %s", qPrintable(name));
}

} // namespace

void corpus::writeTrace(const QString &recipe, const QString &path)
{
    QByteArray record = TraceBuilder().samples([](int i) { return i * 37 % 201 - 100; }).bytes();
    qint64 size = record.size();
    const QStringList words = recipe.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &word : words) {
        const QString name = word.section(QLatin1Char('='), 0, 0);
        const QString value = word.section(QLatin1Char('='), 1);
        if (name == QLatin1String("size"))
            size = value.toLongLong();
        else
            apply(record, name, value);
    }
    const auto written = static_cast<int>(qMin(size, mostBytes));
    if (written > record.size())
        record.append(QByteArray(written - record.size(), '\xee'));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(record.constData(), written) != written
        || !file.resize(size))
        qFatal("cannot write %s", qPrintable(path));
}
