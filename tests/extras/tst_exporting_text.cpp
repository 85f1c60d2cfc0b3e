// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/exporting_text.h"
#include "settingsdata.h"
#include "tdr/record.h"
#include "tdr/table.h"
#include "testfiles.h"
#include "windowactions.h"
#include "windowtest.h"

#include <QDir>
#include <QLocale>
#include <QPushButton>
#include <QtTest>

#include <cmath>
#include <limits>

namespace {

TraceBuilder rising()
{
    return TraceBuilder().samples([](int i) { return i % 100; });
}

/// Comment lines of the table of \a window, or all others.
QStringList linesOf(const MainWindow &window, bool comments)
{
    QStringList lines = QString::fromUtf8(extras::table(window))
                            .remove(QChar(QChar::ByteOrderMark))
                            .split(QLatin1Char('\n'));
    lines.removeLast();
    QStringList wanted;
    for (const QString &line : std::as_const(lines))
        if (line.startsWith(QLatin1Char('#')) == comments)
            wanted.append(line);
    return wanted;
}

QStringList rowsOf(const MainWindow &window)
{
    return linesOf(window, false);
}

void speakRussian(MainWindow &window)
{
    window.settings()->current_language = QStringLiteral("ru_RU");
    window.settings()->setTranslation();
    emit window.settings()->translation_changed();
}

} // namespace

/// What the window shows, as text.
class TestExportingText : public WindowTest
{
    Q_OBJECT

private slots:
    void tableHoldsAllSamplesOfTheVisibleTraces();
    void tableHoldsDifferences();
    void tableTellsTheMeasurement();
    void tableFollowsTheDecimalSignOfTheLocale();
    void tableKeepsItsLanguage();
    void commandWritesTheSameTable();
    void oddRecordsGiveATable();
    void oddNamesStayOnTheirLine();
    void readingsTellEverything();
    void readingsListTheReflections();
    void readingsAreTranslated();
    void readingsOfAnEmptyWindow();
};

void TestExportingText::tableHoldsAllSamplesOfTheVisibleTraces()
{
    MainWindow &window
        = openOn({ rising(), TraceBuilder().samples(5), TraceBuilder().samples(-128) });
    window.V_Offset_change(50);
    window.RFG_visibleToggle(1, false);
    // Nothing but the last samples is in view, and smoothing changes no sample.
    window.setPlotRange(240, 490);
    QTest::mouseClick(probe().smooth_button(), Qt::LeftButton);
    QVERIFY(extras::table(window).startsWith("# Velkor"));
    const QStringList rows = rowsOf(window);
    QCOMPARE(rows.size(), 251);
    QCOMPARE(rows[0],
             QStringLiteral("\"distance (m)\",\"echo time (ns)\",\"trace 1: t1.tdr\","
                            "\"trace 3: t3.tdr\""));
    QCOMPARE(rows[1], QStringLiteral("0.0000,0.00,50,-128"));
    QCOMPARE(rows[61], QStringLiteral("7.5000,75.00,110,-128"));
}

void TestExportingText::tableHoldsDifferences()
{
    MainWindow &window = openOn({ rising(), TraceBuilder().samples(5) }, 1);
    QTest::mouseClick(probe().difference_button(), Qt::LeftButton);
    window.RFG_visibleToggle(1, false);
    const QStringList rows = rowsOf(window);
    QCOMPARE(rows[0],
             QStringLiteral("\"distance (m)\",\"echo time (ns)\",\"trace 2 - trace 1: t1.tdr\""));
    QCOMPARE(rows[8], QStringLiteral("0.8750,8.75,-2"));
}

void TestExportingText::tableTellsTheMeasurement()
{
    // One crest at sample 100, 100 counts of 0.125 m.
    MainWindow &window = openOn({ TraceBuilder().samples([](int i) {
        return i < 250 ? static_cast<int>(90.0 * std::exp(-0.05 * (i - 100) * (i - 100))) : 0;
    }) });
    window.cursorSetup_slot(100);
    const QStringList lines = linesOf(window, true);
    QVERIFY(lines.contains(QStringLiteral("# cursor A: 12.5000 m | 125.00 ns | level 90")));
    QVERIFY(lines.contains(
        QStringLiteral("# reflection 1: 12.5000 m | 125.00 ns | level 90 | positive")));
    const QStringList trace = lines.filter(QStringLiteral("# trace 1: t1.tdr | 2024-03-05 "));
    QCOMPARE(trace.size(), 1);
    QVERIFY(trace.constFirst().endsWith(QStringLiteral(" | master | selected")));
}

void TestExportingText::tableFollowsTheDecimalSignOfTheLocale()
{
    MainWindow &window = openOn({ rising() });
    QLocale::setDefault(QLocale(QLocale::Russian));
    const QString row = rowsOf(window)[2];
    QLocale::setDefault(QLocale::c());
    QCOMPARE(row, QStringLiteral("\"0,1250\";\"1,25\";1"));
}

void TestExportingText::tableKeepsItsLanguage()
{
    MainWindow &window = openOn({ rising() });
    const QByteArray before = extras::table(window);
    speakRussian(window);
    QCOMPARE(extras::table(window), before);
}

