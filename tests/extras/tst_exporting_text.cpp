// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dictionary.h"
#include "extras/exporting_text.h"
#include "legendbutton.h"
#include "settingsdata.h"
#include "windowactions.h"

#include <QLocale>
#include <QPushButton>
#include <QtTest>

namespace {

TraceBuilder rising()
{
    return TraceBuilder().samples([](int i) { return i % 100; });
}

QStringList linesOf(const QByteArray &bytes)
{
    QStringList lines = QString::fromUtf8(bytes).split(QLatin1Char('\n'));
    if (lines.takeLast() != QString())
        qFatal("the last line has no end");
    return lines;
}

/// The lines of the table of \a window that are not comments.
QStringList rowsOf(const MainWindow &window)
{
    QStringList rows;
    const QStringList lines = linesOf(extras::table(window));
    for (const QString &line : lines)
        if (!line.startsWith(QLatin1Char('#')))
            rows.append(line);
    return rows;
}

/// What the head of the table of \a window says of \a name; null when it says nothing.
QString headOf(const MainWindow &window, const char *name)
{
    const QString start = QStringLiteral("# %1: ").arg(QLatin1String(name));
    const QStringList lines = linesOf(extras::table(window)).filter(start);
    return lines.size() == 1 ? lines.constFirst().mid(start.size()) : QString();
}

} // namespace

/// What the window shows, as text.
class TestExportingText : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void theHeadHoldsAllParameters();
    void eachVisibleTraceHasAColumn();
    void metresLeadBackToTheirNumber();
    void onlyTheViewIsInTheTable();
    void aStepHoldsUntilTheNextSample();
    void aCurveHasLevelsAtItsSamples();
    void aDifferenceIsNamedAsOne();
    void aDifferenceHasNoLevelBetweenItsSteps();
    void noLanguageChangesTheTable();
    void theHeadNamesTheCursorInUse();
    void anEmptyWindowHasAnEmptyTable();
    void oddNamesStayOnTheirLine();
    void oddRecordsGiveATable();
    void theReadingsAreThoseOfTheWindow();
    void theReadingsSpeakTheWindowsLanguage();
    void theReadingsOfAnEmptyWindow();
};

void TestExportingText::cleanup()
{
    QLocale::setDefault(QLocale::c());
}

void TestExportingText::theHeadHoldsAllParameters()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture,
                                  { rising().minstep(2.5F).delay(3).shiftX(2).shiftY(-7),
                                    TraceBuilder().date(2031, 12, 5).time(23, 4, 59) });
    window.RFG_visibleToggle(1, false);
    window.cursorSetup_slot(40);
    // One count is 0.125 m, but for what a float cannot say.
    const QString file = extras::quoted(fixture.path(QStringLiteral("t1.tdr")));
    const QString other = extras::quoted(fixture.path(QStringLiteral("t2.tdr")));
    const QString expected
        = QStringLiteral("# Velkor, traces as shown; levels in sample steps\n"
                         "# velocity factor: 1.4989622831344604\n"
                         "# metres per count: 0.12500000057252436\n"
                         "# nanoseconds per count: 1.25\n"
                         "# view from: 0.3750000017175731 m, count 3\n"
                         "# view to: 62.87500028797975 m, count 503\n"
                         "# scale: 1\n"
                         "# drawn as: steps\n"
                         "# differences: no\n"
                         "# master: trace 1\n"
                         "# selected: trace 1\n"
                         "# cursor A: 5.0000000229009745 m, count 40, level 8\n"
                         "# cursor B: 0 m, count 0, level none\n"
                         "# active cursor: A\n"
                         "# distance from A to B: 5.0000000229009745 m\n"
                         "# trace 1 file: %1\n"
                         "# trace 1 date: 2024-03-05\n"
                         "# trace 1 time: 09:05:07\n"
                         "# trace 1 shown: yes\n"
                         "# trace 1 sampling step: 2.5 ns\n"
                         "# trace 1 counts per sample: 2\n"
                         "# trace 1 start delay: 3 samples\n"
                         "# trace 1 horizontal shift: 0.5000000022900974 m, count 4\n"
                         "# trace 1 vertical shift: -7\n"
                         "# trace 1 gain: 30\n"
                         "# trace 1 averages: 16\n"
                         "# trace 1 pulse width: 100 ns\n"
                         "# trace 1 pulse amplitude: 20 V\n"
                         "# trace 1 impedance: 75 ohms\n"
                         "# trace 1 velocity factor of the file: 1.4989622831344604\n"
                         "# trace 2 file: %2\n"
                         "# trace 2 date: 2031-12-05\n"
                         "# trace 2 time: 23:04:59\n"
                         "# trace 2 shown: no\n")
              .arg(file, other);
    const QString text = QString::fromUtf8(extras::table(window));
    // Line by line, for whoever reads of a difference.
    QCOMPARE(text.left(expected.size()).split(QLatin1Char('\n')),
             expected.split(QLatin1Char('\n')));
    QCOMPARE(linesOf(extras::table(window)).filter(QStringLiteral("# trace 2")).size(), 15);
}

