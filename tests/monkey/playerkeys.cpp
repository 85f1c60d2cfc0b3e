// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "player.h"

#include <QApplication>
#include <QtTest>

namespace {

constexpr Qt::Key dialKeys[] = { Qt::Key_Up,     Qt::Key_Down,     Qt::Key_Left, Qt::Key_Right,
                                 Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End };

constexpr Qt::Key keys[]
    = { Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Space, Qt::Key_Space, Qt::Key_Return,
        Qt::Key_Left, Qt::Key_Right,   Qt::Key_Up,    Qt::Key_Down,  Qt::Key_PageUp,
        Qt::Key_Home, Qt::Key_Escape,  Qt::Key_Menu,  Qt::Key_F10,   Qt::Key_A,
        Qt::Key_End,  Qt::Key_Plus,    Qt::Key_F1,    Qt::Key_F5,    Qt::Key_Delete };

const Qt::KeyboardModifiers modifiers[]
    = { Qt::NoModifier,    Qt::NoModifier,      Qt::NoModifier,
        Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier };

/// Keys of the extras. Those listed more than once are pressed more often: they do more when
/// repeated.
constexpr Qt::Key extraKeys[]
    = { Qt::Key_A,     Qt::Key_B,      Qt::Key_C,        Qt::Key_D,           Qt::Key_E,
        Qt::Key_H,     Qt::Key_K,      Qt::Key_L,        Qt::Key_M,           Qt::Key_N,
        Qt::Key_N,     Qt::Key_O,      Qt::Key_P,        Qt::Key_S,           Qt::Key_W,
        Qt::Key_X,     Qt::Key_Y,      Qt::Key_Z,        Qt::Key_1,           Qt::Key_2,
        Qt::Key_3,     Qt::Key_4,      Qt::Key_5,        Qt::Key_6,           Qt::Key_Comma,
        Qt::Key_Comma, Qt::Key_Period, Qt::Key_Period,   Qt::Key_BracketLeft, Qt::Key_BracketRight,
        Qt::Key_Plus,  Qt::Key_Plus,   Qt::Key_Minus,    Qt::Key_Minus,       Qt::Key_Home,
        Qt::Key_End,   Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_F1,          Qt::Key_F2,
        Qt::Key_F5,    Qt::Key_Delete, Qt::Key_Left,     Qt::Key_Right };

} // namespace

void Player::dialKey(const Event &event)
{
    QTest::keyClick(dial(event[0]), pick(dialKeys, event[1]));
}

void Player::key(const Event &event)
{
    QWidget *focused = QApplication::focusWidget();
    if (focused == nullptr)
        focused = &window();
    const bool extra = event[2] >= Event::bound / 2;
    const Qt::Key key = extra ? pick(extraKeys, event[0]) : pick(keys, event[0]);
    QTest::keyClick(focused, key, pick(modifiers, event[1]));
}

void Player::focus(const Event &event)
{
    QList<QWidget *> takers;
    const auto widgets = probe().centralWidget()->findChildren<QWidget *>();
    for (QWidget *widget : widgets)
        if (widget->isVisible() && widget->isEnabled() && widget->focusPolicy() != Qt::NoFocus)
            takers.append(widget);
    if (!takers.isEmpty())
        pick(takers, event[0])->setFocus(Qt::TabFocusReason);
}