void TestExportingText::commandWritesTheSameTable()
{
    const QDir folder(QStringLiteral(VELKOR_SAMPLES_DIR));
    std::deque<tdr::NamedRecord> records;
    QStringList paths;
    for (const QString &name : folder.entryList({ QStringLiteral("*.tdr") }, QDir::Files)) {
        paths.append(folder.filePath(name));
        records.push_back({ paths.last(), tdr::recordOf(contentOf(paths.last())) });
    }
    MainWindow &window = fixture->open();
    QVERIFY(chooseFiles(*fixture, paths));
    QVERIFY(rowsOf(window)[0].contains(QStringLiteral("trace 6: ")));
    // A command has no cursors.
    QByteArray expected;
    for (const QByteArray &line : extras::table(window).split('\n'))
        if (!line.startsWith("# cursor ") && !line.startsWith("# between the cursors: "))
            expected += line + '\n';
    expected.chop(1);
    QCOMPARE(tdr::table(records, calc::Decimals::Point), expected);
}

void TestExportingText::oddRecordsGiveATable()
{
    const float none = std::numeric_limits<float>::quiet_NaN();
    MainWindow &window = openOn({ TraceBuilder().minstep(none).ku(none),
                                  rising().delay(0xFFFFFFFF).shiftX(0xFFFFFFFF),
                                  rising().minstep(1.0e30F).shiftX(0x7FFFFFFF),
                                  TraceBuilder().raw(171, QByteArray(8, '\xFF')) });
    for (const QPushButton *mode : { probe().smooth_button(), probe().difference_button() }) {
        const QStringList rows = rowsOf(window);
        QVERIFY(rows.size() > 250);
        for (const QString &row : rows)
            QCOMPARE(row.count(QLatin1Char(',')), 5);
        QVERIFY(!extras::readings(window).isEmpty());
        QTest::mouseClick(const_cast<QPushButton *>(mode), Qt::LeftButton);
    }
}

void TestExportingText::oddNamesStayOnTheirLine()
{
#ifdef Q_OS_UNIX
    const QString path
        = fixture->trace(QStringLiteral("a\n# trace 9, \"я\"\n.tdr"), TraceBuilder());
    WindowFixture::writePreviousRun({ path });
    MainWindow &window = fixture->open();
    // Only for such letters there is a byte order mark.
    QVERIFY(extras::table(window).startsWith("\xEF\xBB\xBF# Velkor"));
    QCOMPARE(rowsOf(window).size(), 251);
    QVERIFY(rowsOf(window)[0].endsWith(QStringLiteral("\"trace 1: a # trace 9, \"\"я\"\" .tdr\"")));
    QVERIFY(extras::readings(window).startsWith(QStringLiteral("RFG 1: a # trace 9, \"я\" .tdr")));
#endif
}

void TestExportingText::readingsTellEverything()
{
    MainWindow &window
        = openOn({ rising().shiftX(16).shiftY(-7), TraceBuilder().date(2031, 12, 5).time(23, 4, 59),
                   TraceBuilder().raw(171, QByteArray(8, '\xFF')) });
    window.RFG_visibleToggle(1, false);
    window.cursorSetup_slot(40);
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
    QCOMPARE(extras::readings(window).left(expected.size()), expected);
    window.rfgSelect_slot(0);
    QTest::mouseClick(probe().difference_button(), Qt::LeftButton);
    QVERIFY(extras::readings(window).contains(QStringLiteral("\nDifference: RFG 1 minus each\n")));
}

void TestExportingText::readingsListTheReflections()
{
    // A crest and a dip, 8 samples wide, 5 levels up. A count is 0.125 m and 1.25 ns.
    const auto echoes = [](int i) {
        const auto bell = [i](int at) { return std::exp2(-4.0 * (i - at) * (i - at) / 64.0); };
        return static_cast<int>(std::lround(90.0 * bell(60) - 40.0 * bell(180)));
    };
    MainWindow &window = openOn(
        { TraceBuilder().samples(0), TraceBuilder().samples(echoes).shiftX(16).shiftY(5) });
    const auto reflections = [&window] {
        return extras::readings(window)
            .split(QLatin1Char('\n'))
            .filter(QStringLiteral("Reflection "));
    };
    QCOMPARE(reflections(), QStringList());
    window.rfgSelect_slot(1);
    QCOMPARE(
        reflections(),
        (QStringList{ QStringLiteral("Reflection 1: x = 9.50 m, t = 95.00 ns, y = 95, +"),
                      QStringLiteral("Reflection 2: x = 24.50 m, t = 245.00 ns, y = -35, −") }));
    // The master is 0 everywhere.
    QTest::mouseClick(probe().difference_button(), Qt::LeftButton);
    QCOMPARE(reflections().value(0),
             QStringLiteral("Reflection 1: x = 9.50 m, t = 95.00 ns, y = -95, −"));
}

void TestExportingText::readingsAreTranslated()
{
    MainWindow &window = openOn({ rising() });
    speakRussian(window);
    const QString text = extras::readings(window);
    for (const char *word :
         { "РФГ 1: t1.tdr", "Курсор A: x = 0.00 м", "Относительная скорость 1/КУ: 0.667",
           "v/2: 100.0 м/мкс", "Выбрана: РФГ 1", "Импеданс: 75 Ом" })
        QVERIFY2(text.contains(QString::fromUtf8(word)), word);
}

void TestExportingText::readingsOfAnEmptyWindow()
{
    QCOMPARE(extras::readings(fixture->open()),
             QStringLiteral("Cursor A: x = 0.00 m\nCursor B: x = 0.00 m\nΔ: 0.00 m\nKU: 1.499\n"
                            "Velocity factor 1/KU: 0.667\nv/2: 100.0 m/µs\n"));
}

QTEST_MAIN(TestExportingText)
#include "tst_exporting_text.moc"