void TestExportingText::eachVisibleTraceHasAColumn()
{
    WindowFixture fixture;
    MainWindow &window
        = openWith(fixture, { rising(), TraceBuilder().samples(5), TraceBuilder().samples(-128) });
    window.V_Offset_change(50);
    QStringList rows = rowsOf(window);
    QCOMPARE(rows.size(), 251);
    QCOMPARE(rows[0], QStringLiteral("metres,trace 1,trace 2,trace 3"));
    QCOMPARE(rows[1], QStringLiteral("0,50,5,-128"));
    QCOMPARE(rows[61], QStringLiteral("7.500000034351462,110,5,-128"));
    window.RFG_visibleToggle(1, false);
    rows = rowsOf(window);
    QCOMPARE(rows[0], QStringLiteral("metres,trace 1,trace 3"));
    QCOMPARE(rows[1], QStringLiteral("0,50,-128"));
    window.remove_Selected_RFG(2);
    QCOMPARE(rowsOf(window)[0], QStringLiteral("metres,trace 1"));
    window.RFG_visibleToggle(0, false);
    QCOMPARE(rowsOf(window), QStringList{ QStringLiteral("metres") });
}

void TestExportingText::metresLeadBackToTheirNumber()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { rising() });
    window.KU_change(1.7);
    const QStringList rows = rowsOf(window);
    QCOMPARE(rows.size(), 251);
    for (int i = 0; i < 250; ++i)
        QVERIFY(rows[i + 1].section(QLatin1Char(','), 0, 0).toDouble()
                == i * fixture.probe().dist_coef());
    QVERIFY(headOf(window, "velocity factor").toDouble() == double(1.7F));
}

void TestExportingText::onlyTheViewIsInTheTable()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { rising().minstep(5.0F) });
    QCOMPARE(rowsOf(window).size(), 251);
    // 250 counts of 1000, both ends included.
    window.setPlotRange(400, 650);
    const QStringList rows = rowsOf(window);
    QCOMPARE(rows.size(), 1 + 63);
    QCOMPARE(rows[1], QStringLiteral("50.00000022900974,0"));
    QCOMPARE(rows.last(), QStringLiteral("81.00000037099579,62"));
    window.setPlotRange(2000, 3000);
    QCOMPARE(rowsOf(window).size(), 1);
}

void TestExportingText::aStepHoldsUntilTheNextSample()
{
    WindowFixture fixture;
    // Every count from 2 on, and every fourth one.
    MainWindow &window = openWith(fixture, { rising().delay(2), rising().minstep(5.0F) });
    window.setPlotRange(0, 1000);
    const QStringList rows = rowsOf(window);
    QCOMPARE(rows[1], QStringLiteral("0,,0"));
    QCOMPARE(rows[2], QStringLiteral("0.2500000011450487,0,0"));
    QCOMPARE(rows[3], QStringLiteral("0.3750000017175731,1,0"));
    QCOMPARE(rows[4], QStringLiteral("0.5000000022900974,2,1"));
    // The first one ends with sample 249, on count 251; the other goes on.
    QVERIFY(rows.contains(QStringLiteral("31.375000143703616,49,62")));
    QVERIFY(rows.contains(QStringLiteral("31.50000014427614,,63")));
    QCOMPARE(rows.last(), QStringLiteral("124.50000057023426,,49"));
}

