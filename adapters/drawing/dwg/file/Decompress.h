// SPDX-License-Identifier: GPL-3.0-or-later
// The two compressions of DWG files: bytes that were there before are named by distance and length.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace sm::drawing::dwg {

struct Decompressed {
    std::size_t written = 0; ///< bytes of the target, from its front
    bool sound = false;      ///< false: the source ends early or names bytes that aren't there
};

/// The compression of R2004 and R2010 to R2018. Ends at the end mark or when the target is full.
Decompressed Decompress2004(std::string_view source, std::span<char> target);

/// The compression of R2007. Ends with the source.
Decompressed Decompress2007(std::string_view source, std::span<char> target);

} // namespace sm::drawing::dwg
