// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Runs the viewer once for every \a every-th of its calls of the system, which fails in that run,
/// beginning with the first. True when each run ended by itself with code 0 and left settings that
/// are whole: the old ones, or complete new ones. Says what was done, and each failure.
bool failCalls(int every);
