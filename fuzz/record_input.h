// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

/// \file
/// Inputs that hold trace records. The viewer interprets about 286 of the 37775 bytes of a record,
/// all of them in its head, the first 511. An input is a preamble, which selects the operations on
/// the records, followed by their heads. A truncated last head is a file that is too short.

namespace fuzz {

constexpr std::size_t headBytes = 511; ///< up to and including the last sample that is drawn

/// The head of a valid record: one count per sample, no shift, samples that rise and fall.
const std::uint8_t *goodHead();

/// Mutates the input of \a size bytes at \a data one to four times, to at most \a limit bytes. A
/// mutation sets a field to a boundary value or to the value of that field in another record, adds,
/// removes or truncates a head, or changes any bytes. The first \a preamble bytes are no record.
/// The fuzzer reads at most \a records records. Returns the new size.
std::size_t mutateRecords(std::uint8_t *data, std::size_t size, std::size_t limit,
                          std::size_t preamble, std::size_t records, unsigned seed);

} // namespace fuzz
