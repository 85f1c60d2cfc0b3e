// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

/// Writes \a bytes to the file at \a path and replaces its former content. An error fails the test.
void writeFile(const QString &path, const QByteArray &bytes);

/// All bytes of the file at \a path, or "unreadable".
QByteArray contentOf(const QString &path);