void TestExportingText::aCurveHasLevelsAtItsSamples()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { rising(), rising().minstep(5.0F) });
    QTest::mouseClick(fixture.probe().smooth_button(), Qt::LeftButton);
    QCOMPARE(headOf(window, "drawn as"), QStringLiteral("curves"));
    const QStringList rows = rowsOf(window);
    QCOMPARE(rows.size(), 251);
    QCOMPARE(rows[1], QStringLiteral("0,0,0"));
    QCOMPARE(rows[2], QStringLiteral("0.12500000057252436,1,"));
    QCOMPARE(rows[5], QStringLiteral("0.5000000022900974,4,1"));
}

void TestExportingText::aDifferenceIsNamedAsOne()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { rising(), TraceBuilder().samples(5) }, 1);
    QTest::mouseClick(fixture.probe().difference_button(), Qt::LeftButton);
    const QStringList rows = rowsOf(window);
    QCOMPARE(rows[0], QStringLiteral("metres,trace 2 - trace 1,trace 2"));
    QCOMPARE(rows[1], QStringLiteral("0,5,5"));
    QCOMPARE(rows[8], QStringLiteral("0.8750000040076705,-2,5"));
    QCOMPARE(headOf(window, "differences"), QStringLiteral("from the master"));
    QCOMPARE(headOf(window, "master"), QStringLiteral("trace 2"));
}

void TestExportingText::aDifferenceHasNoLevelBetweenItsSteps()
{
    WindowFixture fixture;
    // Every second and every third count: they meet on every sixth, for three counts each.
    MainWindow &window
        = openWith(fixture, { TraceBuilder().minstep(2.5F).samples(9), rising().minstep(3.75F) });
    QTest::mouseClick(fixture.probe().difference_button(), Qt::LeftButton);
    const QStringList rows = rowsOf(window);
    QCOMPARE(rows[0], QStringLiteral("metres,trace 1,trace 1 - trace 2"));
    QCOMPARE(rows[1], QStringLiteral("0,9,9"));
    QCOMPARE(rows[2], QStringLiteral("0.2500000011450487,9,9"));
    QCOMPARE(rows[3], QStringLiteral("0.5000000022900974,9,"));
    QCOMPARE(rows[4], QStringLiteral("0.7500000034351462,9,7"));
}

void TestExportingText::noLanguageChangesTheTable()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { rising() });
    const QByteArray before = extras::table(window);
    QLocale::setDefault(QLocale(QLocale::German));
    window.settings()->current_language = QStringLiteral("ru_RU");
    window.settings()->setTranslation();
    emit window.settings()->translation_changed();
    QCOMPARE(extras::table(window), before);
}

void TestExportingText::theHeadNamesTheCursorInUse()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { rising() });
    window.cursorSelect_slot(MainWindow::CURSOR_B);
    QCOMPARE(headOf(window, "active cursor"), QStringLiteral("B"));
    window.cursorSelect_slot(MainWindow::CURSOR_A);
    QCOMPARE(headOf(window, "active cursor"), QStringLiteral("A"));
}

void TestExportingText::anEmptyWindowHasAnEmptyTable()
{
    WindowFixture fixture;
    MainWindow &window = fixture.open();
    QCOMPARE(rowsOf(window), QStringList{ QStringLiteral("metres") });
    QCOMPARE(headOf(window, "master"), QStringLiteral("none"));
    QCOMPARE(headOf(window, "view to"), QStringLiteral("31.25000014313109 m, count 250"));
    QVERIFY(!extras::table(window).contains("# trace"));
}

