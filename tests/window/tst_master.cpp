// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "windowactions.h"
#include "windowtest.h"

#include <QAction>
#include <QButtonGroup>
#include <QPushButton>
#include <QtTest>

#include <limits>

class TestMaster : public WindowTest
{
    Q_OBJECT

private slots:
    void aNumberOutsideOneToFiveMeansTheFirstSlot()
    {
        MainWindow &window = openOn({ TraceBuilder(), TraceBuilder() }, 1);
        for (const int id : { 7, -1, 6, 0, std::numeric_limits<int>::min() }) {
            window.setMasterID(1);
            QCOMPARE(window.getMasterID(), 1);
            window.setMasterID(id);
            QCOMPARE(window.getMasterID(), 0);
            QCOMPARE(int{ probe().settingsData()->master_ID }, 0);
        }
    }

    void theMenuMakesASlotTheMaster()
    {
        openOn({ TraceBuilder(), TraceBuilder(), TraceBuilder() });
        probe().selected_rfg()[2]->master_action->trigger();
        QCOMPARE(probe().rfg_master_ID(), 2);
        QCOMPARE(int{ probe().settingsData()->master_ID }, 2);
        for (int slot = 0; slot < 3; ++slot) {
            QCOMPARE(probe().selected_rfg()[slot]->mast(), slot == 2);
            QCOMPARE(probe().selected_rfg()[slot]->master_action->isEnabled(), slot != 2);
            QVERIFY(showsVisible(*fixture, slot, slot == 2));
        }
        // The selection stays where it was.
        QCOMPARE(probe().rfg_ID(), 0);
    }

    void hiddenSlotsKeepTheirPictureWhenTheMasterMoves()
    {
        MainWindow &window = openOn({ TraceBuilder(), TraceBuilder() });
        window.RFG_visibleToggle(0, false);
        window.RFG_visibleToggle(1, false);
        window.setMasterID(1);
        QVERIFY(showsHidden(*fixture, 0));
        QVERIFY(showsHidden(*fixture, 1));
        QVERIFY(probe().selected_rfg()[1]->mast());
    }

    void theMasterAsBeforeChangesNothing()
    {
        MainWindow &window = openOn({ TraceBuilder().minstep(5.0F) });
        window.scale_change(7);
        window.KU_change(3.0);
        window.setMasterID(0);
        QCOMPARE(probe().master_scale(), 7);
        QCOMPARE(probe().master_params().KU + 0.0F, 3.0F);
        // Unless no master is set: then the same slot is set again.
        probe().master_is_set() = false;
        window.setMasterID(0);
        QVERIFY(probe().master_is_set());
        QCOMPARE(probe().master_scale(), 2);
        QCOMPARE(probe().master_params().KU + 0.0F, 1.49896229F);
    }

    void theStepSetsTheScaleAndTheRangeStartsAtTheDelay()
    {
        openOn({ TraceBuilder().minstep(5.0F).delay(300) });
        QCOMPARE(probe().rfg_DATA()[0].coef_from_min, 4);
        QCOMPARE(probe().master_scale(), 2);
        QCOMPARE(probe().cust_axisX()->min(), 300.0);
        QCOMPARE(probe().cust_axisX()->max(), 1300.0);
        QCOMPARE(probe().scrollfactorX(), 300);
        // The trace itself starts at delay times step.
        QCOMPARE(probe().rfg_series()[0]->at(0).x(), 1200.0);
        // The range at count 0, which the scale gives, is not shown in between.
        QVERIFY(probe().scroll_left_button()->isEnabled());
        // Every other slot is empty and takes the step of the master.
        for (int slot = 1; slot < 6; ++slot)
            QCOMPARE(probe().rfg_DATA()[slot].coef_from_min, 4);
    }

    void theStepOfTheNewMasterReachesEmptySlotsOnly()
    {
        MainWindow &window
            = openOn({ TraceBuilder(), TraceBuilder().minstep(10.0F), TraceBuilder() });
        window.setMasterID(1);
        QCOMPARE(probe().rfg_DATA()[0].coef_from_min, 1);
        QCOMPARE(probe().rfg_DATA()[2].coef_from_min, 1);
        for (int slot = 3; slot < 6; ++slot)
            QCOMPARE(probe().rfg_DATA()[slot].coef_from_min, 8);
        QCOMPARE(probe().master_params().sample_minstep + 0.0F, 10.0F);
    }

    void differencesAreDrawnFromTheNewMasterBeforeItCountsAsSet()
    {
        MainWindow &window = openOn({ TraceBuilder().samples(1), TraceBuilder().samples(20) });
        window.setDiff_flag(true);
        QCOMPARE(probe().rfg_series()[1]->at(0).y(), -19.0);
        probe().master_is_set() = false;
        window.setMasterID(1);
        QCOMPARE(probe().rfg_series()[0]->at(0).y(), 19.0);
        QCOMPARE(probe().rfg_series()[1]->at(0).y(), 20.0);
    }

    void theShorteningFactorIsAppliedWithTheStepOfTheNewMaster()
    {
        MainWindow &window = fixture->open();
        const QString path
            = fixture->trace(QStringLiteral("a.tdr"), TraceBuilder().minstep(5.0F).ku(2.0F));
        QVERIFY(window.read_rfg_DATA(path, 0));
        window.setMasterID(0);
        QVERIFY(probe().master_is_set());
        QCOMPARE(probe().master_params().KU + 0.0F, 2.0F);
        QCOMPARE(probe().cursor_step_lbl().text(), QStringLiteral("cursor step = 0.37 m"));
    }

    void anEqualShorteningFactorIsNotAppliedAgain()
    {
        MainWindow &window
            = openOn({ TraceBuilder().ku(2.0F), TraceBuilder().ku(2.0F), TraceBuilder().ku(3.0F) });
        probe().KU_button()->setText(QStringLiteral("untouched"));
        window.setMasterID(1);
        QCOMPARE(probe().KU_button()->text(), QStringLiteral("untouched"));
        QVERIFY(probe().master_is_set());
        window.setMasterID(2);
        QCOMPARE(probe().KU_button()->text(), QStringLiteral("KU\n3.000"));
        QCOMPARE(probe().dist_coef(), 0.18737028625 / 3.0);
    }

    void aSingleLoadIntoTheMasterKeepsScaleRangeAndShorteningFactor()
    {
        MainWindow &window = openOn({ TraceBuilder().minstep(5.0F).ku(2.0F) });
        window.plotScroll(40);
        const QString path = fixture->trace(
            QStringLiteral("b.tdr"), TraceBuilder().minstep(10.0F).ku(3.0F).delay(9).samples(8));
        window.add_Selected_RFG(path, 0);
        QCOMPARE(probe().rfg_DATA()[0].coef_from_min, 8);
        QCOMPARE(probe().rfg_series()[0]->at(0), QPointF(72.0, 8.0));
        QCOMPARE(probe().master_scale(), 2);
        QCOMPARE(probe().scrollfactorX(), 40);
        QCOMPARE(probe().master_params().KU + 0.0F, 2.0F);
        QCOMPARE(probe().master_params().sample_minstep + 0.0F, 5.0F);
    }
};

QTEST_MAIN(TestMaster)
#include "tst_master.moc"
