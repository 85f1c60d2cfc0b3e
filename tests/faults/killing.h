// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Opens a window once, and for each of \a kills makes a copy of the process that closes the window
/// and is killed with SIGKILL at a random moment. True when the settings were the old or the new
/// ones each time, byte for byte, and no kill left more than one unfinished file.
bool killSavingWindows(int kills, unsigned seed);
