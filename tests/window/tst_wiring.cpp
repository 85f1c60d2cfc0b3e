// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "dialoganswer.h"
#include "input_events.h"
#include "invariants.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "settingsmenu.h"
#include "windowtest.h"

#include <QActionGroup>
#include <QButtonGroup>
#include <QComboBox>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QtTest>

namespace {

/// A window that records whose events its filter sees and counts the consumed ones.
class WatchingWindow : public MainWindow
{
public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::User)
            seen << watched;
        const bool held = MainWindow::eventFilter(watched, event);
        consumed += held ? 1 : 0;
        return held;
    }

    QVector<QObject *> seen;
    int consumed = 0;
};

} // namespace

/// Groups, menus and watched objects, the choices that two controls share, and the settings dialog
/// with the live window behind it. tst_text_corpus tests the effect of loaded settings on the
/// window.
class TestWiring : public WindowTest
{
    Q_OBJECT

private:
    SettingsMenu *menu() const
    {
        return probe().settingsMenu();
    }
    SettingsData *live() const
    {
        return probe().settingsData();
    }
    /// Presses the settings button, calls \a act while the dialog is open, and closes it if it is
    /// still open then. False when no dialog opened.
    bool inDialog(const std::function<void()> &act)
    {
        const auto answer = answerDialog([&act](QDialog &dialog) {
            act();
            if (dialog.isVisible())
                dialog.reject();
        });
        QTest::mouseClick(probe().settings_button(), Qt::LeftButton);
        return answer->served();
    }

private slots:
    void eachParameterHasItsId()
    {
        fixture->open();
        const MainWindowProbe &p = probe();
        const QVector<QAbstractButton *> parameters{
            p.gain_button(),      p.KU_button(),          p.average_button(),
            p.V_offset_button(),  p.pulse_width_button(), p.pulse_amplitude_button(),
            p.impedance_button(), p.H_offset_button(),    p.scale_button(),
            p.reserve_button()
        };
        QCOMPARE(p.down_buttons()->buttons().size(), 10);
        for (int id = 0; id < 10; ++id) {
            QCOMPARE(p.down_buttons()->button(id), parameters[id]);
            const auto *button = static_cast<ParamButton *>(parameters[id]);
            QCOMPARE(int(button->id), id);
            // The words are deliberately not kept.
            QCOMPARE(button->dict, nullptr);
        }
        QVERIFY(!p.scale_nav_group()->exclusive());
        QVERIFY(!p.scroll_nav_group()->exclusive());
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

    void filterConsumesNothing()
    {
        WatchingWindow watching;
        const MainWindowProbe p(watching);
        watching.show();
        QVERIFY(QTest::qWaitForWindowExposed(&watching));
        QWidget *view = p.Plot_View()->viewport();
        input::press(view, QPoint(100, 100), Qt::LeftButton);
        input::move(view, QPoint(120, 100), Qt::MiddleButton);
        input::release(view, QPoint(120, 100), Qt::MiddleButton);
        for (QWidget *widget : { view, static_cast<QWidget *>(p.param_dial()),
                                 static_cast<QWidget *>(p.cursor_dial()) })
            input::wheel(widget, 120);
        const auto menu = answerMenu([](QMenu &) {});
        input::press(view, QPoint(100, 100), Qt::RightButton);
        const auto about = answerDialog(cancelDialog);
        input::press(p.logo_lbl(), QPoint(5, 5), Qt::LeftButton);
        const auto entry = answerDialog(cancelDialog);
        input::press(p.curA_button(), QPoint(5, 5), Qt::RightButton);
        QEvent language(QEvent::LanguageChange);
        QApplication::sendEvent(p.legend_button(), &language);
        watching.resize(820, 520);
        WindowFixture::settle();
        QVERIFY(menu->served() && about->served() && entry->served());
        QCOMPARE(watching.consumed, 0);
    }

    void chartMenuOffersTwoChoices()
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

    void settingsDialogOpensUpdatedOnThePageOfSettings()
    {
        fixture->open();
        window().resize(900, 600);
        WindowFixture::settle();
        live()->window_geometry.clear();
        live()->window_state.clear();
        live()->cursor_dial_speed = 250;
        menu()->tabs->setCurrentWidget(menu()->files_widget);
        QVERIFY(inDialog([this] {
            QVERIFY(menu()->isModal());
            QCOMPARE(menu()->tabs->currentWidget(), menu()->settings_widget);
            QCOMPARE(live()->window_geometry, window().saveGeometry());
            QCOMPARE(live()->window_state, window().saveState(0));
            QCOMPARE(menu()->cursor_accur->value(), 250);
        }));
    }

    void appliedSettingsReachDialogAndWindowAtOnce()
    {
        fixture->open();
        QVERIFY(inDialog([this] {
            menu()->cursor_accur->setValue(250);
            menu()->param_accur->setValue(500);
            menu()->language_select->setCurrentText(QString::fromUtf8("Русский"));
            QCOMPARE(probe().cursor_dial()->maximum(), 100);
            QCOMPARE(probe().smooth_button()->text(), QStringLiteral("Smooth"));
            QTest::mousePress(menu()->apply_button, Qt::LeftButton);
            QVERIFY(!menu()->apply_button->isEnabled());
            QCOMPARE(probe().cursor_dial()->maximum(), 250);
            QCOMPARE(probe().param_dial()->maximum(), 500);
            QCOMPARE(live()->current_language, QStringLiteral("ru_RU"));
            QCOMPARE(probe().smooth_button()->text(), QString::fromUtf8("Сглаживание"));
            QCOMPARE(menu()->apply_button->text(), QString::fromUtf8("Применить"));
            menu()->language_select->setCurrentText(QStringLiteral("English"));
            QTest::mousePress(menu()->ok_button, Qt::LeftButton);
        }));
        QCOMPARE(live()->current_language, QStringLiteral("en_US"));
        QCOMPARE(probe().smooth_button()->text(), QStringLiteral("Smooth"));
    }
};

QTEST_MAIN(TestWiring)
#include "tst_wiring.moc"
