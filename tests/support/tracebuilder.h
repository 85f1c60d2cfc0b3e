// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QPair>
#include <QString>
#include <QVector>

#include <functional>

/// Makes the bytes of a .tdr file field by field, from literal offsets and without the viewer's own
/// declarations, so a mistake in those is detected.
///
/// A new builder holds a valid record: sampling step 1.25 ns (one count), no delay, no shifts,
/// pulse 100 ns and 20 V, 16 averages, gain 30, 75 ohms, the start-up shortening factor 1.49896229
/// (0.125 m per count), 5 March 2024 at 09:05:07, all samples 0. A test sets only the fields that
/// it is about.
class TraceBuilder
{
public:
    TraceBuilder();

    TraceBuilder &minstep(float ns);
    TraceBuilder &delay(quint32 samples);
    TraceBuilder &ku(float factor);
    TraceBuilder &shiftX(quint32 steps);
    TraceBuilder &shiftY(qint16 sampleSteps);

    /// Stored as BCD, the year counted from 2000; \a year is 2000..2099.
    TraceBuilder &date(int year, int month, int day);
    /// Stored as BCD.
    TraceBuilder &time(int hours, int minutes, int seconds);

    /// Sample \a index, 0..31999, becomes \a value, -128..127.
    TraceBuilder &sample(int index, int value);
    /// All 32000 samples become \a value, -128..127.
    TraceBuilder &samples(int value);
    /// Every sample i of the 32000 becomes \a value (i), -128..127.
    TraceBuilder &samples(const std::function<int(int)> &value);

    /// Writes \a bytes at \a offset over any field; must end within the record.
    TraceBuilder &raw(int offset, const QByteArray &bytes);

    /// The 37775 bytes. Shorten or lengthen the copy for a damaged file.
    QByteArray bytes() const;

    /// Writes the record to \a path, replaces a former file, and returns \a path. Ends the test
    /// program when the file cannot be written.
    QString write(const QString &path) const;

private:
    QByteArray m_bytes;
};

/// A trace whose samples hold their own index: 0, 1, 2 ... 127, 0, 1 ...
TraceBuilder countingTrace();
/// A trace with echoes, each 8 samples wide at half height, by the sample and the level of their
/// crests.
TraceBuilder echoTrace(const QVector<QPair<int, int>> &crests);
/// A trace with one count per sample and \a level everywhere.
TraceBuilder levelTrace(int level);
/// \a count traces with one count per sample; trace i has the level i + 1 everywhere.
QVector<TraceBuilder> levelTraces(int count);
/// \a count traces with four counts per sample, shifted by two samples and 7 levels.
QVector<TraceBuilder> shiftedTraces(int count);
/// One trace for each of \a minsteps, its sampling step in nanoseconds; the level is 5 everywhere.
QVector<TraceBuilder> tracesOfSteps(const QVector<float> &minsteps);
