// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "dialoganswer.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsmenu.h"
#include "threetraces.h"
#include "windowstate.h"

#include <QInputDialog>
#include <QMenu>
#include <QtTest>

/// Where keys lead, and when they do not count.
class TestExtrasKeyRules : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void homeAndEndGoToTheSelectedTracesEnds();
    void inAnEmptySlotHomeAndEndGoToTheEdgesOfTheView();
    void aCursorThatLeavesTheViewTakesItAlong();
    void scrollingStopsAtTheEndsAndNotBeforeThem();
    void whatTheFocusedControlUsesIsItsOwn();
    void theArrowsMoveTheCursorWhereThePlotHasTheFocus();
    void aHeldKeyRepeatsStepsButNotSwitches();
    void theFilesKeysOpenTheFilesDialog_data();
    void theFilesKeysOpenTheFilesDialog();
    void theSettingsKeyOpensTheSettings();
    void numbersCanBeTypedIn();
    void noKeyCountsWhileADialogIsOpen();
    void noKeyCountsWhileAMenuIsOpen();
    void whatTheMouseCannotDoNoKeyDoes();
};

void TestExtrasKeyRules::initTestCase()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void TestExtrasKeyRules::homeAndEndGoToTheSelectedTracesEnds()
{
    WindowFixture fixture;
    MainWindow &window = openThree(fixture);
    const MainWindowProbe &probe = fixture.probe();
    press(&window, Qt::Key_1);
    press(&window, Qt::Key_Home);
    // Shifted by 3 samples of one count each, and the first sample comes 8 after the pulse.
    QCOMPARE(probe.cursor_A_pos(), 3 + 8);
    QCOMPARE(probe.cursor_A_pos_Y(), 0);
    press(&window, Qt::Key_End);
    QCOMPARE(probe.cursor_A_pos(), 3 + 8 + 249);
    QCOMPARE(probe.cursor_A_pos_Y(), 249 % 50);
    press(&window, Qt::Key_Period);
    QCOMPARE(probe.cursor_A_pos_Y(), 129);
    press(&window, Qt::Key_3);
    press(&window, Qt::Key_End);
    QCOMPARE(probe.cursor_A_pos(), 249 * 4);
}

void TestExtrasKeyRules::inAnEmptySlotHomeAndEndGoToTheEdgesOfTheView()
{
    WindowFixture fixture;
    MainWindow &window = openThree(fixture);
    const MainWindowProbe &probe = fixture.probe();
    press(&window, Qt::Key_5);
    const int min = int(probe.cust_axisX()->min());
    const int max = int(probe.cust_axisX()->max());
    press(&window, Qt::Key_End);
    QCOMPARE(probe.cursor_A_pos(), max);
    press(&window, Qt::Key_Home);
    QCOMPARE(probe.cursor_A_pos(), min);
}

void TestExtrasKeyRules::aCursorThatLeavesTheViewTakesItAlong()
{
    WindowFixture fixture;
    MainWindow &window = openThree(fixture);
    const MainWindowProbe &probe = fixture.probe();
    press(&window, Qt::Key_3);
    press(&window, Qt::Key_End);
    QVERIFY(window.isCursor_visible(MainWindow::CURSOR_A));
    QCOMPARE(probe.scrollfactorX(), 249 * 4 - 250);
    // Within the view it moves alone.
    press(&window, Qt::Key_Comma);
    QCOMPARE(probe.cursor_A_pos(), 248 * 4);
    QCOMPARE(probe.scrollfactorX(), 249 * 4 - 250);
}

void TestExtrasKeyRules::scrollingStopsAtTheEndsAndNotBeforeThem()
{
    WindowFixture fixture;
    MainWindow &window = openThree(fixture);
    const MainWindowProbe &probe = fixture.probe();
    // Steps of 2 counts, ten at a time, from 107 on.
    window.plotScroll(7);
    for (int i = 0; i < 5; ++i)
        press(&window, Qt::Key_BraceLeft, Qt::ShiftModifier);
    QCOMPARE(probe.scrollfactorX(), 7);
    press(&window, Qt::Key_BraceLeft, Qt::ShiftModifier);
    QCOMPARE(probe.scrollfactorX(), 0);
    press(&window, Qt::Key_BracketLeft);
    QCOMPARE(probe.scrollfactorX(), 0);
    window.plotScroll(constants::xLength - 500 - 7);
    press(&window, Qt::Key_BraceRight, Qt::ShiftModifier);
    QCOMPARE(int(probe.cust_axisX()->max()), constants::xLength);
    press(&window, Qt::Key_BracketRight);
    QCOMPARE(int(probe.cust_axisX()->max()), constants::xLength);
}

