// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "dialoganswer.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsmenu.h"
#include "threetracestest.h"
#include "window_state.h"

#include <QInputDialog>
#include <QMenu>
#include <QtTest>

/// Effects of keys that the mouse does not have, and cases in which keys do nothing.
class TestExtrasKeyRules : public ThreeTracesTest
{
    Q_OBJECT

private:
    int left() const
    {
        return int(probe().cust_axisX()->min());
    }
    int right() const
    {
        return int(probe().cust_axisX()->max());
    }
    /// Presses a key on \a control and returns the column of cursor A.
    int cursorAfter(int key, Qt::KeyboardModifiers modifiers, QWidget *control) const
    {
        press(control, key, modifiers);
        return probe().cursor_A_pos();
    }
    int cursorAfter(int key, Qt::KeyboardModifiers modifiers = {}) const
    {
        return cursorAfter(key, modifiers, &window());
    }

private slots:
    void homeAndEndGoToTheEndsOfTheSelectedTrace()
    {
        MainWindow &window = openThree();
        press(&window, Qt::Key_1);
        // The trace is shifted by 3 samples of one count and has a delay of 8 samples.
        QCOMPARE(cursorAfter(Qt::Key_Home), 3 + 8);
        QCOMPARE(probe().cursor_A_pos_Y(), 0);
        QCOMPARE(cursorAfter(Qt::Key_End), 3 + 8 + 249);
        QCOMPARE(probe().cursor_A_pos_Y(), 249 % 50);
        press(&window, Qt::Key_Period);
        QCOMPARE(probe().cursor_A_pos_Y(), 129);
        // With an empty slot, the cursor goes to the edges of the view.
        press(&window, Qt::Key_5);
        QCOMPARE(cursorAfter(Qt::Key_End), right());
        QCOMPARE(cursorAfter(Qt::Key_Home), left());
    }

    void viewFollowsACursorThatLeavesIt()
    {
        MainWindow &window = openThree();
        press(&window, Qt::Key_3);
        QCOMPARE(cursorAfter(Qt::Key_End), 249 * 4);
        QVERIFY(window.isCursor_visible(MainWindow::CURSOR_A));
        QCOMPARE(left(), 249 * 4 - 250);
        // Inside the view only the cursor moves.
        QCOMPARE(cursorAfter(Qt::Key_Comma), 248 * 4);
        QCOMPARE(left(), 249 * 4 - 250);
        // Ten samples per press: the seventh leaves the view.
        for (int i = 1; i <= 7; ++i)
            QCOMPARE(cursorAfter(Qt::Key_Comma, Qt::ShiftModifier), (248 - 10 * i) * 4);
        QCOMPARE(left(), 178 * 4 - 250);
    }

    void keysForCursorAndTraceBringThemIntoView()
    {
        struct Row
        {
            Qt::Key slot;
            int shift;
            int left;
            int scale;
        };
        MainWindow &window = openThree();
        // The steps are one, two and four counts; the first trace has a delay of 8 samples.
        for (const Row &row :
             { Row{ Qt::Key_1, 3, 11, 0 }, Row{ Qt::Key_2, 0, 0, 1 }, Row{ Qt::Key_3, 0, 0, 2 },
               Row{ Qt::Key_2, 1000, 1000, 1 }, Row{ Qt::Key_2, 63900, 64000 - 250, 0 },
               Row{ Qt::Key_2, -400, 0, 0 } }) {
            window.setPlotRange(9000, 9500);
            press(&window, row.slot);
            window.H_Offset_change(row.shift);
            press(&window, Qt::Key_F);
            QCOMPARE(probe().master_scale(), row.scale);
            QCOMPARE(left(), row.left);
            QCOMPARE(right(), row.left + (250 << row.scale));
        }
        // The dial continues from the new scale.
        press(&window, Qt::Key_Z);
        press(&window, Qt::Key_3);
        press(&window, Qt::Key_F);
        press(&window, Qt::Key_Plus);
        QCOMPARE(probe().master_scale(), 3);
        // First a trace outside the chart, then an empty slot.
        window.H_Offset_change(-64000);
        press(&window, Qt::Key_F);
        press(&window, Qt::Key_6);
        press(&window, Qt::Key_F);
        QCOMPARE(probe().master_scale(), 3);
        // The view is centred on the cursor.
        press(&window, Qt::Key_B);
        window.cursorSetup_slot(4000);
        window.setPlotRange(9000, 9500);
        press(&window, Qt::Key_G);
        QCOMPARE(left(), 4000 - 250);
        QCOMPARE(right(), 4000 + 250);
        window.cursorSelect_slot(MainWindow::DELTA);
        press(&window, Qt::Key_G);
        QCOMPARE(left(), 4000 - 250);
        // A user cannot reach delta mode, in which the invariants do not hold.
        fixture->close();
    }

