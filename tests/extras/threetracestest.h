// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "windowtest.h"

#include <QPointer>

/// Base of the tests of the extras. After each test function the invariants of the window hold.
class ThreeTracesTest : public WindowTest
{
    Q_OBJECT

protected:
    /// Opens the window on three traces of different steps, with the second one as the master and a
    /// view in the middle of the cable; with the extras unless \a attached is false.
    MainWindow &openThree(bool attached = true);

protected slots:
    void cleanup();

private:
    QPointer<MainWindow> m_three; ///< null before openThree() and after the window is closed
};

/// Presses and releases a key on \a widget; a key that it ignores goes to its window. \a text is
/// the text that the key types.
void press(QWidget *widget, int key, Qt::KeyboardModifiers modifiers = {},
           const QString &text = {});
