// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "inputevents.h"
#include "invariants.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "windowtest.h"

#include <QAction>
#include <QActionGroup>
#include <QButtonGroup>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QLabel>
#include <QMenu>
#include <QtTest>

namespace {

/// A window that notes whose events it is shown.
class WatchingWindow : public MainWindow
{
public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::User)
            seen << watched;
        return MainWindow::eventFilter(watched, event);
    }

    QVector<QObject *> seen;
};

} // namespace

/// Groups, menus and watched objects, and the choices that two controls share.
class TestWiring : public WindowTest
{
    Q_OBJECT

private slots:
    void eachButtonHasItsIdInItsGroup()
    {
        fixture->open();
        const MainWindowProbe &p = probe();
        QCOMPARE(p.up_buttons()->button(1), p.curA_button());
        QCOMPARE(p.up_buttons()->button(2), p.curB_button());
        const QVector<QAbstractButton *> parameters{
            p.gain_button(),      p.KU_button(),          p.average_button(),
            p.V_offset_button(),  p.pulse_width_button(), p.pulse_amplitude_button(),
            p.impedance_button(), p.H_offset_button(),    p.scale_button(),
            p.reserve_button()
        };
        QCOMPARE(p.down_buttons()->buttons().size(), 10);
        for (int id = 0; id < 10; ++id) {
            QCOMPARE(p.down_buttons()->button(id), parameters[id]);
            QCOMPARE(int(static_cast<ParamButton *>(parameters[id])->id), id);
            QVERIFY(parameters[id]->isCheckable());
        }
        QCOMPARE(p.rfg_buttons()->buttons().size(), 6);
        for (int slot = 0; slot < 6; ++slot)
            QCOMPARE(p.rfg_buttons()->button(slot), p.selected_rfg()[slot]);
        QCOMPARE(p.scale_nav_group()->button(0), p.scale_down_button());
        QCOMPARE(p.scale_nav_group()->button(1), p.scale_up_button());
        QCOMPARE(p.scroll_nav_group()->button(0), p.scroll_left_button());
        QCOMPARE(p.scroll_nav_group()->button(1), p.scroll_right_button());
        QCOMPARE(p.cur_nav_group()->button(1), p.curA_nav_button());
        QCOMPARE(p.cur_nav_group()->button(2), p.curB_nav_button());
    }

    void choicesAreExclusiveAndCheckableWhereTheyMustBe()
    {
        fixture->open();
        const MainWindowProbe &p = probe();
        for (const QButtonGroup *group :
             { p.up_buttons(), p.down_buttons(), p.rfg_buttons(), p.cur_nav_group() })
            QVERIFY(group->exclusive());
        QVERIFY(!p.scale_nav_group()->exclusive());
        QVERIFY(!p.scroll_nav_group()->exclusive());
        for (const QAbstractButton *button :
             { static_cast<QAbstractButton *>(p.curA_button()),
               static_cast<QAbstractButton *>(p.curB_button()),
               static_cast<QAbstractButton *>(p.curA_nav_button()),
               static_cast<QAbstractButton *>(p.curB_nav_button()),
               static_cast<QAbstractButton *>(p.smooth_button()),
               static_cast<QAbstractButton *>(p.difference_button()) })
            QVERIFY(button->isCheckable());
        for (const QPushButton *button :
             { p.scale_up_button(), p.scale_down_button(), p.scroll_left_button(),
               p.scroll_right_button(), p.reset_all_button(), p.settings_button(),
               p.legend_button() })
            QVERIFY(!button->isCheckable());
        QVERIFY(!p.smooth_button()->isChecked());
        QVERIFY(!p.difference_button()->isChecked());
    }

    void twelveObjectsAreWatched()
    {
        WatchingWindow window;
        const MainWindowProbe p(window);
        QVector<QObject *> objects = window.findChildren<QObject *>().toVector();
        if (!objects.contains(p.Plot_Scene()))
            objects << p.Plot_Scene();
        window.seen.clear();
        for (QObject *object : qAsConst(objects)) {
            QEvent event(QEvent::User);
            QApplication::sendEvent(object, &event);
        }
        const QVector<QObject *> expected{
            p.Plot_View()->viewport(), p.Plot_Scene(),   p.logo_lbl(),   p.legend_button(),
            p.curA_button(),           p.curB_button(),  p.KU_button(),  p.V_offset_button(),
            p.H_offset_button(),       p.scale_button(), p.param_dial(), p.cursor_dial()
        };
        for (QObject *object : expected)
            QCOMPARE(window.seen.count(object), 1);
        QCOMPARE(window.seen.size(), 12);
    }

    void theChartMenuOffersTwoChoices()
    {
        fixture->open();
        const MainWindowProbe &p = probe();
        const QList<QAction *> entries = p.chartMenu()->actions();
        QCOMPARE(entries.size(), 5);
        QCOMPARE(entries[0], p.curA_action());
        QCOMPARE(entries[1], p.curB_action());
        QVERIFY(entries[2]->isSeparator());
        QCOMPARE(entries[3], p.cur_wheel_action());
        QCOMPARE(entries[4], p.scale_wheel_action());
        for (const int entry : { 0, 1, 3, 4 })
            QVERIFY(entries[entry]->isCheckable());
        QVERIFY(p.curA_action()->isChecked() && !p.curB_action()->isChecked());
        QVERIFY(p.cur_wheel_action()->isChecked() && !p.scale_wheel_action()->isChecked());
        for (const int first : { 0, 3 }) {
            QVERIFY(entries[first]->actionGroup()->isExclusive());
            QCOMPARE(entries[first]->actionGroup()->actions(), entries.mid(first, 2));
        }
        QCOMPARE(p.chartMenu()->minimumSize(), QSize(100, 100));
        QCOMPARE(fixture->window().contextMenuPolicy(), Qt::CustomContextMenu);
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

    void eachChoiceOfACursorSetsTheOthers()
    {
        openOn({});
        const MainWindowProbe &p = probe();
        const auto verify = [&](bool isB) {
            QCOMPARE(int(p.Cur_flag()), int(isB ? MainWindow::CURSOR_B : MainWindow::CURSOR_A));
            QCOMPARE(p.curA_action()->isChecked(), !isB);
            QCOMPARE(p.curB_action()->isChecked(), isB);
            // The buttons show it too.
            QCOMPARE(brokenInvariants(window()), QStringList());
        };
        p.curB_action()->trigger();
        verify(true);
        p.curA_action()->trigger();
        verify(false);
        // Clicked again a navigation button stays checked.
        for (const bool isB : { true, true, false, false }) {
            input::click(isB ? p.curB_nav_button() : p.curA_nav_button());
            verify(isB);
        }
        for (const bool isB : { true, false }) {
            input::click(isB ? p.curB_button() : p.curA_button());
            verify(isB);
        }
    }
};

QTEST_MAIN(TestWiring)
#include "tst_wiring.moc"
