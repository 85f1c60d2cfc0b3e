// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "event.h"

#include <iterator>

/// \file
/// What the numbers of an event pick from what is there.

constexpr int thousand = 1000; ///< one more than the largest number of an event

/// The number of \a event at \a place, 0 to 999.
inline int number(const Event &event, std::size_t place)
{
    return event.numbers[place];
}

/// The one of \a choices that a number from 0 to 999 picks.
template <typename List> auto pick(const List &choices, int number)
{
    return choices[number % static_cast<int>(std::size(choices))];
}

/// The number of \a count things that a number from 0 to 999 picks.
inline int share(int number, int count)
{
    return number * count / thousand;
}
