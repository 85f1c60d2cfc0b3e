// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later

/// \file
/// Starts two programs by turns, so often, and compares them: time from exec to the first painted
/// window, and peak memory. Each has to report that window as first_paint.cpp does.
///
///     velkor-bench-starts RUNS VIEWER EMPTY

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr double timeGoal = 1.25;
constexpr double memoryGoal = 0.55;

struct Start
{
    double paintMs = 0.0;
    double cpuMs = 0.0; ///< computing, until the program ended
    double peakMb = 0.0;
};

[[noreturn]] void fail(const char *what)
{
    std::perror(what);
    std::exit(1);
}

double milliseconds(const timeval &time)
{
    return double(time.tv_sec) * 1e3 + double(time.tv_usec) / 1e3;
}

Start start(const char *program)
{
    int ends[2];
    if (pipe(ends) != 0)
        fail("pipe");
    timespec before = {};
    clock_gettime(CLOCK_MONOTONIC, &before);
    const pid_t child = fork();
    if (child < 0)
        fail("fork");
    if (child == 0) {
        dup2(ends[1], STDOUT_FILENO);
        close(ends[0]);
        close(ends[1]);
        execl(program, program, static_cast<char *>(nullptr));
        _exit(127);
    }
    close(ends[1]);
    char text[64] = {};
    std::size_t length = 0;
    while (length + 1 < sizeof text) {
        const ssize_t got = read(ends[0], text + length, sizeof text - 1 - length);
        if (got <= 0)
            break;
        length += static_cast<std::size_t>(got);
    }
    close(ends[0]);
    int status = 0;
    rusage usage = {};
    if (wait4(child, &status, 0, &usage) != child)
        fail("wait4");
    const long long painted = std::strtoll(text, nullptr, 10);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0 || painted == 0) {
        std::fprintf(stderr, "%s painted no window\n", program);
        std::exit(1);
    }
    const double began = double(before.tv_sec) * 1e3 + double(before.tv_nsec) / 1e6;
    return { double(painted) / 1e6 - began,
             milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime),
             double(usage.ru_maxrss) / 1024.0 };
}

double median(const std::vector<Start> &starts, double Start::*value)
{
    std::vector<double> values;
    for (const Start &each : starts)
        values.push_back(each.*value);
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void row(const char *name, double viewer, double empty, double goal)
{
    std::printf("| %s | %.1f | %.1f | **%.2f** |", name, empty, viewer, viewer / empty);
    if (goal > 0.0)
        std::printf(" %.2f | %s |\n", goal, viewer <= empty * goal ? "reached" : "**missed**");
    else
        std::printf(" - | no goal |\n");
}

} // namespace

int main(int argc, char **argv)
{
    const int runs = argc == 4 ? std::atoi(argv[1]) : 0;
    if (runs < 1) {
        std::fprintf(stderr, "usage: velkor-bench-starts RUNS VIEWER EMPTY\n");
        return 2;
    }
    std::vector<Start> viewer;
    std::vector<Start> empty;
    // The first of each fills the file cache.
    start(argv[2]);
    start(argv[3]);
    for (int i = 0; i < runs; ++i) {
        viewer.push_back(start(argv[2]));
        empty.push_back(start(argv[3]));
    }
    std::printf("### Whole processes: %d starts of each, six traces\n\n", runs);
    std::printf("| median | empty window | viewer | ratio | goal | |\n");
    std::printf("| --- | --- | --- | --- | --- | --- |\n");
    row("exec to first painted window, ms", median(viewer, &Start::paintMs),
        median(empty, &Start::paintMs), timeGoal);
    row("computing, ms", median(viewer, &Start::cpuMs), median(empty, &Start::cpuMs), 0.0);
    row("peak memory, MB", median(viewer, &Start::peakMb), median(empty, &Start::peakMb),
        memoryGoal);
    std::printf("\n");
    return 0;
}
