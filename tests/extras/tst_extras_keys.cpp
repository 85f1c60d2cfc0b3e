// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "hand.h"
#include "inputevents.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "testfiles.h"
#include "threetraces.h"
#include "windowstate.h"

#include <QtTest>

#include <functional>

namespace {

using Act = std::function<void(const WindowFixture &)>;

/// What is behind the picture, but for the places of the dials' handles: a wheel turns them too.
QStringList stateWithoutHandles(MainWindow &window)
{
    QStringList lines = stateOf(window);
    for (QString &line : lines)
        if (line.startsWith(QLatin1String("dial")))
            line.truncate(line.indexOf(QLatin1String(", position")));
    return lines;
}

void wheel(QWidget *dial, int notches)
{
    for (int i = 0; i < qAbs(notches); ++i)
        input::wheel(dial, notches < 0 ? -120 : 120);
}

Act click(std::function<QWidget *(const MainWindowProbe &)> button)
{
    return [button](const WindowFixture &f) { hand::click(button(f.probe())); };
}

Act clickTwice(std::function<QWidget *(const MainWindowProbe &)> button)
{
    return [button](const WindowFixture &f) {
        hand::click(button(f.probe()));
        hand::click(button(f.probe()));
    };
}

Act choose(QAction *LegendButton::*action)
{
    return [action](const WindowFixture &f) {
        (f.probe().selected_rfg()[f.probe().rfg_ID()]->*action)->trigger();
    };
}

Act nothing()
{
    return [](const WindowFixture &) {};
}

/// Presses \a key \a times times on the window.
Act keys(int key, Qt::KeyboardModifiers modifiers = {}, int times = 1)
{
    return [=](const WindowFixture &f) {
        for (int i = 0; i < times; ++i)
            press(&f.window(), key, modifiers);
    };
}

} // namespace

Q_DECLARE_METATYPE(Act)

/// Every key against what it stands for.
class TestExtrasKeys : public QObject
{
    Q_OBJECT

private slots:
    void aKeyDoesWhatTheMouseDoes_data();
    void aKeyDoesWhatTheMouseDoes();
    void withoutExtrasNoKeyDoesAnything();
    void aRussianKeyboardHasTheSameKeys_data();
    void aRussianKeyboardHasTheSameKeys();
};

