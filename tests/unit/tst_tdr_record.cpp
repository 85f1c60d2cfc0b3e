// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/tdr_record.h"
#include "each.h"
#include "testfiles.h"
#include "tracebuilder.h"

#include <QTemporaryDir>
#include <QtTest>

#include <climits>
#include <limits>
#include <memory>

using Protocol_VX840::TDR_FILE_t;

namespace {

constexpr int recordSize = 37775;

// On the heap: the record has 37775 bytes.
std::unique_ptr<TDR_FILE_t> recordOf(const QByteArray &bytes)
{
    auto record = std::make_unique<TDR_FILE_t>();
    calc::fillRecord(bytes.constData(), bytes.size(), *record);
    return record;
}

QByteArray imageOf(const TDR_FILE_t &record)
{
    return QByteArray(reinterpret_cast<const char *>(&record), sizeof record);
}

} // namespace

/// Reading a record, and TraceBuilder, on which other tests rely. The offset of every field is
/// asserted in protocol_vx840.h.
class TestTdrRecord : public QObject
{
    Q_OBJECT

private slots:
    void numbersAreLittleEndianAndSigned()
    {
        QByteArray bytes(recordSize, '\0');
        bytes.replace(25, 4, QByteArray::fromHex("00002040")); // 2.5
        bytes.replace(57, 2, QByteArray::fromHex("feff")); // -2
        bytes.replace(183, 8, QByteArray::fromHex("000000000000f8bf")); // -1.5
        bytes.replace(261, 2, QByteArray::fromHex("807f")); // -128, 127
        bytes.replace(18, 4, QByteArray::fromHex("02000000"));
        bytes.replace(159, 4, QByteArray::fromHex("04000000"));
        const auto record = recordOf(bytes);
        QCOMPARE(float{ record->ch.params.sample_minstep }, 2.5F);
        QCOMPARE(int{ record->ch.params.shiftY }, -2);
        QCOMPARE(double{ record->ch.cursor[0].position_ns }, -1.5);
        QCOMPARE(int{ record->samples[0] }, -128);
        QCOMPARE(int{ record->samples[1] }, 127);
        QVERIFY(record->ch.mode == Protocol_VX840::CH_TDR);
        QVERIFY(record->ch.status == Protocol_VX840::CH_FAILED_BREAK);
    }

    void everyByteOfAFullFileSurvives()
    {
        QByteArray bytes(recordSize, '\0');
        for (int i = 0; i < recordSize; ++i)
            bytes[i] = static_cast<char>((i * 7 + i / 251) & 0xFF);
        QCOMPARE(imageOf(*recordOf(bytes)), bytes);
    }

    void aShortFileKeepsTheFormerBytesBeyondItsEnd()
    {
        const auto record = recordOf(QByteArray(recordSize, '\x55'));
        for (const qint64 size : { qint64{ 0 }, qint64{ -1 }, std::numeric_limits<qint64>::min() })
            calc::fillRecord(nullptr, size, *record);
        QCOMPARE(imageOf(*record), QByteArray(recordSize, '\x55'));
        calc::fillRecord(QByteArray(100, '\x11').constData(), 100, *record);
        QCOMPARE(imageOf(*record), QByteArray(100, '\x11') + QByteArray(recordSize - 100, '\x55'));
    }

    void theTailOfALongFileIsIgnored()
    {
        struct Guarded
        {
            TDR_FILE_t record;
            char behind[16];
        };
        const QByteArray bytes = TraceBuilder().samples(7).bytes();
        const QByteArray longer = bytes + QByteArray(16, '\x77');
        const auto guarded = std::make_unique<Guarded>();
        calc::fillRecord(longer.constData(), longer.size(), guarded->record);
        QCOMPARE(imageOf(guarded->record), bytes);
        for (const char byte : guarded->behind)
            QCOMPARE(byte, '\0');
    }

    void theStepIsTruncatedToWholeCountsAndBoundedWhereItIsUsed()
    {
        constexpr float infinity = std::numeric_limits<float>::infinity();
        struct Row
        {
            const char *name;
            float minstep;
            int counts;
            int usable;
        };
        each<Row>({ { "1 ns is less than a count", 1.0F, 0, 1 },
                    { "just below a count", 1.2499999F, 0, 1 },
                    { "one count", 1.25F, 1, 1 },
                    { "two counts", 2.5F, 2, 2 },
                    { "nearly three counts", 3.7F, 2, 2 },
                    { "the whole axis", 80000.0F, 64000, 64000 },
                    { "more than the axis", 100000.0F, 80000, 64000 },
                    { "absurd", 1e30F, INT_MAX, 64000 },
                    { "infinity", infinity, INT_MAX, 64000 },
                    { "zero", 0.0F, 0, 1 },
                    { "negative", -5.0F, -4, 1 },
                    { "minus infinity", -infinity, INT_MIN, 1 },
                    { "not a number", std::numeric_limits<float>::quiet_NaN(), 0, 1 } },
                  [](const Row &row) {
                      QCOMPARE(calc::countsPerSample(row.minstep), row.counts);
                      QCOMPARE(calc::usableStep(row.counts), row.usable);
                  });
    }

