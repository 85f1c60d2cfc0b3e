// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialoganswer.h"
#include "input_events.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "window_actions.h"
#include "windowtest.h"

#include <QAction>
#include <QButtonGroup>
#include <QMenu>
#include <QPushButton>
#include <QtTest>

#include <limits>

/// Selected trace, visible traces and master. tst_texts tests the texts of the selection,
/// tst_trace_corpus the effect of a master.
class TestSelection : public WindowTest
{
    Q_OBJECT

private slots:
    // ---- Selected trace ----

    void stepLabelShowsTheStepOfTraceOrMaster()
    {
        const auto stepText = [this] { return probe().cursor_step_lbl().text(); };
        openOn({ TraceBuilder().minstep(5.0F), TraceBuilder().minstep(10.0F) });
        QCOMPARE(stepText(), QStringLiteral("cursor step = 0.50 m"));
        probe().rfg_buttons()->button(1)->click();
        QCOMPARE(stepText(), QStringLiteral("cursor step = 1.00 m"));
        // In difference mode, the step of the master.
        input::click(probe().difference_button());
        QCOMPARE(stepText(), QStringLiteral("cursor step = 0.50 m"));
        input::click(probe().difference_button());
        QCOMPARE(stepText(), QStringLiteral("cursor step = 1.00 m"));
        probe().rfg_buttons()->button(3)->click();
        QCOMPARE(stepText(), QStringLiteral("cursor step = 0.50 m"));
    }

    void selectedTraceIsOnTopAndThick()
    {
        openOn({ TraceBuilder(), TraceBuilder(), TraceBuilder() });
        for (const int selected : { 1, 0, 2 }) {
            const QColor colour = probe().rfg_series()[selected]->pen().color();
            input::click(probe().rfg_buttons()->button(selected));
            const auto order = probe().Plot_Chart()->series();
            for (int slot = 0; slot < 6; ++slot) {
                const double width = slot == selected ? 2.0 : 1.0;
                QCOMPARE(probe().rfg_series()[slot]->pen().widthF(), width);
                QCOMPARE(probe().rfg_series_sp()[slot]->pen().widthF(), width);
                if (slot == selected)
                    continue;
                for (const auto at : { order.indexOf(probe().rfg_series()[slot]),
                                       order.indexOf(probe().rfg_series_sp()[slot]) }) {
                    QVERIFY(at < order.indexOf(probe().rfg_series()[selected]));
                    QVERIFY(at < order.indexOf(probe().rfg_series_sp()[selected]));
                }
            }
            QCOMPARE(probe().rfg_series()[selected]->pen().color(), colour);
        }
    }

    void numberOutsideTheSlotsIsIgnored()
    {
        MainWindow &window = openOn({ TraceBuilder(), TraceBuilder() }, 1);
        for (const int id : { -1, 6, 1 << 30 }) {
            window.rfgSelect_slot(id);
            window.setRfgButtonText(id);
            window.RFG_visibleToggle(id, true);
            window.addremove_aux(id, true);
            window.rfgMenuRequested_slot(id);
            window.load_rfg(id);
            window.resetCurrent_slot(id);
            window.remove_Selected_RFG(id);
            window.parse_T_Name(id);
            window.add_Selected_RFG(fixture->path(QStringLiteral("t1.tdr")), id);
            QVERIFY(!window.read_rfg_DATA(fixture->path(QStringLiteral("t1.tdr")), id));
            QCOMPARE(probe().rfg_ID(), 1);
            QCOMPARE(probe().rfg_read_index(), 3);
        }
    }

    void menuOpensAtItsButtonInTheFontOfTheWindow()
    {
        MainWindow &window = openOn({ TraceBuilder() });
        LegendButton *button = probe().selected_rfg()[2];
        const auto answer = answerMenu([&](const QMenu &menu) {
            QCOMPARE(menu.pos(), window.mapToGlobal(button->geometry().topRight()));
            QCOMPARE(menu.font().pointSize(), window.font().pointSize());
        });
        emit button->customContextMenuRequested(QPoint(1, 1));
        QVERIFY(answer->served());
    }

    void legendTextIsReservedAndEmpty()
    {
        QVERIFY(openOn({ TraceBuilder() }).rfgLegend(0).isEmpty());
    }

    // ---- Visibility ----

    void changingVisibilityUpdatesTheMaster()
    {
        MainWindow &window = openOn({ TraceBuilder(), TraceBuilder(), TraceBuilder() }, 2);
        window.addremove_aux(1, false);
        QCOMPARE(slotsText(), QStringLiteral("vhV..., selected 2, master 2"));
        window.addremove_aux(2, false);
        QCOMPARE(slotsText(), QStringLiteral("Vhh..., selected 2, master 0"));
        window.addremove_aux(2, true);
        QCOMPARE(slotsText(), QStringLiteral("Vhv..., selected 2, master 0"));
        window.addremove_aux(0, true);
        QCOMPARE(slotsText(), QStringLiteral("Vhv..., selected 2, master 0"));
    }

    // ---- Master ----

    void masterNumberOutsideOneToFiveMeansTheFirstSlot()
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

    void menuMakesASlotTheMaster()
    {
        openOn({ TraceBuilder(), TraceBuilder(), TraceBuilder() });
        probe().selected_rfg()[2]->master_action->trigger();
        QCOMPARE(slotsText(), QStringLiteral("vvV..., selected 0, master 2"));
        QCOMPARE(int{ probe().settingsData()->master_ID }, 2);
        // Hidden slots stay hidden.
        for (const int slot : { 1, 2 })
            probe().selected_rfg()[slot]->visible_action->trigger();
        window().setMasterID(1);
        QCOMPARE(slotsText(), QStringLiteral("vHh..., selected 0, master 1"));
    }

    void settingTheSameMasterChangesNothing()
    {
        MainWindow &window = openOn({ TraceBuilder().minstep(5.0F) });
        window.scale_change(7);
        window.KU_change(3.0);
        window.setMasterID(0);
        QCOMPARE(probe().master_scale(), 7);
        QCOMPARE(probe().master_params().KU + 0.0F, 3.0F);
        // When no master is set, the same slot is set again.
        probe().master_is_set() = false;
        window.setMasterID(0);
        QVERIFY(probe().master_is_set());
        QCOMPARE(probe().master_scale(), 2);
        QCOMPARE(probe().master_params().KU + 0.0F, 1.49896229F);
    }

    void stepOfTheNewMasterIsSetInEmptySlotsOnly()
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

    void differencesAreDrawnFromTheNewMasterBeforeItIsMarkedAsSet()
    {
        MainWindow &window = openOn({ levelTrace(1), levelTrace(20) });
        window.setDiff_flag(true);
        QCOMPARE(probe().rfg_series()[1]->at(0).y(), -19.0);
        probe().master_is_set() = false;
        window.setMasterID(1);
        QCOMPARE(probe().rfg_series()[0]->at(0).y(), 19.0);
        QCOMPARE(probe().rfg_series()[1]->at(0).y(), 20.0);
    }

    void shorteningFactorIsAppliedWithTheStepOfTheNewMaster()
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

    void equalShorteningFactorIsNotAppliedAgain()
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

    void singleLoadIntoTheMasterKeepsScaleRangeAndShorteningFactor()
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

QTEST_MAIN(TestSelection)
#include "tst_selection.moc"
