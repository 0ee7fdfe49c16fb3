// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/bits/BitReader.h"

#include <algorithm>
#include <cmath>

namespace sm::drawing::dwg {

namespace {

/// A coordinate beyond this is no measure of anything: the reader has lost its place.
constexpr double kLargest = 1e300;

} // namespace

std::uint32_t BitReader::Count(std::uint32_t count, std::uint32_t bits)
{
    if (count <= Left() / std::max<std::uint32_t>(bits, 1))
        return count;
    Fail();
    return 0;
}

double BitReader::RD()
{
    const std::uint64_t bits = RLL();
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    if (std::isfinite(value) && std::abs(value) <= kLargest)
        return value;
    Fail();
    return 0;
}

std::uint64_t BitReader::BLL()
{
    const unsigned count = Bits(3);
    std::uint64_t value = 0;
    for (unsigned i = 0; i < count; ++i)
        value |= static_cast<std::uint64_t>(RC()) << (8 * i);
    return value;
}

double BitReader::DD(double normal)
{
    const unsigned kind = Bits(2);
    if (kind == 0)
        return normal;
    if (kind == 3)
        return RD();
    std::uint64_t bits = 0;
    std::memcpy(&bits, &normal, sizeof bits);
    if (kind == 2)
        bits = (bits & ~0xFFFF00000000U) | static_cast<std::uint64_t>(RS()) << 32;
    bits = (bits & ~0xFFFFFFFFULL) | RL();
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    if (std::isfinite(value) && std::abs(value) <= kLargest)
        return value;
    Fail();
    return 0;
}

std::int64_t BitReader::MC()
{
    std::uint64_t value = 0;
    for (unsigned shift = 0; shift < 63; shift += 7) {
        const std::uint8_t byte = RC();
        if ((byte & 0x80) != 0) {
            value |= static_cast<std::uint64_t>(byte & 0x7F) << shift;
            continue;
        }
        value |= static_cast<std::uint64_t>(byte & 0x3F) << shift;
        const auto magnitude = static_cast<std::int64_t>(value & 0x7FFFFFFFFFFFFFFFU);
        return (byte & 0x40) != 0 ? -magnitude : magnitude;
    }
    Fail();
    return 0;
}

std::uint64_t BitReader::LongUMC(std::uint64_t value)
{
    for (unsigned shift = 7; shift < 64; shift += 7) {
        const std::uint8_t byte = RC();
        value |= static_cast<std::uint64_t>(byte & 0x7F) << shift;
        if ((byte & 0x80) == 0)
            return value;
    }
    Fail();
    return 0;
}

std::uint64_t BitReader::LongMS(std::uint64_t value)
{
    for (unsigned shift = 15; shift < 60; shift += 15) {
        const std::uint16_t word = RS();
        value |= static_cast<std::uint64_t>(word & 0x7FFF) << shift;
        if ((word & 0x8000) == 0)
            return value;
    }
    Fail();
    return 0;
}

void BitReader::Copy(std::uint64_t count, std::string& target)
{
    if (count > Left() / 8) {
        Fail();
        return;
    }
    const unsigned shift = m_at & 7;
    const unsigned char* from = m_bytes + (m_at >> 3);
    m_at += count * 8;
    if (shift == 0) {
        target.append(reinterpret_cast<const char*>(from), count);
        return;
    }
    const std::size_t old = target.size();
    target.resize(old + count);
    char* to = target.data() + old;
    std::uint64_t i = 0;
    for (; i + sizeof i <= count; i += sizeof i, from += sizeof i) {
        std::uint64_t word = 0;
        std::memcpy(&word, from, sizeof word);
        word = __builtin_bswap64(__builtin_bswap64(word) << shift | from[8] >> (8 - shift));
        std::memcpy(to + i, &word, sizeof word);
    }
    for (; i < count; ++i, ++from)
        to[i] = static_cast<char>(from[0] << shift | from[1] >> (8 - shift));
}

} // namespace sm::drawing::dwg
