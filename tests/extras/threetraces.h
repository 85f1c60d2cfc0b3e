// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "windowfixture.h"

/// Three traces of unlike steps, the second one the master, at a place in the middle of the cable;
/// the extras attached or, without \a attached, not. The window that was open before is closed.
MainWindow &openThree(WindowFixture &fixture, bool attached = true);

/// Presses and releases a key on \a widget; what it does not use goes on to its window. \a text is
/// what the key types.
void press(QWidget *widget, int key, Qt::KeyboardModifiers modifiers = {},
           const QString &text = {});
