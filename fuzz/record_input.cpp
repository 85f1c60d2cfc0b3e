// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "record_input.h"

#include "base/constants.h"
#include "protocol_vx840.h"

#include <QtGlobal>

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>
#include <limits>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *data, std::size_t size, std::size_t limit);

namespace {

using Protocol_VX840::CH_PARAMS_t;
using Protocol_VX840::CH_t;
using Protocol_VX840::TDR_FILE_t;
using Random = std::minstd_rand;

static_assert(offsetof(TDR_FILE_t, samples) + constants::drawnSamples == fuzz::headBytes);

/// Type of a field, which selects its boundary values.
enum class Kind {
    Nanoseconds, ///< a float, around the widths of a step and of an axis
    Factor, ///< a float, around the bounds of the shortening factor
    Count, ///< 32 bits, around the ends of the axis and of the number
    Small, ///< 16 bits
    Decimal, ///< one byte of packed BCD
};

struct Field
{
    std::size_t offset;
    Kind kind;
};

constexpr std::size_t paramsAt = offsetof(TDR_FILE_t, ch) + offsetof(CH_t, params);
constexpr std::size_t timeAt = offsetof(TDR_FILE_t, ch) + offsetof(CH_t, test_time);
constexpr std::size_t dateAt = offsetof(TDR_FILE_t, ch) + offsetof(CH_t, test_date);
constexpr std::size_t samplesAt = offsetof(TDR_FILE_t, samples);

/// Every field that the viewer interprets, but for the samples.
constexpr Field fields[] = {
    { paramsAt + offsetof(CH_PARAMS_t, sample_minstep), Kind::Nanoseconds },
    { paramsAt + offsetof(CH_PARAMS_t, delay), Kind::Count },
    { paramsAt + offsetof(CH_PARAMS_t, KU), Kind::Factor },
    { paramsAt + offsetof(CH_PARAMS_t, shiftX), Kind::Count },
    { paramsAt + offsetof(CH_PARAMS_t, shiftY), Kind::Small },
    { paramsAt + offsetof(CH_PARAMS_t, pulse_width), Kind::Count },
    { paramsAt + offsetof(CH_PARAMS_t, pulse_amplitude), Kind::Small },
    { paramsAt + offsetof(CH_PARAMS_t, average), Kind::Small },
    { paramsAt + offsetof(CH_PARAMS_t, gain), Kind::Small },
    { paramsAt + offsetof(CH_PARAMS_t, impedance), Kind::Small },
    { timeAt, Kind::Decimal },
    { timeAt + 1, Kind::Decimal },
    { timeAt + 2, Kind::Decimal },
    { dateAt + 1, Kind::Decimal },
    { dateAt + 2, Kind::Decimal },
    { dateAt + 3, Kind::Decimal },
};

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float noNumber = std::numeric_limits<float>::quiet_NaN();
constexpr float largest = std::numeric_limits<float>::max();
constexpr float smallest = std::numeric_limits<float>::denorm_min();

constexpr float nanoseconds[]
    = { 0.0F,   -0.0F,   -1.25F,   smallest,  0.3F,      1.2499999F, 1.25F,   1.2500001F,
        2.5F,   3.7F,    5.0F,     10.0F,     20.0F,     40.0F,      80.0F,   160.0F,
        320.0F, 640.0F,  79998.0F, 80000.0F,  80001.25F, 2.68e9F,    2.69e9F, 5.4e9F,
        1e18F,  largest, -largest, -infinity, infinity,  noNumber };
constexpr float factors[]
    = { 0.0F, -0.0F, -1.0F,   smallest, 0.99999994F, 1.0F,     1.0000001F, 1.49896229F,
        1.5F, 2.0F,  9.9995F, 10.0F,    10.000001F,  infinity, noNumber,   largest };
constexpr quint32 counts[]
    = { 0,          1,          2,          249,        250,        251,        499,
        500,        15999,      16000,      32000,      63750,      63999,      64000,
        64001,      0x7FFFFFFF, 0x80000000, 0x80000001, 0xFFFFFFFF, 0xFFFFFFFE, 0xFFFF0600,
        0x7FFF05FF, 0x7FFF0600, 0x40000000, 0xC0000000, 0x10000,    0xFFFF,     0x20000000 };
constexpr qint16 smalls[]
    = { 0,    1,     -1,   127,   128, 129, 130, -128,   255,    256,   -256, 257,
        -257, -1000, 1000, 32767, 1,   2,   3,   -32768, -32767, 32766, 99,   100 };
constexpr quint8 decimals[] = { 0x00, 0x01, 0x02, 0x09, 0x0A, 0x0F, 0x12, 0x13, 0x23, 0x24, 0x28,
                                0x29, 0x30, 0x31, 0x32, 0x59, 0x60, 0x99, 0x9A, 0xA0, 0xF0, 0xFF };
constexpr quint8 levels[] = { 0x00, 0x01, 0xFF, 0x7F, 0x80, 0x81, 0x40, 0xC0 };

std::size_t below(Random &random, std::size_t bound)
{
    return random() % bound;
}

template <typename Number, std::size_t size>
void pick(Random &random, const Number (&values)[size], std::uint8_t *place)
{
    const Number value = values[below(random, size)];
    std::memcpy(place, &value, sizeof value);
}

std::size_t sizeOf(Kind kind)
{
    return kind == Kind::Decimal ? 1 : kind == Kind::Small ? 2 : 4;
}

/// Sets the field at \a place to a boundary value of \a kind.
void setTelling(Random &random, Kind kind, std::uint8_t *place)
{
    switch (kind) {
    case Kind::Nanoseconds:
        return pick(random, nanoseconds, place);
    case Kind::Factor:
        return pick(random, factors, place);
    case Kind::Count:
        return pick(random, counts, place);
    case Kind::Small:
        return pick(random, smalls, place);
    case Kind::Decimal:
        return pick(random, decimals, place);
    }
}

void changeField(Random &random, std::uint8_t *head, const std::uint8_t *other)
{
    const Field field = fields[below(random, std::size(fields))];
    std::uint8_t *place = head + field.offset;
    switch (below(random, 8)) {
    case 0:
        std::memcpy(place, other + field.offset, sizeOf(field.kind));
        break;
    case 1:
        place[0] = static_cast<std::uint8_t>(place[0] + (below(random, 2) == 0 ? 1 : 0xFF));
        break;
    case 2:
        place[below(random, sizeOf(field.kind))]
            ^= static_cast<std::uint8_t>(1U << below(random, 8));
        break;
    case 3:
        place[below(random, sizeOf(field.kind))] = static_cast<std::uint8_t>(random());
        break;
    default:
        setTelling(random, field.kind, place);
    }
}

void changeSamples(Random &random, std::uint8_t *head)
{
    const std::size_t from = below(random, constants::drawnSamples);
    const std::size_t count = 1 + below(random, constants::drawnSamples - from);
    std::uint8_t level = 0;
    pick(random, levels, &level);
    std::memset(head + samplesAt + from, level, count);
}

} // namespace

