// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "event.h"

#include <QStringList>

/// Plays \a script on a new window, each event with a time limit. \a progress is set to the number
/// of the current event. Returns the invariants that an event broke, or an empty list.
QStringList brokenBy(const Script &script, int &progress);

/// Plays rounds of 500 random events in one window: first twelve that fill caches, then \a wanted.
/// Round number i has the seed \a seed + i. Prints heap and descriptors. Returns the broken
/// invariants of the round after which they do not hold, or after which the heap or the number of
/// descriptors exceeds its limit.
QStringList brokenInRounds(unsigned seed, int wanted);
