// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "accessibility/accessibility.h"
#include "cont_dial.h"
#include "datetime_lbl.h"
#include "input_events.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsmenu.h"
#include "windowtest.h"

#include <QApplication>
#include <QFocusFrame>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QtTest>

/// Focus order of the window, and the focus frame.
class TestFocus : public WindowTest
{
    Q_OBJECT

private:
    void openAndAttach()
    {
        openOn({ TraceBuilder(), TraceBuilder() });
        // The clock would change the pictures.
        probe().date_bar()->hide();
        accessibility::attach(window());
        QApplication::setActiveWindow(&window());
        probe().curA_button()->setFocus();
        WindowFixture::settle();
    }
    QFocusFrame *frame() const
    {
        return window().findChild<QFocusFrame *>(QString(), Qt::FindDirectChildrenOnly);
    }
    QRect placeOf(const QWidget *control) const
    {
        return { control->mapTo(&window(), QPoint()), control->size() };
    }
    static void press(Qt::Key key)
    {
        QTest::keyClick(QApplication::focusWidget(), key);
        WindowFixture::settle();
    }

private slots:
    void tabMovesTheFrameRowByRow()
    {
        openAndAttach();
        window().scale_change(2);
        // In an exclusive group the focus goes to the checked button; arrows continue from there.
        const MainWindowProbe &p = probe();
        const QVector<QWidget *> order{
            p.curA_button(),       p.legend_button(),       p.selected_rfg()[0],
            p.Plot_View(),         p.settings_button(),     p.difference_button(),
            p.smooth_button(),     p.reset_all_button(),    p.scale_up_button(),
            p.scale_down_button(), p.scroll_right_button(), p.curA_nav_button(),
            p.param_dial(),        p.H_offset_button(),     p.cursor_dial()
        };
        for (int round = 0; round < 2; ++round)
            for (QWidget *stop : order) {
                QCOMPARE(QApplication::focusWidget(), stop);
                if (stop != order.first()) {
                    QVERIFY(frame()->isVisible());
                    QCOMPARE(frame()->geometry(), placeOf(stop));
                    const QImage picture = window().grab().toImage();
                    const QRect place = placeOf(stop);
                    const QPoint left(place.left(), place.center().y());
                    QCOMPARE(picture.pixel(left), qRgb(255, 255, 255));
                    QCOMPARE(picture.pixel(left + QPoint(1, 0)), qRgb(255, 255, 255));
                    QCOMPARE(picture.pixel(left + QPoint(2, 0)), qRgb(0, 0, 0));
                    QCOMPARE(picture.pixel(place.center().x(), place.bottom()),
                             qRgb(255, 255, 255));
                }
                press(Qt::Key_Tab);
            }
        for (auto i = order.size() - 1; i >= 0; --i) {
            press(Qt::Key_Backtab);
            QCOMPARE(QApplication::focusWidget(), order.at(i));
        }
    }

    void focusOrderOfTheDialogIsFromTopToBottom()
    {
        openAndAttach();
        SettingsMenu *dialog = probe().settingsMenu();
        const QVector<QWidget *> order{ dialog->tabs->tabBar(), dialog->language_select,
                                        dialog->cursor_accur, dialog->param_accur,
                                        dialog->load_settings_button };
        const QWidget *last = nullptr;
        for (const QWidget *w = dialog->nextInFocusChain(); w != dialog;
             w = w->nextInFocusChain()) {
            const auto place = order.indexOf(const_cast<QWidget *>(w));
            if (place < 0)
                continue;
            QCOMPARE(last, place == 0 ? nullptr : order.at(place - 1));
            last = w;
        }
        QCOMPARE(last, order.last());
    }

    void frameFollowsItsControlAndIgnoresTheMouse()
    {
        openAndAttach();
        press(Qt::Key_Tab);
        QWidget *control = QApplication::focusWidget();
        // The mouse passes through.
        QCOMPARE(window().childAt(placeOf(control).topLeft() + QPoint(1, 1)), control);
        window().resize(1000, 700);
        WindowFixture::settle();
        QCOMPARE(frame()->geometry(), placeOf(control));
        control->hide();
        WindowFixture::settle();
        QVERIFY(!frame()->isVisible()
                || frame()->geometry() == placeOf(QApplication::focusWidget()));
    }

    void frameIsShownByTheKeyboardAndHiddenByTheMouse()
    {
        openAndAttach();
        QVERIFY(!frame()->isVisible());
        press(Qt::Key_Tab);
        QVERIFY(frame()->isVisible());
        QTest::mouseClick(probe().smooth_button(), Qt::LeftButton);
        QVERIFY(!frame()->isVisible());
        press(Qt::Key_Tab);
        QVERIFY(frame()->isVisible());
        QTest::mousePress(QApplication::focusWidget(), Qt::LeftButton);
        QVERIFY(!frame()->isVisible());
    }

    void zoomingToTheLimitByMouseShowsNoFrame()
    {
        openAndAttach();
        window().scale_change(1);
        QTest::mouseClick(probe().scale_down_button(), Qt::LeftButton);
        QVERIFY(!probe().scale_down_button()->isEnabled());
        QVERIFY(!frame()->isVisible());
        // By the wheel, while the button has the focus from the keyboard.
        window().scale_change(7);
        probe().scale_down_button()->setFocus();
        press(Qt::Key_Backtab);
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(probe().scale_up_button()));
        QVERIFY(frame()->isVisible());
        probe().scale_wheel_action()->trigger();
        input::wheel(viewport(), 120);
        QVERIFY(!probe().scale_up_button()->isEnabled());
        QVERIFY(!frame()->isVisible());
        // By the keyboard, the frame moves with the focus.
        window().scale_change(7);
        probe().scale_down_button()->setFocus();
        press(Qt::Key_Backtab);
        press(Qt::Key_Space);
        QVERIFY(!probe().scale_up_button()->isEnabled());
        QVERIFY(frame()->isVisible());
        QCOMPARE(frame()->geometry(), placeOf(QApplication::focusWidget()));
    }

    void syntheticPressAndAnotherWindowKeepTheFrame()
    {
        openAndAttach();
        press(Qt::Key_Tab);
        QWidget *control = QApplication::focusWidget();
        // The key for an entry dialog sends such a press of the right button.
        input::press(control, QPoint(5, 5), Qt::RightButton);
        QVERIFY(frame()->isVisible());
        QCOMPARE(frame()->geometry(), placeOf(control));
        QWidget other;
        other.show();
        QApplication::setActiveWindow(&other);
        WindowFixture::settle();
        QVERIFY(frame()->isVisible());
        QApplication::setActiveWindow(&window());
        WindowFixture::settle();
        QVERIFY(frame()->isVisible());
    }
};

QTEST_MAIN(TestFocus)
#include "tst_focus.moc"
