// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "miscfunc.h"

namespace {

// The shift is defined for every position: bit 31 by the unsigned 1, the rest by the mask.
quint32 bitAt(int position)
{
    return quint32{ 1 } << (static_cast<quint32>(position) & 31U);
}

} // namespace

bool checkbit(int value, int position)
{
    return (static_cast<quint32>(value) & bitAt(position)) != 0;
}

int setbit(int value, int position)
{
    return static_cast<int>(static_cast<quint32>(value) | bitAt(position));
}

int unsetbit(int value, int position)
{
    return static_cast<int>(static_cast<quint32>(value) & ~bitAt(position));
}

int switchbit(int value, int position)
{
    return static_cast<int>(static_cast<quint32>(value) ^ bitAt(position));
}

char firstbit(int value)
{
    // For an empty set the loop ends at the bound: 100, above every slot number, means "no bit".
    constexpr char bound = 100;
    char position = 0;
    while (position < bound && !checkbit(value, position))
        ++position;
    return position;
}

float m_pow2(int n)
{
    if (n >= 0)
        return static_cast<float>(static_cast<qint32>(bitAt(n)));
    // The negation is unsigned: it would overflow for the smallest int.
    const auto divisor = static_cast<qint32>(bitAt(static_cast<int>(0U - static_cast<quint32>(n))));
    return static_cast<float>(1.0 / divisor);
}

int sign(int value)
{
    return (value > 0) - (value < 0);
}

int hexdec(quint8 hex)
{
    return (hex >> 4) * 10 + (hex & 0x0F);
}
