// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/exporting_text.h"
#include "tdr/record.h"
#include "tdr/table.h"
#include "test_files.h"
#include "window_actions.h"
#include "windowtest.h"

#include <QDir>
#include <QLocale>
#include <QPushButton>
#include <QRegularExpression>
#include <QtTest>

namespace {

TraceBuilder rising()
{
    return TraceBuilder().samples([](int i) { return i % 100; });
}

TraceBuilder crestAndDip()
{
    return echoTrace({ { 60, 90 }, { 180, -40 } });
}

QStringList tableOf(const MainWindow &window)
{
    return QString::fromUtf8(extras::table(window)).split(QLatin1Char('\n'));
}

/// Lines of the table of \a window without its comments.
QStringList rowsOf(const MainWindow &window)
{
    return tableOf(window).filter(QRegularExpression(QStringLiteral("^[-\"0-9]")));
}

} // namespace

/// The content of the window as text.
class TestExportingText : public WindowTest
{
    Q_OBJECT

private slots:
    // tst_trace_table tests the layout of a table.
    void tableHoldsAllSamplesOfTheVisibleTraces()
    {
        openOn({ crestAndDip(), TraceBuilder().samples(5), TraceBuilder().samples(-100) });
        window().V_Offset_change(50);
        window().RFG_visibleToggle(1, false);
        window().cursorSetup_slot(60);
        // Only the last samples are in view, and smoothing changes no sample.
        window().setPlotRange(240, 490);
        QTest::mouseClick(probe().smooth_button(), Qt::LeftButton);
        const QByteArray english = extras::table(window());
        setLanguage("ru_RU");
        QCOMPARE(extras::table(window()), english);
        const QStringList rows = rowsOf(window());
        QCOMPARE(rows.size(), 251);
        QVERIFY(rows[0].endsWith(QStringLiteral(",\"trace 1: t1.tdr\",\"trace 3: t3.tdr\"")));
        QCOMPARE(rows[61], QStringLiteral("7.5000,75.00,140,-100"));
        const QStringList lines = tableOf(window());
        QVERIFY(lines.contains(QStringLiteral("# cursor A: 7.5000 m | 75.00 ns | level 140")));
        QVERIFY(lines.contains(
            QStringLiteral("# reflection 1: 7.5000 m | 75.00 ns | level 140 | positive")));
        const auto firstTrace = [this] {
            return tableOf(window())
                .filter(QStringLiteral("# trace 1: t1.tdr | 2024-03-05 "))
                .value(0);
        };
        QString trace = firstTrace();
        QVERIFY(trace.endsWith(QStringLiteral(" | master | selected")));
        // Differences from a master that is hidden.
        window().setMasterID(1);
        QCOMPARE(firstTrace(), trace.remove(QStringLiteral(" | master")));
        QTest::mouseClick(probe().difference_button(), Qt::LeftButton);
        QVERIFY(rowsOf(window())[0].endsWith(QStringLiteral(",\"trace 2 - trace 3: t3.tdr\"")));
        QVERIFY(rowsOf(window())[1].endsWith(QStringLiteral(",105")));
        QLocale::setDefault(QLocale(QLocale::Russian));
        const QString row = rowsOf(window())[2];
        QLocale::setDefault(QLocale::c());
        QVERIFY(row.startsWith(QStringLiteral("\"0,1250\";\"1,25\";")));
    }

    void commandWritesTheSameTable()
    {
        const QDir folder(QStringLiteral(VELKOR_SAMPLES_DIR));
        std::deque<tdr::NamedRecord> records;
        QStringList paths;
        for (const QString &name : folder.entryList({ QStringLiteral("*.tdr") }, QDir::Files)) {
            paths.append(folder.filePath(name));
            records.push_back({ paths.last(), tdr::recordOf(contentOf(paths.last())) });
        }
        fixture->open();
        QVERIFY(chooseFiles(*fixture, paths));
        QVERIFY(rowsOf(window())[0].contains(QStringLiteral("trace 6: ")));
        // A command has no cursors.
        QByteArray expected;
        for (const QByteArray &line : extras::table(window()).split('\n'))
            if (!line.startsWith("# cursor ") && !line.startsWith("# between the cursors: "))
                expected += line + '\n';
        expected.chop(1);
        QCOMPARE(tdr::table(records, calc::Decimals::Point), expected);
    }

#ifdef Q_OS_UNIX
    void oddNamesStayOnTheirLine()
    {
        const QString odd = QStringLiteral("a\n# trace 9, \"я\"\n.tdr");
        WindowFixture::writePreviousRun({ fixture->trace(odd, TraceBuilder()) });
        const MainWindow &window = fixture->open();
        // Only a table with such letters has a byte order mark.
        QVERIFY(extras::table(window).startsWith("\xEF\xBB\xBF# Velkor"));
        QVERIFY(
            rowsOf(window)[0].endsWith(QStringLiteral("\"trace 1: a # trace 9, \"\"я\"\" .tdr\"")));
        QVERIFY(
            extras::readings(window).startsWith(QStringLiteral("RFG 1: a # trace 9, \"я\" .tdr")));
    }
#endif

