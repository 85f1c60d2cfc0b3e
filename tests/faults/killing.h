// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Opens a window once, and for each of \a kills makes a copy of the process that closes the window
/// and is killed with SIGKILL at a random moment. True when the settings were the old or the new
/// ones each time, byte for byte, and no kill left more than one unfinished file.
bool killSavingWindows(int kills, unsigned seed);

/// The same to \a kills runs of the viewer itself, each killed at a random moment after its window
/// was asked to close.
bool killClosingPrograms(int kills, unsigned seed);
