// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "parambutton.h"

ParamButton::ParamButton(Dictionary *words, char parameter)
    : InterfaceButton(nullptr)
    , id(parameter)
{
    Q_UNUSED(words)
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    setCheckable(true);
    installEventFilter(this);
}

QSize ParamButton::sizeHint() const
{
    return { 2 * iconSize().width(), InterfaceButton::sizeHint().height() };
}

bool ParamButton::eventFilter(QObject *watched, QEvent *event)
{
    // Not QPushButton's filter: nothing may be consumed here.
    return QObject::eventFilter(watched, event);
}
