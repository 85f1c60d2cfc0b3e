// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QObject;

/// \file
/// Standard streams and signals of the process. The functions do nothing on Windows.
namespace process {

/// Makes the standard streams safe; call it before anything else opens a file or writes a message.
///
/// - Opens /dev/null for each of the descriptors 0 to 2 that is closed. Otherwise the connection to
///   the display would become one of them, and diagnostics would be written into it.
/// - Ignores SIGPIPE, so that diagnostics for a reader that has gone do not end the program.
/// - Drops a diagnostic message that cannot be written to standard error at once: a full pipe or
///   terminal would block the program until it is read.
void guardStandardStreams();

/// Closes all windows of the application, so that the settings are saved, when the process gets
/// SIGTERM, SIGINT or SIGHUP. A signal that is ignored when the process starts, as `nohup` does
/// with SIGHUP, stays ignored. The windows are closed only while \a parent exists. Call it once,
/// after the application object is made.
void closeWindowsOnSignals(QObject *parent);

} // namespace process
