// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "watchdog.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>

#ifndef __has_feature
#define __has_feature(feature) 0
#endif

using std::chrono::milliseconds;

namespace {

constexpr milliseconds lookAgain{ 50 };
/// For the thread that stalls to say where, after it was told to end.
constexpr milliseconds lastWords{ 20000 };

milliseconds read(clockid_t clock)
{
    timespec now{};
    clock_gettime(clock, &now);
    return milliseconds(now.tv_sec * 1000 + now.tv_nsec / 1000000);
}

} // namespace

milliseconds Watchdog::usualLimit()
{
#if defined(__SANITIZE_ADDRESS__) || __has_feature(address_sanitizer)
    return milliseconds(3000);
#else
    return milliseconds(1000);
#endif
}

Watchdog::Watchdog(milliseconds limit, milliseconds patience)
    : m_limit(limit)
    , m_patience(patience)
{
    if (pthread_getcpuclockid(m_watched, &m_clock) != 0)
        std::abort();
    m_thread = std::thread(&Watchdog::watch, this);
}

Watchdog::~Watchdog()
{
    m_over = true;
    m_thread.join();
}

milliseconds Watchdog::worked() const
{
    return read(m_clock);
}

void Watchdog::begin(const Event &event, int number)
{
    rest();
    m_number = number;
    m_begun = worked().count();
    m_event = &event;
}

void Watchdog::rest()
{
    const Event *event = m_event.exchange(nullptr);
    if (event == nullptr)
        return;
    const milliseconds taken = worked() - milliseconds(m_begun);
    if (taken > m_longest) {
        m_longest = taken;
        m_slowest = *event;
    }
}

milliseconds Watchdog::longest() const
{
    return m_longest;
}

QByteArray Watchdog::slowest() const
{
    return lineOf(m_slowest);
}

void Watchdog::watch()
{
    milliseconds lastWork{ 0 };
    milliseconds lastWorkAt = read(CLOCK_MONOTONIC);
    while (!m_over) {
        std::this_thread::sleep_for(lookAgain);
        const milliseconds work = worked();
        const milliseconds now = read(CLOCK_MONOTONIC);
        if (m_event == nullptr || work != lastWork) {
            lastWork = work;
            lastWorkAt = now;
        }
        if (m_event == nullptr)
            continue;
        const int number = m_number;
        const milliseconds taken = work - milliseconds(m_begun);
        // The next event may have begun in the meantime: then nothing of this is true.
        if (m_event == nullptr || number != m_number)
            continue;
        if (taken > m_limit)
            bark("worked", taken);
        if (now - lastWorkAt > m_patience)
            bark("waited", now - lastWorkAt);
    }
}

void Watchdog::bark(const char *why, milliseconds after)
{
    const Event *event = m_event;
    std::fprintf(stderr, "stall: %s for %lld ms on event %d: %s\n", why,
                 static_cast<long long>(after.count()), m_number.load(),
                 event == nullptr ? "none" : lineOf(*event).constData());
    // In the thread that stalls, so that a sanitizer shows where.
    pthread_kill(m_watched, SIGABRT);
    std::this_thread::sleep_for(lastWords);
    std::_Exit(3);
}
