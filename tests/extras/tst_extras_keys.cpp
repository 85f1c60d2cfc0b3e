// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "each.h"
#include "input_events.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "test_files.h"
#include "threetracestest.h"
#include "window_state.h"

#include <QtTest>

#include <functional>
#include <vector>

namespace {

using Act = std::function<void(const WindowFixture &)>;
using Probe = MainWindowProbe;

/// The state of the window without the marks of the dials: a wheel turns them too.
QStringList stateWithoutMarks(MainWindow &window)
{
    QStringList lines = stateOf(window);
    for (QString &line : lines)
        if (line.startsWith(QLatin1String("dial")))
            line.truncate(line.indexOf(QLatin1String(", position")));
    return lines;
}

/// Clicks a button of the window.
template <typename Button> Act click(Button (Probe::*button)() const, int times = 1)
{
    return [=](const WindowFixture &f) {
        for (int i = 0; i < times; ++i)
            input::click((f.probe().*button)());
    };
}

Act slot(int number)
{
    return [=](const WindowFixture &f) { input::click(f.probe().selected_rfg()[number - 1]); };
}

/// Triggers an entry in the menu of the selected slot.
Act choose(QAction *LegendButton::*action)
{
    return [action](const WindowFixture &f) {
        (f.probe().selected_rfg()[f.probe().rfg_ID()]->*action)->trigger();
    };
}

Act cursor(int notches)
{
    return [=](const WindowFixture &f) { input::turnWheel(f.probe().cursor_dial(), notches); };
}

Act parameter(int notches)
{
    return [=](const WindowFixture &f) { input::turnWheel(f.probe().param_dial(), notches); };
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

void none(const WindowFixture &) { }

void wheelOnThePlot(const WindowFixture &f)
{
    input::turnWheel(f.probe().Plot_View()->viewport(), 1);
}

void wheelScales(const WindowFixture &f)
{
    f.probe().scale_wheel_action()->trigger();
}

/// A key and the mouse action with the same effect, both after \c before.
struct Row
{
    const char *name;
    Act before;
    Act byKey;
    Act byMouse;
};

std::vector<Row> keysAndMouse()
{
    constexpr auto shift = Qt::ShiftModifier;
    constexpr auto control = Qt::ControlModifier;
    const Act difference = click(&Probe::difference_button);
    const Act factor = click(&Probe::KU_button);
    return {
        { "B", none, keys(Qt::Key_B), click(&Probe::curB_button) },
        { "A", click(&Probe::curB_button), keys(Qt::Key_A), click(&Probe::curA_button) },
        { "comma", none, keys(Qt::Key_Comma), cursor(-1) },
        { "period", none, keys(Qt::Key_Period), cursor(1) },
        { "Shift and comma", none, keys(Qt::Key_Less, shift), cursor(-10) },
        { "Shift and period", none, keys(Qt::Key_Greater, shift), cursor(10) },
        { "period in difference mode", then(slot(1), difference), keys(Qt::Key_Period), cursor(1) },
        { "D", none, keys(Qt::Key_D), difference },
        { "D twice", none, keys(Qt::Key_D, {}, 2), none },
        { "S", none, keys(Qt::Key_S), click(&Probe::smooth_button) },
        { "Ctrl and plus", none, keys(Qt::Key_Plus, control), click(&Probe::scale_down_button) },
        { "Ctrl and equal", none, keys(Qt::Key_Equal, control), click(&Probe::scale_down_button) },
        { "Ctrl and plus, past the end", none, keys(Qt::Key_Plus, control, 2),
          click(&Probe::scale_down_button, 2) },
        { "Ctrl and minus", none, keys(Qt::Key_Minus, control), click(&Probe::scale_up_button) },
        { "bracket left", none, keys(Qt::Key_BracketLeft), click(&Probe::scroll_left_button) },
        { "bracket right", none, keys(Qt::Key_BracketRight, {}, 2),
          click(&Probe::scroll_right_button, 2) },
        { "2", none, keys(Qt::Key_2), slot(2) },
        { "3", none, keys(Qt::Key_3), slot(3) },
        { "1 of the number block", none, keys(Qt::Key_1, Qt::KeypadModifier), slot(1) },
        { "6, which is empty", none, keys(Qt::Key_6), slot(6) },
        { "5 with Shift, as on French keyboards", none, keys(Qt::Key_5, shift), slot(5) },
        { "H", none, keys(Qt::Key_H), choose(&LegendButton::visible_action) },
        { "M", slot(3), keys(Qt::Key_M), choose(&LegendButton::master_action) },
        { "Delete", none, keys(Qt::Key_Delete), choose(&LegendButton::clear_action) },
        { "F5", then(slot(1), parameter(4)), keys(Qt::Key_F5),
          choose(&LegendButton::reset_action) },
        { "H and M in an empty slot", slot(6), then(keys(Qt::Key_H), keys(Qt::Key_M)), none },
        { "F5 in an empty slot", slot(6), keys(Qt::Key_F5), none },
        { "Delete in an empty slot", slot(6), keys(Qt::Key_Delete), none },
        { "Shift and F5", difference, keys(Qt::Key_F5, shift), click(&Probe::reset_all_button) },
        { "Y", none, keys(Qt::Key_Y), click(&Probe::V_offset_button) },
        { "K", none, keys(Qt::Key_K), factor },
        { "X", factor, keys(Qt::Key_X), click(&Probe::H_offset_button) },
        { "Z", none, keys(Qt::Key_Z), click(&Probe::scale_button) },
        { "plus, the horizontal shift", none, keys(Qt::Key_Plus), parameter(1) },
        { "minus, the horizontal shift", none, keys(Qt::Key_Minus, {}, 3), parameter(-3) },
        { "plus, the shortening factor", factor, keys(Qt::Key_Plus), parameter(1) },
        { "plus, the scale and past its end", click(&Probe::scale_button),
          keys(Qt::Key_Plus, {}, 9), parameter(9) },
        { "Page Up", none, keys(Qt::Key_PageUp), parameter(10) },
        { "Page Down", none, keys(Qt::Key_PageDown), parameter(-10) },
        { "W", none, then(keys(Qt::Key_W), wheelOnThePlot), then(wheelScales, wheelOnThePlot) },
        { "W twice", none, then(keys(Qt::Key_W, {}, 2), wheelOnThePlot), wheelOnThePlot },
        { "a key without an action", none, keys(Qt::Key_Q), none },
        { "a letter with Alt", none, keys(Qt::Key_D, Qt::AltModifier), none },
    };
}

} // namespace

/// Compares every key with the mouse.
class TestExtrasKeys : public ThreeTracesTest
{
    Q_OBJECT

private slots:
    void keyDoesWhatTheMouseDoes()
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

    void russianKeyboardHasTheSameKeys()
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
