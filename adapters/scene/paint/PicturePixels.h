// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of a drawing as pixels, and what of them falls on a place.
#pragma once

#include "render/Matrix.h"
#include "render/Picture.h"

#include <cstdint>
#include <vector>

namespace sm::scene {

class PicturePixels {
public:
    /// `color` 0xRRGGBB is a mask's paint. A picture that can't be read is empty.
    PicturePixels(const render::Picture& picture, std::uint32_t color);

    [[nodiscard]] bool Empty() const { return m_pixels.empty(); }
    /// 0xAARRGGBB at a place of the unit square, y up, of a pixel that takes the parallelogram of `across` and `down`
    /// about it there: the mean of what it takes, or a place between the pixels round it.
    [[nodiscard]] std::uint32_t At(Vec2 place, Vec2 across, Vec2 down) const;

private:
    struct Sum;
    void Read(const render::Picture& picture, std::uint32_t color);
    [[nodiscard]] std::uint32_t Pixel(double x, double y) const;

    int m_width = 0, m_height = 0;
    std::vector<std::uint32_t> m_pixels; ///< 0xAARRGGBB, rows from the top
};

} // namespace sm::scene
