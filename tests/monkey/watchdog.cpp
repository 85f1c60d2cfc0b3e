// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "watchdog.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/time.h>
#include <unistd.h>

#ifndef __has_feature
#define __has_feature(feature) 0
#endif

using std::chrono::milliseconds;

namespace {

// Written before the timers start: a signal handler may not allocate.
char worked[200];
char waited[200];

void abortOn(int signal)
{
    const char *message = signal == SIGPROF ? worked : waited;
    const auto length = write(STDERR_FILENO, message, std::strlen(message));
    static_cast<void>(length);
    // In the thread that stalls, so a sanitizer prints its stack.
    std::abort();
}

void start(int timer, milliseconds limit)
{
    itimerval value{};
    value.it_value.tv_sec = limit.count() / 1000;
    value.it_value.tv_usec = limit.count() % 1000 * 1000;
    setitimer(timer, &value, nullptr);
}

void describe(char (&message)[200], const char *what, const QByteArray &event, int number)
{
    std::snprintf(message, sizeof message, "stall: %s too long on event %d: %s\n", what, number,
                  event.constData());
}

} // namespace

milliseconds Watchdog::usualWork()
{
#if defined(__SANITIZE_ADDRESS__) || __has_feature(address_sanitizer)
    return milliseconds(3000);
#else
    return milliseconds(1000);
#endif
}

Watchdog::Watchdog(milliseconds work, milliseconds wait)
    : m_work(work)
    , m_wait(wait)
{
    std::signal(SIGPROF, abortOn);
    std::signal(SIGALRM, abortOn);
}

Watchdog::~Watchdog()
{
    rest();
}

void Watchdog::begin(const Event &event, int number)
{
    rest();
    const QByteArray line = lineOf(event);
    describe(worked, "worked", line, number);
    describe(waited, "waited", line, number);
    start(ITIMER_PROF, m_work);
    start(ITIMER_REAL, m_wait);
}

void Watchdog::rest()
{
    start(ITIMER_PROF, milliseconds(0));
    start(ITIMER_REAL, milliseconds(0));
}
