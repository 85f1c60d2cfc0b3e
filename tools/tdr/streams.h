// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

/// \file
/// Input and output of the commands. The name "-" is standard input or output. Errors are returned
/// as a text in the language of the system, which is empty on success.

namespace tdr {

/// \a name with its control characters replaced, so that it stays on its line.
QString shownName(QString name);

/// Makes the standard streams binary. Has an effect only on Windows.
void makeStreamsBinary();

/// Reads the file or pipe \a name into \a bytes, at most \a limit + 1 bytes; the last one shows
/// that there are more. Refuses folders, and devices, which may never end.
QString readInput(const QString &name, qint64 limit, QByteArray &bytes);

/// Writes \a bytes to \a name. A file that exists is replaced only when \a replace is set, and only
/// by a complete new one.
QString writeOutput(const QString &name, const QByteArray &bytes, bool replace);

} // namespace tdr
