// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "watchdog.h"

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <sys/time.h>
#include <unistd.h>

using std::chrono::milliseconds;

namespace {

void abortOn(int signal)
{
    const char *message
        = signal == SIGPROF ? "stall: worked too long\n" : "stall: waited too long\n";
    const auto length = write(STDERR_FILENO, message, std::strlen(message));
    static_cast<void>(length);
    // The signal arrives in the stalled thread, so a sanitizer prints its stack.
    std::abort();
}

void start(int timer, milliseconds limit)
{
    itimerval value{};
    value.it_value.tv_sec = limit.count() / 1000;
    value.it_value.tv_usec = limit.count() % 1000 * 1000;
    setitimer(timer, &value, nullptr);
}

} // namespace

Watchdog::Watchdog(milliseconds work, milliseconds wait)
{
    std::signal(SIGPROF, abortOn);
    std::signal(SIGALRM, abortOn);
    start(ITIMER_PROF, work);
    start(ITIMER_REAL, wait);
}

Watchdog::~Watchdog()
{
    start(ITIMER_PROF, milliseconds(0));
    start(ITIMER_REAL, milliseconds(0));
}
