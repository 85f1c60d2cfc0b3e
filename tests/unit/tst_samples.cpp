// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/constants.h"
#include "calc/tdr_record.h"
#include "calc/view_range.h"
#include "each.h"
#include "protocol_vx840.h"
#include "record.h"
#include "sample_traces.h"

#include <QDir>
#include <QFile>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <numeric>

using namespace instrument;
using Protocol_VX840::TDR_FILE_t;

namespace {

const QDir &sampleFolder()
{
    static const QDir folder(QStringLiteral(VELKOR_SAMPLES_DIR));
    return folder;
}

QByteArray contents(const QString &fileName)
{
    QFile file(sampleFolder().filePath(fileName));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TDR_FILE_t recordOf(const QString &fileName)
{
    TDR_FILE_t record = {};
    const QByteArray bytes = contents(fileName);
    if (bytes.size() == int(sizeof record))
        std::memcpy(&record, bytes.constData(), sizeof record);
    return record;
}

/// Counts per sample.
int stepOf(const TDR_FILE_t &record)
{
    return calc::countsPerSample(record.ch.params.sample_minstep);
}

/// Where the viewer draws sample \a index of \a record, in metres by the record's own factor.
double metresOf(const TDR_FILE_t &record, int index)
{
    const auto shift = static_cast<qint32>(record.ch.params.shiftX);
    const double sample = double(shift) + double(record.ch.params.delay) + index;
    return sample * stepOf(record) * calc::metresPerCount(record.ch.params.KU);
}

/// The pulse at half height, in metres on the screen.
double pulseLength(const TDR_FILE_t &record)
{
    return record.ch.params.pulse_width / constants::nsPerCount
        * calc::metresPerCount(record.ch.params.KU);
}

/// Output of the filter matched to the launched pulse at sample \a index.
double fit(const TDR_FILE_t &record, int index)
{
    const double width = record.ch.params.pulse_width / double(record.ch.params.sample_minstep);
    const int reach = static_cast<int>(width);
    double sum = 0.0;
    for (int i = -reach; i <= reach; ++i) {
        const int sample = std::clamp(index + i, 0, constants::lastSample);
        sum += std::exp2(-4.0 * i * i / (width * width)) * record.samples[sample];
    }
    return sum;
}

/// Place in metres of the echo of sign \a sign that lies within a pulse of \a metres.
double crestNear(const TDR_FILE_t &record, double metres, int sign)
{
    int best = -1;
    for (int i = 0; i < constants::drawnSamples; ++i) {
        if (std::abs(metresOf(record, i) - metres) > pulseLength(record))
            continue;
        if (best < 0 || sign * fit(record, i) > sign * fit(record, best))
            best = i;
    }
    return best < 0 ? std::nan("") : metresOf(record, best);
}

} // namespace

/// The sample traces, and the records that the simulated instrument makes.
class TestSamples : public QObject
{
    Q_OBJECT

private slots:
    void theFolderHoldsTheSixTracesThatTheInstrumentMakes()
    {
        QStringList names;
        for (const SampleTrace &sample : sampleTraces()) {
            names.append(sample.fileName);
            const Trace trace = acquire(sample.cable, sample.settings);
            QCOMPARE(trace.clipped, 0);
            TDR_FILE_t made = makeRecord(trace, sample.settings, sample.survey);
            const QByteArray bytes = contents(sample.fileName);
            QCOMPARE(bytes.size(), 37775);
            // The check byte makes the sum of all bytes 0.
            QCOMPARE(std::accumulate(bytes.begin(), bytes.end(), 0) & 0xFF, 0);
            TDR_FILE_t kept = recordOf(sample.fileName);
            // Another compiler's last digit may round a sample the other way.
            for (int i = 0; i < Protocol_VX840::fileSamples; ++i)
                QVERIFY2(std::abs(made.samples[i] - kept.samples[i]) <= 1,
                         qPrintable(sample.fileName + QStringLiteral(", sample %1").arg(i)));
            std::memcpy(made.samples, kept.samples, sizeof made.samples);
            made.crc = checkByte(made);
            QVERIFY2(fileBytes(made) == fileBytes(kept), qPrintable(sample.fileName));
        }
        QCOMPARE(names.size(), constants::slotCount);
        QCOMPARE(sampleFolder().entryList({ QStringLiteral("*.tdr") }, QDir::Files, QDir::Name),
                 names);
    }

    void everyTraceFitsTheChart()
    {
        for (const SampleTrace &sample : sampleTraces()) {
            const TDR_FILE_t record = recordOf(sample.fileName);
            for (int i = 0; i < Protocol_VX840::fileSamples; ++i) {
                const double level = record.samples[i];
                QVERIFY(level > -128 && level < 127);
                const double drawn = level + record.ch.params.shiftY;
                QVERIFY(drawn > constants::levelMin && drawn < constants::levelMax);
            }
        }
    }

