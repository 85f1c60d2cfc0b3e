// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/tdr_record.h"
#include "tracebuilder.h"

#include <QtTest>

using Protocol_VX840::TDR_FILE_t;

// TraceBuilder, which other tests rely on: its records, read through the declarations of the
// viewer.
class TestTraceBuilder : public QObject
{
    Q_OBJECT

    TDR_FILE_t m_record = {};

    void read(const TraceBuilder &builder)
    {
        const QByteArray bytes = builder.bytes();
        QCOMPARE(bytes.size(), 37775);
        calc::fillRecord(bytes.constData(), bytes.size(), m_record);
    }

private slots:
    void aNewBuilderHoldsAValidRecord()
    {
        read(TraceBuilder());
        QCOMPARE(int{ m_record.name.len_samples }, 250);
        QVERIFY(m_record.ch.mode == Protocol_VX840::CH_TDR);
        QVERIFY(m_record.ch.status == Protocol_VX840::CH_PASSED);
        QCOMPARE(calc::countsPerSample(m_record.ch.params.sample_minstep), 1);
        QCOMPARE(quint32{ m_record.ch.params.delay }, 0U);
        QCOMPARE(quint32{ m_record.ch.params.shiftX }, 0U);
        QCOMPARE(int{ m_record.ch.params.shiftY }, 0);
        QCOMPARE(float{ m_record.ch.params.KU }, 1.49896229F);
        QCOMPARE(calc::measurementDate(m_record), QDate(2024, 3, 5));
        QCOMPARE(calc::measurementTime(m_record), QTime(9, 5, 7));
        for (const qint8 sample : m_record.samples)
            QCOMPARE(int{ sample }, 0);
    }

    void eachSetterReachesItsField()
    {
        read(TraceBuilder()
                 .minstep(2.5F)
                 .delay(0xFFFFFFFFU)
                 .pulseWidth(1000000)
                 .pulseAmplitude(40000)
                 .average(1024)
                 .gain(90)
                 .impedance(600)
                 .ku(2.25F)
                 .shiftX(0xFFFFFFFEU)
                 .shiftY(-300)
                 .date(2099, 12, 31)
                 .time(23, 59, 58));
        QCOMPARE(float{ m_record.ch.params.sample_minstep }, 2.5F);
        QCOMPARE(quint32{ m_record.ch.params.delay }, 0xFFFFFFFFU);
        QCOMPARE(quint32{ m_record.ch.params.pulse_width }, 1000000U);
        QCOMPARE(int{ m_record.ch.params.pulse_amplitude }, 40000);
        QCOMPARE(int{ m_record.ch.params.average }, 1024);
        QCOMPARE(int{ m_record.ch.params.gain }, 90);
        QCOMPARE(int{ m_record.ch.params.impedance }, 600);
        QCOMPARE(float{ m_record.ch.params.KU }, 2.25F);
        QCOMPARE(quint32{ m_record.ch.params.shiftX }, 0xFFFFFFFEU);
        QCOMPARE(int{ m_record.ch.params.shiftY }, -300);
        QCOMPARE(calc::measurementDate(m_record), QDate(2099, 12, 31));
        QCOMPARE(calc::measurementTime(m_record), QTime(23, 59, 58));
    }

    void samplesAreSetOneByOneOrAllAtOnce()
    {
        read(TraceBuilder().samples(-5).sample(0, 127).sample(249, -128).sample(31999, 1));
        QCOMPARE(int{ m_record.samples[0] }, 127);
        QCOMPARE(int{ m_record.samples[1] }, -5);
        QCOMPARE(int{ m_record.samples[249] }, -128);
        QCOMPARE(int{ m_record.samples[31998] }, -5);
        QCOMPARE(int{ m_record.samples[31999] }, 1);

        read(TraceBuilder().samples([](int i) { return i % 100; }));
        QCOMPARE(int{ m_record.samples[42] }, 42);
        QCOMPARE(int{ m_record.samples[249] }, 49);
    }

    void theFileHoldsTheBytes()
    {
        QTemporaryDir folder;
        QVERIFY(folder.isValid());
        const TraceBuilder builder = TraceBuilder().samples(3).raw(37774, QByteArray(1, '\x5A'));
        const QString path = builder.write(folder.filePath(QStringLiteral("one.tdr")));
        QCOMPARE(path, folder.filePath(QStringLiteral("one.tdr")));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray written = file.readAll();
        QCOMPARE(written, builder.bytes());
        QCOMPARE(written.at(37774), '\x5A');
    }
};

QTEST_APPLESS_MAIN(TestTraceBuilder)
#include "tst_tracebuilder.moc"
