// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "extras/extras.h"
#include "extras/reflection_steps.h"
#include "interfacebutton.h"
#include "legendbutton.h"
#include "threetracestest.h"

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

/// True when \a found are the places \a expected, within \a reach metres each.
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
class TestReflectionSteps : public WindowTest
{
    Q_OBJECT

private:
    /// Opens the samples of \a numbers with the extras; the first is the master.
    MainWindow &openSamples(const QVector<int> &numbers)
    {
        fixture->close();
        QStringList paths;
        for (const int number : numbers)
            paths.append(
                QDir(QStringLiteral(VELKOR_SAMPLES_DIR)).filePath(sampleNames[number - 1]));
        WindowFixture::writePreviousRun(paths);
        extras::attach(fixture->open());
        return window();
    }

    /// The stops of the active cursor, in metres, when \a key is pressed until the cursor stays.
    QVector<double> stops(int key = Qt::Key_N) const
    {
        const bool isA = probe().Cur_flag() == MainWindow::CURSOR_A;
        const auto column = [&] { return isA ? probe().cursor_A_pos() : probe().cursor_B_pos(); };
        QVector<double> metres;
        for (int before = -1; metres.size() < 20;) {
            before = column();
            press(&window(), key);
            if (column() == before)
                break;
            metres.append(column() * probe().dist_coef());
        }
        return metres;
    }

private slots:
    void nStopsAtTheListedReflectionsOfTheSamples()
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
            openSamples({ number });
            QVERIFY2(near(stops(), metres, 0.005), qPrintable(line[0]));
        }
    }

    void pGoesTheSameWayBack()
    {
        MainWindow &window = openSamples({ 3 });
        const QVector<double> there = stops();
        // From the right of the last one, and from between two, with the letters of a Russian
        // keyboard.
        window.cursorSetup_slot(0);
        QCOMPARE(stops(u'Т'), there);
        window.cursorSetup_slot(1000);
        QVector<double> back = stops(u'З');
        std::reverse(back.begin(), back.end());
        QCOMPARE(back, there);
        window.cursorSetup_slot(480);
        QCOMPARE(stops(Qt::Key_P), QVector<double>{ there[0] });
        // From the second one, on which the cursor was put by snapping.
        window.cursorSetup_slot(extras::reflectionColumns(window)[1] + 1);
        QCOMPARE(stops(Qt::Key_P), QVector<double>{ there[0] });
    }

    void stepsFollowTheSelectedTraceAndTheMode()
    {
        MainWindow &window = openSamples({ 1, 4 });
        QTest::mouseClick(probe().selected_rfg()[1], Qt::LeftButton);
        const QVector<double> there = stops();
        QVERIFY(near(there, { 26.0, 40.0, 80.0 }, 1.0));
        // A smoothed or hidden trace has the same reflections.
        QTest::mouseClick(probe().smooth_button(), Qt::LeftButton);
        window.RFG_visibleToggle(1, false);
        QCOMPARE(stops(Qt::Key_P), (QVector<double>{ there[1], there[0] }));
        // The joint at 38 m is in both pairs; the short and the end behind it are not.
        openSamples({ 1, 2 });
        QTest::mouseClick(probe().difference_button(), Qt::LeftButton);
        QTest::mouseClick(probe().selected_rfg()[1], Qt::LeftButton);
        QVERIFY(near(stops(), { 71.5, 104.0 }, 1.0));
    }

    void reflectionOutsideTheChartIsLeftOut()
    {
        MainWindow &window = openOn({ echoTrace({ { 20, 80 } }).shiftX(quint32(-40)) });
        QCOMPARE(extras::reflectionColumns(window), QVector<int>());
        window.H_Offset_change(-15);
        QCOMPARE(extras::reflectionColumns(window), QVector<int>{ 5 });
        QVERIFY(extras::reflectionColumns(openOn({ echoTrace({ { 20, 80 } }).delay(0xFFFFFFFF) }))
                    .isEmpty());
        QCOMPARE(extras::reflectionColumns(openOn({ echoTrace({ { 20, 80 } }).delay(100) })),
                 QVector<int>{ 120 });
    }

    void secondRoundTripsCountFromTheInstrument()
    {
        // An open end and its second round trip: at twice the distance from the instrument, which
        // is 15 samples before the trace.
        const TraceBuilder trace = echoTrace({ { 80, 90 }, { 175, 30 } }).shiftX(quint32(-10));
        QCOMPARE(extras::reflectionColumns(openOn({ TraceBuilder(trace).delay(15) })),
                 QVector<int>{ 85 });
        QCOMPARE(extras::reflectionColumns(openOn({ TraceBuilder(trace).delay(60) })),
                 (QVector<int>{ 130, 225 }));
    }

    void verticalShiftDoesNotHideClipping()
    {
        // Too wide for an echo.
        const auto clipped = [](int i) { return i >= 90 && i < 170 ? 127 : 0; };
        openOn({ TraceBuilder().samples(clipped) });
        QCOMPARE(extras::reflectionColumns(window()), QVector<int>());
        window().V_Offset_change(-45);
        QCOMPARE(extras::reflectionColumns(window()), QVector<int>());
    }

    void cursorSnappedToTheLeftStillAdvances()
    {
        // In difference mode the master's delay of 30 snaps the cursor to the left of the requested
        // place.
        MainWindow &window = openOn(
            { TraceBuilder().delay(30), echoTrace({ { 60, 80 }, { 200, 80 } }).delay(30) });
        extras::attach(window);
        QTest::mouseClick(probe().difference_button(), Qt::LeftButton);
        QTest::mouseClick(probe().selected_rfg()[1], Qt::LeftButton);
        QCOMPARE(extras::reflectionColumns(window), (QVector<int>{ 90, 230 }));
        press(&window, Qt::Key_N);
        QCOMPARE(probe().cursor_A_pos(), 60);
        QCOMPARE(probe().cursor_dial()->trueValue, 90);
        press(&window, Qt::Key_N);
        QCOMPARE(probe().cursor_A_pos(), 200);
        press(&window, Qt::Key_P);
        QCOMPARE(probe().cursor_A_pos(), 60);
    }

    void keyDoesNothingWithoutTraceOrCursor()
    {
        MainWindow &window = openSamples({ 1 });
        window.cursorSetup_slot(40);
        window.cursorSelect_slot(MainWindow::DELTA);
        press(&window, Qt::Key_N);
        press(&window, Qt::Key_P);
        QCOMPARE(probe().cursor_A_pos(), 40);
        // The other cursor does not move.
        QTest::mouseClick(probe().curB_button(), Qt::LeftButton);
        press(&window, Qt::Key_N);
        QCOMPARE(probe().cursor_A_pos(), 40);
        QCOMPARE(probe().cursor_B_pos(), extras::reflectionColumns(window).constFirst());
        window.cursorSelect_slot(MainWindow::CURSOR_A);
        QTest::mouseClick(probe().selected_rfg()[4], Qt::LeftButton);
        QCOMPARE(extras::reflectionColumns(window), QVector<int>());
        press(&window, Qt::Key_N);
        QCOMPARE(probe().cursor_A_pos(), 40);
    }
};

QTEST_MAIN(TestReflectionSteps)
#include "tst_reflection_steps.moc"
