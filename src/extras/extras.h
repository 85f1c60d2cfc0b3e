// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class MainWindow;

/// What users ask for beyond the window itself: keys, drag and drop, tooltips, copy and export.
/// Everything here is attached to the finished window from outside. It reads the window through its
/// parts and its state and changes it through its operations only (with what an operation expects
/// to be noted before: the dial's own value, the names of the files to load), so that the window
/// with it is the window without it until somebody presses a key, drops a file or waits for a
/// tooltip.
namespace extras {

/// Attaches all extras to \a window for as long as that lives. To be called once.
void attach(MainWindow &window);

} // namespace extras
