// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "fourier.h"

#include <cmath>
#include <cstddef>
#include <utility>

namespace instrument {
namespace {

using Complex = std::complex<double>;

/// Moves every value to its index with reversed bits.
void reverseBits(std::vector<Complex> &values)
{
    const std::size_t size = values.size();
    std::size_t reversed = 0;
    for (std::size_t i = 1; i < size; ++i) {
        std::size_t bit = size / 2;
        while ((reversed & bit) != 0) {
            reversed ^= bit;
            bit /= 2;
        }
        reversed |= bit;
        if (i < reversed)
            std::swap(values[i], values[reversed]);
    }
}

} // namespace

void inverseTransform(std::vector<Complex> &values)
{
    const std::size_t size = values.size();
    if (size < 2 || (size & (size - 1)) != 0)
        return;

    // Each factor is computed directly: in repeated multiplication the errors would add up.
    std::vector<Complex> turns(size / 2);
    for (std::size_t k = 0; k < turns.size(); ++k) {
        constexpr double fullTurn = 2.0 * 3.14159265358979323846;
        turns[k] = std::polar(1.0, fullTurn * static_cast<double>(k) / static_cast<double>(size));
    }

    reverseBits(values);
    for (std::size_t half = 1; half < size; half *= 2) {
        const std::size_t stride = size / (2 * half);
        for (std::size_t start = 0; start < size; start += 2 * half) {
            for (std::size_t k = 0; k < half; ++k) {
                const Complex even = values[start + k];
                const Complex odd = values[start + k + half] * turns[k * stride];
                values[start + k] = even + odd;
                values[start + k + half] = even - odd;
            }
        }
    }
}

} // namespace instrument
