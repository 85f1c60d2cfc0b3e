// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "settingsdata.h"
#include "windowactions.h"

#include <QButtonGroup>
#include <QPushButton>
#include <QtTest>

namespace {

TraceBuilder rising()
{
    return TraceBuilder().samples([](int i) { return i % 100; });
}

/// Opens \a traces with the first as master and switches to differences.
MainWindow &openDifference(WindowFixture &fixture, const QVector<TraceBuilder> &traces)
{
    MainWindow &window = openWith(fixture, traces);
    QTest::mouseClick(fixture.probe().difference_button(), Qt::LeftButton);
    return window;
}

} // namespace

class TestDifference : public QObject
{
    Q_OBJECT

private slots:
    void identicalTracesDifferByNothing()
    {
        WindowFixture fixture;
        MainWindow &window = openDifference(fixture, { rising(), rising() });
        const MainWindowProbe &probe = fixture.probe();
        auto points = qtcompat::pointsOf(*probe.rfg_series()[1]);
        QCOMPARE(points.size(), 499);
        for (int i = 0; i < points.size(); ++i)
            QCOMPARE(points[i], QPointF((i + 1) / 2, 0.0));
        // Up ten steps, and the difference goes down by them.
        probe.rfg_buttons()->button(1)->click();
        window.V_Offset_change(10);
        points = qtcompat::pointsOf(*probe.rfg_series()[1]);
        for (const QPointF &point : qAsConst(points))
            QCOMPARE(point.y(), -10.0);
    }

    void theMasterStillDrawsItsOwnSamples()
    {
        WindowFixture fixture;
        openDifference(fixture, { rising(), rising() });
        const auto *series = fixture.probe().rfg_series()[0];
        QCOMPARE(series->count(), 499);
        QCOMPARE(series->at(2 * 99), QPointF(99.0, 99.0));
    }

    void onlySamplesThatMeetGiveAPoint()
    {
        WindowFixture fixture;
        // The master every 2 counts, the other every 4: 125 meetings up to count 498.
        openDifference(fixture,
                       { rising().minstep(2.5F), TraceBuilder().minstep(5.0F).samples(3) });
        const auto *series = fixture.probe().rfg_series()[1];
        QCOMPARE(series->count(), 249);
        QCOMPARE(series->at(0), QPointF(0.0, -3.0));
        // As wide as the wider of the two steps.
        QCOMPARE(series->at(1), QPointF(4.0, -3.0));
        // The master's sample 2 over the other's sample 1.
        QCOMPARE(series->at(2), QPointF(4.0, -1.0));
        QCOMPARE(series->at(248), QPointF(496.0, 45.0));
    }

    void aFinerTraceIsAsWideAsTheMastersStep()
    {
        WindowFixture fixture;
        openDifference(fixture, { rising().minstep(5.0F), rising().minstep(2.5F) });
        const auto *series = fixture.probe().rfg_series()[1];
        QCOMPARE(series->count(), 249);
        QCOMPARE(series->at(0), QPointF(0.0, 0.0));
        QCOMPARE(series->at(1), QPointF(4.0, 0.0));
        // The master's sample 1 less the other's sample 2.
        QCOMPARE(series->at(2), QPointF(4.0, -1.0));
    }

    void theSplineFormHasOnePointPerMeeting()
    {
        WindowFixture fixture;
        openDifference(fixture,
                       { rising().minstep(2.5F), TraceBuilder().minstep(5.0F).samples(3) });
        const MainWindowProbe &probe = fixture.probe();
        QTest::mouseClick(probe.smooth_button(), Qt::LeftButton);
        QCOMPARE(probe.rfg_series_sp()[1]->count(), 125);
        QCOMPARE(probe.rfg_series_sp()[1]->at(1), QPointF(4.0, -1.0));
        QCOMPARE(probe.rfg_series_sp()[0]->count(), 250);
    }

    void delayAndShiftDecideWhatMeets()
    {
        WindowFixture fixture;
        // The other starts at count 100 + 20: its sample k stands over the master's 120 + k.
        openDifference(fixture, { rising(), rising().delay(100).shiftX(20).shiftY(2) });
        const auto *series = fixture.probe().rfg_series()[1];
        QCOMPARE(series->count(), 2 * 130 - 1);
        QCOMPARE(series->at(0), QPointF(120.0, 20.0 - 2.0));
        QCOMPARE(series->at(258), QPointF(249.0, 49.0 - 29.0 - 2.0));
    }

    void aTraceLeftOfItsFirstSampleDrawsNothingThere()
    {
        WindowFixture fixture;
        // From count 10 on; the division toward zero must not make the counts before it sample 0.
        openDifference(fixture, { rising(), rising().minstep(5.0F).shiftX(2) });
        const auto *series = fixture.probe().rfg_series()[1];
        QCOMPARE(series->at(0), QPointF(8.0, 8.0));
    }

    void gridsThatNeverMeetDrawNothing()
    {
        WindowFixture fixture;
        openDifference(fixture, { rising(), rising().delay(1000) });
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(probe.rfg_series()[1]->count(), 0);
        QCOMPARE(probe.rfg_series()[0]->count(), 499);
        QTest::mouseClick(probe.smooth_button(), Qt::LeftButton);
        QCOMPARE(probe.rfg_series_sp()[1]->count(), 0);
    }