    void echoesAreWhereTheListSays()
    {
        struct Row
        {
            const char *name; ///< words of the list
            std::size_t number;
            double metres;
            int sign;
        };
        const QString list = QString::fromUtf8(contents(QStringLiteral("README.md")));
        each<Row>({ { "a joint at 38 m", 1, 38.0, 1 },
                    { "the open end at 104 m", 1, 104.0, 1 },
                    { "the joint at 38 m", 2, 38.0, 1 },
                    { "a short at 71.5 m", 2, 71.5, -1 },
                    { "from 52 m to 64 m", 3, 52.0, -1 },
                    { "far edge reads 68 m", 3, 68.0, 1 },
                    { "a bad joint at 84 m reads 88 m", 3, 88.0, 1 },
                    { "112 m, reads 116 m", 3, 116.0, 1 },
                    { "a tap at 26 m", 4, 26.0, -1 },
                    { "14 m further reads 40 m", 4, 40.0, 1 },
                    { "the dip at 54 m", 4, 54.0, -1 },
                    { "open end at 80 m", 4, 80.0, 1 },
                    { "the crest at 94 m", 4, 94.0, 1 },
                    { "splice at 88 m", 5, 88.0, 1 },
                    { "the shorted end at 203 m", 5, 203.0, -1 },
                    { "begins at 52 m", 6, 52.0, -1 },
                    { "far edge reads 68 m", 6, 68.0, 1 },
                    { "the joint reads 88 m", 6, 88.0, 1 } },
                  [&list](const Row &row) {
                      const QString file = sampleTraces()[row.number - 1].fileName;
                      const QStringList lines = list.split(QLatin1Char('\n')).filter(file);
                      QCOMPARE(lines.size(), 1);
                      QVERIFY(lines.constFirst().contains(QString::fromLatin1(row.name)));
                      // A quarter of the pulse is what a reader can tell of a place.
                      const TDR_FILE_t record = recordOf(file);
                      const double found = crestNear(record, row.metres, row.sign);
                      QVERIFY2(std::abs(found - row.metres) <= pulseLength(record) / 4.0,
                               qPrintable(QString::number(found)));
                  });
    }

    void theFaultIsTheOnlyDifference()
    {
        const TDR_FILE_t before = recordOf(sampleTraces()[0].fileName);
        const TDR_FILE_t after = recordOf(sampleTraces()[1].fileName);
        QCOMPARE(stepOf(before), stepOf(after));
        for (int i = 0; i < constants::drawnSamples; ++i) {
            const int difference = before.samples[i] - after.samples[i];
            const double metres = metresOf(before, i);
            if (metres < 71.5 - 2.0 * pulseLength(before))
                QVERIFY(std::abs(difference) <= 6); // noise of both
        }
        const int fault = 143; // 71.5 m in samples of 0.5 m
        QVERIFY(before.samples[fault] - after.samples[fault] > 40);
        const int end = 208; // 104 m
        QVERIFY(before.samples[end] - after.samples[end] > 40);
    }

    void theSixDifferInStepDelayAndShift()
    {
        QVector<int> steps;
        int delayed = 0;
        int shifted = 0;
        for (const SampleTrace &sample : sampleTraces()) {
            const TDR_FILE_t record = recordOf(sample.fileName);
            steps.append(stepOf(record));
            delayed += record.ch.params.delay != 0 ? 1 : 0;
            shifted += record.ch.params.shiftX != 0 && record.ch.params.shiftY != 0 ? 1 : 0;
        }
        QCOMPARE(steps, (QVector<int>{ 4, 4, 4, 4, 8, 2 }));
        QCOMPARE(delayed, 1);
        QCOMPARE(shifted, 1);
    }

    void placesOfARecordAreInCentimetresAndSamples()
    {
        Survey survey;
        survey.faultDistance = 71.5;
        survey.marks = { { 38.0, "joint" }, { 71.5, "short" } };
        const TDR_FILE_t record = makeRecord({}, Settings(), survey);
        QCOMPARE(quint32(record.ch.fault_distance), 7150U); // cm
        QCOMPARE(quint32(record.mark[0].distance_smpl), 76U); // 0.5 m a sample
        QCOMPARE(quint32(record.mark[1].distance_smpl), 143U);
        QCOMPARE(int(record.mark[2].id), 0);
        QCOMPARE(QByteArray(record.mark[1].note), QByteArray("short"));
        QCOMPARE(int(record.ch.cursor[1].position_pixel), 143);
        QVERIFY(std::abs(double(record.ch.cursor[1].position_ns) - 715.0) < 1.0e-3);
        QCOMPARE(int(record.name.len_samples), 0);
    }

    void valuesOutOfRangeAreCutOrClamped()
    {
        Survey survey;
        survey.note = QByteArray(2000, 'n');
        survey.marks.assign(40, { 1.0, QByteArray(100, 'm') });
        const TDR_FILE_t longTexts = makeRecord({}, Settings(), survey);
        QCOMPARE(QByteArray(longTexts.ext_params.note), QByteArray(1023, 'n'));
        QCOMPARE(QByteArray(longTexts.mark[31].note), QByteArray(63, 'm'));
        QCOMPARE(int(longTexts.mark[31].id), 32);
        QCOMPARE(quint32(longTexts.ext_nodes.id_site), 1U);
        survey.faultDistance = 1.0e30;
        survey.marks = { { -5.0, {} }, { std::numeric_limits<double>::quiet_NaN(), {} } };
        const TDR_FILE_t record = makeRecord({}, Settings(), survey);
        QCOMPARE(quint32(record.ch.fault_distance), 0xFFFFFFFFU);
        QCOMPARE(quint32(record.mark[0].distance_smpl), 0U);
        QCOMPARE(quint32(record.mark[1].distance_smpl), 0U);
        QCOMPARE(int(record.ch.cursor[1].position_pixel), 249);
        QCOMPARE(int(record.ch.test_date.RTC_Month), 0);
        QCOMPARE(int(record.ch.test_time.RTC_Hours), 0);
    }
};

QTEST_APPLESS_MAIN(TestSamples)
#include "tst_samples.moc"
