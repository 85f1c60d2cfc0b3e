// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "each.h"
#include "tdr.h"
#include "testfiles.h"
#include "tracebuilder.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <limits>

namespace {

constexpr int markAt = 32261;
constexpr int noteInMark = 9;
constexpr int noteOfCableAt = 34621;

QJsonArray jsonOf(const QStringList &files, const QByteArray &input = {}, bool all = false)
{
    QStringList arguments{ QStringLiteral("info"), QStringLiteral("--json") };
    if (all)
        arguments.append(QStringLiteral("--all"));
    const Outcome outcome = tdr(arguments + files, input);
    if (outcome.code != 0)
        QTest::qFail(outcome.errors.constData(), __FILE__, __LINE__);
    return QJsonDocument::fromJson(outcome.output).array();
}

QJsonObject jsonOf(const TraceBuilder &trace, bool all = false)
{
    return jsonOf({ QStringLiteral("-") }, trace.bytes(), all).first().toObject();
}

QJsonObject part(const QJsonObject &object, const char *name)
{
    return object.value(QLatin1String(name)).toObject();
}

} // namespace

/// The command info of velkor-tdr.
class TestTdrInfo : public QObject
{
    Q_OBJECT

private slots:
    void sampleIsTold()
    {
        const Outcome outcome = tdr({ QStringLiteral("info"), samplePaths()[3] });
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

    void jsonHoldsEveryFile()
    {
        const QStringList paths = samplePaths();
        const QJsonArray reports = jsonOf(paths);
        QCOMPARE(reports.size(), 6);
        const QVector<double> steps = { 5.0, 5.0, 5.0, 5.0, 10.0, 2.5 };
        for (int i = 0; i < reports.size(); ++i) {
            const QJsonObject report = reports[i].toObject();
            QCOMPARE(report.value(QLatin1String("file")).toString(), paths[i]);
            const QByteArray levels = samplesOf(contentOf(paths[i]));
            const auto [lowest, highest]
                = std::minmax_element(levels.begin(), levels.end(), [](char a, char b) {
                      return static_cast<qint8>(a) < static_cast<qint8>(b);
                  });
            const QJsonObject samples = part(report, "samples");
            QCOMPARE(samples.value(QLatin1String("lowest_levels")).toInt(), int{ *lowest });
            QCOMPARE(samples.value(QLatin1String("highest_levels")).toInt(), int{ *highest });
            QCOMPARE(
                part(report, "parameters").value(QLatin1String("sample_minstep_ns")).toDouble(),
                steps[i]);
            QVERIFY(!report.value(QLatin1String("reflections")).toArray().isEmpty());
            QVERIFY(!report.contains(QLatin1String("unknown")));
        }
    }

    void samplesAreCounted()
    {
        const QJsonObject samples
            = part(jsonOf(TraceBuilder().samples([](int i) { return i % 2 == 0 ? 127 : -127; })),
                   "samples");
        QCOMPARE(samples.value(QLatin1String("mean_levels")).toDouble(), 0.0);
        QCOMPARE(samples.value(QLatin1String("deviation_levels")).toDouble(), 127.0);
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

    void reflectionsAreListed()
    {
        const QJsonArray reflections = jsonOf({ samplePaths()[1] })
                                           .first()
                                           .toObject()
                                           .value(QLatin1String("reflections"))
                                           .toArray();
        const QJsonObject fault = reflections.last().toObject();
        QCOMPARE(fault.value(QLatin1String("distance_m")).toDouble(), 71.5);
        QCOMPARE(fault.value(QLatin1String("time_ns")).toDouble(), 715.0);
        QCOMPARE(fault.value(QLatin1String("level")).toInt(), -58);
        QCOMPARE(fault.value(QLatin1String("sign")).toString(), QStringLiteral("negative"));
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

    void valuesThatAreNoneAreNull()
    {
        const QJsonObject report = jsonOf(TraceBuilder()
                                              .ku(std::numeric_limits<float>::quiet_NaN())
                                              .date(2026, 2, 30)
                                              .time(25, 0, 0));
        QVERIFY(part(report, "parameters").value(QLatin1String("KU")).isNull());
        QVERIFY(part(report, "test").value(QLatin1String("date")).isNull());
        QVERIFY(part(report, "test").value(QLatin1String("time")).isNull());
    }

    void unknownFieldsAreWholeAndInTheirPlace()
    {
        // Every byte holds the low part of its own offset.
        QByteArray bytes(37775, '\0');
        for (int i = 0; i < bytes.size(); ++i)
            bytes[i] = static_cast<char>(i);
        const QJsonObject unknown = part(jsonOf(TraceBuilder().raw(0, bytes), true), "unknown");
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
};

QTEST_GUILESS_MAIN(TestTdrInfo)
#include "tst_tdr_info.moc"
