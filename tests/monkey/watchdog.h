// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

/// Aborts the process, after a line that begins with "stall: ", unless it is destroyed in time.
/// Uses the process's interval timers, so there can be one watchdog at a time.
class Watchdog
{
public:
    /// \a work is the processor time allowed, which does not depend on the load of the machine. \a
    /// wait is the elapsed time allowed, for code that waits for ever.
    Watchdog(std::chrono::milliseconds work, std::chrono::milliseconds wait);
    ~Watchdog();
    Watchdog(const Watchdog &) = delete;
    Watchdog &operator=(const Watchdog &) = delete;
};
