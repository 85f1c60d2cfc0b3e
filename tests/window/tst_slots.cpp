// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "windowactions.h"

#include <QAction>
#include <QButtonGroup>
#include <QLocale>
#include <QPushButton>
#include <QtTest>

namespace {

TraceBuilder level(int value)
{
    return TraceBuilder().samples(value);
}

/// Empties \a slot by its menu.
void clearSlot(const WindowFixture &fixture, int slot)
{
    fixture.probe().selected_rfg()[slot]->clear_action->trigger();
}

void resetSlot(const WindowFixture &fixture, int slot)
{
    fixture.probe().selected_rfg()[slot]->reset_action->trigger();
}

} // namespace

class TestSlots : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    }

    // ---- Emptying ----

    void anEmptiedSlotKeepsRecordPathAndName()
    {
        WindowFixture fixture;
        openWith(fixture, { level(1).minstep(5.0F), level(2) });
        const MainWindowProbe &probe = fixture.probe();
        clearSlot(fixture, 1);
        QCOMPARE(probe.rfg_read_index(), 1);
        QCOMPARE(probe.settingsData()->read_index, 1);
        const rfg_SHOWN &trace = probe.rfg_DATA()[1];
        QCOMPARE(int{ trace.f_p_840.samples[0] }, 2);
        QCOMPARE(trace.full_path, fixture.path(QStringLiteral("t2.tdr")));
        QCOMPARE(trace.name, QStringLiteral("RFG 2"));
        QCOMPARE(probe.settingsData()->current_files[1], trace.full_path);
    }

    void anEmptiedSlotIsHiddenAndMovesWithTheMastersStep()
    {
        WindowFixture fixture;
        openWith(fixture, { level(1).minstep(5.0F), level(2) });
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(probe.rfg_DATA()[1].coef_from_min, 1);
        clearSlot(fixture, 1);
        QCOMPARE(probe.rfg_DATA()[1].coef_from_min, 4);
        QVERIFY(!probe.rfg_series()[1]->isVisible());
        QVERIFY(showsHidden(fixture, 1));
        QCOMPARE(probe.rfg_buttons()->button(1)->text(), QStringLiteral("RFG 2\n(not loaded)"));
        const LegendButton *button = probe.selected_rfg()[1];
        QVERIFY(button->date.isEmpty());
        QVERIFY(button->load_action->isEnabled());
        for (const QAction *action : { button->reset_action, button->clear_action,
                                       button->master_action, button->visible_action })
            QVERIFY(!action->isEnabled());
    }

    void removingTheMasterMakesTheLowestLoadedSlotMaster()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { level(1) });
        window.add_Selected_RFG(fixture.trace(QStringLiteral("b.tdr"), level(2).minstep(2.5F)), 1);
        window.add_Selected_RFG(fixture.trace(QStringLiteral("e.tdr"), level(5)), 4);
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(probe.rfg_master_ID(), 0);
        clearSlot(fixture, 0);
        QCOMPARE(probe.rfg_master_ID(), 1);
        QVERIFY(probe.master_is_set());
        QCOMPARE(probe.master_scale(), 1);
        QVERIFY(showsVisible(fixture, 1, true));
        QVERIFY(showsVisible(fixture, 4, false));
        QVERIFY(!probe.selected_rfg()[0]->mast());
    }

    void removingAnotherTraceKeepsTheMaster()
    {
        WindowFixture fixture;
        openWith(fixture, { level(1), level(2), level(3) }, 1);
        clearSlot(fixture, 0);
        QCOMPARE(fixture.probe().rfg_master_ID(), 1);
        QVERIFY(fixture.probe().master_is_set());
    }

    void afterTheLastTraceTheNextSingleLoadBecomesTheMaster()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { level(1) });
        const MainWindowProbe &probe = fixture.probe();
        clearSlot(fixture, 0);
        QCOMPARE(probe.rfg_read_index(), 0);
        QVERIFY(!probe.master_is_set());
        QCOMPARE(probe.rfg_master_ID(), 0);
        window.add_Selected_RFG(fixture.path(QStringLiteral("t1.tdr")), 3);
        QCOMPARE(probe.rfg_master_ID(), 3);
        QVERIFY(probe.master_is_set());
        QVERIFY(!probe.selected_rfg()[0]->mast());
    }

    void afterTheLastTraceNoMasterIsInForceThoughItsSlotWasEmptyAlready()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { level(1) }, 4);
        const MainWindowProbe &probe = fixture.probe();
        QVERIFY(probe.master_is_set());
        clearSlot(fixture, 0);
        QVERIFY(!probe.master_is_set());
        window.add_Selected_RFG(fixture.trace(QStringLiteral("b.tdr"), level(2).minstep(5.0F)), 0);
        QCOMPARE(probe.rfg_master_ID(), 0);
        QVERIFY(probe.master_is_set());
        QCOMPARE(probe.master_scale(), 2);
        QVERIFY(!probe.selected_rfg()[4]->mast());
    }

    void afterTheLastTraceTheStepIsOneCountWhicheverSlotIsSelected()
    {
        for (const int selected : { 0, 3 }) {
            WindowFixture fixture;
            openWith(fixture, { level(1).minstep(5.0F) });
            const MainWindowProbe &probe = fixture.probe();
            probe.rfg_buttons()->button(selected)->click();
            QCOMPARE(probe.cursor_step_lbl().text(), QStringLiteral("cursor step = 0.50 m"));
            clearSlot(fixture, 0);
            QCOMPARE(probe.cursor_step_lbl().text(), QStringLiteral("cursor step = 0.13 m"));
            QCOMPARE(probe.rfg_ID(), selected);
        }
    }

    void anEmptiedMasterOffersNothingButLoading()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { level(1), level(2), level(3) });
        const MainWindowProbe &probe = fixture.probe();
        const auto offersLoadingAlone = [&probe](int slot) {
            const LegendButton *button = probe.selected_rfg()[slot];
            return button->load_action->isEnabled() && !button->master_action->isEnabled()
                && !button->reset_action->isEnabled() && !button->clear_action->isEnabled()
                && !button->visible_action->isEnabled();
        };
        clearSlot(fixture, 0);
        QCOMPARE(probe.rfg_master_ID(), 1);
        QVERIFY(offersLoadingAlone(0));
        // Other settings may leave the old master's slot empty as well.
        probe.settingsData()->master_ID = 2;
        window.show_AllSelected_RFGs(4);
        QCOMPARE(probe.rfg_master_ID(), 2);
        QVERIFY(offersLoadingAlone(1));
        // The last one stays marked until another takes over.
        clearSlot(fixture, 2);
        QVERIFY(offersLoadingAlone(2));
        window.add_Selected_RFG(fixture.path(QStringLiteral("t1.tdr")), 3);
        QCOMPARE(probe.rfg_master_ID(), 3);
        QVERIFY(offersLoadingAlone(2));
    }

    void emptyingTheSelectedSlotBlanksTheInterface()
    {
        WindowFixture fixture;
        openWith(fixture, { level(1), level(2) });
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(probe.gain_button()->text(), QStringLiteral("Gain\n30"));
        clearSlot(fixture, 1);
        QCOMPARE(probe.gain_button()->text(), QStringLiteral("Gain\n30"));
        clearSlot(fixture, 0);
        QCOMPARE(probe.gain_button()->text(), QStringLiteral("Gain"));
        QCOMPARE(probe.chart_title().text(), QStringLiteral("RFG 1"));
    }

    // ---- Resetting ----

    void resettingATraceReadsThatFileOnly()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { level(1), level(2) });
        const MainWindowProbe &probe = fixture.probe();
        window.V_Offset_change(50);
        probe.rfg_buttons()->button(1)->click();
        window.V_Offset_change(60);
        window.H_Offset_change(9);
        window.plotScroll(100);
        fixture.trace(QStringLiteral("t2.tdr"), level(22));
        resetSlot(fixture, 1);
        QCOMPARE(probe.rfg_DATA()[1].offset, 0);
        QCOMPARE(probe.rfg_DATA()[1].scroll, 0);
        QCOMPARE(probe.rfg_series()[1]->at(0), QPointF(0.0, 22.0));
        QCOMPARE(probe.V_offset_button()->text(), QStringLiteral("Y Shift\n0"));
        QCOMPARE(probe.rfg_DATA()[0].offset, 50);
        QCOMPARE(probe.scrollfactorX(), 100);
    }

    void resettingTheMasterResetsTheWholeView()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { level(1), level(2) });
        const MainWindowProbe &probe = fixture.probe();
        QTest::mouseClick(probe.difference_button(), Qt::LeftButton);
        window.V_Offset_change(50);
        probe.rfg_buttons()->button(1)->click();
        window.V_Offset_change(60);
        window.scale_change(3);
        window.plotScroll(100);
        window.KU_change(3.0);
        resetSlot(fixture, 0);
        QCOMPARE(probe.diff_flag(), MainWindow::NORMAL);
        QVERIFY(!probe.difference_button()->isChecked());
        QCOMPARE(probe.rfg_DATA()[0].offset, 0);
        QCOMPARE(probe.rfg_DATA()[1].offset, 0);
        QCOMPARE(probe.scrollfactorX(), 0);
        QCOMPARE(probe.master_scale(), 0);
        QCOMPARE(probe.master_params().KU + 0.0F, 1.49896229F);
        QCOMPARE(probe.rfg_series()[1]->at(0), QPointF(0.0, 2.0));
        // The master is what gets selected.
        QCOMPARE(probe.rfg_ID(), 0);
        QCOMPARE(probe.rfg_buttons()->checkedId(), 0);
    }

    void theResetAllButtonReadsEveryLoadedSlotAgain()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { level(1), level(2), level(3) });
        const MainWindowProbe &probe = fixture.probe();
        clearSlot(fixture, 2);
        window.plotScroll(77);
        for (int i = 1; i <= 3; ++i)
            fixture.trace(QStringLiteral("t%1.tdr").arg(i), level(-10 * i));
        QTest::mouseClick(probe.reset_all_button(), Qt::LeftButton);
        QCOMPARE(probe.rfg_series()[0]->at(0).y(), -10.0);
        QCOMPARE(probe.rfg_series()[1]->at(0).y(), -20.0);
        QCOMPARE(int{ probe.rfg_DATA()[2].f_p_840.samples[0] }, 3);
        QCOMPARE(probe.rfg_read_index(), 3);
        QCOMPARE(probe.cust_axisX()->min(), 0.0);
    }

    void aTraceWhoseFileIsGoneStaysOnScreen()
    {
        WindowFixture fixture;
        openWith(fixture, { level(1), level(2) });
        const MainWindowProbe &probe = fixture.probe();
        QVERIFY(QFile::remove(fixture.path(QStringLiteral("t1.tdr"))));
        QVERIFY(QFile::remove(fixture.path(QStringLiteral("t2.tdr"))));
        resetSlot(fixture, 1);
        QTest::mouseClick(probe.reset_all_button(), Qt::LeftButton);
        QCOMPARE(probe.rfg_read_index(), 3);
        for (int slot = 0; slot < 2; ++slot) {
            QCOMPARE(probe.rfg_series()[slot]->at(0).y(), slot + 1.0);
            QVERIFY(probe.rfg_series()[slot]->isVisible());
        }
    }

    // ---- The set of slots ----

    void aFileThatVanishedSinceTheLastRunLeavesItsSlotLoaded()
    {
        WindowFixture fixture;
        WindowFixture::writePreviousRun({ fixture.path(QStringLiteral("gone.tdr")) });
        fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(probe.rfg_read_index(), 1);
        QVERIFY(probe.master_is_set());
        QCOMPARE(probe.rfg_buttons()->button(0)->text(), QStringLiteral("RFG 1\n"));
        QCOMPARE(probe.rfg_series()[0]->count(), 499);
        // The velocity factor of a record of zeros is brought into its bounds, not forgotten.
        QCOMPARE(probe.master_params().KU + 0.0F, 1.0F);
        QCOMPARE(probe.dist_coef(), 0.18737028625);
    }

    void bitsBeyondTheSlotsAreIgnoredButStayInTheSettings()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { level(1) });
        fixture.probe().settingsData()->read_index = -64 + 1;
        window.show_AllSelected_RFGs(-64 + 1);
        QCOMPARE(fixture.probe().rfg_read_index(), 1);
        QCOMPARE(fixture.probe().settingsData()->read_index, -64 + 1);
    }

    void theMasterComesFromTheSettingsEvenWhenItsSlotIsEmpty()
    {
        WindowFixture fixture;
        openWith(fixture, { level(1), level(2) }, 4);
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(probe.rfg_master_ID(), 4);
        QCOMPARE(probe.rfg_ID(), 4);
        QVERIFY(probe.master_is_set());
        QCOMPARE(probe.rfg_buttons()->checkedId(), 4);
        QCOMPARE(probe.chart_title().text(), QStringLiteral("RFG 5"));
    }

    void noSlotAtAllLeavesNoMaster()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { level(1), level(2) }, 1);
        const MainWindowProbe &probe = fixture.probe();
        window.show_AllSelected_RFGs(0);
        QVERIFY(!probe.master_is_set());
        QCOMPARE(probe.rfg_ID(), 0);
        QCOMPARE(probe.rfg_buttons()->checkedId(), 0);
        QCOMPARE(probe.chart_title().text(), QStringLiteral("RFG 1"));
        for (int slot = 0; slot < 6; ++slot)
            QVERIFY(!probe.rfg_series()[slot]->isVisible());
    }

    void newFilesLeaveOneMasterOnly()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { level(1), level(2), level(3) }, 2);
        const MainWindowProbe &probe = fixture.probe();
        QVERIFY(probe.selected_rfg()[2]->mast());
        probe.settingsData()->master_ID = 1;
        window.show_AllSelected_RFGs(7);
        for (int slot = 0; slot < 3; ++slot) {
            QCOMPARE(probe.selected_rfg()[slot]->mast(), slot == 1);
            QVERIFY(showsVisible(fixture, slot, slot == 1));
        }
    }

    // ---- Kept though nothing calls them ----

    void theHookForAddOnDataOpensNothing()
    {
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        QVERIFY(QDir(fixture.path({})).mkdir(QStringLiteral("Velkor_add")));
        qputenv("VELKOR_DEV_FOLDER", QFile::encodeName(fixture.path({})));
        window.write_rfg_DATA(1);
        qunsetenv("VELKOR_DEV_FOLDER");
        QVERIFY(QDir(fixture.path(QStringLiteral("Velkor_add"))).isEmpty());
    }

    void theCaptionThatNothingCallsTakesTheBytesAsPlainNumbers()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { TraceBuilder().date(2024, 3, 12).time(9, 10, 7) });
        QAbstractButton *button = fixture.probe().rfg_buttons()->button(0);
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