namespace fuzz {

const std::uint8_t *goodHead()
{
    static const auto head = [] {
        static TDR_FILE_t record = {};
        record.ch.params.sample_minstep = static_cast<float>(constants::nsPerCount);
        record.ch.params.KU = constants::startKU;
        record.ch.params.pulse_width = 100;
        record.ch.params.impedance = 75;
        record.ch.test_date = { 0, 0x03, 0x05, 0x24 };
        record.ch.test_time = { 0x09, 0x05, 0x07, 0 };
        for (int i = 0; i < constants::drawnSamples; ++i)
            record.samples[i] = static_cast<qint8>(i % 100 - 50);
        std::array<std::uint8_t, headBytes> bytes{};
        std::memcpy(bytes.data(), &record, bytes.size());
        return bytes;
    }();
    return head.data();
}

std::size_t mutateRecords(std::uint8_t *data, std::size_t size, std::size_t limit,
                          std::size_t preamble, std::size_t records, unsigned seed)
{
    Random random(seed);
    const std::size_t room = std::min(limit, preamble + records * headBytes);
    size = std::min(size, room);
    for (std::size_t changes = 1 + below(random, 4); changes > 0; --changes) {
        const std::size_t whole = size > preamble ? (size - preamble) / headBytes : 0;
        const std::size_t choice = below(random, 20);
        if (whole == 0 || choice == 0) {
            // Add a record after the complete ones.
            const std::size_t at = preamble + whole * headBytes;
            if (at + headBytes > room)
                continue;
            if (size < preamble)
                std::memset(data + size, 0, preamble - size);
            std::memcpy(data + at, goodHead(), headBytes);
            size = at + headBytes;
        } else if (choice == 1 && size > 0) {
            size = below(random, 2) == 0 ? preamble + below(random, whole) * headBytes
                                         : below(random, size);
        } else if (choice < 5) {
            size = LLVMFuzzerMutate(data, size, room);
        } else if (choice < 8 && preamble > 0) {
            data[below(random, preamble)] = static_cast<std::uint8_t>(random());
        } else {
            std::uint8_t *head = data + preamble + below(random, whole) * headBytes;
            const std::uint8_t *other = data + preamble + below(random, whole) * headBytes;
            if (choice < 11)
                changeSamples(random, head);
            else
                changeField(random, head, other);
        }
    }
    return std::max<std::size_t>(size, 1);
}

} // namespace fuzz
