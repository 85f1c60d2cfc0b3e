// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class MainWindow;

/// What the window tells those who cannot see it, and shows those who use it without a mouse. It is
/// attached from outside: the controls know nothing of it, and nothing here changes a text or a
/// picture. A name or value is put together when an assistive technology asks for it, never when it
/// changes.
namespace accessibility {

/// Gives each control of \a window a spoken name and, where it shows something, a spoken value;
/// orders the focus of the window and of its settings dialog as they are read, starting at the
/// plot; and frames the control that the keyboard went to. To be called once, before the window is
/// shown.
void attach(MainWindow &window);

} // namespace accessibility
