// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "each.h"
#include "input_events.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "window_actions.h"
#include "windowtest.h"

#include <QAction>
#include <QButtonGroup>
#include <QLocale>
#include <QPushButton>
#include <QtTest>

#include <functional>

class TestSlots : public WindowTest
{
    Q_OBJECT

private:
    void clearSlot(int slot)
    {
        probe().selected_rfg()[slot]->clear_action->trigger();
    }
    void resetSlot(int slot)
    {
        probe().selected_rfg()[slot]->reset_action->trigger();
    }
    QPointF firstPoint(int slot) const
    {
        return probe().rfg_series()[slot]->at(0);
    }

private slots:
    // ---- Emptying ----

    void emptiedSlotKeepsItsRecordAndTakesTheStepOfTheMaster()
    {
        openOn({ levelTrace(1).minstep(5.0F), levelTrace(2) });
        clearSlot(1);
        QCOMPARE(slotsText(), QStringLiteral("V....., selected 0, master 0"));
        QCOMPARE(probe().settingsData()->read_index, 1);
        const rfg_SHOWN &trace = probe().rfg_DATA()[1];
        QCOMPARE(int{ trace.f_p_840.samples[0] }, 2);
        QCOMPARE(trace.full_path, fixture->path(QStringLiteral("t2.tdr")));
        QCOMPARE(trace.name, QStringLiteral("RFG 2"));
        QCOMPARE(probe().settingsData()->current_files[1], trace.full_path);
        QCOMPARE(trace.coef_from_min, 4);
        QCOMPARE(probe().rfg_buttons()->button(1)->text(), QStringLiteral("RFG 2\n(not loaded)"));
        QVERIFY(probe().selected_rfg()[1]->date.isEmpty());
        // The selected trace is not the cleared one.
        QCOMPARE(probe().gain_button()->text(), QStringLiteral("Gain\n30"));
        clearSlot(0);
        QCOMPARE(probe().gain_button()->text(), QStringLiteral("Gain"));
        QCOMPARE(probe().chart_title().text(), QStringLiteral("RFG 1"));
    }

    void removingTheMasterMakesTheLowestLoadedSlotMaster()
    {
        MainWindow &window = openOn({ levelTrace(1) });
        window.add_Selected_RFG(
            fixture->trace(QStringLiteral("b.tdr"), levelTrace(2).minstep(2.5F)), 1);
        window.add_Selected_RFG(fixture->trace(QStringLiteral("e.tdr"), levelTrace(5)), 4);
        QCOMPARE(slotsText(), QStringLiteral("Vv..v., selected 0, master 0"));
        clearSlot(0);
        QCOMPARE(slotsText(), QStringLiteral(".V..v., selected 0, master 1"));
        QCOMPARE(probe().master_scale(), 1);
        // A slot that is not the master.
        clearSlot(4);
        QCOMPARE(slotsText(), QStringLiteral(".V...., selected 0, master 1"));
    }

    void removingTheLastTraceClearsTheMasterAndSelectsAgain()
    {
        struct Row
        {
            const char *name;
            int master;
            int selected;
        };
        each<Row>({ { "master, selected", 0, 0 },
                    { "master, not selected", 0, 3 },
                    { "the master's slot was empty", 4, 4 } },
                  [this](const Row &row) {
                      MainWindow &window = openOn({ levelTrace(1).minstep(5.0F) }, row.master);
                      const QString file = fixture->path(QStringLiteral("t1.tdr"));
                      QCOMPARE(probe().rfg_master_ID(), row.master);
                      QCOMPARE(probe().rfg_buttons()->checkedId(), row.master);
                      probe().rfg_buttons()->button(row.selected)->click();
                      QVERIFY(probe().master_is_set());
                      const QString step = probe().cursor_step_lbl().text();
                      probe().chart_title().setText(QStringLiteral("before"));
                      clearSlot(0);
                      QVERIFY(!probe().master_is_set());
                      QCOMPARE(probe().rfg_master_ID(), row.master);
                      QCOMPARE(probe().rfg_ID(), row.selected);
                      QCOMPARE(probe().chart_title().text(),
                               QStringLiteral("RFG %1").arg(row.selected + 1));
                      // The slot of the master keeps its step.
                      QCOMPARE(probe().cursor_step_lbl().text(), step);
                      // The next trace becomes the master.
                      window.add_Selected_RFG(file, 2);
                      QCOMPARE(slotsText(),
                               QStringLiteral("..V..., selected %1, master 2").arg(row.selected));
                      QCOMPARE(probe().master_scale(), 2);
                  });
    }

