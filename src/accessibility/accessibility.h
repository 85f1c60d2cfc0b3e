// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class MainWindow;

/// Accessible names, focus order and focus frame of the window. They are attached from outside: no
/// control depends on them, and they change neither a text nor a picture.
namespace accessibility {

/// Gives each control of \a window an accessible name that includes the value it shows; sets the
/// tab order of the window and of its settings dialog, with the plot focused first; and frames the
/// control that gets the focus by keyboard. Call it once, before the window is shown.
void attach(MainWindow &window);

} // namespace accessibility
