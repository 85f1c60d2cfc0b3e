// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class MainWindow;

/// Keys, drag and drop, tooltips, help, copy and export. They are attached to the finished window.
/// They read its parts and state, and change it only by its operations, the values of its dials and
/// the stored paths. Before the first key, drop or tooltip the window behaves as without them.
namespace extras {

/// Attaches all extras to \a window for its lifetime. Call it once.
void attach(MainWindow &window);

} // namespace extras
