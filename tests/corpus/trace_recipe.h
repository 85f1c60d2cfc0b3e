// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// Trace files described by a line of text, so that hundreds of them need no space in the tree.
namespace corpus {

/// Writes the file that \a recipe describes to \a path. It begins as the record of a default
/// TraceBuilder with samples (i * 37) mod 201 - 100. Each word of the recipe changes it:
///   FIELD=NUMBER    a field of the record; floats may be nan, inf, 1e30 or bits:7fc00001
///   samples=A,B,C   sample i of all 32000 is (i * A) mod B + C
///   sampleN=NUMBER  sample N alone
///   raw@N=HEX       bytes from offset N on
///   fill=HEX        the whole record of one byte
///   random=SEED     the whole record of random bytes
///   size=BYTES      truncated, or lengthened with bytes ee; beyond 64 MiB with a hole
/// An unknown word ends the program.
void writeTrace(const QString &recipe, const QString &path);

} // namespace corpus