    void scrollingStopsAtTheEnds()
    {
        MainWindow &window = openThree();
        // Each press moves by ten steps of 2 counts, from 107 on.
        window.plotScroll(7);
        for (int i = 0; i < 5; ++i)
            press(&window, Qt::Key_BraceLeft, Qt::ShiftModifier);
        QCOMPARE(probe().scrollfactorX(), 7);
        press(&window, Qt::Key_BraceLeft, Qt::ShiftModifier);
        QCOMPARE(probe().scrollfactorX(), 0);
        press(&window, Qt::Key_BracketLeft);
        QCOMPARE(probe().scrollfactorX(), 0);
        window.plotScroll(constants::xLength - 500 - 7);
        press(&window, Qt::Key_BraceRight, Qt::ShiftModifier);
        QCOMPARE(right(), constants::xLength);
        press(&window, Qt::Key_BracketRight);
        QCOMPARE(right(), constants::xLength);
    }

    void arrowsOnADialChangeItsValueAsTheWheelDoes()
    {
        openThree();
        QWidget *const cursorDial = probe().cursor_dial();
        const Cont_dial &dial = *probe().param_dial();
        const auto shift = [this] { return probe().rfg_DATA()[1].scroll; };
        for (const auto &[key, steps] :
             { std::pair{ Qt::Key_Up, 1 }, std::pair{ Qt::Key_Right, 1 },
               std::pair{ Qt::Key_Down, -1 }, std::pair{ Qt::Key_Left, -1 },
               std::pair{ Qt::Key_PageUp, 10 }, std::pair{ Qt::Key_PageDown, -10 } }) {
            // The selected trace has two counts to a sample.
            const int before = shift();
            const int mark = dial.value();
            const int column = probe().cursor_A_pos();
            QCOMPARE(cursorAfter(key, {}, probe().param_dial()), column);
            QCOMPARE(shift() - before, 2 * steps);
            QCOMPARE(dial.trueValue, shift());
            QVERIFY(dial.value() != mark);
            QCOMPARE(cursorAfter(key, {}, cursorDial) - column, 2 * steps);
        }
        // The window handles the other keys.
        QCOMPARE(cursorAfter(Qt::Key_Home, {}, cursorDial), shift());
        QCOMPARE(cursorAfter(Qt::Key_Period, {}, probe().param_dial()), shift() + 2);
    }

    void arrowsMoveTheCursorWhileThePlotHasTheFocus()
    {
        openThree();
        QWidget *const plot = probe().Plot_View();
        const int column = probe().cursor_A_pos();
        QCOMPARE(cursorAfter(Qt::Key_Right, {}, plot), column + 2);
        QCOMPARE(cursorAfter(Qt::Key_Left, Qt::ShiftModifier, plot), column + 2 - 20);
        QCOMPARE(cursorAfter(Qt::Key_Left, {}, plot), column - 20);
        QCOMPARE(cursorAfter(Qt::Key_Right, Qt::ShiftModifier, plot), column);
        press(&window(), Qt::Key_Y);
        press(plot, Qt::Key_Up);
        QCOMPARE(probe().rfg_DATA()[1].offset, 10);
        press(plot, Qt::Key_Down);
        press(plot, Qt::Key_PageDown);
        QCOMPARE(probe().rfg_DATA()[1].offset, -1);
        // The window ignores arrows, and a button uses some keys itself.
        QCOMPARE(cursorAfter(Qt::Key_Right), column);
        press(probe().smooth_button(), Qt::Key_Space);
        QVERIFY(probe().smooth_rfg_flag());
        probe().smooth_button()->setFocus();
        QCOMPARE(cursorAfter(Qt::Key_Right, {}, probe().smooth_button()), column);
        QVERIFY(!probe().smooth_button()->hasFocus());
        press(probe().smooth_button(), Qt::Key_S);
        QVERIFY(!probe().smooth_rfg_flag());
    }

