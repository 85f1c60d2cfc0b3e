// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/keys.h"

#include "extras/reflection_steps.h"
#include "interfacebutton.h"
#include "mainwindow.h"

#include <QApplication>
#include <QKeyEvent>

namespace extras {

namespace {

struct Key
{
    int key; ///< as Qt::Key, letters as on an English keyboard
    Qt::KeyboardModifiers modifiers;
    bool repeats; ///< while it is held down
    void (*deed)(MainWindow &window);
};

// In the order of the manual's page of keys.
const Key keys[] = {
    { Qt::Key_A, Qt::NoModifier, false, [](MainWindow &w) { w.parts().curA_button->click(); } },
    { Qt::Key_B, Qt::NoModifier, false, [](MainWindow &w) { w.parts().curB_button->click(); } },
    { Qt::Key_N, Qt::NoModifier, true, toNextReflection },
    { Qt::Key_P, Qt::NoModifier, true, toPreviousReflection },
};

/// The letter on the same key of an English keyboard; any other key is itself.
int onEnglishKeyboard(int key)
{
    // What a Russian keyboard types with the keys of these letters, from Qt::Key_A to Qt::Key_Z.
    static constexpr char16_t russian[] = u"ФИСВУАПРШОЛДЬТЩЗЙКЫЕГМЦЧНЯ";
    for (int letter = 0; letter < 26; ++letter)
        if (key == russian[letter])
            return Qt::Key_A + letter;
    return key;
}

} // namespace

bool keyPressed(MainWindow &window, const QKeyEvent &event, bool onPlot)
{
    Q_UNUSED(onPlot)
    if (QApplication::activeModalWidget() || QApplication::activePopupWidget())
        return false;
    const int pressed = onEnglishKeyboard(event.key());
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    for (const Key &key : keys) {
        if (key.key != pressed || key.modifiers != modifiers)
            continue;
        if (!event.isAutoRepeat() || key.repeats)
            key.deed(window);
        return true;
    }
    return false;
}

} // namespace extras
