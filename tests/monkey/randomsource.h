// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <random>

/// Random numbers from a seed, the same on every machine: std::mt19937 is specified by the
/// standard, its distributions are not, so the numbers are taken from the generator here.
class RandomSource
{
public:
    explicit RandomSource(unsigned seed)
        : m_generator(seed)
    {
    }

    /// 0 to \a bound - 1; 0 for a bound below 2. The bias of the remainder does not matter here.
    int below(int bound)
    {
        return bound < 2 ? 0 : static_cast<int>(m_generator() % static_cast<unsigned>(bound));
    }

    /// \a low to \a high, both included.
    int between(int low, int high)
    {
        return low + below(high - low + 1);
    }

    /// One of \a choices, of which there is at least one.
    template <typename List> auto oneOf(const List &choices)
    {
        return choices.at(below(static_cast<int>(choices.size())));
    }

    /// True with a probability of \a percent.
    bool percent(int percent)
    {
        return below(100) < percent;
    }

private:
    std::mt19937 m_generator;
};