void TestExtrasKeys::aKeyDoesWhatTheMouseDoes_data()
{
    QTest::addColumn<Act>("byKey");
    QTest::addColumn<Act>("byMouse");
    using P = const MainWindowProbe &;
    const auto row = [](const char *name, const Act &byKey, const Act &byMouse) {
        QTest::newRow(name) << byKey << byMouse;
    };
    const auto cursor = [](int notches) -> Act {
        return [=](const WindowFixture &f) { wheel(f.probe().cursor_dial(), notches); };
    };
    const auto parameter = [](int notches) -> Act {
        return [=](const WindowFixture &f) { wheel(f.probe().param_dial(), notches); };
    };
    const auto then = [](const Act &first, const Act &second) -> Act {
        return [=](const WindowFixture &f) {
            first(f);
            second(f);
        };
    };
    const Act curB = click([](P p) -> QWidget * { return p.curB_button(); });
    row("B", keys(Qt::Key_B), curB);
    row("A", then(curB, keys(Qt::Key_A)),
        then(curB, click([](P p) -> QWidget * { return p.curA_button(); })));
    row("comma", keys(Qt::Key_Comma), cursor(-1));
    row("period", keys(Qt::Key_Period), cursor(1));
    row("Shift and comma", keys(Qt::Key_Less, Qt::ShiftModifier), cursor(-10));
    row("Shift and period", keys(Qt::Key_Greater, Qt::ShiftModifier), cursor(10));
    const Act difference = click([](P p) -> QWidget * { return p.difference_button(); });
    const Act third = click([](P p) -> QWidget * { return p.selected_rfg()[2]; });
    const Act first = click([](P p) -> QWidget * { return p.selected_rfg()[0]; });
    row("D", keys(Qt::Key_D), difference);
    row("D twice", keys(Qt::Key_D, {}, 2), nothing());
    row("period in difference mode", then(then(first, difference), keys(Qt::Key_Period)),
        then(then(first, difference), cursor(1)));
    row("S", keys(Qt::Key_S), click([](P p) -> QWidget * { return p.smooth_button(); }));
    const auto in = [](P p) -> QWidget * { return p.scale_down_button(); };
    const auto out = [](P p) -> QWidget * { return p.scale_up_button(); };
    row("Ctrl and plus", keys(Qt::Key_Plus, Qt::ControlModifier), click(in));
    row("Ctrl and equal", keys(Qt::Key_Equal, Qt::ControlModifier), click(in));
    row("Ctrl and plus, past the end", keys(Qt::Key_Plus, Qt::ControlModifier, 2), clickTwice(in));
    row("Ctrl and minus", keys(Qt::Key_Minus, Qt::ControlModifier), click(out));
    row("bracket left", keys(Qt::Key_BracketLeft),
        click([](P p) -> QWidget * { return p.scroll_left_button(); }));
    row("bracket right", keys(Qt::Key_BracketRight, {}, 2),
        clickTwice([](P p) -> QWidget * { return p.scroll_right_button(); }));
    row("2", keys(Qt::Key_2), click([](P p) -> QWidget * { return p.selected_rfg()[1]; }));
    row("3", keys(Qt::Key_3), third);
    row("1 of the number block", keys(Qt::Key_1, Qt::KeypadModifier), first);
    row("6, which is empty", keys(Qt::Key_6),
        click([](P p) -> QWidget * { return p.selected_rfg()[5]; }));
    row("5, on a keyboard that needs Shift for it", keys(Qt::Key_5, Qt::ShiftModifier),
        click([](P p) -> QWidget * { return p.selected_rfg()[4]; }));
    row("H", keys(Qt::Key_H), choose(&LegendButton::visible_action));
    row("M", then(third, keys(Qt::Key_M)), then(third, choose(&LegendButton::master_action)));
    row("Delete", keys(Qt::Key_Delete), choose(&LegendButton::clear_action));
    row("F5", then(then(first, parameter(4)), keys(Qt::Key_F5)),
        then(then(first, parameter(4)), choose(&LegendButton::reset_action)));
    row("Shift and F5", then(difference, keys(Qt::Key_F5, Qt::ShiftModifier)),
        then(difference, click([](P p) -> QWidget * { return p.reset_all_button(); })));
    row("Y", keys(Qt::Key_Y), click([](P p) -> QWidget * { return p.V_offset_button(); }));
    const Act velocity = click([](P p) -> QWidget * { return p.KU_button(); });
    row("K", keys(Qt::Key_K), velocity);
    row("X", then(velocity, keys(Qt::Key_X)),
        then(velocity, click([](P p) -> QWidget * { return p.H_offset_button(); })));
    const Act scale = click([](P p) -> QWidget * { return p.scale_button(); });
    row("Z", keys(Qt::Key_Z), scale);
    row("plus, the horizontal shift", keys(Qt::Key_Plus), parameter(1));
    row("minus, the horizontal shift", keys(Qt::Key_Minus, {}, 3), parameter(-3));
    row("plus, the velocity factor", then(velocity, keys(Qt::Key_Plus)),
        then(velocity, parameter(1)));
    row("plus, the scale and past its end", then(scale, keys(Qt::Key_Plus, {}, 9)),
        then(scale, parameter(9)));
    row("Page Up", keys(Qt::Key_PageUp), parameter(10));
    row("Page Down", keys(Qt::Key_PageDown), parameter(-10));
    row("W",
        then(keys(Qt::Key_W),
             [](const WindowFixture &f) { wheel(f.probe().Plot_View()->viewport(), 1); }),
        [](const WindowFixture &f) {
            f.probe().scale_wheel_action()->trigger();
            wheel(f.probe().Plot_View()->viewport(), 1);
        });
    row("W twice",
        then(keys(Qt::Key_W, {}, 2),
             [](const WindowFixture &f) { wheel(f.probe().Plot_View()->viewport(), 1); }),
        [](const WindowFixture &f) { wheel(f.probe().Plot_View()->viewport(), 1); });
    row("a key that stands for nothing", keys(Qt::Key_Q), nothing());
    row("a letter with Alt", keys(Qt::Key_D, Qt::AltModifier), nothing());
}

