// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol_vx840.h"
#include "record.h"

#include <QtTest>

#include <cmath>
#include <limits>

using namespace instrument;
using Protocol_VX840::TDR_FILE_t;

namespace {

Survey someSurvey()
{
    Survey survey;
    survey.time = QDateTime(QDate(2026, 12, 9), QTime(19, 5, 59), Qt::UTC);
    survey.status = Protocol_VX840::CH_FAILED;
    survey.faultDistance = 71.5;
    survey.cableLength = 104.0;
    survey.shiftX = -20;
    survey.shiftY = -45;
    survey.marks = { { 38.0, "joint" }, { 71.5, "short" } };
    survey.note = "after the flood";
    return survey;
}

quint8 byteAt(const QByteArray &bytes, int offset)
{
    return static_cast<quint8>(bytes[offset]);
}

} // namespace

class TestSampleRecord : public QObject
{
    Q_OBJECT

private slots:
    void fieldsAreAtTheirOffsets()
    {
        Settings settings;
        settings.delay = 0x0102;
        settings.pulseWidth = 0x01020304;
        settings.gain = 6;
        Trace trace;
        trace.samples.assign(Protocol_VX840::fileSamples, -1);
        trace.samples[0] = 5;
        const QByteArray bytes = fileBytes(makeRecord(trace, settings, someSurvey()));
        QCOMPARE(bytes.size(), 37775);
        QCOMPARE(bytes.mid(2, 3), QByteArray("\x00\x7D\x01", 3)); // 32000 samples of one byte
        QCOMPARE(bytes.mid(18, 4), QByteArray("\x02\x00\x00\x00", 4)); // CH_TDR
        QCOMPARE(bytes.mid(25, 4), QByteArray("\x00\x00\xA0\x40", 4)); // 5.0
        QCOMPARE(bytes.mid(29, 4), QByteArray("\x02\x01\x00\x00", 4));
        QCOMPARE(bytes.mid(37, 4), QByteArray("\x04\x03\x02\x01", 4));
        QCOMPARE(bytes.mid(41, 8), QByteArray("\x14\x00\x10\x00\x06\x00\x78\x00", 8));
        QCOMPARE(bytes.mid(53, 4), QByteArray("\xEC\xFF\xFF\xFF", 4)); // -20
        QCOMPARE(bytes.mid(57, 2), QByteArray("\xD3\xFF", 2)); // -45
        QCOMPARE(bytes.mid(171, 3), QByteArray("\x19\x05\x59", 3)); // 19:05:59 in BCD
        QCOMPARE(bytes.mid(176, 3), QByteArray("\x12\x09\x26", 3)); // December 9th, 2026 in BCD
        QCOMPARE(bytes.mid(261, 2), QByteArray("\x05\xFF", 2));
        QCOMPARE(byteAt(bytes, 32260), quint8(0xFF));
        QCOMPARE(byteAt(bytes, 32261), quint8(1)); // the first mark
    }

    void theCheckByteMakesTheSumZero()
    {
        const QByteArray bytes
            = fileBytes(makeRecord(acquire({}, Settings()), Settings(), someSurvey()));
        quint8 sum = 0;
        for (const char byte : bytes)
            sum = static_cast<quint8>(sum + static_cast<quint8>(byte));
        QCOMPARE(sum, quint8(0));
    }

    void placesAreInCentimetresAndSamples()
    {
        const TDR_FILE_t record = makeRecord({}, Settings(), someSurvey());
        QCOMPARE(quint32(record.ch.fault_distance), 7150U); // cm
        QCOMPARE(quint32(record.mark[0].distance_smpl), 76U); // 0.5 m a sample
        QCOMPARE(quint32(record.mark[1].distance_smpl), 143U);
        QCOMPARE(int(record.mark[2].id), 0);
        QCOMPARE(QByteArray(record.mark[1].note), QByteArray("short"));
        QCOMPARE(int(record.ch.cursor[1].position_pixel), 143);
        QVERIFY(std::abs(double(record.ch.cursor[1].position_ns) - 715.0) < 1.0e-3);
        QCOMPARE(int(record.name.len_samples), 0);
    }

    void longTextsAndListsAreCut()
    {
        Survey survey;
        survey.note = QByteArray(2000, 'n');
        survey.marks.assign(40, { 1.0, QByteArray(100, 'm') });
        const TDR_FILE_t record = makeRecord({}, Settings(), survey);
        QCOMPARE(QByteArray(record.ext_params.note), QByteArray(1023, 'n'));
        QCOMPARE(QByteArray(record.mark[31].note), QByteArray(63, 'm'));
        QCOMPARE(int(record.mark[31].id), 32);
        QCOMPARE(quint32(record.ext_nodes.id_site), 1U);
    }

    void valuesOutOfRangeAreClamped()
    {
        Survey survey;
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

QTEST_APPLESS_MAIN(TestSampleRecord)
#include "tst_sample_record.moc"