    void heldKeyRepeatsStepsButNotSwitches()
    {
        MainWindow &window = openThree();
        const auto hold = [&window](int key) {
            QTest::sendKeyEvent(QTest::Press, &window, Qt::Key(key), QString(), Qt::NoModifier);
            // Four presses: a switch that repeats would be off again.
            for (int i = 0; i < 3; ++i) {
                QKeyEvent again(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
                QCoreApplication::sendEvent(&window, &again);
                QVERIFY(again.isAccepted());
            }
            QTest::sendKeyEvent(QTest::Release, &window, Qt::Key(key), QString(), Qt::NoModifier);
        };
        const int column = probe().cursor_A_pos();
        hold(Qt::Key_Period);
        QCOMPARE(probe().cursor_A_pos(), column + 4 * 2);
        hold(Qt::Key_D);
        QCOMPARE(probe().diff_flag(), MainWindow::DIFF);
    }

    void keysOpenTheFileDialogs()
    {
        for (const Qt::KeyboardModifiers modifiers :
             { Qt::KeyboardModifiers(Qt::NoModifier),
               Qt::KeyboardModifiers(Qt::ControlModifier) }) {
            MainWindow &window = openThree();
            const QString chosen = fixture->trace(QStringLiteral("new.tdr"), TraceBuilder());
            const auto answer = answerDialog(typeFileNames({ chosen }));
            press(&window, Qt::Key_O, modifiers);
            QVERIFY(answer->served());
            QCOMPARE(probe().rfg_read_index(), 1);
            QCOMPARE(probe().rfg_DATA()[0].full_path, chosen);
            const auto single = answerDialog(typeFileName(chosen));
            press(&window, Qt::Key_4);
            press(&window, Qt::Key_L);
            QVERIFY(single->served());
            QCOMPARE(probe().rfg_DATA()[3].full_path, chosen);
        }
    }

    void keysOpenTheEntryDialogs()
    {
        MainWindow &window = openThree();
        const auto typing = [](double number) {
            return answerDialog([number](QDialog &dialog) {
                static_cast<QInputDialog &>(dialog).setDoubleValue(number);
                dialog.accept();
            });
        };
        press(&window, Qt::Key_K);
        const auto factor = typing(1.25);
        press(&window, Qt::Key_F2);
        QVERIFY(factor->served());
        QCOMPARE(probe().master_params().KU, 1.25F);

        press(&window, Qt::Key_B);
        const auto place = typing(100 * probe().dist_coef() + 0.01);
        press(&window, Qt::Key_F2, Qt::ShiftModifier);
        QVERIFY(place->served());
        QCOMPARE(probe().cursor_B_pos(), 100);
    }

    void keysAreIgnoredWhileADialogOrMenuIsOpen()
    {
        MainWindow &window = openThree();
        const QDialog *opened = nullptr;
        const auto dialog = answerDialog([&](QDialog &settings) {
            opened = &settings;
            press(&settings, Qt::Key_D);
            press(&window, Qt::Key_D);
            cancelDialog(settings);
        });
        press(&window, Qt::Key_Comma, Qt::ControlModifier);
        QVERIFY(dialog->served());
        QCOMPARE(opened, probe().settingsMenu());
        QVERIFY(!probe().settings_button()->isDown());
        QCOMPARE(probe().diff_flag(), MainWindow::NORMAL);
        const auto menu = answerMenu([&](QMenu &slot) {
            press(&slot, Qt::Key_D);
            press(&window, Qt::Key_D);
        });
        window.rfgMenuRequested_slot(0);
        QVERIFY(menu->served());
        QCOMPARE(probe().diff_flag(), MainWindow::NORMAL);
        press(&window, Qt::Key_D);
        QCOMPARE(probe().diff_flag(), MainWindow::DIFF);
    }
};

QTEST_MAIN(TestExtrasKeyRules)
#include "tst_extras_key_rules.moc"
