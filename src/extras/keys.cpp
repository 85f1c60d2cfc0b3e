// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/keys.h"

#include "cont_dial.h"
#include "extras/commands.h"
#include "extras/exporting.h"
#include "extras/help.h"
#include "extras/reflection_steps.h"
#include "interfacebutton.h"
#include "legendbutton.h"
#include "mainwindow.h"
#include "parambutton.h"

#include <QApplication>
#include <QButtonGroup>
#include <QKeyEvent>
#include <QPushButton>

#include <cstddef>

namespace extras {

namespace {

using Window = MainWindow;

/// A key by its place on an English keyboard, with its modifiers: "<" is Shift and Key_Comma.
struct Stroke
{
    int key;
    Qt::KeyboardModifiers modifiers;
};

enum When {
    Once, ///< auto-repeat is ignored
    Repeated,
};

struct Key
{
    Stroke stroke;
    When when;
    void (*action)(Window &window);
};

constexpr auto shift = Qt::ShiftModifier;
constexpr auto control = Qt::ControlModifier;
constexpr int several = 10; ///< steps of the keys for large steps

// In the order of keys.md in the manual.
const Key keys[] = {
    { { Qt::Key_A, {} }, Once, [](Window &w) { w.parts().curA_button->click(); } },
    { { Qt::Key_B, {} }, Once, [](Window &w) { w.parts().curB_button->click(); } },
    { { Qt::Key_Comma, {} }, Repeated, [](Window &w) { moveCursor(w, -1); } },
    { { Qt::Key_Period, {} }, Repeated, [](Window &w) { moveCursor(w, 1); } },
    { { Qt::Key_Comma, shift }, Repeated, [](Window &w) { moveCursor(w, -several); } },
    { { Qt::Key_Period, shift }, Repeated, [](Window &w) { moveCursor(w, several); } },
    { { Qt::Key_Home, {} }, Once, [](Window &w) { moveCursorToEnd(w, false); } },
    { { Qt::Key_End, {} }, Once, [](Window &w) { moveCursorToEnd(w, true); } },
    { { Qt::Key_N, {} }, Repeated, toNextReflection },
    { { Qt::Key_P, {} }, Repeated, toPreviousReflection },
    { { Qt::Key_F2, shift },
      Once,
      [](Window &w) { w.openEntryDialog(w.parts().up_buttons->checkedButton()); } },

    { { Qt::Key_Plus, control },
      Repeated,
      [](Window &w) { w.parts().scale_down_button->click(); } },
    { { Qt::Key_Minus, control }, Repeated, [](Window &w) { w.parts().scale_up_button->click(); } },
    { { Qt::Key_BracketLeft, {} }, Repeated, [](Window &w) { scroll(w, -1); } },
    { { Qt::Key_BracketRight, {} }, Repeated, [](Window &w) { scroll(w, 1); } },
    { { Qt::Key_BracketLeft, shift }, Repeated, [](Window &w) { scroll(w, -several); } },
    { { Qt::Key_BracketRight, shift }, Repeated, [](Window &w) { scroll(w, several); } },
    { { Qt::Key_F, {} }, Once, fitTrace },
    { { Qt::Key_G, {} }, Once, showCursor },
    { { Qt::Key_D, {} }, Once, [](Window &w) { w.parts().difference_button->click(); } },
    { { Qt::Key_S, {} }, Once, [](Window &w) { w.parts().smooth_button->click(); } },
    { { Qt::Key_W, {} }, Once, switchWheel },
    { { Qt::Key_F5, shift }, Once, [](Window &w) { w.parts().reset_all_button->click(); } },

    { { Qt::Key_O, {} }, Once, [](Window &w) { w.files_slot(); } },
    { { Qt::Key_O, control }, Once, [](Window &w) { w.files_slot(); } },
    { { Qt::Key_1, {} }, Once, [](Window &w) { w.parts().selected_rfg[0]->click(); } },
    { { Qt::Key_2, {} }, Once, [](Window &w) { w.parts().selected_rfg[1]->click(); } },
    { { Qt::Key_3, {} }, Once, [](Window &w) { w.parts().selected_rfg[2]->click(); } },
    { { Qt::Key_4, {} }, Once, [](Window &w) { w.parts().selected_rfg[3]->click(); } },
    { { Qt::Key_5, {} }, Once, [](Window &w) { w.parts().selected_rfg[4]->click(); } },
    { { Qt::Key_6, {} }, Once, [](Window &w) { w.parts().selected_rfg[5]->click(); } },
    { { Qt::Key_L, {} }, Once, [](Window &w) { choose(w, &LegendButton::load_action); } },
    { { Qt::Key_H, {} }, Once, [](Window &w) { choose(w, &LegendButton::visible_action); } },
    { { Qt::Key_M, {} }, Once, [](Window &w) { choose(w, &LegendButton::master_action); } },
    { { Qt::Key_F5, {} }, Once, [](Window &w) { choose(w, &LegendButton::reset_action); } },
    { { Qt::Key_Delete, {} }, Once, [](Window &w) { choose(w, &LegendButton::clear_action); } },

    { { Qt::Key_X, {} }, Once, [](Window &w) { w.parts().H_offset_button->click(); } },
    { { Qt::Key_Y, {} }, Once, [](Window &w) { w.parts().V_offset_button->click(); } },
    { { Qt::Key_K, {} }, Once, [](Window &w) { w.parts().KU_button->click(); } },
    { { Qt::Key_Z, {} }, Once, [](Window &w) { w.parts().scale_button->click(); } },
    { { Qt::Key_Plus, {} }, Repeated, [](Window &w) { w.paramWheel(1); } },
    { { Qt::Key_Minus, {} }, Repeated, [](Window &w) { w.paramWheel(-1); } },
    { { Qt::Key_PageUp, {} }, Repeated, [](Window &w) { w.paramWheel(several); } },
    { { Qt::Key_PageDown, {} }, Repeated, [](Window &w) { w.paramWheel(-several); } },
    { { Qt::Key_F2, {} },
      Once,
      [](Window &w) { w.openEntryDialog(w.parts().down_buttons->checkedButton()); } },

    { { Qt::Key_C, control }, Once, copyShown },
    { { Qt::Key_E, control }, Once, askAndSaveShown },
    { { Qt::Key_Comma, control }, Once, [](Window &w) { w.parts().settings_button->click(); } },
    { { Qt::Key_F1, {} }, Once, [](Window &w) { showHelp(w); } },
};

// On the other controls the arrows move the focus.
const Key keysOnPlot[] = {
    { { Qt::Key_Left, {} }, Repeated, [](Window &w) { moveCursor(w, -1); } },
    { { Qt::Key_Right, {} }, Repeated, [](Window &w) { moveCursor(w, 1); } },
    { { Qt::Key_Left, shift }, Repeated, [](Window &w) { moveCursor(w, -several); } },
    { { Qt::Key_Right, shift }, Repeated, [](Window &w) { moveCursor(w, several); } },
    { { Qt::Key_Up, {} }, Repeated, [](Window &w) { w.paramWheel(1); } },
    { { Qt::Key_Down, {} }, Repeated, [](Window &w) { w.paramWheel(-1); } },
};

const Key keysOnParamDial[] = {
    { { Qt::Key_Up, {} }, Repeated, [](Window &w) { w.paramWheel(1); } },
    { { Qt::Key_Right, {} }, Repeated, [](Window &w) { w.paramWheel(1); } },
    { { Qt::Key_Down, {} }, Repeated, [](Window &w) { w.paramWheel(-1); } },
    { { Qt::Key_Left, {} }, Repeated, [](Window &w) { w.paramWheel(-1); } },
    { { Qt::Key_PageUp, {} }, Repeated, [](Window &w) { w.paramWheel(several); } },
    { { Qt::Key_PageDown, {} }, Repeated, [](Window &w) { w.paramWheel(-several); } },
};

const Key keysOnCursorDial[] = {
    { { Qt::Key_Up, {} }, Repeated, [](Window &w) { moveCursor(w, 1); } },
    { { Qt::Key_Right, {} }, Repeated, [](Window &w) { moveCursor(w, 1); } },
    { { Qt::Key_Down, {} }, Repeated, [](Window &w) { moveCursor(w, -1); } },
    { { Qt::Key_Left, {} }, Repeated, [](Window &w) { moveCursor(w, -1); } },
    { { Qt::Key_PageUp, {} }, Repeated, [](Window &w) { moveCursor(w, several); } },
    { { Qt::Key_PageDown, {} }, Repeated, [](Window &w) { moveCursor(w, -several); } },
};

/// The key of an English keyboard at the place of \a key, a letter of a Russian keyboard; any other
/// \a key as it is.
int onEnglishKeyboard(int key)
{
    struct Place
    {
        char16_t typed;
        int key;
    };
    static constexpr Place places[] = {
        { u'Ф', Qt::Key_A },      { u'И', Qt::Key_B },           { u'С', Qt::Key_C },
        { u'В', Qt::Key_D },      { u'У', Qt::Key_E },           { u'А', Qt::Key_F },
        { u'П', Qt::Key_G },      { u'Р', Qt::Key_H },           { u'Ш', Qt::Key_I },
        { u'О', Qt::Key_J },      { u'Л', Qt::Key_K },           { u'Д', Qt::Key_L },
        { u'Ь', Qt::Key_M },      { u'Т', Qt::Key_N },           { u'Щ', Qt::Key_O },
        { u'З', Qt::Key_P },      { u'Й', Qt::Key_Q },           { u'К', Qt::Key_R },
        { u'Ы', Qt::Key_S },      { u'Е', Qt::Key_T },           { u'Г', Qt::Key_U },
        { u'М', Qt::Key_V },      { u'Ц', Qt::Key_W },           { u'Ч', Qt::Key_X },
        { u'Н', Qt::Key_Y },      { u'Я', Qt::Key_Z },           { u'Б', Qt::Key_Comma },
        { u'Ю', Qt::Key_Period }, { u'Х', Qt::Key_BracketLeft }, { u'Ъ', Qt::Key_BracketRight },
    };
    for (const Place &place : places)
        if (key == place.typed)
            return place.key;
    return key;
}

Stroke strokeOf(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const Qt::KeyboardModifiers unshifted = modifiers & ~Qt::ShiftModifier;
    const int key = onEnglishKeyboard(event.key());
    switch (key) {
    case Qt::Key_Less:
        return { Qt::Key_Comma, modifiers | Qt::ShiftModifier };
    case Qt::Key_Greater:
        return { Qt::Key_Period, modifiers | Qt::ShiftModifier };
    case Qt::Key_BraceLeft:
        return { Qt::Key_BracketLeft, modifiers | Qt::ShiftModifier };
    case Qt::Key_BraceRight:
        return { Qt::Key_BracketRight, modifiers | Qt::ShiftModifier };
    case Qt::Key_Equal:
    case Qt::Key_Plus:
        // The same key with or without Shift, which many keyboards need for "+".
        return { Qt::Key_Plus, unshifted };
    default:
        break;
    }
    // French keyboards type digits with Shift.
    return { key, key >= Qt::Key_0 && key <= Qt::Key_9 ? unshifted : modifiers };
}

template <std::size_t size> const Key *find(const Key (&table)[size], const Stroke &stroke)
{
    for (const Key &key : table)
        if (key.stroke.key == stroke.key && key.stroke.modifiers == stroke.modifiers)
            return &key;
    return nullptr;
}

} // namespace

bool isBlocked()
{
    return QApplication::activeModalWidget() || QApplication::activePopupWidget();
}

bool keyPressed(MainWindow &window, const QKeyEvent &event, const QObject *receiver)
{
    const Stroke stroke = strokeOf(event);
    if (isBlocked() && stroke.key != Qt::Key_F1)
        return false;
    const MainWindowParts &parts = window.parts();
    const Key *onControl = receiver == parts.Plot_View ? find(keysOnPlot, stroke)
        : receiver == parts.param_dial                 ? find(keysOnParamDial, stroke)
        : receiver == parts.cursor_dial                ? find(keysOnCursorDial, stroke)
                                                       : nullptr;
    const Key *key = onControl ? onControl : find(keys, stroke);
    if (!key)
        return false;
    if (!event.isAutoRepeat() || key->when == Repeated)
        key->action(window);
    // The dials get the event, too: QDial moves its mark by the same key.
    return !onControl || receiver == parts.Plot_View;
}

} // namespace extras
