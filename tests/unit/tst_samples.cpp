// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/constants.h"
#include "calc/tdr_record.h"
#include "protocol_vx840.h"
#include "record.h"
#include "sample_traces.h"
#include "test_files.h"

#include <QDir>
#include <QtTest>

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
    return contentOf(sampleFolder().filePath(fileName));
}

TDR_FILE_t recordOf(const QString &fileName)
{
    TDR_FILE_t record = {};
    const QByteArray bytes = contents(fileName);
    if (bytes.size() == int(sizeof record))
        std::memcpy(&record, bytes.constData(), sizeof record);
    return record;
}

} // namespace

/// The sample traces, and the records that the simulated instrument makes. tst_reflection_steps
/// tests the reflections on the traces.
class TestSamples : public QObject
{
    Q_OBJECT

private slots:
    void folderHoldsTheSixTracesOfTheInstrument()
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
            // Floating-point differences between compilers may round a sample differently.
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

    void samplesDifferInStepDelayAndShift()
    {
        QVector<int> steps;
        int delayed = 0;
        int shifted = 0;
        for (const SampleTrace &sample : sampleTraces()) {
            const auto params = recordOf(sample.fileName).ch.params;
            steps.append(calc::countsPerSample(params.sample_minstep));
            delayed += params.delay != 0 ? 1 : 0;
            shifted += params.shiftX != 0 && params.shiftY != 0 ? 1 : 0;
        }
        QCOMPARE(steps, (QVector<int>{ 4, 4, 4, 4, 8, 2 }));
        QCOMPARE(delayed, 1);
        QCOMPARE(shifted, 1);
    }

    void valuesOutOfRangeAreTruncatedOrClamped()
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
