// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <vector>

namespace instrument {

/// Transforms a spectrum to its signal, in place: value n becomes the sum of value k times exp(+2
/// pi j k n / size), without division by the size. The size must be a power of two; with any other
/// the values stay as they are.
void inverseTransform(std::vector<std::complex<double>> &values);

} // namespace instrument
