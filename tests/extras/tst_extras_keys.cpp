// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "each.h"
#include "inputevents.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "testfiles.h"
#include "threetraces.h"
#include "windowstate.h"

#include <QtTest>

#include <functional>
#include <vector>

namespace {

using Act = std::function<void(const WindowFixture &)>;
using Button = QWidget *(*)(const MainWindowProbe &);

/// The state of the window without the marks of the dials: a wheel turns them too.
QStringList stateWithoutMarks(MainWindow &window)
{
    QStringList lines = stateOf(window);
    for (QString &line : lines)
        if (line.startsWith(QLatin1String("dial")))
            line.truncate(line.indexOf(QLatin1String(", position")));
    return lines;
}

Act click(Button button, int times = 1)
{
    return [=](const WindowFixture &f) {
        for (int i = 0; i < times; ++i)
            input::click(button(f.probe()));
    };
}

Act choose(QAction *LegendButton::*action)
{
    return [action](const WindowFixture &f) {
        (f.probe().selected_rfg()[f.probe().rfg_ID()]->*action)->trigger();
    };
}

Act wheel(Button dial, int notches)
{
    return [=](const WindowFixture &f) { input::turnWheel(dial(f.probe()), notches); };
}

Act keys(int key, Qt::KeyboardModifiers modifiers = {}, int times = 1)
{
    return [=](const WindowFixture &f) {
        for (int i = 0; i < times; ++i)
            press(&f.window(), key, modifiers);
    };
}

Act then(const Act &first, const Act &second)
{
    return [=](const WindowFixture &f) {
        first(f);
        second(f);
    };
}

/// A key and what the mouse does to the same effect, both after \c before.
struct Row
{
    const char *name;
    Act before;
    Act byKey;
    Act byMouse;
};

std::vector<Row> keysAndMouse()
{
    using P = const MainWindowProbe &;
    const auto cursor = [](int notches) {
        return wheel([](P p) -> QWidget * { return p.cursor_dial(); }, notches);
    };
    const auto parameter = [](int notches) {
        return wheel([](P p) -> QWidget * { return p.param_dial(); }, notches);
    };
    const auto plot = wheel([](P p) -> QWidget * { return p.Plot_View()->viewport(); }, 1);
    const auto button = [](Button which, int times = 1) { return click(which, times); };
    const Button curA = [](P p) -> QWidget * { return p.curA_button(); };
    const Button curB = [](P p) -> QWidget * { return p.curB_button(); };
    const Button difference = [](P p) -> QWidget * { return p.difference_button(); };
    const Button smooth = [](P p) -> QWidget * { return p.smooth_button(); };
    const Button in = [](P p) -> QWidget * { return p.scale_down_button(); };
    const Button out = [](P p) -> QWidget * { return p.scale_up_button(); };
    const Button left = [](P p) -> QWidget * { return p.scroll_left_button(); };
    const Button right = [](P p) -> QWidget * { return p.scroll_right_button(); };
    const Button reset = [](P p) -> QWidget * { return p.reset_all_button(); };
    const Button first = [](P p) -> QWidget * { return p.selected_rfg()[0]; };
    const Button second = [](P p) -> QWidget * { return p.selected_rfg()[1]; };
    const Button third = [](P p) -> QWidget * { return p.selected_rfg()[2]; };
    const Button fifth = [](P p) -> QWidget * { return p.selected_rfg()[4]; };
    const Button sixth = [](P p) -> QWidget * { return p.selected_rfg()[5]; };
    const Button vertical = [](P p) -> QWidget * { return p.V_offset_button(); };
    const Button horizontal = [](P p) -> QWidget * { return p.H_offset_button(); };
    const Button velocity = [](P p) -> QWidget * { return p.KU_button(); };
    const Button scale = [](P p) -> QWidget * { return p.scale_button(); };
    const Act none = [](const WindowFixture &) {};
    const auto shift = Qt::ShiftModifier;
    const auto control = Qt::ControlModifier;
    return {
        { "B", none, keys(Qt::Key_B), button(curB) },
        { "A", button(curB), keys(Qt::Key_A), button(curA) },
        { "comma", none, keys(Qt::Key_Comma), cursor(-1) },
        { "period", none, keys(Qt::Key_Period), cursor(1) },
        { "Shift and comma", none, keys(Qt::Key_Less, shift), cursor(-10) },
        { "Shift and period", none, keys(Qt::Key_Greater, shift), cursor(10) },
        { "period in difference mode", then(button(first), button(difference)),
          keys(Qt::Key_Period), cursor(1) },
        { "D", none, keys(Qt::Key_D), button(difference) },
        { "D twice", none, keys(Qt::Key_D, {}, 2), none },
        { "S", none, keys(Qt::Key_S), button(smooth) },
        { "Ctrl and plus", none, keys(Qt::Key_Plus, control), button(in) },
        { "Ctrl and equal", none, keys(Qt::Key_Equal, control), button(in) },
        { "Ctrl and plus, past the end", none, keys(Qt::Key_Plus, control, 2), button(in, 2) },
        { "Ctrl and minus", none, keys(Qt::Key_Minus, control), button(out) },
        { "bracket left", none, keys(Qt::Key_BracketLeft), button(left) },
        { "bracket right", none, keys(Qt::Key_BracketRight, {}, 2), button(right, 2) },
        { "2", none, keys(Qt::Key_2), button(second) },
        { "3", none, keys(Qt::Key_3), button(third) },
        { "1 of the number block", none, keys(Qt::Key_1, Qt::KeypadModifier), button(first) },
        { "6, which is empty", none, keys(Qt::Key_6), button(sixth) },
        { "5 with Shift, as on French keyboards", none, keys(Qt::Key_5, shift), button(fifth) },
        { "H", none, keys(Qt::Key_H), choose(&LegendButton::visible_action) },
        { "M", button(third), keys(Qt::Key_M), choose(&LegendButton::master_action) },
        { "Delete", none, keys(Qt::Key_Delete), choose(&LegendButton::clear_action) },
        { "F5", then(button(first), parameter(4)), keys(Qt::Key_F5),
          choose(&LegendButton::reset_action) },
        { "Shift and F5", button(difference), keys(Qt::Key_F5, shift), button(reset) },
        { "Y", none, keys(Qt::Key_Y), button(vertical) },
        { "K", none, keys(Qt::Key_K), button(velocity) },
        { "X", button(velocity), keys(Qt::Key_X), button(horizontal) },
        { "Z", none, keys(Qt::Key_Z), button(scale) },
        { "plus, the horizontal shift", none, keys(Qt::Key_Plus), parameter(1) },
        { "minus, the horizontal shift", none, keys(Qt::Key_Minus, {}, 3), parameter(-3) },
        { "plus, the shortening factor", button(velocity), keys(Qt::Key_Plus), parameter(1) },
        { "plus, the scale and past its end", button(scale), keys(Qt::Key_Plus, {}, 9),
          parameter(9) },
        { "Page Up", none, keys(Qt::Key_PageUp), parameter(10) },
        { "Page Down", none, keys(Qt::Key_PageDown), parameter(-10) },
        { "W", none, then(keys(Qt::Key_W), plot),
          then([](const WindowFixture &f) { f.probe().scale_wheel_action()->trigger(); }, plot) },
        { "W twice", none, then(keys(Qt::Key_W, {}, 2), plot), plot },
        { "a key without an action", none, keys(Qt::Key_Q), none },
        { "a letter with Alt", none, keys(Qt::Key_D, Qt::AltModifier), none },
    };
}

} // namespace

