// SPDX-License-Identifier: GPL-3.0-or-later
// How a drawing refers to its objects, and the values that stand for inherited properties.
#pragma once

#include <cstdint>

namespace sm::drawing {

using Handle = std::uint64_t; ///< 0: none

/// Colours: AutoCAD colour index 1 to 255, 0 BYBLOCK, 256 BYLAYER.
inline constexpr std::int16_t kByBlock = 0;
inline constexpr std::int16_t kByLayer = 256;
/// Lineweights: hundredths of a millimetre, or one of these (DXF reference, group 370).
inline constexpr std::int16_t kLineweightByLayer = -1;
inline constexpr std::int16_t kLineweightByBlock = -2;
inline constexpr std::int16_t kLineweightDefault = -3;

/// The index of a block that is missing.
inline constexpr std::uint32_t kNoBlock = 0xFFFFFFFF;

} // namespace sm::drawing
