// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers of binary files, the lowest byte first.
#pragma once

#include <cstdint>
#include <string_view>

namespace sm::render {

/// Of `count` bytes (at most 8); beyond the end they count as 0.
inline std::uint64_t UnsignedAt(std::string_view bytes, std::uint64_t at, unsigned count)
{
    std::uint64_t value = 0;
    for (unsigned i = count; i > 0; --i) {
        const std::uint64_t place = at + i - 1;
        value = value << 8 | (place < bytes.size() ? static_cast<unsigned char>(bytes[place]) : 0U);
    }
    return value;
}
inline std::uint32_t U32(std::string_view bytes, std::uint64_t at)
{
    return static_cast<std::uint32_t>(UnsignedAt(bytes, at, 4));
}
inline std::uint16_t U16(std::string_view bytes, std::uint64_t at)
{
    return static_cast<std::uint16_t>(UnsignedAt(bytes, at, 2));
}
inline std::int16_t S16(std::string_view bytes, std::uint64_t at)
{
    return static_cast<std::int16_t>(U16(bytes, at));
}
inline std::int32_t S32(std::string_view bytes, std::uint64_t at)
{
    return static_cast<std::int32_t>(U32(bytes, at));
}
/// `bytes` from `at` on, at most `count`; empty beyond the end.
inline std::string_view Part(std::string_view bytes, std::uint64_t at, std::uint64_t count)
{
    return at < bytes.size() ? bytes.substr(at, count) : std::string_view{};
}

} // namespace sm::render
