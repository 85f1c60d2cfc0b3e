// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "event.h"

#include <chrono>

/// Aborts the process, after a line that begins with "stall", when one event takes too long. Uses
/// the process's interval timers, so there can be one watchdog at a time.
class Watchdog
{
public:
    /// \a work is the processor time that one event may take, so a busy machine does not matter.
    /// \a wait is the time that may pass in one event, for one that waits for what never comes.
    explicit Watchdog(std::chrono::milliseconds work = usualWork(),
                      std::chrono::milliseconds wait = std::chrono::seconds(60));
    ~Watchdog();
    Watchdog(const Watchdog &) = delete;
    Watchdog &operator=(const Watchdog &) = delete;

    /// \a event, number \a number, begins.
    void begin(const Event &event, int number);
    /// Nothing is played until the next \c begin.
    void rest();

    /// One second; three with sanitizers.
    static std::chrono::milliseconds usualWork();

private:
    const std::chrono::milliseconds m_work;
    const std::chrono::milliseconds m_wait;
};
