// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracebuilder.h"

#include <QFile>

#include <cmath>
#include <cstring>

namespace {

constexpr int recordSize = 37775;
constexpr int sampleCount = 32000;
constexpr int samplesAt = 261;

// Little-endian on every machine.
template <typename Number> QByteArray littleEndian(Number number)
{
    QByteArray bytes;
    for (std::size_t i = 0; i < sizeof(Number); ++i)
        bytes.append(static_cast<char>((number >> (8 * i)) & 0xFF));
    return bytes;
}

QByteArray littleEndian(float number)
{
    quint32 bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return littleEndian(bits);
}

char bcd(int value)
{
    return static_cast<char>((value / 10) * 16 + value % 10);
}

} // namespace

TraceBuilder::TraceBuilder()
    : m_bytes(recordSize, '\0')
{
    raw(0, littleEndian(quint16{ 840 })); // device type
    raw(2, littleEndian(quint16{ 250 })); // samples recorded
    raw(4, QByteArray(1, '\1')); // bytes in a sample
    raw(5, littleEndian(quint32{ 1001 })); // serial number
    raw(17, QByteArray(1, '\1')); // channel number
    raw(18, littleEndian(quint32{ 2 })); // channel mode: reflectometer
    raw(159, littleEndian(quint32{ 1 })); // test passed
    minstep(1.25F);
    raw(37, littleEndian(quint32{ 100 })); // pulse width, ns
    raw(41, littleEndian(quint16{ 20 })); // pulse amplitude, V
    raw(43, littleEndian(quint16{ 16 })); // averages
    raw(45, littleEndian(quint16{ 30 })); // gain
    raw(47, littleEndian(quint16{ 75 })); // impedance, ohms
    ku(1.49896229F);
    date(2024, 3, 5);
    time(9, 5, 7);
}

TraceBuilder &TraceBuilder::minstep(float ns)
{
    return raw(25, littleEndian(ns));
}

TraceBuilder &TraceBuilder::delay(quint32 samples)
{
    return raw(29, littleEndian(samples));
}

TraceBuilder &TraceBuilder::ku(float factor)
{
    return raw(49, littleEndian(factor));
}

TraceBuilder &TraceBuilder::shiftX(quint32 steps)
{
    return raw(53, littleEndian(steps));
}

TraceBuilder &TraceBuilder::shiftY(qint16 sampleSteps)
{
    return raw(57, littleEndian(static_cast<quint16>(sampleSteps)));
}

TraceBuilder &TraceBuilder::date(int year, int month, int day)
{
    m_bytes[176] = bcd(month);
    m_bytes[177] = bcd(day);
    m_bytes[178] = bcd(year - 2000);
    return *this;
}

TraceBuilder &TraceBuilder::time(int hours, int minutes, int seconds)
{
    m_bytes[171] = bcd(hours);
    m_bytes[172] = bcd(minutes);
    m_bytes[173] = bcd(seconds);
    return *this;
}

TraceBuilder &TraceBuilder::sample(int index, int value)
{
    Q_ASSERT(index >= 0 && index < sampleCount);
    m_bytes[samplesAt + index] = static_cast<char>(value);
    return *this;
}

TraceBuilder &TraceBuilder::samples(int value)
{
    return raw(samplesAt, QByteArray(sampleCount, static_cast<char>(value)));
}

TraceBuilder &TraceBuilder::samples(const std::function<int(int)> &value)
{
    for (int i = 0; i < sampleCount; ++i)
        sample(i, value(i));
    return *this;
}

TraceBuilder &TraceBuilder::raw(int offset, const QByteArray &bytes)
{
    Q_ASSERT(offset >= 0 && offset + bytes.size() <= recordSize);
    m_bytes.replace(offset, bytes.size(), bytes);
    return *this;
}

QByteArray TraceBuilder::bytes() const
{
    return m_bytes;
}

QString TraceBuilder::write(const QString &path) const
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(m_bytes) != m_bytes.size() || !file.flush())
        qFatal("cannot write the trace %s", qPrintable(path));
    return path;
}

TraceBuilder countingTrace()
{
    return TraceBuilder().samples([](int i) { return i % 128; });
}

TraceBuilder echoTrace(const QVector<QPair<int, int>> &crests)
{
    return TraceBuilder().samples([&crests](int i) {
        double level = 0.0;
        for (const auto &[place, height] : crests)
            level += height * std::exp2(-4.0 * (i - place) * (i - place) / 64.0);
        return static_cast<int>(std::lround(level));
    });
}

TraceBuilder levelTrace(int level)
{
    return TraceBuilder().samples(level);
}

QVector<TraceBuilder> levelTraces(int count)
{
    QVector<TraceBuilder> traces;
    for (int slot = 0; slot < count; ++slot)
        traces.append(levelTrace(slot + 1));
    return traces;
}

QVector<TraceBuilder> shiftedTraces(int count)
{
    return QVector<TraceBuilder>(count, TraceBuilder().minstep(5.0F).shiftX(2).shiftY(7));
}

QVector<TraceBuilder> tracesOfSteps(const QVector<float> &minsteps)
{
    QVector<TraceBuilder> traces;
    for (const float minstep : minsteps)
        traces.append(TraceBuilder().minstep(minstep).samples(5));
    return traces;
}
