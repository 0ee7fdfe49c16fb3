// SPDX-License-Identifier: GPL-3.0-or-later
// The pieces of which tests make shape files.
#pragma once

#include <cstdint>
#include <string>

namespace sm::render {

struct Shape {
    std::uint16_t number;
    std::string bytes; ///< name, NUL, codes
};

/// The lower byte first.
inline std::string Word(std::size_t value)
{
    return {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8)};
}

} // namespace sm::render
