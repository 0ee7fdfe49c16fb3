// SPDX-License-Identifier: GPL-3.0-or-later
// Pixels that a view of a drawing is painted into.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace sm::scene {

/// Whole pixels; the right and the lower edge are left out.
struct PixelBox {
    int left = 0, top = 0, right = 0, bottom = 0;

    [[nodiscard]] int Width() const { return right - left; }
    [[nodiscard]] int Height() const { return bottom - top; }
    [[nodiscard]] bool Empty() const { return left >= right || top >= bottom; }
    [[nodiscard]] PixelBox Common(const PixelBox& other) const
    {
        return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
                std::min(bottom, other.bottom)};
    }
    friend bool operator==(const PixelBox&, const PixelBox&) = default;
};

/// 0xFFRRGGBB, rows from the top, one after the other. What they hold at first is anything.
class PixelImage {
public:
    PixelImage(int width, int height)
        : m_width(std::max(0, width)), m_height(std::max(0, height)),
          m_pixels(std::make_unique_for_overwrite<std::uint32_t[]>(Count()))
    {
    }
    PixelImage(const PixelImage& other) : PixelImage(other.m_width, other.m_height)
    {
        std::copy_n(other.m_pixels.get(), Count(), m_pixels.get());
    }
    PixelImage& operator=(const PixelImage&) = delete;

    [[nodiscard]] int Width() const { return m_width; }
    [[nodiscard]] int Height() const { return m_height; }
    [[nodiscard]] PixelBox All() const { return {0, 0, m_width, m_height}; }
    [[nodiscard]] std::uint32_t* Row(int y) { return m_pixels.get() + Offset(y); }
    [[nodiscard]] const std::uint32_t* Row(int y) const { return m_pixels.get() + Offset(y); }

private:
    [[nodiscard]] std::size_t Offset(int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width);
    }
    [[nodiscard]] std::size_t Count() const { return Offset(m_height); }

    int m_width, m_height;
    std::unique_ptr<std::uint32_t[]> m_pixels;
};

} // namespace sm::scene
