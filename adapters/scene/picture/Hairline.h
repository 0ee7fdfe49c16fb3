// SPDX-License-Identifier: GPL-3.0-or-later
// The thinnest lines, straight into the pixels: most of what a large drawing shows.
#pragma once

#include "base/Geometry.h"

#include <cstddef>
#include <cstdint>

namespace sm::scene {

/// Pixels of 0xFFRRGGBB, rows from the top. Nothing is drawn off `left` to `right` and `top` to `bottom`, the ends left
/// out, which lie within the rows and columns there are.
struct Raster {
    std::uint32_t* pixels = nullptr;
    std::ptrdiff_t stride = 0; ///< pixels from row to row
    int left = 0, top = 0, right = 0, bottom = 0;
};

/// A line one pixel wide, smoothed. `color` is 0xRRGGBB, `opacity` 0 to 255. Coordinates may be any finite ones.
void DrawHairline(const Raster& raster, Vec2 a, Vec2 b, std::uint32_t color, int opacity);
/// The pixel that holds the point.
void DrawDot(const Raster& raster, Vec2 at, std::uint32_t color, int opacity);

} // namespace sm::scene
