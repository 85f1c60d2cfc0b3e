// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "extras/extras.h"
#include "extras/reflection_steps.h"
#include "interfacebutton.h"
#include "legendbutton.h"
#include "windowactions.h"
#include "windowstate.h"

#include <QDir>
#include <QPushButton>
#include <QRegularExpression>
#include <QtTest>

#include <cmath>

namespace {

const QStringList sampleNames = {
    QStringLiteral("1-healthy-pair.tdr"), QStringLiteral("2-same-pair-shorted.tdr"),
    QStringLiteral("3-wet-section.tdr"),  QStringLiteral("4-bridged-tap-saved-shifts.tdr"),
    QStringLiteral("5-long-coax.tdr"),    QStringLiteral("6-wet-section-close-up.tdr"),
};

/// Opens the samples of \a numbers with the extras; the first is the master.
MainWindow &openSamples(WindowFixture &fixture, const QVector<int> &numbers)
{
    QStringList paths;
    for (const int number : numbers)
        paths.append(QDir(QStringLiteral(VELKOR_SAMPLES_DIR)).filePath(sampleNames[number - 1]));
    WindowFixture::writePreviousRun(paths);
    MainWindow &window = fixture.open();
    extras::attach(window);
    return window;
}

/// A bell of \a height, 8 samples wide, on a quiet trace.
TraceBuilder bellAt(int crest, int height = 80)
{
    return TraceBuilder().samples([=](int i) {
        return int(std::lround(height * std::exp2(-4.0 * (i - crest) * (i - crest) / 64.0)));
    });
}

/// Where the active cursor stops when N is pressed until it stays where it is, in metres.
QVector<double> stops(WindowFixture &fixture, Qt::Key key = Qt::Key_N)
{
    const MainWindowProbe &probe = fixture.probe();
    const bool isA = probe.Cur_flag() == MainWindow::CURSOR_A;
    const auto column = [&] { return isA ? probe.cursor_A_pos() : probe.cursor_B_pos(); };
    QVector<double> metres;
    for (int before = -1; metres.size() < 20;) {
        before = column();
        QTest::keyClick(&fixture.window(), key);
        if (column() == before)
            break;
        metres.append(column() * probe.dist_coef());
    }
    return metres;
}

/// True when \a found are the places \a expected, each within \a reach metres.
bool near(const QVector<double> &found, const QVector<double> &expected, double reach)
{
    bool good = found.size() == expected.size();
    for (int i = 0; good && i < found.size(); ++i)
        good = std::abs(found[i] - expected[i]) <= reach;
    if (!good)
        qWarning() << "stopped at" << found;
    return good;
}

} // namespace

