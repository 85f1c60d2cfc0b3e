// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Runs the viewer once for every \a every-th of its system calls, beginning with the first. That
/// call fails in its run. True when each run exited with code 0 and left complete settings, the old
/// or the new ones. Prints a summary and each failure.
bool failCalls(int every);