void TestExtrasKeyRules::whatTheFocusedControlUsesIsItsOwn()
{
    WindowFixture fixture;
    openThree(fixture);
    const MainWindowProbe &probe = fixture.probe();
    const auto value = [&] { return probe.param_dial()->value(); };

    // A dial turns its handle by these keys, and its counter does not follow a key.
    const int before = probe.param_dial()->trueValue;
    const int cursor = probe.cursor_A_pos();
    for (const int key : { Qt::Key_Up, Qt::Key_Right, Qt::Key_PageUp, Qt::Key_Home, Qt::Key_End }) {
        const int handle = value();
        press(probe.param_dial(), key);
        QVERIFY(value() != handle);
    }
    QCOMPARE(probe.param_dial()->trueValue, before);
    QCOMPARE(probe.cursor_A_pos(), cursor);
    // What it does not use goes on to the window.
    press(probe.param_dial(), Qt::Key_Period);
    QCOMPARE(probe.cursor_A_pos(), cursor + 2);

    // A button is pressed by Space, and the arrows walk on from it.
    press(probe.smooth_button(), Qt::Key_Space);
    QVERIFY(probe.smooth_rfg_flag());
    probe.smooth_button()->setFocus();
    press(probe.smooth_button(), Qt::Key_Right);
    QVERIFY(!probe.smooth_button()->hasFocus());
    QCOMPARE(probe.cursor_A_pos(), cursor + 2);
    press(probe.smooth_button(), Qt::Key_S);
    QVERIFY(!probe.smooth_rfg_flag());
}