/// Every key against the mouse.
class TestExtrasKeys : public ThreeTracesTest
{
    Q_OBJECT

private slots:
    void aKeyDoesWhatTheMouseDoes()
    {
        const auto stateAfter = [&](const Act &before, const Act &act) {
            openThree();
            before(*fixture);
            act(*fixture);
            WindowFixture::settle();
            return stateWithoutMarks(window());
        };
        each<Row>(keysAndMouse(), [&](const Row &row) {
            const QStringList expected = stateAfter(row.before, row.byMouse);
            QCOMPARE(stateAfter(row.before, row.byKey), expected);
        });
    }

    void withoutExtrasNoKeyDoesAnything()
    {
        MainWindow &window = openThree(false);
        const QStringList before = stateOf(window);
        for (int key = Qt::Key_Space; key <= Qt::Key_AsciiTilde; ++key)
            for (const Qt::KeyboardModifier modifier :
                 { Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier })
                press(&window, key, modifier);
        for (const int key : { Qt::Key_F1, Qt::Key_F2, Qt::Key_F5, Qt::Key_Delete, Qt::Key_Home })
            press(&window, key);
        QCOMPARE(stateOf(window), before);
    }

    void aRussianKeyboardHasTheSameKeys()
    {
        struct Place
        {
            const char *name;
            char16_t russian;
            int english;
            Qt::KeyboardModifier modifier;
        };
        const auto stateAfter = [&](int key, Qt::KeyboardModifier modifier, const QString &text) {
            MainWindow &window = openThree();
            press(&window, Qt::Key_K);
            press(&window, key, modifier, text);
            WindowFixture::settle();
            return stateOf(window);
        };
        const QStringList untouched = stateAfter(Qt::Key_Q, Qt::NoModifier, QString());
        each<Place>(
            {
                { "cursor B", u'И', Qt::Key_B, Qt::NoModifier },
                { "difference", u'В', Qt::Key_D, Qt::NoModifier },
                { "smooth", u'Ы', Qt::Key_S, Qt::NoModifier },
                { "fit", u'А', Qt::Key_F, Qt::NoModifier },
                { "hide", u'Р', Qt::Key_H, Qt::NoModifier },
                { "horizontal shift", u'Ч', Qt::Key_X, Qt::NoModifier },
                { "vertical shift", u'Н', Qt::Key_Y, Qt::NoModifier },
                { "scale", u'Я', Qt::Key_Z, Qt::NoModifier },
                { "cursor left", u'Б', Qt::Key_Comma, Qt::NoModifier },
                { "cursor right", u'Ю', Qt::Key_Period, Qt::NoModifier },
                { "cursor far right", u'Ю', Qt::Key_Period, Qt::ShiftModifier },
                { "scroll left", u'Х', Qt::Key_BracketLeft, Qt::NoModifier },
                { "scroll far right", u'Ъ', Qt::Key_BracketRight, Qt::ShiftModifier },
            },
            [&](const Place &place) {
                const QStringList expected = stateAfter(place.english, place.modifier, QString());
                QVERIFY(expected != untouched);
                // Qt reports the letter in upper case as the key, whatever Shift says.
                const QString text = QString(QChar(place.russian)).toLower();
                QCOMPARE(stateAfter(place.russian, place.modifier, text), expected);
            });
    }
};

QTEST_MAIN(TestExtrasKeys)
#include "tst_extras_keys.moc"
