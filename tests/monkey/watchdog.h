// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "event.h"

#include <atomic>
#include <chrono>
#include <ctime>
#include <pthread.h>
#include <thread>

/// Ends the program, with the event's name and the stack, when the thread that made the watchdog
/// works on one event for too long. What counts is the time that this thread had a core: a busy
/// machine is nobody's fault. A thread that neither works nor comes to an end waits for something
/// that does not come, and is not given for ever either.
class Watchdog
{
public:
    /// \a limit is what one event may take; sanitizers make the same work longer. \a patience is
    /// how long, by the wall clock, the thread may do nothing at all within one event. The smallest
    /// share of a core that a busy machine leaves it would show in the usual time.
    explicit Watchdog(std::chrono::milliseconds limit,
                      std::chrono::milliseconds patience = std::chrono::seconds(20));
    ~Watchdog();
    Watchdog(const Watchdog &) = delete;
    Watchdog &operator=(const Watchdog &) = delete;

    /// \a event, number \a number, begins; it must live as long as it is played.
    void begin(const Event &event, int number);
    /// Nothing is played from now on.
    void rest();
    /// The longest that any event took so far.
    std::chrono::milliseconds longest() const;
    /// Which event that was.
    QByteArray slowest() const;

    /// One second of work, or what a sanitizer makes of it.
    static std::chrono::milliseconds usualLimit();

private:
    void watch();
    [[noreturn]] void bark(const char *why, std::chrono::milliseconds after);
    std::chrono::milliseconds worked() const;

    const std::chrono::milliseconds m_limit;
    const std::chrono::milliseconds m_patience;
    const pthread_t m_watched = pthread_self();
    clockid_t m_clock = CLOCK_MONOTONIC;
    std::atomic<const Event *> m_event = nullptr;
    std::atomic<int> m_number = 0;
    std::atomic<qint64> m_begun = 0; ///< working time of the thread, ms
    std::chrono::milliseconds m_longest{ 0 };
    Event m_slowest;
    std::atomic<bool> m_over = false;
    std::thread m_thread;
};
