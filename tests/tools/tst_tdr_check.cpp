// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "each.h"
#include "tdr.h"
#include "test_files.h"
#include "tracebuilder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

#include <limits>

namespace {

TraceBuilder sound()
{
    return TraceBuilder().samples([](int i) { return i % 100; });
}

constexpr int markAt = 32261;
constexpr int noteInMark = 9;
constexpr int noteOfCableAt = 34621;

QJsonObject jsonOf(const TraceBuilder &trace, const char *option = "")
{
    const Outcome outcome = tdr("info --json -", wordsOf(option), trace.bytes());
    return QJsonDocument::fromJson(outcome.output).array().first().toObject();
}

QJsonObject part(const QJsonObject &object, const char *name)
{
    return object.value(QLatin1String(name)).toObject();
}

} // namespace

/// The commands check and info of velkor-tdr, and damaged files in all commands that read records.
class TestTdrCheck : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;

private slots:
    void sampleTracesHaveNoFindings()
    {
        const Outcome outcome = tdr("check", samplePaths());
        QCOMPARE(outcome.lines(), QStringList());
        QCOMPARE(outcome.errorLines(), QStringList());
        QCOMPARE(outcome.code, 0);
    }

    void eachFindingHasItsText()
    {
        struct Row
        {
            const char *name; ///< the first finding
            QByteArray bytes;
        };
        constexpr float none = std::numeric_limits<float>::quiet_NaN();
        constexpr float endless = std::numeric_limits<float>::infinity();
        each<Row>(
            {
                { "size is 0 bytes instead of 37775: the trace is cut off", {} },
                { "size is 510 bytes instead of 37775: the trace is cut off",
                  sound().bytes().left(510) },
                { "size is 37774 bytes instead of 37775", sound().bytes().left(37774) },
                { "size is more than 37775 bytes", sound().bytes() + 'x' },
                { "sampling step 3.7 ns is no multiple of 1.25 ns: every distance is wrong",
                  sound().minstep(3.7F).bytes() },
                { "sampling step 0 ns is not above 0", sound().minstep(0.0F).bytes() },
                { "sampling step -5 ns is not above 0", sound().minstep(-5.0F).bytes() },
                { "sampling step nan ns is not above 0", sound().minstep(none).bytes() },
                { "KU 0.99 is not between 1 and 10", sound().ku(0.99F).bytes() },
                { "KU 10.5 is not between 1 and 10", sound().ku(10.5F).bytes() },
                { "KU nan is not between 1 and 10", sound().ku(none).bytes() },
                { "KU inf is not between 1 and 10", sound().ku(endless).bytes() },
                { "year, month and day 26 02 30 are no BCD date",
                  sound().date(2026, 2, 30).bytes() },
                { "year, month and day 1a 03 05 are no BCD date",
                  sound().raw(178, "\x1A").bytes() },
                { "hours, minutes and seconds 24 00 00 are no BCD time",
                  sound().time(24, 0, 0).bytes() },
                { "bytes_in_sample is 2 instead of 1", sound().raw(4, "\x02").bytes() },
                { "3 samples are clipped at +-127",
                  sound().sample(7, 127).sample(8, -127).sample(9, -128).bytes() },
                { "all samples are equal", sound().samples(9).bytes() },
                { "49 samples lie beyond the end of the axis", sound().delay(63800).bytes() },
            },
            [](const Row &row) {
                const Outcome outcome = tdr("check -", {}, row.bytes);
                QCOMPARE(outcome.lines(), { QLatin1String("-: ") + QLatin1String(row.name) });
                QCOMPARE(outcome.code, 1);
            });
        const Outcome longStep = tdr("check -", {}, sound().minstep(100000.0F).bytes());
        QCOMPARE(longStep.lines().constFirst(),
                 QStringLiteral("-: sampling step 100000 ns is longer than the axis"));
#ifndef Q_OS_WIN
        // A finding is one line.
        const QString name = m_folder.filePath(QStringLiteral("two\nlines.tdr"));
        writeFile(name, {});
        QCOMPARE(tdr("check", { name }).lines().size(), 1);
#endif
    }

    void fileTruncatedInItsHeadIsNoTrace()
    {
        for (const char *command : { "info --json -", "csv -" }) {
            const Outcome outcome = tdr(command, {}, sound().bytes().left(100));
            QVERIFY(outcome.errors.endsWith("100 bytes, too few for a trace\n"));
            QCOMPARE(outcome.code, 2);
        }
    }

    void infoListsTheFieldsOfASample()
    {
        const Outcome outcome = tdr("info", { samplePaths()[3] });
        const QStringList lines = outcome.lines();
        QCOMPARE(lines.constFirst(), samplePaths()[3]);
        for (const char *line : {
                 "  date                    2026-07-02",
                 "  time                    11:20:30",
                 "  sample_minstep          5 ns",
                 "  KU                      1.498962",
                 "  shiftX                  -20 samples",
                 "  shiftY                  -45 levels",
                 "  id 1, distance 72 samples, KU_left 1.498962, note tap",
                 "  from                    -10 m",
                 "  to                      114.5 m",
             })
            QVERIFY2(lines.contains(QString::fromLatin1(line)), line);
        QVERIFY(!outcome.output.contains("\nunknown\n"));
        QCOMPARE(outcome.code, 0);
    }

    void jsonHoldsEveryFileWithItsReflections()
    {
        const QStringList paths = samplePaths();
        const QJsonArray reports
            = QJsonDocument::fromJson(tdr("info --json", paths).output).array();
        QCOMPARE(reports.size(), 6);
        for (int i = 0; i < reports.size(); ++i) {
            const QJsonObject report = reports[i].toObject();
            QCOMPARE(report.value(QLatin1String("file")).toString(), paths[i]);
            QVERIFY(!report.value(QLatin1String("reflections")).toArray().isEmpty());
            QVERIFY(!report.contains(QLatin1String("unknown")));
        }
        const QJsonObject fault
            = reports[1].toObject().value(QLatin1String("reflections")).toArray().last().toObject();
        QCOMPARE(fault.value(QLatin1String("distance_m")).toDouble(), 71.5);
        QCOMPARE(fault.value(QLatin1String("time_ns")).toDouble(), 715.0);
        QCOMPARE(fault.value(QLatin1String("level")).toInt(), -58);
        QCOMPARE(fault.value(QLatin1String("sign")).toString(), QStringLiteral("negative"));
    }

    void infoHasStatisticsOfTheSamples()
    {
        const QJsonObject samples
            = part(jsonOf(TraceBuilder().samples([](int i) { return i % 2 == 0 ? 127 : -127; })),
                   "samples");
        QCOMPARE(samples.value(QLatin1String("mean_levels")).toDouble(), 0.0);
        QCOMPARE(samples.value(QLatin1String("deviation_levels")).toDouble(), 127.0);
        QCOMPARE(samples.value(QLatin1String("lowest_levels")).toInt(), -127);
        QCOMPARE(samples.value(QLatin1String("highest_levels")).toInt(), 127);
        QCOMPARE(samples.value(QLatin1String("clipped")).toInt(), 250);
    }

    void rangeFollowsDelayShiftAndFactor()
    {
        const QJsonObject range = part(
            jsonOf(TraceBuilder().minstep(2.5F).delay(100).shiftX(0xFFFFFFFE).ku(2.0F)), "range");
        // From 196 counts on, each 0.093685 m and 1.25 ns.
        QCOMPARE(range.value(QLatin1String("from_m")).toDouble(), 18.3623);
        QCOMPARE(range.value(QLatin1String("step_m")).toDouble(), 0.1874);
        QCOMPARE(range.value(QLatin1String("time_to_ns")).toDouble(), 867.5);
    }

    void notesAreDecodedAndCannotChangeTheTerminal()
    {
        struct Row
        {
            const char *name;
            QByteArray note;
            QString shown;
        };
        each<Row>(
            { { "ASCII", "joint", QStringLiteral("joint") },
              { "UTF-8", "муфта", QStringLiteral("муфта") },
              { "other", "\xEC\xF3\xF4", QStringLiteral("\\xec\\xf3\\xf4") },
              { "control", "a\x1B[2J\nb", QStringLiteral("a\\x1b[2J\\x0ab") },
              { "all bytes", QByteArray(64, 'x'), QString(64, QLatin1Char('x')) } },
            [](const Row &row) {
                const QJsonObject report = jsonOf(
                    TraceBuilder().raw(markAt + noteInMark, row.note).raw(noteOfCableAt, row.note));
                const QJsonArray marks = report.value(QLatin1String("marks")).toArray();
                QCOMPARE(marks.size(), 1);
                QCOMPARE(marks[0].toObject().value(QLatin1String("note")).toString(), row.shown);
                QCOMPARE(part(report, "cable").value(QLatin1String("note")).toString(), row.shown);
            });
    }

    void invalidValuesAreNull()
    {
        const QJsonObject report = jsonOf(TraceBuilder()
                                              .ku(std::numeric_limits<float>::quiet_NaN())
                                              .date(2026, 2, 30)
                                              .time(25, 0, 0));
        QVERIFY(part(report, "parameters").value(QLatin1String("KU")).isNull());
        QVERIFY(part(report, "test").value(QLatin1String("date")).isNull());
        QVERIFY(part(report, "test").value(QLatin1String("time")).isNull());
    }

    void unknownFieldsAreCompleteAndInTheirPlace()
    {
        // Every byte holds the low part of its own offset.
        QByteArray bytes(37775, '\0');
        for (int i = 0; i < bytes.size(); ++i)
            bytes[i] = static_cast<char>(i);
        const QJsonObject unknown = part(jsonOf(TraceBuilder().raw(0, bytes), "--all"), "unknown");
        struct Row
        {
            const char *name;
            int offset;
            int size;
        };
        QCOMPARE(unknown.size(), 25);
        each<Row>({ { "calibrate", 22, 1 },
                    { "scale", 33, 4 },
                    { "curve_beta", 91, 4 },
                    { "params_reserve", 95, 64 },
                    { "RTC_WeekDay", 175, 1 },
                    { "cursor_2_bm_state", 218, 16 },
                    { "ext_params_reserve", 35645, 64 },
                    { "ext_nodes_reserve", 35726, 2048 },
                    { "crc", 37774, 1 } },
                  [&](const Row &row) {
                      QCOMPARE(unknown.value(QLatin1String(row.name)).toString().toLatin1(),
                               bytes.mid(row.offset, row.size).toHex());
                  });
    }

    void unreadableFilesAreNamed()
    {
        const Outcome outcome = tdr("check /dev/zero . absent.tdr", { samplePaths().constFirst() });
        QCOMPARE(outcome.errorLines(),
                 (QStringList{
                     QStringLiteral("velkor-tdr: /dev/zero: neither a regular file nor a pipe"),
                     QStringLiteral("velkor-tdr: .: is a folder"),
                     QStringLiteral("velkor-tdr: absent.tdr: No such file or directory") }));
        QCOMPARE(outcome.code, 2);
    }

    void wrongUseIsAnError()
    {
        struct Row
        {
            const char *name; ///< the command
            QByteArray error;
        };
        each<Row>({ { "", "Usage: velkor-tdr COMMAND" },
                    { "plan", "velkor-tdr: plan: no such command" },
                    { "info", "velkor-tdr: info: no file is named" },
                    { "info --force -", "velkor-tdr: info: Unknown option 'force'" } },
                  [](const Row &row) {
                      const Outcome outcome = tdr(row.name);
                      QVERIFY(outcome.errors.startsWith(row.error));
                      QCOMPARE(outcome.output, QByteArray());
                      QCOMPARE(outcome.code, 2);
                  });
    }

    void helpAndVersionGoToTheOutput()
    {
        for (const char *option : { "--help", "-h" }) {
            const Outcome outcome = tdr(option);
            QVERIFY(outcome.output.contains("\n  from-csv   "));
            QCOMPARE(outcome.code, 0);
        }
        const Outcome command = tdr("csv --help");
        QVERIFY(command.output.startsWith("Usage: velkor-tdr csv [OPTION...] FILE...\n"));
        QVERIFY(command.output.contains("--force"));
        QCOMPARE(command.code, 0);
        QCOMPARE(tdr("--version").output, "velkor-tdr " VELKOR_VERSION "\n");
    }
};

QTEST_GUILESS_MAIN(TestTdrCheck)
#include "tst_tdr_check.moc"
