// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

/// \file
/// Inputs that hold trace records. Of a record's 37775 bytes the viewer interprets some 286, all of
/// them among the first 511: what a record *is* to the viewer is its head. An input is a preamble
/// that says what is done with the records, and then their heads one after another. The last head
/// may be cut, which is a file that is too short.

namespace fuzz {

constexpr std::size_t headBytes = 511; ///< up to and including the last sample that is drawn

/// A good record's head: one count per sample, no shift, samples that rise and fall.
const std::uint8_t *goodHead();

/// Changes the input of \a size bytes at \a data, at most \a limit of them, in one to four places
/// by what a record means: a field gets a value from where something changes, or that of the same
/// field of another record; a head is added, taken away or cut; sometimes the bytes are changed
/// blindly. The first \a preamble bytes are no record. \a records is the most of them that the
/// fuzzer looks at. Returns the new size.
std::size_t mutateRecords(std::uint8_t *data, std::size_t size, std::size_t limit,
                          std::size_t preamble, std::size_t records, unsigned seed);

} // namespace fuzz
