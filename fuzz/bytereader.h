// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

/// Reads an input value by value. Bytes past the end are zero.
class ByteReader
{
public:
    ByteReader(const std::uint8_t *data, std::size_t size)
        : m_next(reinterpret_cast<const char *>(data))
        , m_left(size)
    {
    }

    std::size_t left() const
    {
        return m_left;
    }

    /// The next \a wanted bytes, or as many as are left, without a copy.
    QByteArray take(std::size_t wanted)
    {
        const char *piece = m_next;
        const std::size_t size = std::min(wanted, m_left);
        m_next += size;
        m_left -= size;
        return QByteArray::fromRawData(piece, static_cast<int>(size));
    }

    /// The next number, of any bit pattern: infinities and NaN included.
    template <typename Number> Number number()
    {
        Number value{};
        const QByteArray bytes = take(sizeof value);
        std::memcpy(&value, bytes.constData(), static_cast<std::size_t>(bytes.size()));
        return value;
    }

    std::uint8_t byte()
    {
        return number<std::uint8_t>();
    }

private:
    const char *m_next;
    std::size_t m_left;
};
