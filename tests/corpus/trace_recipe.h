// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// \file
/// Trace files told in a line of text, so that hundreds of them need no place in the tree. Stands
/// on literal offsets alone: a mistake in the viewer's declarations cannot hide itself here.
namespace corpus {

constexpr int recordSize = 37775;
constexpr int samplesAt = 261;
constexpr int sampleCount = 32000;

/// A file of the corpus: a name of its own and what its bytes are.
struct Recipe
{
    QString name; ///< lower case, without blanks; names the file too
    QString text; ///< words, each "what=value"; see \c bytesOf
};

/// The bytes of the file that \a text tells of. It begins as a whole record: step 1.25 ns, pulse
/// 100 ns and 20 V, 16 averages, gain 30, 75 ohms, velocity factor 1.49896229, 5 March 2024 at
/// 09:05:07, samples (i * 37) mod 201 - 100. Then each word, in turn:
///   FIELD=NUMBER    one of the interpreted fields; floats may be nan, inf, 1e30 or bits:7fc00001
///   samples=A,B,C   sample i of all 32000 is (i * A) mod B + C
///   sampleN=NUMBER  sample N alone
///   raw@N=HEX       bytes from offset N on
///   fill=HEX        the whole record of one byte
///   random=SEED     the whole record of random bytes
///   size=BYTES      cut or lengthened, with bytes ee, to at most 64 MiB; see \c sizeOf
/// An unknown word ends the program.
QByteArray bytesOf(const QString &text);

/// How long the file is: more than its bytes when "size" asks for more than can be held.
qint64 sizeOf(const QString &text);

/// Writes the file to \a path; what is beyond its bytes is left to the file system as a hole.
void writeTrace(const QString &text, const QString &path);

/// Unsigned number of \a width bytes at \a offset, the lowest first.
quint64 numberAt(const QByteArray &record, int offset, int width);
/// Single-precision number at \a offset.
float floatAt(const QByteArray &record, int offset);

} // namespace corpus
