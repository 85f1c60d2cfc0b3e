// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "dialoganswer.h"
#include "inputevents.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "settingsmenu.h"
#include "windowtest.h"

#include <QAction>
#include <QButtonGroup>
#include <QDataStream>
#include <QLabel>
#include <QMenu>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTabWidget>
#include <QtTest>

namespace {

/// The record that Qt saves of a window at \a place on the test screen, which is 800 pixels wide.
QByteArray geometryOf(const QRect &place)
{
    QByteArray record;
    QDataStream stream(&record, QIODevice::WriteOnly);
    stream << quint32{ 0x1D9D0CB } << quint16{ 3 } << quint16{ 0 } << place << place << qint32{ 0 }
           << quint8{ 0 } << quint8{ 0 } << qint32{ 800 } << place;
    return record;
}

} // namespace

class TestWiring : public WindowTest
{
    Q_OBJECT

private slots:
    void theChartMenuSelectsTheCursor()
    {
        openOn({});
        probe().curB_action()->trigger();
        QVERIFY(probe().curB_button()->isChecked());
        QCOMPARE(int(probe().Cur_flag()), int(MainWindow::CURSOR_B));
        QVERIFY(!probe().curA_action()->isChecked());
        probe().curA_action()->trigger();
        QVERIFY(probe().curA_button()->isChecked());
        QCOMPARE(int(probe().Cur_flag()), int(MainWindow::CURSOR_A));
    }

    void theChartMenuSelectsWhatTheWheelDoes()
    {
        openOn({});
        QVERIFY(!probe().zoom_wheel_flag());
        probe().scale_wheel_action()->trigger();
        QVERIFY(probe().zoom_wheel_flag());
        probe().cur_wheel_action()->trigger();
        QVERIFY(!probe().zoom_wheel_flag());
    }

    void theSettingsButtonStoresTheGeometryAndOpensThePageOfSettings()
    {
        openOn({});
        window().resize(900, 600);
        WindowFixture::settle();
        probe().settingsData()->window_geometry.clear();
        probe().settingsData()->window_state.clear();
        SettingsMenu *menu = probe().settingsMenu();
        menu->tabs->setCurrentWidget(menu->files_widget);
        const auto answer = answerDialog([menu](QDialog &dialog) {
            const auto closer = qScopeGuard([&dialog] { dialog.reject(); });
            QCOMPARE(&dialog, menu);
            QVERIFY(dialog.isModal());
            QCOMPARE(menu->tabs->currentWidget(), menu->settings_widget);
        });
        QTest::mousePress(probe().settings_button(), Qt::LeftButton);
        QVERIFY(answer->served());
        QVERIFY(menu->initiated);
        QCOMPARE(probe().settingsData()->window_geometry, window().saveGeometry());
        QCOMPARE(probe().settingsData()->window_state, window().saveState(0));
    }

    void resetAllLeavesDifferenceModeAndRereadsTheTraces()
    {
        openOn(levelTraces(2));
        input::click(probe().difference_button());
        probe().rfg_DATA()[1].offset = 50;
        input::click(probe().reset_all_button());
        QVERIFY(!probe().difference_button()->isChecked());
        QCOMPARE(int(probe().diff_flag()), int(MainWindow::NORMAL));
        QCOMPARE(probe().rfg_DATA()[1].offset, 0);
        // Without traces, back to the begin of the cable.
        openOn({});
        window().plotScroll(100);
        input::click(probe().reset_all_button());
        QCOMPARE(probe().cust_axisX()->min(), 0.0);
    }

    void onlyTheCheckedButtonSelects()
    {
        openOn(levelTraces(2));
        input::click(probe().curB_button());
        QCOMPARE(int(probe().Cur_flag()), int(MainWindow::CURSOR_B));
        input::click(probe().selected_rfg()[1]);
        QCOMPARE(probe().rfg_ID(), 1);
        input::click(probe().scale_button());
        QCOMPARE(probe().param_dial()->trueMax, 8);
        QVERIFY(!probe().curA_button()->isChecked());
        QVERIFY(!probe().selected_rfg()[0]->isChecked());
        QVERIFY(!probe().H_offset_button()->isChecked());
    }