void TestExtrasKeyRules::theArrowsMoveTheCursorWhereThePlotHasTheFocus()
{
    WindowFixture fixture;
    MainWindow &window = openThree(fixture);
    const MainWindowProbe &probe = fixture.probe();
    const int column = probe.cursor_A_pos();
    press(probe.Plot_View(), Qt::Key_Right);
    QCOMPARE(probe.cursor_A_pos(), column + 2);
    press(probe.Plot_View(), Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(probe.cursor_A_pos(), column + 2 - 20);
    press(probe.Plot_View(), Qt::Key_Left);
    press(probe.Plot_View(), Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(probe.cursor_A_pos(), column);
    press(&window, Qt::Key_Y);
    press(probe.Plot_View(), Qt::Key_Up);
    QCOMPARE(probe.rfg_DATA()[1].offset, 10);
    press(probe.Plot_View(), Qt::Key_Down);
    press(probe.Plot_View(), Qt::Key_PageDown);
    QCOMPARE(probe.rfg_DATA()[1].offset, -1);
    // The window itself leaves the arrows alone.
    press(&window, Qt::Key_Right);
    QCOMPARE(probe.cursor_A_pos(), column);
}

void TestExtrasKeyRules::aHeldKeyRepeatsStepsButNotSwitches()
{
    WindowFixture fixture;
    MainWindow &window = openThree(fixture);
    const MainWindowProbe &probe = fixture.probe();
    const auto hold = [&window](int key) {
        QTest::sendKeyEvent(QTest::Press, &window, Qt::Key(key), QString(), Qt::NoModifier);
        for (int i = 0; i < 4; ++i) {
            QKeyEvent again(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
            QCoreApplication::sendEvent(&window, &again);
            QVERIFY(again.isAccepted());
        }
        QTest::sendKeyEvent(QTest::Release, &window, Qt::Key(key), QString(), Qt::NoModifier);
    };
    const int column = probe.cursor_A_pos();
    hold(Qt::Key_Period);
    QCOMPARE(probe.cursor_A_pos(), column + 5 * 2);
    hold(Qt::Key_D);
    QCOMPARE(probe.diff_flag(), MainWindow::DIFF);
}

void TestExtrasKeyRules::theFilesKeysOpenTheFilesDialog_data()
{
    QTest::addColumn<int>("modifiers");
    QTest::newRow("O") << int(Qt::NoModifier);
    QTest::newRow("Ctrl and O") << int(Qt::ControlModifier);
}

void TestExtrasKeyRules::theFilesKeysOpenTheFilesDialog()
{
    QFETCH(int, modifiers);
    WindowFixture fixture;
    MainWindow &window = openThree(fixture);
    const QStringList chosen{ fixture.trace(QStringLiteral("new.tdr"), TraceBuilder()) };
    const auto answer = answerDialog(typeFileNames(chosen));
    press(&window, Qt::Key_O, Qt::KeyboardModifiers(modifiers));
    QVERIFY(answer->served());
    QCOMPARE(fixture.probe().rfg_read_index(), 1);
    QCOMPARE(fixture.probe().rfg_DATA()[0].full_path, chosen.first());

    const QString other = fixture.trace(QStringLiteral("other.tdr"), TraceBuilder());
    const auto single = answerDialog(typeFileName(other));
    press(&window, Qt::Key_4);
    press(&window, Qt::Key_L);
    QVERIFY(single->served());
    QCOMPARE(fixture.probe().rfg_DATA()[3].full_path, other);
}

void TestExtrasKeyRules::theSettingsKeyOpensTheSettings()
{
    WindowFixture fixture;
    MainWindow &window = openThree(fixture);
    const QDialog *opened = nullptr;
    const auto answer = answerDialog([&opened](QDialog &dialog) {
        opened = &dialog;
        cancelDialog(dialog);
    });
    press(&window, Qt::Key_Comma, Qt::ControlModifier);
    QVERIFY(answer->served());
    QCOMPARE(opened, fixture.probe().settingsMenu());
    QVERIFY(!fixture.probe().settings_button()->isDown());
}

void TestExtrasKeyRules::numbersCanBeTypedIn()
{
    WindowFixture fixture;
    MainWindow &window = openThree(fixture);
    const MainWindowProbe &probe = fixture.probe();
    const auto typing = [](double number) {
        return answerDialog([number](QDialog &dialog) {
            auto &input = static_cast<QInputDialog &>(dialog);
            input.setDoubleValue(number);
            acceptDialog(dialog);
        });
    };
    press(&window, Qt::Key_K);
    const auto factor = typing(1.25);
    press(&window, Qt::Key_F2);
    QVERIFY(factor->served());
    QCOMPARE(probe.master_params().KU, 1.25F);

    press(&window, Qt::Key_B);
    const auto place = typing(100 * probe.dist_coef() + 0.01);
    press(&window, Qt::Key_F2, Qt::ShiftModifier);
    QVERIFY(place->served());
    QCOMPARE(probe.cursor_B_pos(), 100);
}

void TestExtrasKeyRules::noKeyCountsWhileADialogIsOpen()
{
    WindowFixture fixture;
    MainWindow &window = openThree(fixture);
    const auto answer = answerDialog([&](QDialog &dialog) {
        press(&dialog, Qt::Key_D);
        press(&window, Qt::Key_D);
        cancelDialog(dialog);
    });
    press(&window, Qt::Key_Comma, Qt::ControlModifier);
    QVERIFY(answer->served());
    QCOMPARE(fixture.probe().diff_flag(), MainWindow::NORMAL);
    press(&window, Qt::Key_D);
    QCOMPARE(fixture.probe().diff_flag(), MainWindow::DIFF);
}

void TestExtrasKeyRules::noKeyCountsWhileAMenuIsOpen()
{
    WindowFixture fixture;
    MainWindow &window = openThree(fixture);
    const auto answer = answerMenu([&](QMenu &menu) {
        press(&menu, Qt::Key_D);
        press(&window, Qt::Key_D);
    });
    window.rfgMenuRequested_slot(0);
    QVERIFY(answer->served());
    QCOMPARE(fixture.probe().diff_flag(), MainWindow::NORMAL);
}

void TestExtrasKeyRules::whatTheMouseCannotDoNoKeyDoes()
{
    WindowFixture fixture;
    MainWindow &window = openThree(fixture);
    press(&window, Qt::Key_6);
    const QStringList before = stateOf(window);
    for (const int key : { Qt::Key_H, Qt::Key_M, Qt::Key_F5, Qt::Key_Delete })
        press(&window, key);
    QCOMPARE(stateOf(window), before);
}

QTEST_MAIN(TestExtrasKeyRules)
#include "tst_extras_key_rules.moc"