void TestExtrasKeys::aKeyDoesWhatTheMouseDoes()
{
    QFETCH(Act, byKey);
    QFETCH(Act, byMouse);
    WindowFixture fixture;
    openThree(fixture);
    byMouse(fixture);
    WindowFixture::settle();
    const QStringList expected = stateWithoutHandles(fixture.window());

    openThree(fixture);
    byKey(fixture);
    WindowFixture::settle();
    const QStringList found = stateWithoutHandles(fixture.window());
    for (int line = 0; line < expected.size(); ++line)
        QCOMPARE(found.value(line), expected.at(line));
    QCOMPARE(found.size(), expected.size());
}

void TestExtrasKeys::withoutExtrasNoKeyDoesAnything()
{
    WindowFixture fixture;
    MainWindow &window = openThree(fixture, false);
    const QStringList before = stateOf(window);
    for (int key = Qt::Key_Space; key <= Qt::Key_AsciiTilde; ++key) {
        press(&window, key);
        press(&window, key, Qt::ShiftModifier);
        press(&window, key, Qt::ControlModifier);
    }
    for (const int key : { Qt::Key_F1, Qt::Key_F2, Qt::Key_F5, Qt::Key_Delete, Qt::Key_Home })
        press(&window, key);
    QCOMPARE(stateOf(window), before);
}

void TestExtrasKeys::aRussianKeyboardHasTheSameKeys_data()
{
    QTest::addColumn<int>("russian");
    QTest::addColumn<int>("english");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("before");
    const auto row = [](const char *name, char16_t russian, int english, int modifiers = 0,
                        int before = Qt::Key_Q) {
        QTest::newRow(name) << int(russian) << english << modifiers << before;
    };
    row("cursor B", u'И', Qt::Key_B);
    row("difference", u'В', Qt::Key_D);
    row("smooth", u'Ы', Qt::Key_S);
    row("hide", u'Р', Qt::Key_H);
    row("velocity factor", u'Л', Qt::Key_K);
    row("horizontal shift", u'Ч', Qt::Key_X, 0, Qt::Key_Y);
    row("vertical shift", u'Н', Qt::Key_Y);
    row("scale", u'Я', Qt::Key_Z);
    row("cursor left", u'Б', Qt::Key_Comma);
    row("cursor right", u'Ю', Qt::Key_Period);
    row("cursor far right", u'Ю', Qt::Key_Period, Qt::ShiftModifier);
    row("scroll left", u'Х', Qt::Key_BracketLeft);
    row("scroll far right", u'Ъ', Qt::Key_BracketRight, Qt::ShiftModifier);
}

void TestExtrasKeys::aRussianKeyboardHasTheSameKeys()
{
    QFETCH(int, russian);
    QFETCH(int, english);
    QFETCH(int, modifiers);
    QFETCH(int, before);
    WindowFixture fixture;
    const auto stateAfter = [&](int key, const QString &text) {
        MainWindow &window = openThree(fixture);
        press(&window, before);
        press(&window, key, Qt::KeyboardModifiers(modifiers), text);
        WindowFixture::settle();
        return stateOf(window);
    };
    const QStringList untouched = stateAfter(Qt::Key_Q, QString());
    const QStringList expected = stateAfter(english, QString());
    QVERIFY(expected != untouched);
    // As the toolkit has it: the letter in upper case is the key, whatever Shift says.
    QCOMPARE(stateAfter(russian, QString(QChar(russian)).toLower()), expected);
}

QTEST_MAIN(TestExtrasKeys)
#include "tst_extras_keys.moc"
