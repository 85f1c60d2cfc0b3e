// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "child_run.h"

#include <QtGlobal>

#include <cstdio>
#include <cstdlib>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

Ending runInChild(const std::function<int(int &progress)> &work)
{
    int ends[2] = {};
    void *shared
        = mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED || pipe(ends) != 0)
        qFatal("cannot start a child process");
    auto &progress = *static_cast<int *>(shared);
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDOUT_FILENO);
        dup2(ends[1], STDERR_FILENO);
        close(ends[0]);
        close(ends[1]);
        // Not _exit, because a sanitizer looks for leaks at the exit.
        std::exit(work(progress));
    }
    close(ends[1]);
    Ending ending;
    char buffer[4096];
    for (ssize_t size = 0; (size = read(ends[0], buffer, sizeof buffer)) > 0;)
        ending.output.append(buffer, static_cast<int>(size));
    close(ends[0]);
    waitpid(child, &ending.status, 0);
    ending.progress = progress;
    munmap(shared, sizeof(int));
    return ending;
}