    void theSavedShiftIsReadAsSigned()
    {
        struct Row
        {
            const char *name;
            quint32 shiftX;
            int step;
            int scroll;
        };
        each<Row>({ { "none", 0, 4, 0 },
                    { "to the right", 3, 4, 12 },
                    { "one step to the left", 0xFFFFFFFF, 4, -4 },
                    { "three steps to the left", 0xFFFFFFFD, 2, -6 },
                    { "a step of 0 shifts nothing", 0xFFFFFFFF, 0, 0 },
                    { "a negative step", 3, -4, -12 },
                    { "a step beyond the axis", 2, 80000, 160000 },
                    { "largest without a wrap", 0x7FFFFFFF, 1, INT_MAX },
                    { "smallest int", 0x80000000, 1, INT_MIN },
                    { "wraps to nothing", 0x80000000, 2, 0 },
                    { "wraps round", 0x40000001, 4, 4 },
                    { "wraps with the largest step", 2, INT_MAX, -2 } },
                  [](const Row &row) {
                      QCOMPARE(calc::initialScroll(row.shiftX, row.step), row.scroll);
                  });
    }

    void datesAreBcdFrom2000On()
    {
        struct Row
        {
            const char *name; // month, day, year
            QDate date;
        };
        each<Row>({ { "030524", QDate(2024, 3, 5) },
                    { "123199", QDate(2099, 12, 31) },
                    { "010100", QDate(2000, 1, 1) },
                    { "022924", QDate(2024, 2, 29) },
                    { "022923", QDate() },
                    { "0a0b1a", QDate(2020, 10, 11) }, // digits are not checked
                    { "000000", QDate() },
                    { "ffffff", QDate() } },
                  [](const Row &row) {
                      const QByteArray bytes = QByteArray::fromHex(row.name);
                      const auto record = recordOf(TraceBuilder().raw(176, bytes).bytes());
                      QCOMPARE(calc::measurementDate(*record), row.date);
                  });
    }

    void timesAreBcdToTheSecond()
    {
        struct Row
        {
            const char *name; // hours, minutes, seconds
            QTime time;
        };
        each<Row>({ { "090507", QTime(9, 5, 7) },
                    { "235959", QTime(23, 59, 59) },
                    { "000000", QTime(0, 0) },
                    { "240000", QTime() },
                    { "000060", QTime() },
                    { "ffffff", QTime() } },
                  [](const Row &row) {
                      const QByteArray bytes = QByteArray::fromHex(row.name);
                      const auto record = recordOf(TraceBuilder().raw(171, bytes).bytes());
                      QCOMPARE(calc::measurementTime(*record), row.time);
                  });
    }

    void aNewTraceBuilderHoldsAValidRecord()
    {
        const auto record = recordOf(TraceBuilder().bytes());
        QCOMPARE(int{ record->name.len_samples }, 250);
        QVERIFY(record->ch.mode == Protocol_VX840::CH_TDR);
        QVERIFY(record->ch.status == Protocol_VX840::CH_PASSED);
        QCOMPARE(float{ record->ch.params.sample_minstep }, 1.25F);
        QCOMPARE(float{ record->ch.params.KU }, 1.49896229F);
        QCOMPARE(calc::measurementDate(*record), QDate(2024, 3, 5));
        QCOMPARE(calc::measurementTime(*record), QTime(9, 5, 7));
        QCOMPARE(QByteArray(imageOf(*record).mid(261, 32000)), QByteArray(32000, '\0'));
    }

    void eachSetterOfATraceBuilderReachesItsField()
    {
        const QTemporaryDir folder;
        const QString path = TraceBuilder()
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
                                 .time(23, 59, 58)
                                 .samples([](int i) { return i % 100; })
                                 .sample(0, 127)
                                 .sample(31999, -128)
                                 .raw(37774, "Z")
                                 .write(folder.filePath(QStringLiteral("one.tdr")));
        const QByteArray bytes = contentOf(path);
        QCOMPARE(bytes.size(), recordSize);
        const auto record = recordOf(bytes);
        const Protocol_VX840::CH_PARAMS_t &params = record->ch.params;
        QCOMPARE(float{ params.sample_minstep }, 2.5F);
        QCOMPARE(quint32{ params.delay }, 0xFFFFFFFFU);
        QCOMPARE(quint32{ params.pulse_width }, 1000000U);
        QCOMPARE(int{ params.pulse_amplitude }, 40000);
        QCOMPARE(int{ params.average }, 1024);
        QCOMPARE(int{ params.gain }, 90);
        QCOMPARE(int{ params.impedance }, 600);
        QCOMPARE(float{ params.KU }, 2.25F);
        QCOMPARE(quint32{ params.shiftX }, 0xFFFFFFFEU);
        QCOMPARE(int{ params.shiftY }, -300);
        QCOMPARE(calc::measurementDate(*record), QDate(2099, 12, 31));
        QCOMPARE(calc::measurementTime(*record), QTime(23, 59, 58));
        QCOMPARE(int{ record->samples[0] }, 127);
        QCOMPARE(int{ record->samples[249] }, 49);
        QCOMPARE(int{ record->samples[31999] }, -128);
        QCOMPARE(int{ record->crc }, int{ 'Z' });
    }
};

QTEST_APPLESS_MAIN(TestTdrRecord)
#include "tst_tdr_record.moc"
