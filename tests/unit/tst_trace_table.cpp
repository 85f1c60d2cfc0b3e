// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/trace_table.h"

#include <QRegularExpression>
#include <QtTest>

#include <array>
#include <climits>
#include <limits>

namespace {

using Samples = std::array<qint8, constants::drawnSamples>;

/// 0, 1, 2 ... 99, 0, 1 ...
Samples counting()
{
    Samples samples;
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = static_cast<qint8>(i % 100);
    return samples;
}

const Samples counted = counting();

calc::TableTrace trace(int slot, int step, int scroll = 0, int offset = 0, quint32 delay = 0)
{
    calc::TableTrace result;
    result.slot = slot;
    result.file = QStringLiteral("t%1.tdr").arg(slot + 1);
    result.trace = { counted.data(), step, delay, scroll, offset };
    return result;
}

calc::TraceTable tableOf(const QVector<calc::TableTrace> &traces)
{
    calc::TraceTable table;
    table.traces = traces;
    table.metresPerCount = 0.125;
    return table;
}

QStringList commentsOf(const calc::TraceTable &table)
{
    return calc::tableText(table)
        .split(QLatin1Char('\n'))
        .filter(QRegularExpression(QStringLiteral("^# ")));
}

/// The lines that are not comments.
QStringList rowsOf(const calc::TraceTable &table)
{
    QStringList rows = calc::tableText(table)
                           .split(QLatin1Char('\n'))
                           .filter(QRegularExpression(QStringLiteral("^(?!# )")));
    if (rows.takeLast() != QString())
        qFatal("the last line has no end");
    return rows;
}

} // namespace

class TestTraceTable : public QObject
{
    Q_OBJECT

private slots:
    void everySampleHasARow()
    {
        const QStringList rows = rowsOf(tableOf({ trace(1, 4, -8, -5) }));
        QCOMPARE(rows.size(), 251);
        QCOMPARE(rows[0],
                 QStringLiteral("\"distance (m)\",\"echo time (ns)\",\"trace 2: t2.tdr\""));
        QCOMPARE(rows[1], QStringLiteral("-1.0000,-10.00,-5"));
        QCOMPARE(rows[3], QStringLiteral("0.0000,0.00,-3"));
        QCOMPARE(rows[250], QStringLiteral("123.5000,1235.00,44"));
        QCOMPARE(rowsOf(tableOf({})),
                 QStringList{ QStringLiteral("\"distance (m)\",\"echo time (ns)\"") });
    }

    void tracesOnOneGridShareRows()
    {
        const QStringList rows
            = rowsOf(tableOf({ trace(0, 2, 1), trace(3, 2, -3), trace(5, 2, 1, 9, 1) }));
        QCOMPARE(rows.size(), 1 + 253);
        QCOMPARE(rows[1], QStringLiteral("-0.3750,-3.75,,0,"));
        QCOMPARE(rows[3], QStringLiteral("0.1250,1.25,0,2,"));
        QCOMPARE(rows[4], QStringLiteral("0.3750,3.75,1,3,9"));
        QCOMPARE(rows[253], QStringLiteral("62.6250,626.25,,,58"));
    }

    void tracesOnOtherGridsFollow()
    {
        // The third trace has the step of the first and is one count off its grid.
        const QStringList rows = rowsOf(tableOf({ trace(0, 2), trace(1, 4), trace(2, 2, -1) }));
        QCOMPARE(rows.size(), 1 + 3 * 250);
        QCOMPARE(rows[250], QStringLiteral("62.2500,622.50,49,,"));
        QCOMPARE(rows[251], QStringLiteral("0.0000,0.00,,0,"));
        QCOMPARE(rows[501], QStringLiteral("-0.1250,-1.25,,,0"));
    }

    void differencesLieOnTheGridOfTheMaster()
    {
        calc::TraceTable table = tableOf({ trace(0, 2), trace(1, 3, 0, 10) });
        table.difference = true;
        table.master = 0;
        table.masterTrace = table.traces[0].trace;
        const QStringList rows = rowsOf(table);
        QCOMPARE(rows[0],
                 QStringLiteral("\"distance (m)\",\"echo time (ns)\",\"trace 1: t1.tdr\","
                                "\"trace 1 - trace 2: t2.tdr\""));
        QCOMPARE(rows.size(), 251);
        QCOMPARE(rows[1], QStringLiteral("0.0000,0.00,0,-10"));
        QCOMPARE(rows[2], QStringLiteral("0.2500,2.50,1,"));
        QCOMPARE(rows[4], QStringLiteral("0.7500,7.50,3,-9"));
        QVERIFY(commentsOf(table).contains(
            QStringLiteral("# differences: trace 1 minus each other trace")));
        // A hidden master is subtracted too.
        table.traces.removeFirst();
        QCOMPARE(rowsOf(table)[2], QStringLiteral("0.7500,7.50,-9"));
        // Without a master every trace stays as it is.
        table.master = constants::noMaster;
        QCOMPARE(rowsOf(table)[2], QStringLiteral("0.3750,3.75,11"));
    }