    void aGridHalfASampleOffDrawsNothing()
    {
        WindowFixture fixture;
        MainWindow &window
            = openDifference(fixture, { rising().minstep(2.5F), rising().minstep(2.5F) });
        const MainWindowProbe &probe = fixture.probe();
        // No file and no dial can ask for half a sample; the transform holds it all the same.
        probe.rfg_DATA()[1].scroll = 1;
        window.load_rfg(1);
        QCOMPARE(probe.rfg_series()[1]->count(), 0);
        QCOMPARE(probe.rfg_series()[0]->count(), 499);
    }

    void withoutALoadedMasterEveryTraceIsDrawnAsItIs()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { rising(), rising() }, 4);
        QCOMPARE(fixture.probe().rfg_master_ID(), 4);
        window.setDiff_flag(true);
        for (int slot = 0; slot < 2; ++slot) {
            QCOMPARE(fixture.probe().rfg_series()[slot]->count(), 499);
            QCOMPARE(fixture.probe().rfg_series()[slot]->at(20), QPointF(10.0, 10.0));
        }
    }

    void anEmptyWindowTakesTheModeWithoutAMaster()
    {
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        QTest::mouseClick(fixture.probe().difference_button(), Qt::LeftButton);
        QCOMPARE(fixture.probe().rfg_master_ID(), -1);
        window.load_rfg(0);
        QCOMPARE(fixture.probe().rfg_series()[0]->count(), 499);
    }

    void removingTheMasterDrawsTheDifferencesFromTheNext()
    {
        WindowFixture fixture;
        MainWindow &window = openDifference(
            fixture,
            { TraceBuilder().samples(1), TraceBuilder().samples(20), TraceBuilder().samples(50) });
        window.remove_Selected_RFG(0);
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(probe.rfg_series()[1]->at(0).y(), 20.0);
        QCOMPARE(probe.rfg_series()[2]->at(0).y(), -30.0);
    }

    void aStepOfZeroIsDividedAsOne()
    {
        WindowFixture fixture;
        openDifference(fixture, { rising().minstep(0.0F), rising().minstep(-1.0F) });
        QCOMPARE(fixture.probe().rfg_series()[1]->count(), 499);
        QCOMPARE(fixture.probe().rfg_series()[1]->at(498), QPointF(249.0, 0.0));
    }

    // ---- Which traces are drawn again ----

    void aShiftOfTheMasterRedrawsEveryDifference()
    {
        WindowFixture fixture;
        MainWindow &window = openDifference(fixture, { rising(), rising(), rising() });
        window.V_Offset_change(7);
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(probe.rfg_series()[0]->at(0).y(), 7.0);
        QCOMPARE(probe.rfg_series()[1]->at(0).y(), 7.0);
        QCOMPARE(probe.rfg_series()[2]->at(0).y(), 7.0);
        window.H_Offset_change(100);
        QCOMPARE(probe.rfg_series()[1]->count(), 2 * 150 - 1);
    }

    void aShiftOfAnotherTraceRedrawsThatOneOnly()
    {
        WindowFixture fixture;
        MainWindow &window = openDifference(fixture, { rising(), rising(), rising() });
        const MainWindowProbe &probe = fixture.probe();
        probe.rfg_buttons()->button(1)->click();
        probe.rfg_series()[0]->clear();
        probe.rfg_series()[2]->clear();
        window.V_Offset_change(7);
        QCOMPARE(probe.rfg_series()[1]->at(0).y(), -7.0);
        QCOMPARE(probe.rfg_series()[0]->count(), 0);
        QCOMPARE(probe.rfg_series()[2]->count(), 0);
    }

    void inNormalModeAShiftOfTheMasterRedrawsItAlone()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { rising(), rising() });
        fixture.probe().rfg_series()[1]->clear();
        window.V_Offset_change(7);
        QCOMPARE(fixture.probe().rfg_series()[0]->at(0).y(), 7.0);
        QCOMPARE(fixture.probe().rfg_series()[1]->count(), 0);
    }

    void aTraceLoadedBesideTheMasterIsDrawnAloneAndOneOverItRedrawsAll()
    {
        WindowFixture fixture;
        MainWindow &window = openDifference(fixture, { rising(), rising(), rising() });
        const MainWindowProbe &probe = fixture.probe();
        const QString other
            = fixture.trace(QStringLiteral("other.tdr"), TraceBuilder().samples(40));
        window.add_Selected_RFG(other, 1);
        QCOMPARE(probe.rfg_series()[1]->at(0).y(), -40.0);
        QCOMPARE(probe.rfg_series()[2]->at(0).y(), 0.0);
        window.add_Selected_RFG(other, 0);
        QCOMPARE(probe.rfg_series()[0]->at(0).y(), 40.0);
        QCOMPARE(probe.rfg_series()[1]->at(0).y(), 0.0);
        QCOMPARE(probe.rfg_series()[2]->at(0).y(), 40.0);
    }

    void enteringTheModeRefreshesTheSelectedSlotsReadouts()
    {
        WindowFixture fixture;
        openWith(fixture, { TraceBuilder(), TraceBuilder().minstep(5.0F) });
        const MainWindowProbe &probe = fixture.probe();
        probe.rfg_buttons()->button(1)->click();
        QCOMPARE(probe.cursor_step_lbl().text(), QStringLiteral("cursor step = 0.50 m"));
        QTest::mouseClick(probe.difference_button(), Qt::LeftButton);
        QCOMPARE(probe.cursor_step_lbl().text(), QStringLiteral("cursor step = 0.13 m"));
    }
};

QTEST_MAIN(TestDifference)
#include "tst_difference.moc"
