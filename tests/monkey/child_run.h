// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <functional>

/// Result of a child process.
struct Ending
{
    QByteArray output; ///< what it printed to standard output and standard error
    int status = 0; ///< as waitpid returns it
    int progress = 0; ///< the last value that the work gave its argument
};

/// Forks this process; the child runs \a work and exits with the code that it returns. Waits for
/// the child.
Ending runInChild(const std::function<int(int &progress)> &work);