/// The keys that go from reflection to reflection.
class TestReflectionSteps : public QObject
{
    Q_OBJECT

private slots:
    void nStopsWhereTheListOfSamplesSays()
    {
        QFile file(QStringLiteral(VELKOR_SAMPLES_DIR "/README.md"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
        for (int number = 1; number <= sampleNames.size(); ++number) {
            const QString stopsOf = QStringLiteral("N stops at ");
            const QStringList line = lines.filter(sampleNames[number - 1]).filter(stopsOf);
            QCOMPARE(line.size(), 1);
            QVector<double> metres;
            const QRegularExpression decimals(QStringLiteral("[0-9]+[.][0-9]{2}"));
            for (auto found = decimals.globalMatch(line[0], line[0].indexOf(stopsOf));
                 found.hasNext();)
                metres.append(found.next().captured().toDouble());
            WindowFixture fixture;
            openSamples(fixture, { number });
            QVERIFY2(near(stops(fixture), metres, 0.005), qPrintable(line[0]));
        }
    }

    void pGoesTheSameWayBack()
    {
        WindowFixture fixture;
        MainWindow &window = openSamples(fixture, { 3 });
        QVector<double> there = stops(fixture);
        // From right of the last one, and from between two.
        window.cursorSetup_slot(1000);
        QVector<double> back = stops(fixture, Qt::Key_P);
        std::reverse(back.begin(), back.end());
        QCOMPARE(back, there);
        window.cursorSetup_slot(480);
        QTest::keyClick(&window, Qt::Key_P);
        QCOMPARE(fixture.probe().cursor_A_pos() * fixture.probe().dist_coef(), there[0]);
        QTest::keyClick(&window, Qt::Key_P);
        QCOMPARE(fixture.probe().cursor_A_pos() * fixture.probe().dist_coef(), there[0]);
    }

    void aRussianKeyboardHasTheSameKeys()
    {
        WindowFixture fixture;
        MainWindow &window = openSamples(fixture, { 1 });
        const auto press = [&](char16_t letter) {
            QTest::sendKeyEvent(QTest::Click, &window, Qt::Key(letter), QString(QChar(letter)),
                                Qt::NoModifier);
            return fixture.probe().cursor_A_pos();
        };
        const QVector<int> columns = extras::reflectionColumns(window);
        QCOMPARE(columns.size(), 2);
        QCOMPARE(press(u'Т'), columns[0]);
        QCOMPARE(press(u'Т'), columns[1]);
        QCOMPARE(press(u'З'), columns[0]);
    }

    void theCursorIsMovedAsByTheMouse()
    {
        WindowFixture fixture;
        MainWindow &window = openSamples(fixture, { 2, 4 });
        QTest::keyClick(&window, Qt::Key_N);
        WindowFixture::settle();
        const QStringList byKey = stateOf(window);
        const int column = fixture.probe().cursor_A_pos();
        const int level = fixture.probe().cursor_A_pos_Y();
        QVERIFY(level != constants::noLevel);
        window.cursorSetup_slot(column + 100);
        window.cursorSetup_slot(column);
        WindowFixture::settle();
        QCOMPARE(stateOf(window), byKey);
        QCOMPARE(fixture.probe().cursor_dial()->trueValue, column);
        QVERIFY(fixture.probe().curA_button()->text().contains(window.count_to_distance(column)));
    }

    void theOtherCursorStays()
    {
        WindowFixture fixture;
        MainWindow &window = openSamples(fixture, { 1 });
        window.cursorSetup_slot(100);
        QTest::mouseClick(fixture.probe().curB_button(), Qt::LeftButton);
        QTest::keyClick(&window, Qt::Key_N);
        QCOMPARE(fixture.probe().cursor_A_pos(), 100);
        QCOMPARE(fixture.probe().cursor_B_pos(), extras::reflectionColumns(window).constFirst());
    }

    void theSelectedTraceDecides()
    {
        WindowFixture fixture;
        MainWindow &window = openSamples(fixture, { 1, 4 });
        QTest::mouseClick(fixture.probe().selected_rfg()[1], Qt::LeftButton);
        QVERIFY(near(stops(fixture), { 26.0, 40.0, 80.0 }, 1.0));
        // Hidden, it is still the selected one, and its readouts still come.
        window.RFG_visibleToggle(1, false);
        QVERIFY(near(stops(fixture, Qt::Key_P), { 40.0, 26.0 }, 1.0));
    }

    void differencesHaveReflectionsWhereTheCablesDiffer()
    {
        WindowFixture fixture;
        openSamples(fixture, { 1, 2 });
        QTest::mouseClick(fixture.probe().difference_button(), Qt::LeftButton);
        QTest::mouseClick(fixture.probe().selected_rfg()[1], Qt::LeftButton);
        // The joint at 38 m is in both; the short and the end behind it are not.
        QVERIFY(near(stops(fixture), { 71.5, 104.0 }, 1.0));
    }

    void smoothTracesHaveTheSameReflections()
    {
        WindowFixture fixture;
        MainWindow &window = openSamples(fixture, { 4 });
        const QVector<int> steps = extras::reflectionColumns(window);
        QTest::mouseClick(fixture.probe().smooth_button(), Qt::LeftButton);
        QVERIFY(fixture.probe().smooth_rfg_flag());
        QCOMPARE(extras::reflectionColumns(window), steps);
        QCOMPARE(steps.size(), 3);
    }

    void theViewFollowsTheCursor()
    {
        WindowFixture fixture;
        MainWindow &window = openSamples(fixture, { 1 });
        window.scale_change(0);
        QTest::keyClick(&window, Qt::Key_N);
        QVERIFY(window.isCursor_visible(MainWindow::CURSOR_A));
        QVERIFY(fixture.probe().cust_axisX()->min() > 0.0);
        // Already in the view, which stays.
        window.scale_change(2);
        QTest::keyClick(&window, Qt::Key_N);
        QCOMPARE(fixture.probe().cust_axisX()->min(), 0.0);
    }

    void aReflectionOutsideTheChartIsLeftOut()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { bellAt(20).shiftX(quint32(-40)) });
        QCOMPARE(extras::reflectionColumns(window), QVector<int>());
        window.H_Offset_change(-15);
        QCOMPARE(extras::reflectionColumns(window), QVector<int>{ 5 });
        QVERIFY(extras::reflectionColumns(openWith(fixture, { bellAt(20).delay(0xFFFFFFFF) }))
                    .isEmpty());
        QCOMPARE(extras::reflectionColumns(openWith(fixture, { bellAt(20).delay(100) })),
                 QVector<int>{ 120 });
    }

