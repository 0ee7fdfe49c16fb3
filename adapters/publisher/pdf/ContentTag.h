// SPDX-License-Identifier: GPL-3.0-or-later
// A short name that follows from what it names.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace sm::publisher {

/// Six capital letters, by FNV-1a.
inline std::string ContentTag(std::string_view bytes)
{
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const char c : bytes) {
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    }
    std::string tag;
    for (int i = 0; i < 6; ++i, hash /= 26) {
        tag += static_cast<char>('A' + hash % 26);
    }
    return tag;
}

} // namespace sm::publisher