void TestExportingText::oddNamesStayOnTheirLine()
{
    QCOMPARE(extras::quoted(QStringLiteral("a,b;c")), QStringLiteral("\"a,b;c\""));
    QCOMPARE(extras::quoted(QStringLiteral("say \"x\"")), QStringLiteral("\"say \\\"x\\\"\""));
    QCOMPARE(extras::quoted(QStringLiteral("a\nb\\c\rd")),
             QStringLiteral("\"a\\nb\\\\c\\u000dd\""));
    QCOMPARE(extras::quoted(QStringLiteral("Кабель №5")), QStringLiteral("\"Кабель №5\""));
    QCOMPARE(extras::quoted(QString(QChar(0x2028))), QStringLiteral("\"\\u2028\""));
#ifdef Q_OS_UNIX
    WindowFixture fixture;
    const QString path
        = fixture.trace(QStringLiteral("a\n# trace 9, \"odd\"\n.tdr"), TraceBuilder());
    WindowFixture::writePreviousRun({ path });
    MainWindow &window = fixture.open();
    QCOMPARE(headOf(window, "trace 1 file"), extras::quoted(path));
    QCOMPARE(rowsOf(window).size(), 251);
    // The readings have a line each for the slot, the cursors, their distance, the factor.
    QCOMPARE(extras::readings(window).count(QLatin1Char('\n')), 5);
#endif
}

void TestExportingText::oddRecordsGiveATable()
{
    WindowFixture fixture;
    const float none = std::numeric_limits<float>::quiet_NaN();
    MainWindow &window = openWith(fixture,
                                  { TraceBuilder().minstep(none).ku(none),
                                    rising().delay(0xFFFFFFFF).shiftX(0xFFFFFFFF),
                                    rising().minstep(1.0e30F).shiftX(0x7FFFFFFF),
                                    TraceBuilder().raw(171, QByteArray(8, '\xFF')) });
    const QStringList rows = rowsOf(window);
    QVERIFY(rows.size() > 1);
    for (const QString &row : rows)
        QCOMPARE(row.count(QLatin1Char(',')), 4);
    QCOMPARE(headOf(window, "trace 4 date"), QStringLiteral(""));
    QCOMPARE(headOf(window, "trace 2 start delay"), QStringLiteral("4294967295 samples"));
    QTest::mouseClick(fixture.probe().difference_button(), Qt::LeftButton);
    QTest::mouseClick(fixture.probe().smooth_button(), Qt::LeftButton);
    QCOMPARE(rowsOf(window)[0].count(QLatin1Char(',')), 4);
}

void TestExportingText::theReadingsAreThoseOfTheWindow()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture,
                                  { rising().shiftX(16).shiftY(-7),
                                    TraceBuilder().date(2031, 12, 5).time(23, 4, 59),
                                    TraceBuilder().raw(171, QByteArray(8, '\xFF')) });
    window.RFG_visibleToggle(1, false);
    window.cursorSetup_slot(40);
    const auto date = [](int year, int month, int day) {
        return QLocale::system().toString(QDate(year, month, day), QLocale::ShortFormat);
    };
    QCOMPARE(extras::readings(window),
             QStringLiteral("RFG 1: t1.tdr, %1 09:05:07, X Shift = 2.00 m, Y Shift = -7\n"
                            "RFG 2: t2.tdr, %2 23:04:59, X Shift = 0.00 m, Y Shift = 0\n"
                            "RFG 3: t3.tdr, X Shift = 0.00 m, Y Shift = 0\n"
                            "Cursor A: x = 5.00 m, y = 17\n"
                            "Cursor B: x = 0.00 m\n"
                            "Δ = 5.00 m\n"
                            "KU = 1.499\n")
                 .arg(date(2024, 3, 5), date(2031, 12, 5)));
}

void TestExportingText::theReadingsSpeakTheWindowsLanguage()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { rising() });
    window.settings()->current_language = QStringLiteral("ru_RU");
    window.settings()->setTranslation();
    emit window.settings()->translation_changed();
    const QString text = extras::readings(window);
    QVERIFY(text.contains(fixture.probe().d()->CURSOR_A_STR));
    QVERIFY(fixture.probe().d()->CURSOR_A_STR != QStringLiteral("Cursor A"));
    QVERIFY(text.contains(window.count_to_distance(0)));
    QVERIFY(!text.contains(QStringLiteral("Shift")));
}

void TestExportingText::theReadingsOfAnEmptyWindow()
{
    WindowFixture fixture;
    QCOMPARE(
        extras::readings(fixture.open()),
        QStringLiteral("Cursor A: x = 0.00 m\nCursor B: x = 0.00 m\nΔ = 0.00 m\nKU = 1.499\n"));
}

QTEST_MAIN(TestExportingText)
#include "tst_exporting_text.moc"
