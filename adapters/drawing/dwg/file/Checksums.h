// SPDX-License-Identifier: GPL-3.0-or-later
// The checksums of DWG files.
#pragma once

#include <cstdint>
#include <string_view>

namespace sm::drawing::dwg {

/// What the CRC of everything but whole pages starts with.
inline constexpr std::uint16_t kCrcSeed = 0xC0C1;

/// CRC-16 with the reflected polynomial A001, continued from `seed`; no final change.
std::uint16_t Crc16(std::uint16_t seed, std::string_view bytes);

/// The usual reflected CRC-32 (polynomial EDB88320) from 0.
std::uint32_t Crc32(std::string_view bytes);

/// The sum over pages from R2004 on: two 16-bit sums modulo FFF1, continued from `seed`.
std::uint32_t PageSum(std::uint32_t seed, std::string_view bytes);

} // namespace sm::drawing::dwg
