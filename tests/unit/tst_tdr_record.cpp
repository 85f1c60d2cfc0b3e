// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/tdr_record.h"
#include "tracebuilder.h"

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

/// Reading a record. The offset of every field is asserted in protocol_vx840.h.
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

    void everyByteOfAFullFileIsKept()
    {
        QByteArray bytes(recordSize, '\0');
        for (int i = 0; i < recordSize; ++i)
            bytes[i] = static_cast<char>((i * 7 + i / 251) & 0xFF);
        QCOMPARE(imageOf(*recordOf(bytes)), bytes);
    }

    void shortFileKeepsTheFormerBytesBeyondItsEnd()
    {
        const auto record = recordOf(QByteArray(recordSize, '\x55'));
        for (const qint64 size : { qint64{ 0 }, qint64{ -1 }, std::numeric_limits<qint64>::min() })
            calc::fillRecord(nullptr, size, *record);
        QCOMPARE(imageOf(*record), QByteArray(recordSize, '\x55'));
        calc::fillRecord(QByteArray(100, '\x11').constData(), 100, *record);
        QCOMPARE(imageOf(*record), QByteArray(100, '\x11') + QByteArray(recordSize - 100, '\x55'));
    }

    void tailOfALongFileIsIgnored()
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

    void stepIsTruncatedToWholeCountsAndBoundedAtItsUse()
    {
        constexpr float infinity = std::numeric_limits<float>::infinity();
        QCOMPARE(calc::countsPerSample(1.2499999F), 0);
        QCOMPARE(calc::countsPerSample(1.25F), 1);
        QCOMPARE(calc::countsPerSample(2.5F), 2);
        QCOMPARE(calc::countsPerSample(3.7F), 2); // nearly three counts
        QCOMPARE(calc::countsPerSample(100000.0F), 80000);
        QCOMPARE(calc::countsPerSample(1e30F), INT_MAX);
        QCOMPARE(calc::countsPerSample(infinity), INT_MAX);
        QCOMPARE(calc::countsPerSample(0.0F), 0);
        QCOMPARE(calc::countsPerSample(-5.0F), -4);
        QCOMPARE(calc::countsPerSample(-infinity), INT_MIN);
        QCOMPARE(calc::countsPerSample(std::numeric_limits<float>::quiet_NaN()), 0);
        for (const int tooSmall : { 0, -4, INT_MIN })
            QCOMPARE(calc::usableStep(tooSmall), 1);
        for (const int usable : { 1, 2, 64000 })
            QCOMPARE(calc::usableStep(usable), usable);
        for (const int tooLarge : { 64001, 80000, INT_MAX })
            QCOMPARE(calc::usableStep(tooLarge), 64000);
    }

    void savedShiftIsReadAsSigned()
    {
        QCOMPARE(calc::initialScroll(0, 4), 0);
        QCOMPARE(calc::initialScroll(3, 4), 12);
        QCOMPARE(calc::initialScroll(0xFFFFFFFF, 4), -4);
        QCOMPARE(calc::initialScroll(0xFFFFFFFD, 2), -6);
        QCOMPARE(calc::initialScroll(0xFFFFFFFF, 0), 0);
        QCOMPARE(calc::initialScroll(3, -4), -12);
        QCOMPARE(calc::initialScroll(2, 80000), 160000); // a step beyond the axis
        QCOMPARE(calc::initialScroll(0x7FFFFFFF, 1), INT_MAX);
        QCOMPARE(calc::initialScroll(0x80000000, 1), INT_MIN);
        QCOMPARE(calc::initialScroll(0x80000000, 2), 0); // wraps
        QCOMPARE(calc::initialScroll(0x40000001, 4), 4);
        QCOMPARE(calc::initialScroll(2, INT_MAX), -2);
    }

    void datesAreBcdFrom2000On()
    {
        const auto dateOf = [](const char *monthDayYear) {
            const QByteArray bytes = QByteArray::fromHex(monthDayYear);
            return calc::measurementDate(*recordOf(TraceBuilder().raw(176, bytes).bytes()));
        };
        QCOMPARE(dateOf("030524"), QDate(2024, 3, 5));
        QCOMPARE(dateOf("123199"), QDate(2099, 12, 31));
        QCOMPARE(dateOf("010100"), QDate(2000, 1, 1));
        QCOMPARE(dateOf("022924"), QDate(2024, 2, 29));
        QCOMPARE(dateOf("0a0b1a"), QDate(2020, 10, 11)); // digits are not checked
        for (const char *none : { "022923", "000000", "ffffff" })
            QCOMPARE(dateOf(none), QDate());
    }

    void timesAreBcdToTheSecond()
    {
        const auto timeOf = [](const char *hoursMinutesSeconds) {
            const QByteArray bytes = QByteArray::fromHex(hoursMinutesSeconds);
            return calc::measurementTime(*recordOf(TraceBuilder().raw(171, bytes).bytes()));
        };
        QCOMPARE(timeOf("090507"), QTime(9, 5, 7));
        QCOMPARE(timeOf("235959"), QTime(23, 59, 59));
        QCOMPARE(timeOf("000000"), QTime(0, 0));
        for (const char *none : { "240000", "000060", "ffffff" })
            QCOMPARE(timeOf(none), QTime());
    }
};

QTEST_APPLESS_MAIN(TestTdrRecord)
#include "tst_tdr_record.moc"
