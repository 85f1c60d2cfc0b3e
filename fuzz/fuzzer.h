// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>

/// \file
/// Shared by all fuzzers: the entry points that libFuzzer calls, and checks that report a broken
/// invariant without a crash.

extern "C" {

/// Runs one execution on the \a size bytes at \a data. Returns 0.
int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

/// Called once before the first execution. Returns 0.
int LLVMFuzzerInitialize(int *argc, char ***argv);
}

namespace fuzz {

/// Discards all log messages except that of a fatal error, which becomes a finding.
void silenceLog();

/// Template of a temporary folder, in /dev/shm if possible: a fuzzer writes too many files for a
/// disk.
QString folderTemplate();

/// Writes \a bytes to the file \a path and replaces its former content.
void writeFile(const QString &path, const QByteArray &bytes);

/// True at the first call and at each \a every th one after it, and always during a replay; for
/// slow checks. Call it at most once per execution. \a every is above 0.
bool slowPartIsDue(unsigned every);

/// True in the replay program.
extern bool replaying;

/// Prints \a promise as broken and aborts, which libFuzzer records as a finding.
[[noreturn]] void fail(const char *promise);

/// Fails with \a promise unless \a holds. \a promise states the expected behaviour.
inline void expect(bool holds, const char *promise)
{
    if (!holds)
        fail(promise);
}

} // namespace fuzz