    void secondRoundTripsCountFromTheInstrument()
    {
        // An open end and its second round trip: at twice the distance from the instrument, which
        // is 15 samples before the trace.
        WindowFixture fixture;
        const auto roundTrips = [](int i) {
            const double first = std::exp2(-4.0 * (i - 80) * (i - 80) / 64.0);
            return int(
                std::lround(90 * first + 30 * std::exp2(-4.0 * (i - 175) * (i - 175) / 64.0)));
        };
        const TraceBuilder trace = TraceBuilder().samples(roundTrips).shiftX(quint32(-10));
        QCOMPARE(extras::reflectionColumns(openWith(fixture, { TraceBuilder(trace).delay(15) })),
                 QVector<int>{ 85 });
        QCOMPARE(extras::reflectionColumns(openWith(fixture, { TraceBuilder(trace).delay(60) })),
                 (QVector<int>{ 130, 225 }));
    }

    void aCursorThatSnappingPutLeftGoesOn()
    {
        WindowFixture fixture;
        const auto twoBells = [](int i) {
            const int distance = std::min(std::abs(i - 60), std::abs(i - 200));
            return int(std::lround(80 * std::exp2(-4.0 * distance * distance / 64.0)));
        };
        // In difference mode the master's delay of 30 puts the cursor left of the place asked for.
        MainWindow &window = openWith(
            fixture, { TraceBuilder().delay(30), TraceBuilder().delay(30).samples(twoBells) });
        extras::attach(window);
        QTest::mouseClick(fixture.probe().difference_button(), Qt::LeftButton);
        QTest::mouseClick(fixture.probe().selected_rfg()[1], Qt::LeftButton);
        QCOMPARE(extras::reflectionColumns(window), (QVector<int>{ 90, 230 }));
        QTest::keyClick(&window, Qt::Key_N);
        QCOMPARE(fixture.probe().cursor_A_pos(), 60);
        QCOMPARE(fixture.probe().cursor_dial()->trueValue, 90);
        QTest::keyClick(&window, Qt::Key_N);
        QCOMPARE(fixture.probe().cursor_A_pos(), 200);
        QTest::keyClick(&window, Qt::Key_P);
        QCOMPARE(fixture.probe().cursor_A_pos(), 60);
    }

    void nothingHappensWithoutTraceOrCursor()
    {
        WindowFixture fixture;
        MainWindow &window = openSamples(fixture, { 1 });
        window.cursorSetup_slot(40);
        window.cursorSelect_slot(MainWindow::DELTA);
        QTest::keyClick(&window, Qt::Key_N);
        QTest::keyClick(&window, Qt::Key_P);
        QCOMPARE(fixture.probe().cursor_A_pos(), 40);
        window.cursorSelect_slot(MainWindow::CURSOR_A);
        QTest::mouseClick(fixture.probe().selected_rfg()[4], Qt::LeftButton);
        QCOMPARE(extras::reflectionColumns(window), QVector<int>());
        QTest::keyClick(&window, Qt::Key_N);
        QCOMPARE(fixture.probe().cursor_A_pos(), 40);
    }
};

QTEST_MAIN(TestReflectionSteps)
#include "tst_reflection_steps.moc"
