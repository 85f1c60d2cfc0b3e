// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/tdr_record.h"
#include "each.h"
#include "tracebuilder.h"

#include <QtTest>

#include <climits>
#include <cstring>
#include <iterator>
#include <limits>
#include <memory>

using Protocol_VX840::TDR_FILE_t;

namespace {

constexpr int recordSize = 37775;

// The stored bits of a field. By value: a reference to a packed field may be misaligned.
template <typename Value> quint64 bits(Value value)
{
    quint64 result = 0;
    std::memcpy(&result, &value, sizeof value);
    return result;
}

struct Field
{
    const char *name;
    int offset; // from the start of the file
    int width; // bytes
    quint64 (*read)(const TDR_FILE_t &);
};

#define FIELD(offset, width, path)                                                                 \
    {                                                                                              \
#path, offset, width, [](const TDR_FILE_t &r) { return bits(r.path); }                     \
    }

const Field fields[] = {
    FIELD(0, 2, name.type),
    FIELD(2, 2, name.len_samples),
    FIELD(4, 1, name.bytes_in_sample),
    FIELD(5, 4, name.sn),
    FIELD(9, 4, ver.altera_version),
    FIELD(13, 4, ver.proc_version),
    FIELD(17, 1, ch.id),
    FIELD(18, 4, ch.mode),
    FIELD(22, 1, ch.params.calibrate),
    FIELD(23, 2, ch.params.sample_selection),
    FIELD(25, 4, ch.params.sample_minstep),
    FIELD(29, 4, ch.params.delay),
    FIELD(33, 4, ch.params.scale),
    FIELD(37, 4, ch.params.pulse_width),
    FIELD(41, 2, ch.params.pulse_amplitude),
    FIELD(43, 2, ch.params.average),
    FIELD(45, 2, ch.params.gain),
    FIELD(47, 2, ch.params.impedance),
    FIELD(49, 4, ch.params.KU),
    FIELD(53, 4, ch.params.shiftX),
    FIELD(57, 2, ch.params.shiftY),
    FIELD(59, 1, ch.params.diff_mode),
    FIELD(60, 1, ch.params.LF_filter_level),
    FIELD(61, 2, ch.params.wave_threshold),
    FIELD(63, 4, ch.params.arm_sync_timeout),
    FIELD(67, 1, ch.params.arm_trig),
    FIELD(68, 1, ch.params.mim_num),
    FIELD(69, 4, ch.params.att_comp_origin),
    FIELD(73, 4, ch.params.gain_comp_origin),
    FIELD(77, 2, ch.params.gain_calibr),
    FIELD(79, 4, ch.params.interval_left),
    FIELD(83, 4, ch.params.interval_right),
    FIELD(87, 4, ch.params.curve_Zo),
    FIELD(91, 4, ch.params.curve_beta),
    FIELD(95, 1, ch.params.reserve[0]),
    FIELD(158, 1, ch.params.reserve[63]),
    FIELD(159, 4, ch.status),
    FIELD(163, 4, ch.vext),
    FIELD(167, 4, ch.fault_distance),
    FIELD(171, 1, ch.test_time.RTC_Hours),
    FIELD(172, 1, ch.test_time.RTC_Minutes),
    FIELD(173, 1, ch.test_time.RTC_Seconds),
    FIELD(174, 1, ch.test_time.RTC_H12),
    FIELD(175, 1, ch.test_date.RTC_WeekDay),
    FIELD(176, 1, ch.test_date.RTC_Month),
    FIELD(177, 1, ch.test_date.RTC_Date),
    FIELD(178, 1, ch.test_date.RTC_Year),
    FIELD(179, 1, ch.id_cursor),
    FIELD(180, 1, ch.cursor[0].state),
    FIELD(181, 2, ch.cursor[0].position_pixel),
    FIELD(183, 8, ch.cursor[0].position_ns),
    FIELD(191, 1, ch.cursor[0].bm_state_active[0]),
    FIELD(206, 1, ch.cursor[0].bm_state_passive[7]),
    FIELD(207, 1, ch.cursor[1].state),
    FIELD(234, 1, ch.cursor[2].state),
    FIELD(237, 8, ch.cursor[2].position_ns),
    FIELD(252, 1, ch.cursor[2].bm_state_active[7]),
    FIELD(253, 1, ch.cursor[2].bm_state_passive[0]),
    FIELD(260, 1, ch.cursor[2].bm_state_passive[7]),
    FIELD(261, 1, samples[0]),
    FIELD(510, 1, samples[249]),
    FIELD(32260, 1, samples[31999]),
    FIELD(32261, 1, mark[0].id),
    FIELD(32262, 4, mark[0].distance_smpl),
    FIELD(32266, 4, mark[0].KU_left),
    FIELD(32270, 1, mark[0].note[0]),
    FIELD(34524, 1, mark[31].id),
    FIELD(34596, 1, mark[31].note[63]),
    FIELD(34597, 4, ext_params.insulation_resistance),
    FIELD(34601, 4, ext_params.loop_resistance),
    FIELD(34605, 4, ext_params.capacity),
    FIELD(34609, 4, ext_params.breakdown_voltage),
    FIELD(34613, 4, ext_params.measured_cable_length),
    FIELD(34617, 4, ext_params.real_cable_length),
    FIELD(34621, 1, ext_params.note[0]),
    FIELD(35644, 1, ext_params.note[1023]),
    FIELD(35645, 1, ext_params.reserve[0]),
    FIELD(35708, 1, ext_params.reserve[63]),
    FIELD(35709, 4, ext_nodes.id_site),
    FIELD(35713, 4, ext_nodes.id_nodeA),
    FIELD(35717, 4, ext_nodes.id_nodeB),
    FIELD(35721, 4, ext_nodes.id_cable),
    FIELD(35725, 1, ext_nodes.id_pair),
    FIELD(35726, 1, ext_nodes.reserve[0]),
    FIELD(37773, 1, ext_nodes.reserve[2047]),
    FIELD(37774, 1, crc),
};

#undef FIELD

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

class TestTdrRecord : public QObject
{
    Q_OBJECT

private slots:
    void everyFieldIsAtItsOffset()
    {
        for (const Field &field : fields) {
            // Every byte of the field differs from its neighbours and from the rest of the file.
            constexpr quint64 pattern = 0x1807F6E5D4C3B2A1;
            QByteArray bytes(recordSize, '\0');
            for (int i = 0; i < field.width; ++i)
                bytes[field.offset + i] = static_cast<char>((pattern >> (8 * i)) & 0xFF);
            const quint64 mask
                = field.width == 8 ? ~quint64{ 0 } : (quint64{ 1 } << (8 * field.width)) - 1;
            QVERIFY2(field.read(*recordOf(bytes)) == (pattern & mask), field.name);
        }
    }

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

    void anEmptyFileChangesNothing()
    {
        const auto record = recordOf(QByteArray(recordSize, '\x55'));
        for (const qint64 size : { qint64{ 0 }, qint64{ -1 }, std::numeric_limits<qint64>::min() })
            calc::fillRecord(nullptr, size, *record);
        QCOMPARE(imageOf(*record), QByteArray(recordSize, '\x55'));
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
        each<Row>({ { "0.3 ns", 0.3F, 0, 1 },
                    { "1 ns is less than a count", 1.0F, 0, 1 },
                    { "just below a count", 1.2499999F, 0, 1 },
                    { "one count", 1.25F, 1, 1 },
                    { "two counts", 2.5F, 2, 2 },
                    { "nearly three counts", 3.7F, 2, 2 },
                    { "four counts", 5.0F, 4, 4 },
                    { "256 counts", 320.0F, 256, 256 },
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
};

QTEST_APPLESS_MAIN(TestTdrRecord)
#include "tst_tdr_record.moc"
