// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "event.h"

#include <QStringList>

#include <functional>

/// Plays \a script at a new window with a watchdog, and calls \a progress with the number of each
/// event before it. Returns the invariants that are broken after an event, or an empty list.
QStringList brokenBy(const Script &script, const std::function<void(int)> &progress);

/// Plays rounds of 500 random events in one process: first some that fill caches, then \a wanted.
/// Prints what the process uses, and returns the broken invariants of the round in which they or
/// the growth of the process exceed their limits.
QStringList brokenInRounds(unsigned seed, int wanted);
