// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later

/// \file
/// Starts two programs by turns and compares the time from exec to the first painted window, and
/// the peak memory. Each program has first_paint.cpp linked to it.
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
    double peakMb = 0.0;
};

/// Ends this program with a message when \a program paints no window.
Start start(const char *program)
{
    int ends[2] = {};
    timespec before = {};
    if (pipe(ends) != 0)
        std::exit(1);
    clock_gettime(CLOCK_MONOTONIC, &before);
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDOUT_FILENO);
        close(ends[0]);
        close(ends[1]);
        execl(program, program, static_cast<char *>(nullptr));
        _exit(127);
    }
    close(ends[1]);
    std::FILE *output = fdopen(ends[0], "r");
    long long painted = 0;
    const bool isPainted = std::fscanf(output, "%lld", &painted) == 1;
    std::fclose(output);
    int status = 0;
    rusage usage = {};
    if (wait4(child, &status, 0, &usage) != child || status != 0 || !isPainted) {
        std::fprintf(stderr, "%s painted no window\n", program);
        std::exit(1);
    }
    const double began = double(before.tv_sec) * 1e3 + double(before.tv_nsec) / 1e6;
    return { double(painted) / 1e6 - began, double(usage.ru_maxrss) / 1024.0 };
}

double median(const std::vector<Start> &starts, double Start::*value)
{
    std::vector<double> values;
    for (const Start &each : starts)
        values.push_back(each.*value);
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
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
    // The first of each fills the file cache and is not counted.
    start(argv[2]);
    start(argv[3]);
    for (int i = 0; i < runs; ++i) {
        viewer.push_back(start(argv[2]));
        empty.push_back(start(argv[3]));
    }
    std::printf("### Whole processes: %d starts of each, six traces\n\n", runs);
    const auto line = [&](const char *what, double Start::*value, double goal) {
        const double own = median(viewer, value);
        const double other = median(empty, value);
        std::printf("- %s: %.1f, an empty window %.1f: **%.2f** (goal %.2f, %s)\n", what, own,
                    other, own / other, goal, own <= other * goal ? "reached" : "**missed**");
    };
    line("exec to first painted window, ms", &Start::paintMs, timeGoal);
    line("peak memory, MB", &Start::peakMb, memoryGoal);
    std::printf("\n");
    return 0;
}
