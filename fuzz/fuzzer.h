// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>

/// \file
/// What every fuzzer is made of: the entry points that libFuzzer calls, and how a fuzzer says that
/// the viewer is not in order although nothing crashed.

extern "C" {

/// One execution on \a size bytes at \a data. Always 0.
int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

/// Called once before the first execution. Always 0.
int LLVMFuzzerInitialize(int *argc, char ***argv);
}

namespace fuzz {

/// Drops what Qt and the viewer write to the log, at tens of thousands of executions a
/// second, up to the message that a fatal error ends with.
void silenceLog();

/// For a temporary folder: in memory where the system offers that, because a fuzzer writes more
/// files than a disk should have to take.
QString folderTemplate();

/// Writes \a bytes to the file \a path, whatever was there.
void writeFile(const QString &path, const QByteArray &bytes);

/// True at the first call and at each \a every th one after it, for what takes long; always while
/// findings are replayed. To be called once per execution at most. \a every is above 0.
bool slowPartIsDue(unsigned every);

/// Set by the replay.
extern bool replaying;

/// Prints \a promise as broken and ends the process, which libFuzzer takes for a finding.
[[noreturn]] void fail(const char *promise);

/// Fails with \a promise, which says what was expected, unless it \a holds.
inline void expect(bool holds, const char *promise)
{
    if (!holds)
        fail(promise);
}

} // namespace fuzz