    void commentsDescribeTheMeasurement()
    {
        calc::TraceTable table = tableOf({ trace(2, 4, 16, -7, 3), trace(4, 4) });
        auto &params = table.traces[0].params;
        params.sample_minstep = 5.0F;
        params.pulse_width = 100;
        params.pulse_amplitude = 20;
        params.impedance = 75;
        params.gain = 30;
        params.average = 16;
        table.traces[0].date = QDate(2024, 3, 5);
        table.traces[0].time = QTime(9, 5, 7);
        table.selected = 2;
        table.master = 4;
        table.cursors = { { 304, 12 }, { 100, constants::noLevel } };
        table.reflections = { { 304, 12, true }, { 832, -40, false } };
        QCOMPARE(commentsOf(table).join(QLatin1Char('\n')).toUtf8(),
                 QByteArray(
                     "# Velkor | levels in sample steps | distances and levels include the shifts\n"
                     "# KU = c/v = 1.499 | velocity factor v/c = 0.667 | v/2 = 100.0 m/us\n"
                     "# cursor A: 38.0000 m | 380.00 ns | level 12\n"
                     "# cursor B: 12.5000 m | 125.00 ns\n"
                     "# between the cursors: 25.5000 m | 255.00 ns\n"
                     "# trace 3: t3.tdr | 2024-03-05 09:05:07 | step 5 ns | delay 3 samples | "
                     "shifts 2.0000 m and -7 levels | pulse 100 ns and 20 V | impedance 75 ohm | "
                     "gain 30 | average 16 | selected\n"
                     "# trace 5: t5.tdr | step 0 ns | delay 0 samples | "
                     "shifts 0.0000 m and 0 levels | pulse 0 ns and 0 V | impedance 0 ohm | "
                     "gain 0 | average 0 | master\n"
                     "# reflection 1: 38.0000 m | 380.00 ns | level 12 | positive\n"
                     "# reflection 2: 104.0000 m | 1040.00 ns | level -40 | negative"));
    }

    void commentsNeverExceedTwentyLines()
    {
        calc::TraceTable table;
        for (int slot = 0; slot < constants::slotCount; ++slot)
            table.traces.append(trace(slot, 1));
        table.cursors = { {}, {} };
        table.difference = true;
        table.master = 0;
        table.masterTrace = table.traces[0].trace;
        table.reflections.fill({ 8, 7, true }, 60);
        const QStringList lines = commentsOf(table);
        QVERIFY2(lines.size() <= 20, qPrintable(QString::number(lines.size())));
        QCOMPARE(lines.join(QLatin1Char('\n')).count(QLatin1String("reflection ")), 60);
        // A program that writes tables may have more traces than the window has slots.
        for (int slot = 6; slot < 40; ++slot)
            table.traces.append(trace(slot, 1));
        QCOMPARE(commentsOf(table).size(), 20);
    }

    void decimalCommasAreQuoted()
    {
        calc::TraceTable table = tableOf({ trace(0, 4) });
        table.decimals = calc::Decimals::Comma;
        const QStringList rows = rowsOf(table);
        QCOMPARE(rows[0],
                 QStringLiteral("\"distance (m)\";\"echo time (ns)\";\"trace 1: t1.tdr\""));
        QCOMPARE(rows[2], QStringLiteral("\"0,5000\";\"5,00\";1"));
    }

    void fileNamesStayInTheirCell()
    {
        calc::TraceTable table = tableOf({ trace(0, 1) });
        table.traces[0].file
            = QStringLiteral("a,=cmd;\"b\"\n\t# Кабель%1.tdr").arg(QChar(QChar::LineSeparator));
        const QStringList comments = commentsOf(table);
        QCOMPARE(comments.size(), 3);
        QVERIFY(comments[2].startsWith(QStringLiteral("# trace 1: a =cmd b # Кабель .tdr | ")));
        QCOMPARE(rowsOf(table)[0],
                 QStringLiteral("\"distance (m)\",\"echo time (ns)\","
                                "\"trace 1: a,=cmd;\"\"b\"\" # Кабель .tdr\""));
        QCOMPARE(rowsOf(table).size(), 251);
    }

    void extremeTracesGiveCompleteRows()
    {
        calc::TraceTable table = tableOf({ trace(0, 64000, INT_MIN, INT_MAX, 0xFFFFFFFF),
                                           trace(1, 0, INT_MAX), trace(2, 1, -7) });
        table.metresPerCount = std::numeric_limits<double>::quiet_NaN();
        const QStringList rows = rowsOf(table);
        QCOMPARE(rows.size(), 1 + 3 * 250);
        for (const QString &row : rows)
            QCOMPARE(row.count(QLatin1Char(',')), 4);
    }
};

QTEST_APPLESS_MAIN(TestTraceTable)
#include "tst_trace_table.moc"
