// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

/// The bytes of one execution, taken from the front piece by piece. Beyond the end there are zeros.
class Input
{
public:
    Input(const std::uint8_t *data, std::size_t size)
        : m_next(reinterpret_cast<const char *>(data))
        , m_left(size)
    {
    }

    std::size_t left() const
    {
        return m_left;
    }

    /// The next bytes, \a wanted or as many as are left; \a taken says how many.
    const char *take(std::size_t wanted, std::size_t &taken)
    {
        const char *piece = m_next;
        taken = std::min(wanted, m_left);
        m_next += taken;
        m_left -= taken;
        return piece;
    }

    /// The next number, whatever its bytes mean: an infinity and no number at all are floats too.
    template <typename Number> Number number()
    {
        Number value{};
        std::size_t taken = 0;
        const char *bytes = take(sizeof value, taken);
        if (taken > 0)
            std::memcpy(&value, bytes, taken);
        return value;
    }

    quint8 byte()
    {
        return number<quint8>();
    }

private:
    const char *m_next;
    std::size_t m_left;
};