    void unmarkingAnEmptiedSlotDisablesItsMenuAgain()
    {
        MainWindow &window = openOn(levelTraces(3));
        clearSlot(0);
        QCOMPARE(slotsText(), QStringLiteral(".Vv..., selected 0, master 1"));
        // Settings can empty the slot of the master as well.
        probe().settingsData()->master_ID = 2;
        window.show_AllSelected_RFGs(4);
        QCOMPARE(slotsText(), QStringLiteral("..V..., selected 2, master 2"));
        // The last master stays marked until another slot becomes the master.
        clearSlot(2);
        QCOMPARE(slotsText(), QStringLiteral("..:..., selected 2"));
        window.add_Selected_RFG(fixture->path(QStringLiteral("t1.tdr")), 3);
        QCOMPARE(slotsText(), QStringLiteral("...V.., selected 2, master 3"));
    }

    // ---- Resetting ----

    void resettingATraceReadsThatFileOnly()
    {
        MainWindow &window = openOn(levelTraces(2));
        window.V_Offset_change(50);
        probe().rfg_buttons()->button(1)->click();
        window.V_Offset_change(60);
        window.H_Offset_change(9);
        window.plotScroll(100);
        fixture->trace(QStringLiteral("t2.tdr"), levelTrace(22));
        resetSlot(1);
        QCOMPARE(probe().rfg_DATA()[1].offset, 0);
        QCOMPARE(probe().rfg_DATA()[1].scroll, 0);
        QCOMPARE(firstPoint(1), QPointF(0.0, 22.0));
        QCOMPARE(probe().V_offset_button()->text(), QStringLiteral("Y Shift\n0"));
        QCOMPARE(probe().rfg_DATA()[0].offset, 50);
        QCOMPARE(probe().scrollfactorX(), 100);
    }

    void resettingTheMasterOrAllReadsTheTracesAndResetsTheView()
    {
        struct Row
        {
            const char *name;
            std::function<void()> reset;
        };
        each<Row>({ { "the master", [this] { resetSlot(0); } },
                    { "all", [this] { input::click(probe().reset_all_button()); } } },
                  [this](const Row &row) {
                      MainWindow &window = openOn(levelTraces(3));
                      clearSlot(2);
                      input::click(probe().difference_button());
                      window.V_Offset_change(50);
                      probe().rfg_buttons()->button(1)->click();
                      window.V_Offset_change(60);
                      window.scale_change(3);
                      window.plotScroll(100);
                      window.KU_change(3.0);
                      for (int i = 1; i <= 3; ++i)
                          fixture->trace(QStringLiteral("t%1.tdr").arg(i), levelTrace(-10 * i));
                      row.reset();
                      // The master is selected.
                      QCOMPARE(slotsText(), QStringLiteral("Vv...., selected 0, master 0"));
                      QCOMPARE(probe().rfg_buttons()->checkedId(), 0);
                      QCOMPARE(firstPoint(0), QPointF(0.0, -10.0));
                      QCOMPARE(firstPoint(1), QPointF(0.0, -20.0));
                      QCOMPARE(int{ probe().rfg_DATA()[2].f_p_840.samples[0] }, 3);
                      QCOMPARE(probe().diff_flag(), MainWindow::NORMAL);
                      QVERIFY(!probe().difference_button()->isChecked());
                      QCOMPARE(probe().scrollfactorX(), 0);
                      QCOMPARE(probe().cust_axisX()->min(), 0.0);
                      QCOMPARE(probe().master_scale(), 0);
                      QCOMPARE(probe().master_params().KU + 0.0F, 1.49896229F);
                  });
        // Without traces only the view is reset.
        openOn({});
        window().plotScroll(100);
        input::click(probe().reset_all_button());
        QCOMPARE(probe().cust_axisX()->min(), 0.0);
    }

