// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "windowactions.h"

#include <QAction>
#include <QButtonGroup>
#include <QPushButton>
#include <QtTest>

#include <limits>

class TestMaster : public QObject
{
    Q_OBJECT

private slots:
    void aNumberOutsideOneToFiveMeansTheFirstSlot()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { TraceBuilder(), TraceBuilder() }, 1);
        for (const int id : { 7, -1, 6, 0, std::numeric_limits<int>::min() }) {
            window.setMasterID(1);
            QCOMPARE(window.getMasterID(), 1);
            window.setMasterID(id);
            QCOMPARE(window.getMasterID(), 0);
            QCOMPARE(int{ fixture.probe().settingsData()->master_ID }, 0);
        }
    }

    void theMenuMakesASlotTheMaster()
    {
        WindowFixture fixture;
        openWith(fixture, { TraceBuilder(), TraceBuilder(), TraceBuilder() });
        const MainWindowProbe &probe = fixture.probe();
        probe.selected_rfg()[2]->master_action->trigger();
        QCOMPARE(probe.rfg_master_ID(), 2);
        QCOMPARE(int{ probe.settingsData()->master_ID }, 2);
        for (int slot = 0; slot < 3; ++slot) {
            QCOMPARE(probe.selected_rfg()[slot]->mast(), slot == 2);
            QCOMPARE(probe.selected_rfg()[slot]->master_action->isEnabled(), slot != 2);
            QVERIFY(showsVisible(fixture, slot, slot == 2));
        }
        // The selection stays where it was.
        QCOMPARE(probe.rfg_ID(), 0);
    }

    void hiddenSlotsKeepTheirPictureWhenTheMasterMoves()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { TraceBuilder(), TraceBuilder() });
        window.RFG_visibleToggle(0, false);
        window.RFG_visibleToggle(1, false);
        window.setMasterID(1);
        QVERIFY(showsHidden(fixture, 0));
        QVERIFY(showsHidden(fixture, 1));
        QVERIFY(fixture.probe().selected_rfg()[1]->mast());
    }

    void theMasterAsBeforeChangesNothing()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { TraceBuilder().minstep(5.0F) });
        const MainWindowProbe &probe = fixture.probe();
        window.scale_change(7);
        window.KU_change(3.0);
        window.setMasterID(0);
        QCOMPARE(probe.master_scale(), 7);
        QCOMPARE(probe.master_params().KU + 0.0F, 3.0F);
        // Unless there is no master in force: then the same slot is set anew.
        probe.master_is_set() = false;
        window.setMasterID(0);
        QVERIFY(probe.master_is_set());
        QCOMPARE(probe.master_scale(), 2);
        QCOMPARE(probe.master_params().KU + 0.0F, 1.49896229F);
    }

    void theStepSetsTheScale_data()
    {
        QTest::addColumn<float>("minstep");
        QTest::addColumn<int>("step");
        QTest::addColumn<int>("scale");
        QTest::newRow("0.3") << 0.3F << 0 << 0;
        QTest::newRow("1.0") << 1.0F << 0 << 0;
        QTest::newRow("1.25") << 1.25F << 1 << 0;
        QTest::newRow("2.5") << 2.5F << 2 << 1;
        QTest::newRow("3.7") << 3.7F << 2 << 1;
        QTest::newRow("5") << 5.0F << 4 << 2;
        QTest::newRow("10") << 10.0F << 8 << 3;
        QTest::newRow("320") << 320.0F << 256 << 8;
        QTest::newRow("1000") << 1000.0F << 800 << 8;
    }

    void theStepSetsTheScale()
    {
        QFETCH(float, minstep);
        QFETCH(int, step);
        QFETCH(int, scale);
        WindowFixture fixture;
        openWith(fixture, { TraceBuilder().minstep(minstep) });
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(probe.rfg_DATA()[0].coef_from_min, step);
        QCOMPARE(probe.master_scale(), scale);
        QCOMPARE(probe.cust_axisX()->max(), 250.0 * (1 << scale));
        // At the start every other slot is empty and takes the master's step.
        for (int slot = 1; slot < 6; ++slot)
            QCOMPARE(probe.rfg_DATA()[slot].coef_from_min, step);
    }

    void theRangeStartsAtTheDelay()
    {
        WindowFixture fixture;
        openWith(fixture, { TraceBuilder().minstep(5.0F).delay(300) });
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(probe.master_scale(), 2);
        QCOMPARE(probe.cust_axisX()->min(), 300.0);
        QCOMPARE(probe.cust_axisX()->max(), 1300.0);
        QCOMPARE(probe.scrollfactorX(), 300);
        // The scale came first, from count 0: its left end no longer holds.
        QVERIFY(probe.scroll_left_button()->isEnabled());
    }

    void theViewStartsAtTheDelayAndTheTraceAtDelayTimesStep()
    {
        WindowFixture fixture;
        openWith(fixture, { TraceBuilder().minstep(5.0F).delay(300) });
        QCOMPARE(fixture.probe().cust_axisX()->min(), 300.0);
        QCOMPARE(fixture.probe().rfg_series()[0]->at(0).x(), 1200.0);
    }

    void theStepOfTheNewMasterReachesEmptySlotsOnly()
    {
        WindowFixture fixture;
        MainWindow &window
            = openWith(fixture, { TraceBuilder(), TraceBuilder().minstep(10.0F), TraceBuilder() });
        const MainWindowProbe &probe = fixture.probe();
        window.setMasterID(1);
        QCOMPARE(probe.rfg_DATA()[0].coef_from_min, 1);
        QCOMPARE(probe.rfg_DATA()[2].coef_from_min, 1);
        for (int slot = 3; slot < 6; ++slot)
            QCOMPARE(probe.rfg_DATA()[slot].coef_from_min, 8);
        QCOMPARE(probe.master_params().sample_minstep + 0.0F, 10.0F);
    }

    void differencesAreDrawnFromTheNewMasterBeforeItCountsAsSet()
    {
        WindowFixture fixture;
        MainWindow &window
            = openWith(fixture, { TraceBuilder().samples(1), TraceBuilder().samples(20) });
        const MainWindowProbe &probe = fixture.probe();
        window.setDiff_flag(true);
        QCOMPARE(probe.rfg_series()[1]->at(0).y(), -19.0);
        probe.master_is_set() = false;
        window.setMasterID(1);
        QCOMPARE(probe.rfg_series()[0]->at(0).y(), 19.0);
        QCOMPARE(probe.rfg_series()[1]->at(0).y(), 20.0);
    }

    void theVelocityFactorIsAppliedBeforeTheMasterCountsAsSet()
    {
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        const QString path
            = fixture.trace(QStringLiteral("a.tdr"), TraceBuilder().minstep(5.0F).ku(2.0F));
        QVERIFY(window.read_rfg_DATA(path, 0));
        window.setMasterID(0);
        QVERIFY(probe.master_is_set());
        QCOMPARE(probe.master_params().KU + 0.0F, 2.0F);
        // One count, as without a master; the master's own step would be four, 0.37 m.
        QCOMPARE(probe.cursor_step_lbl().text(), QStringLiteral("cursor step = 0.09 m"));
    }

    void anEqualVelocityFactorIsNotAppliedAgain()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(
            fixture, { TraceBuilder().ku(2.0F), TraceBuilder().ku(2.0F), TraceBuilder().ku(3.0F) });
        const MainWindowProbe &probe = fixture.probe();
        probe.KU_button()->setText(QStringLiteral("untouched"));
        window.setMasterID(1);
        QCOMPARE(probe.KU_button()->text(), QStringLiteral("untouched"));
        QVERIFY(probe.master_is_set());
        window.setMasterID(2);
        QCOMPARE(probe.KU_button()->text(), QStringLiteral("KU\n3.000"));
        QCOMPARE(probe.dist_coef(), 0.18737028625 / 3.0);
    }

    void aRecordWithoutAVelocityFactorStillGivesDistances()
    {
        WindowFixture fixture;
        openWith(fixture, { TraceBuilder().ku(0.0F) });
        QCOMPARE(fixture.probe().master_params().KU + 0.0F, 1.0F);
        QCOMPARE(fixture.probe().dist_coef(), 0.18737028625);
    }

    void aSingleLoadIntoTheMasterKeepsScaleRangeAndVelocityFactor()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { TraceBuilder().minstep(5.0F).ku(2.0F) });
        const MainWindowProbe &probe = fixture.probe();
        window.plotScroll(40);
        const QString path = fixture.trace(
            QStringLiteral("b.tdr"), TraceBuilder().minstep(10.0F).ku(3.0F).delay(9).samples(8));
        window.add_Selected_RFG(path, 0);
        QCOMPARE(probe.rfg_DATA()[0].coef_from_min, 8);
        QCOMPARE(probe.rfg_series()[0]->at(0), QPointF(72.0, 8.0));
        QCOMPARE(probe.master_scale(), 2);
        QCOMPARE(probe.scrollfactorX(), 40);
        QCOMPARE(probe.master_params().KU + 0.0F, 2.0F);
        QCOMPARE(probe.master_params().sample_minstep + 0.0F, 5.0F);
    }

    void aSingleLoadIntoTheMasterRedrawsTheDifferencesFromIt()
    {
        WindowFixture fixture;
        MainWindow &window
            = openWith(fixture, { TraceBuilder().samples(1), TraceBuilder().samples(20) });
        window.setDiff_flag(true);
        const QString path = fixture.trace(QStringLiteral("b.tdr"), TraceBuilder().samples(100));
        window.add_Selected_RFG(path, 0);
        QCOMPARE(fixture.probe().rfg_series()[1]->at(0).y(), 80.0);
        QCOMPARE(fixture.probe().rfg_series()[0]->at(0).y(), 100.0);
    }
};

QTEST_MAIN(TestMaster)
#include "tst_master.moc"
