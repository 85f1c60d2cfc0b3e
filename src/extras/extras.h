// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class MainWindow;

/// Keys, drag and drop, tooltips, help, copy and export. They are attached to the finished window:
/// they read its parts and state, and change it by its operations, the dial's value and the stored
/// paths. Until a key, a drop or the request for a tooltip the window behaves as without them.
namespace extras {

/// Attaches all extras to \a window for as long as that lives. To be called once.
void attach(MainWindow &window);

} // namespace extras
