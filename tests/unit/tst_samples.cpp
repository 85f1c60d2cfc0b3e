// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/constants.h"
#include "protocol_vx840.h"
#include "record.h"
#include "sample_traces.h"

#include <QDir>
#include <QFile>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <cstring>

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

/// Counts per sample, as the viewer takes them.
int stepOf(const TDR_FILE_t &record)
{
    return static_cast<int>(static_cast<double>(record.ch.params.sample_minstep)
                            / constants::nsPerCount);
}

/// Where the viewer draws sample \a index of \a record, in metres by the record's own factor.
double metresOf(const TDR_FILE_t &record, int index)
{
    const auto shift = static_cast<qint32>(record.ch.params.shiftX);
    const double sample = double(shift) + double(record.ch.params.delay) + index;
    return sample * stepOf(record) * constants::distCoef0 / double(record.ch.params.KU);
}

/// The pulse at half height, in metres on the screen.
double pulseLength(const TDR_FILE_t &record)
{
    return record.ch.params.pulse_width / constants::nsPerCount * constants::distCoef0
        / double(record.ch.params.KU);
}

/// How well a bell of the launched width fits the drawn samples around \a index: the noise of the
/// single sample does not decide where a crest is.
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

class TestSamples : public QObject
{
    Q_OBJECT

private slots:
    void theFolderHoldsTheSixAndNoOther()
    {
        QStringList made;
        for (const SampleTrace &sample : sampleTraces())
            made.append(sample.fileName);
        QCOMPARE(made.size(), constants::slotCount);
        QCOMPARE(sampleFolder().entryList({ QStringLiteral("*.tdr") }, QDir::Files, QDir::Name),
                 made);
    }

    void theMakerMakesTheFilesAgain_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < constants::slotCount; ++i)
            QTest::addRow("%d", i + 1) << i;
    }

    void theMakerMakesTheFilesAgain()
    {
        QFETCH(int, index);
        const SampleTrace sample = sampleTraces()[static_cast<std::size_t>(index)];
        const Trace trace = acquire(sample.cable, sample.settings);
        QCOMPARE(trace.clipped, 0);
        TDR_FILE_t made = makeRecord(trace, sample.settings, sample.survey);
        QCOMPARE(contents(sample.fileName).size(), 37775);
        TDR_FILE_t kept = recordOf(sample.fileName);
        QCOMPARE(int(kept.crc), int(checkByte(kept)));
        // Another compiler's last digit may tip a sample over; nothing else may differ.
        for (int i = 0; i < Protocol_VX840::fileSamples; ++i)
            QVERIFY2(std::abs(made.samples[i] - kept.samples[i]) <= 1,
                     qPrintable(QString::number(i)));
        std::memcpy(made.samples, kept.samples, sizeof made.samples);
        made.crc = checkByte(made);
        QVERIFY(fileBytes(made) == fileBytes(kept));
    }

    void everyTraceStaysOnTheScreen()
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

    void echoesLieWhereTheListSays_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("metres");
        QTest::addColumn<int>("sign");
        const auto row = [](int number, const char *text, double metres, int sign) {
            QTest::addRow("%d: %s", number, text)
                << sampleTraces()[static_cast<std::size_t>(number - 1)].fileName
                << QString::fromLatin1(text) << metres << sign;
        };
        row(1, "a joint at 38 m", 38.0, 1);
        row(1, "the open end at 104 m", 104.0, 1);
        row(2, "the joint at 38 m", 38.0, 1);
        row(2, "a short at 71.5 m", 71.5, -1);
        row(3, "from 52 m to 64 m", 52.0, -1);
        row(3, "far edge reads 68 m", 68.0, 1);
        row(3, "a bad joint at 84 m reads 88 m", 88.0, 1);
        row(3, "112 m, reads 116 m", 116.0, 1);
        row(4, "a tap at 26 m", 26.0, -1);
        row(4, "14 m further reads 40 m", 40.0, 1);
        row(4, "the dip at 54 m", 54.0, -1);
        row(4, "open end at 80 m", 80.0, 1);
        row(4, "the crest at 94 m", 94.0, 1);
        row(5, "splice at 88 m", 88.0, 1);
        row(5, "the shorted end at 203 m", 203.0, -1);
        row(6, "begins at 52 m", 52.0, -1);
        row(6, "far edge reads 68 m", 68.0, 1);
        row(6, "the joint reads 88 m", 88.0, 1);
    }

    void echoesLieWhereTheListSays()
    {
        QFETCH(QString, file);
        QFETCH(QString, text);
        QFETCH(double, metres);
        QFETCH(int, sign);
        const QStringList lines
            = QString::fromUtf8(contents(QStringLiteral("README.md"))).split(QLatin1Char('\n'));
        const QStringList own = lines.filter(file);
        QCOMPARE(own.size(), 1);
        QVERIFY2(own.constFirst().contains(text), qPrintable(own.constFirst()));

        // A quarter of the pulse is what a reader can tell of a place: 1 m for 40 ns.
        const TDR_FILE_t record = recordOf(file);
        const double found = crestNear(record, metres, sign);
        QVERIFY2(std::abs(found - metres) <= pulseLength(record) / 4.0,
                 qPrintable(QString::number(found)));
    }

    void theFaultIsTheWholeDifference()
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

    void theSixShowWhatTheFormatCanSay()
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
};

QTEST_APPLESS_MAIN(TestSamples)
#include "tst_samples.moc"
