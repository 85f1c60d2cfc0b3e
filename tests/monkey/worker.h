// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "event.h"

#include <QStringList>

#include <functional>

/// Plays \a script at a new window and checks the invariants after each event. Returns what was
/// broken first, with the event; nothing when all was well. \a progress is told the number of each
/// event before it is played.
QStringList playedThrough(const Script &script, const std::function<void(int)> &progress);

/// The process that has the window: plays what \a arguments say and ends with 0, or with 1 after a
/// line on standard output that begins with "broken". Anything else that ends it is a finding too.
///
///     --seed N --events N     the script of a seed
///     --script FILE           a script from a file
///     --laps N                script after script in one process, with memory watched
///     --progress FILE         where the number of the present event is noted
int runWorker(const QStringList &arguments);
