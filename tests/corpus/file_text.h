// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

/// \file
/// Settings, sheets and language lists told in a line of text, and the tables that hold them.
namespace corpus {

/// A file of a table and what is expected of it.
struct TextRow
{
    QByteArray name;
    QByteArray bytes;
    QString expected;
};

/// The bytes that \a text tells of: UTF-8 with the escapes \n \r \t \\ \xHH, and
///   <<N*TEXT>>      TEXT, which may hold escapes, N times
///   <<utf16le:TEXT>> <<utf16be:TEXT>>  TEXT in that encoding, without a mark
QByteArray bytesOfText(const QString &text);

/// The rows of the table at \a path: a line with a name, then "  file TEXT" and "  then WORDS".
/// Lines that begin with # are for people. A table that cannot be read ends the program.
std::vector<TextRow> textRows(const QString &path);

} // namespace corpus
