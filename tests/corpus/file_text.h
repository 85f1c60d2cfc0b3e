// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace corpus {

/// A file of a table and what is expected of it.
struct TextRow
{
    QByteArray name;
    QByteArray bytes;
    QString expected;
};

/// The rows of the table at \a path: a line with a name, then "  file TEXT" and "  then WORDS".
/// Lines that begin with # are comments. A table that cannot be read ends the program. TEXT is
/// UTF-8 with the escapes \n \r \t \\ \xHH, and
///   <<N*TEXT>>                         TEXT, which may hold escapes, N times
///   <<utf16le:TEXT>> <<utf16be:TEXT>>  TEXT in that encoding, without a mark
std::vector<TextRow> textRows(const QString &path);

} // namespace corpus