    void theFilesButtonAsksOnThePress()
    {
        openOn({});
        const QString path = fixture->trace(QStringLiteral("picked.tdr"), TraceBuilder());
        const auto answer = answerDialog(typeFileName(path));
        QTest::mousePress(probe().legend_button(), Qt::LeftButton);
        QVERIFY(answer->served());
        QCOMPARE(probe().rfg_read_index(), 1);
        QCOMPARE(probe().rfg_DATA()[0].file_name, QStringLiteral("picked"));
    }

    void theNavigationButtonsSelectTheCursorBothWays()
    {
        openOn({});
        input::click(probe().curB_nav_button());
        QVERIFY(probe().curB_button()->isChecked());
        QVERIFY(probe().curB_action()->isChecked());
        QVERIFY(!probe().curA_button()->isChecked());
        QCOMPARE(int(probe().Cur_flag()), int(MainWindow::CURSOR_B));
        input::click(probe().curA_nav_button());
        QVERIFY(probe().curA_button()->isChecked());
        QCOMPARE(int(probe().Cur_flag()), int(MainWindow::CURSOR_A));
        input::click(probe().curB_button());
        QVERIFY(probe().curB_nav_button()->isChecked());
        QVERIFY(!probe().curA_nav_button()->isChecked());
        // Clicked again it stays checked.
        input::click(probe().curB_nav_button());
        QVERIFY(probe().curB_nav_button()->isChecked());
        QVERIFY(probe().curB_button()->isChecked());
    }

    void theStoreReachesTheWindow()
    {
        openOn(levelTraces(2));
        SettingsData *store = probe().settingsData();
        emit store->files_to_load(2);
        QCOMPARE(probe().rfg_read_index(), 2);
        store->current_CSS = QStringLiteral("QLabel { color: red; }");
        emit store->CSS_changed();
        QCOMPARE(window().styleSheet(), store->current_CSS);
        probe().smooth_button()->setText(QString());
        emit store->translation_changed();
        QCOMPARE(probe().smooth_button()->text(), QStringLiteral("Smooth"));
        store->window_geometry = geometryOf(QRect(0, 0, 800, 520));
        emit store->window_geometry_loaded();
        QCOMPARE(window().height(), 520);
        store->cursor_dial_speed = 250;
        emit store->dial_settings_changed();
        QCOMPARE(probe().cursor_dial()->maximum(), 250);
    }

    void aTraceMenuOpensAtItsButton()
    {
        openOn(levelTraces(1));
        LegendButton *button = probe().selected_rfg()[2];
        QPoint corner;
        const auto answer = answerMenu([&corner](QMenu &menu) { corner = menu.pos(); });
        emit button->customContextMenuRequested(QPoint());
        QVERIFY(answer->served());
        QCOMPARE(corner, window().mapToGlobal(button->geometry().topRight()));
    }

    void theTraceMenuActsOnItsOwnSlot()
    {
        openOn(levelTraces(2));
        LegendButton *second = probe().selected_rfg()[1];
        second->visible_action->trigger();
        QVERIFY(!second->vis());
        QVERIFY(!probe().rfg_series()[1]->isVisible());
        second->master_action->trigger();
        QCOMPARE(probe().rfg_master_ID(), 1);
        probe().rfg_DATA()[1].offset = 9;
        probe().rfg_DATA()[0].offset = 9;
        probe().selected_rfg()[0]->reset_action->trigger();
        QCOMPARE(probe().rfg_DATA()[0].offset, 0);
        QCOMPARE(probe().rfg_DATA()[1].offset, 9);
        second->clear_action->trigger();
        QCOMPARE(probe().rfg_read_index(), 1);
        const auto answer = answerDialog(
            typeFileName(fixture->trace(QStringLiteral("fourth.tdr"), TraceBuilder())));
        probe().selected_rfg()[3]->load_action->trigger();
        QVERIFY(answer->served());
        QCOMPARE(probe().rfg_read_index(), 9);
        QCOMPARE(probe().rfg_DATA()[3].file_name, QStringLiteral("fourth"));
    }
};

QTEST_MAIN(TestWiring)
#include "tst_wiring.moc"
