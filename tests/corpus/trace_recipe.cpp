// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "trace_recipe.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringList>

#include <cstdlib>
#include <cstring>

namespace {

constexpr qint64 mostBytes = 64 << 20;

struct Field
{
    const char *name;
    int offset;
    int width;
    bool isFloat;
};

constexpr Field fields[] = {
    { "type", 0, 2, false },
    { "len_samples", 2, 2, false },
    { "bytes_in_sample", 4, 1, false },
    { "mode", 18, 4, false },
    { "minstep", 25, 4, true },
    { "delay", 29, 4, false },
    { "pulse_width", 37, 4, false },
    { "pulse_amplitude", 41, 2, false },
    { "average", 43, 2, false },
    { "gain", 45, 2, false },
    { "impedance", 47, 2, false },
    { "ku", 49, 4, true },
    { "shift_x", 53, 4, false },
    { "shift_y", 57, 2, false },
    { "diff_mode", 59, 1, false },
    { "status", 159, 4, false },
    { "hours", 171, 1, false },
    { "minutes", 172, 1, false },
    { "seconds", 173, 1, false },
    { "h12", 174, 1, false },
    { "weekday", 175, 1, false },
    { "month", 176, 1, false },
    { "day", 177, 1, false },
    { "year", 178, 1, false },
    { "crc", 37774, 1, false },
};

[[noreturn]] void giveUp(const QString &word)
{
    qFatal("no such word in a recipe: %s", qPrintable(word));
}

void putNumber(QByteArray &record, int offset, int width, quint64 value)
{
    for (int i = 0; i < width; ++i)
        record[offset + i] = static_cast<char>((value >> (8 * i)) & 0xFF);
}

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
    // Some thousand times in a run: without asking for each byte whether the record is shared.
    char *samples = record.data() + corpus::samplesAt;
    for (int i = 0; i < corpus::sampleCount; ++i)
        samples[i] = static_cast<char>((i * factor) % modulus + shift);
}

void putRandom(QByteArray &record, quint32 seed)
{
    // Marsaglia's xorshift: the same everywhere and for good.
    quint32 state = seed * 2654435761U + 1;
    for (char &byte : record) {
        state ^= state << 13;
        state ^= state >> 17;
        state ^= state << 5;
        byte = static_cast<char>(state >> 24);
    }
}

QByteArray wholeRecord()
{
    QByteArray record(corpus::recordSize, '\0');
    const auto put = [&record](int offset, int width, quint64 value) {
        putNumber(record, offset, width, value);
    };
    put(25, 4, floatBits(QStringLiteral("1.25")));
    put(37, 4, 100);
    put(41, 2, 20);
    put(43, 2, 16);
    put(45, 2, 30);
    put(47, 2, 75);
    put(49, 4, floatBits(QStringLiteral("1.49896229")));
    record.replace(171, 3, QByteArray::fromHex("090507"));
    record.replace(176, 3, QByteArray::fromHex("030524"));
    putSamples(record, 37, 201, -100);
    return record;
}

void apply(QByteArray &record, const QString &key, const QString &value)
{
    for (const Field &field : fields) {
        if (key != QLatin1String(field.name))
            continue;
        putNumber(record, field.offset, field.width,
                  field.isFloat ? floatBits(value)
                                : static_cast<quint64>(value.toLongLong(nullptr, 0)));
        return;
    }
    static const QRegularExpression oneSample(QStringLiteral("^sample(\\d+)$"));
    static const QRegularExpression rawBytes(QStringLiteral("^raw@(\\d+)$"));
    const auto sample = oneSample.match(key);
    const auto raw = rawBytes.match(key);
    const QStringList parts = value.split(QLatin1Char(','));
    if (key == QLatin1String("samples"))
        putSamples(record, parts.value(0).toInt(), parts.value(1).toInt(), parts.value(2).toInt());
    else if (sample.hasMatch())
        record[corpus::samplesAt + sample.captured(1).toInt()] = static_cast<char>(value.toInt());
    else if (raw.hasMatch())
        record.replace(raw.captured(1).toInt(), value.size() / 2,
                       QByteArray::fromHex(value.toLatin1()));
    else if (key == QLatin1String("fill"))
        record.fill(static_cast<char>(value.toInt(nullptr, 16)));
    else if (key == QLatin1String("random"))
        putRandom(record, value.toUInt());
    else if (key != QLatin1String("size"))
        giveUp(key);
}

QStringList wordsOf(const QString &text)
{
    const QString plain = text.simplified();
    return plain.isEmpty() ? QStringList() : plain.split(QLatin1Char(' '));
}

} // namespace

QByteArray corpus::bytesOf(const QString &text)
{
    QByteArray record = wholeRecord();
    const QStringList words = wordsOf(text);
    for (const QString &word : words) {
        const int equals = static_cast<int>(word.indexOf(QLatin1Char('=')));
        if (equals < 0)
            giveUp(word);
        apply(record, word.left(equals), word.mid(equals + 1));
    }
    const qint64 size = qMin(sizeOf(text), mostBytes);
    if (size > record.size())
        record.append(QByteArray(static_cast<int>(size - record.size()), '\xee'));
    return record.left(static_cast<int>(size));
}

qint64 corpus::sizeOf(const QString &text)
{
    const QLatin1String key("size=");
    const QStringList words = wordsOf(text);
    for (const QString &word : words)
        if (word.startsWith(key))
            return word.mid(key.size()).toLongLong();
    return recordSize;
}

void corpus::writeTrace(const QString &text, const QString &path)
{
    const QByteArray bytes = bytesOf(text);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()
        || !file.resize(sizeOf(text)))
        qFatal("cannot write %s", qPrintable(path));
}

quint64 corpus::numberAt(const QByteArray &record, int offset, int width)
{
    quint64 number = 0;
    for (int i = width - 1; i >= 0; --i)
        number = number << 8 | static_cast<quint8>(record[offset + i]);
    return number;
}

float corpus::floatAt(const QByteArray &record, int offset)
{
    const auto bits = static_cast<quint32>(numberAt(record, offset, 4));
    float number = 0;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}