    void readingsHoldEveryFact()
    {
        openOn({ rising().shiftX(16).shiftY(-7), TraceBuilder().date(2031, 12, 5).time(23, 4, 59),
                 TraceBuilder().raw(171, QByteArray(8, '\xFF')) });
        window().RFG_visibleToggle(1, false);
        window().cursorSetup_slot(40);
        QTest::mouseClick(probe().smooth_button(), Qt::LeftButton);
        const auto date = [](int year, int month, int day) {
            return QLocale::system().toString(QDate(year, month, day), QLocale::ShortFormat);
        };
        const QString expected
            = QStringLiteral("RFG 1: t1.tdr, %1 09:05:07, X Shift = 2.00 m, Y Shift = -7\n"
                             "RFG 2: t2.tdr, %2 23:04:59, X Shift = 0.00 m, Y Shift = 0\n"
                             "RFG 3: t3.tdr, X Shift = 0.00 m, Y Shift = 0\n"
                             "Cursor A: x = 5.00 m, y = 17\n"
                             "Cursor B: x = 0.00 m\n"
                             "Δ: 5.00 m\n"
                             "KU: 1.499\n"
                             "Velocity factor 1/KU: 0.667\n"
                             "v/2: 100.0 m/µs\n"
                             "Smooth: on\n"
                             "Selected: RFG 1\n"
                             "Pulse Width: 100 ns\n"
                             "Pulse Amp: 20 V\n"
                             "Impedance: 75 Ω\n"
                             "Gain: 30\n"
                             "Average: 16\n")
                  .arg(date(2024, 3, 5), date(2031, 12, 5));
        QCOMPARE(extras::readings(window()).left(expected.size()), expected);
        QTest::mouseClick(probe().difference_button(), Qt::LeftButton);
        QVERIFY(extras::readings(window()).contains(
            QStringLiteral("\nDifference: RFG 1 minus each\n")));
        setLanguage("ru_RU");
        const QString text = extras::readings(window());
        for (const char *word :
             { "РФГ 1: t1.tdr", "Курсор A: x = 5.00 м", "Относительная скорость 1/КУ: 0.667",
               "v/2: 100.0 м/мкс", "Выбрана: РФГ 1", "Импеданс: 75 Ом" })
            QVERIFY2(text.contains(QString::fromUtf8(word)), word);
    }

    void readingsListTheReflections()
    {
        // The second trace is shifted 5 levels up. A count is 0.125 m and 1.25 ns.
        openOn({ TraceBuilder().samples(0), crestAndDip().shiftX(16).shiftY(5) });
        const auto reflections = [this] {
            return extras::readings(window())
                .split(QLatin1Char('\n'))
                .filter(QStringLiteral("Reflection "));
        };
        QCOMPARE(reflections(), QStringList());
        window().rfgSelect_slot(1);
        QCOMPARE(reflections(),
                 (QStringList{
                     QStringLiteral("Reflection 1: x = 9.50 m, t = 95.00 ns, y = 95, +"),
                     QStringLiteral("Reflection 2: x = 24.50 m, t = 245.00 ns, y = -35, −") }));
        // The master is 0 everywhere.
        QTest::mouseClick(probe().difference_button(), Qt::LeftButton);
        QCOMPARE(reflections().value(0),
                 QStringLiteral("Reflection 1: x = 9.50 m, t = 95.00 ns, y = -95, −"));
    }
};

QTEST_MAIN(TestExportingText)
#include "tst_exporting_text.moc"
