// SPDX-License-Identifier: GPL-3.0-or-later
// Colours over pixels.
#pragma once

#include <cstdint>

namespace sm::scene {

/// `color` 0xRRGGBB over an opaque pixel; `alpha` 0 to 255.
inline void BlendPixel(std::uint32_t& pixel, std::uint32_t color, int alpha)
{
    const auto part = static_cast<std::uint32_t>(alpha + (alpha >> 7)); // of 256
    const std::uint32_t rest = 256 - part;
    const std::uint32_t redBlue = ((pixel & 0xFF00FF) * rest + (color & 0xFF00FF) * part) >> 8 & 0xFF00FF;
    const std::uint32_t green = ((pixel & 0xFF00) * rest + (color & 0xFF00) * part) >> 8 & 0xFF00;
    pixel = 0xFF000000 | redBlue | green;
}

} // namespace sm::scene