    void traceStaysLoadedWithItsPathWhenItsFileIsGone()
    {
        openOn(levelTraces(2));
        for (const char *name : { "t1.tdr", "t2.tdr" })
            QVERIFY(QFile::remove(fixture->path(QLatin1String(name))));
        QVERIFY(QDir().mkdir(fixture->path(QStringLiteral("t2.tdr"))));
        resetSlot(1);
        input::click(probe().reset_all_button());
        QCOMPARE(slotsText(), QStringLiteral("Vv...., selected 0, master 0"));
        for (int slot = 0; slot < 2; ++slot)
            QCOMPARE(firstPoint(slot).y(), slot + 1.0);
        // The file exists again.
        QVERIFY(QDir().rmdir(fixture->path(QStringLiteral("t2.tdr"))));
        fixture->trace(QStringLiteral("t2.tdr"), levelTrace(22));
        resetSlot(1);
        QCOMPARE(firstPoint(1).y(), 22.0);
        QCOMPARE(probe().settingsData()->current_files[1], fixture->path(QStringLiteral("t2.tdr")));
    }

    // ---- The set of slots ----

    void slotIsLoadedEvenIfItsFileIsGoneSinceTheLastRun()
    {
        WindowFixture::writePreviousRun({ fixture->path(QStringLiteral("gone.tdr")) });
        fixture->open();
        QCOMPARE(slotsText(), QStringLiteral("V....., selected 0, master 0"));
        QCOMPARE(probe().rfg_buttons()->button(0)->text(), QStringLiteral("RFG 1\n"));
        QCOMPARE(probe().rfg_series()[0]->count(), 499);
        // The shortening factor of a record of zeros is clamped and applied.
        QCOMPARE(probe().dist_coef(), 0.18737028625);
    }

    void setOfSlotsHasOneMasterOrNone()
    {
        MainWindow &window = openOn(levelTraces(2), 1);
        window.show_AllSelected_RFGs(0);
        // The mark stays until another slot becomes the master.
        QCOMPARE(slotsText(), QStringLiteral(".:...., selected 0"));
        QCOMPARE(probe().rfg_buttons()->checkedId(), 0);
        QCOMPARE(probe().chart_title().text(), QStringLiteral("RFG 1"));
        // The next set has one master only.
        openOn(levelTraces(3), 2);
        probe().settingsData()->master_ID = 1;
        probe().settingsData()->updateSettings(1);
        QCOMPARE(slotsText(), QStringLiteral("vVv..., selected 1, master 1"));
    }

    // ---- Operations that nothing calls ----

    void writeRfgDataOpensNothing()
    {
        MainWindow &window = fixture->open();
        QVERIFY(QDir(fixture->path({})).mkdir(QStringLiteral("Velkor_add")));
        qputenv("VELKOR_DEV_FOLDER", QFile::encodeName(fixture->path({})));
        window.write_rfg_DATA(1);
        qunsetenv("VELKOR_DEV_FOLDER");
        QVERIFY(QDir(fixture->path(QStringLiteral("Velkor_add"))).isEmpty());
    }

    void parseTNameDoesNotDecodeBcd()
    {
        MainWindow &window = openOn({ TraceBuilder().date(2024, 3, 12).time(9, 10, 7) });
        QAbstractButton *button = probe().rfg_buttons()->button(0);
        button->setEnabled(false);
        window.parse_T_Name(0);
        QVERIFY(button->isEnabled());
        // 0x24 is 36, 0x12 is 18 and 0x10 is 16.
        const QString date = QLocale::system().toString(QDate(2036, 3, 18), QLocale::ShortFormat);
        QCOMPARE(button->text(),
                 QStringLiteral("Date ") + date + QStringLiteral("\nTime 09:16:07"));
    }
};

QTEST_MAIN(TestSlots)
#include "tst_slots.moc"
