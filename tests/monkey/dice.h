// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <random>

/// Dice that fall alike on every machine: the generator is prescribed by the language, and the
/// numbers are taken from it here and not by the library, whose ways are its own.
class Dice
{
public:
    explicit Dice(unsigned seed)
        : m_source(seed)
    {
    }

    /// 0 to \a bound - 1; 0 for a bound below 2. The bias of the remainder is of no matter here.
    int below(int bound)
    {
        return bound < 2 ? 0 : static_cast<int>(m_source() % static_cast<unsigned>(bound));
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

    /// True \a percent times in a hundred.
    bool percent(int percent)
    {
        return below(100) < percent;
    }

private:
    std::mt19937 m_source;
};
