// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers in the bytes of a DWG, and sentinels.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace sm::drawing::dwg {

/// The little-endian number at `at`; 0 where the bytes end before it does.
template <class T> T LoadAt(std::string_view bytes, std::uint64_t at)
{
    T value{};
    if (at <= bytes.size() && bytes.size() - at >= sizeof value)
        std::memcpy(&value, bytes.data() + at, sizeof value);
    return value;
}

/// [begin, begin + length) as far as it is there.
inline std::string_view SliceOf(std::string_view bytes, std::uint64_t begin, std::uint64_t length)
{
    return begin < bytes.size() ? bytes.substr(begin, length) : std::string_view();
}

using Sentinel = std::array<unsigned char, 16>;

/// In front of the header variables and of the classes; the one behind each is its complement.
inline constexpr Sentinel kHeaderSentinel{0xCF, 0x7B, 0x1F, 0x23, 0xFD, 0xDE, 0x38, 0xA9,
                                          0x5F, 0x7C, 0x68, 0xB8, 0x4E, 0x6D, 0x33, 0x5F};
inline constexpr Sentinel kClassesSentinel{0x8D, 0xA1, 0xC4, 0xB8, 0xC4, 0xA9, 0xF8, 0xC5,
                                           0xC0, 0xDC, 0xF4, 0x5F, 0xE7, 0xCF, 0xB6, 0x8A};

inline std::string_view ViewOf(const Sentinel& sentinel)
{
    return {reinterpret_cast<const char*>(sentinel.data()), sentinel.size()};
}

} // namespace sm::drawing::dwg
