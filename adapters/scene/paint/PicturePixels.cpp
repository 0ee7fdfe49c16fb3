// SPDX-License-Identifier: GPL-3.0-or-later
#include "paint/PicturePixels.h"

#include "render/UnpackPicture.h"

#include <algorithm>
#include <cmath>

namespace sm::scene {
namespace {

using render::Picture;

constexpr std::uint32_t kOpaque = 0xFF000000;

std::size_t RowBytes(const Picture& picture)
{
    const auto width = static_cast<std::size_t>(picture.width);
    return picture.form == Picture::Form::Mask   ? (width + 7) / 8
           : picture.form == Picture::Form::Gray ? width
                                                 : width * 3;
}

std::uint32_t PixelOf(const Picture& picture, const unsigned char* row, int x, std::uint32_t ink)
{
    if (picture.form == Picture::Form::Mask)
        return (row[x / 8] & (0x80 >> (x % 8))) != 0 ? kOpaque | ink : 0;
    const bool gray = picture.form == Picture::Form::Gray;
    const unsigned char* const at = row + (gray ? x : 3 * x);
    const std::uint32_t pixel =
        gray ? at[0] * 0x010101U
             : static_cast<std::uint32_t>(at[0]) << 16 | static_cast<std::uint32_t>(at[1]) << 8 | at[2];
    return picture.whiteIsClear && pixel == 0xFFFFFF ? 0 : kOpaque | pixel;
}

} // namespace

/// Pixels by their shares; colours count as far as they are opaque.
struct PicturePixels::Sum {
    double share = 0, opaque = 0, red = 0, green = 0, blue = 0;

    void Add(std::uint32_t pixel, double part)
    {
        share += part;
        const double seen = part * (pixel >> 24) / 255;
        opaque += seen;
        red += seen * (pixel >> 16 & 0xFF);
        green += seen * (pixel >> 8 & 0xFF);
        blue += seen * (pixel & 0xFF);
    }
    [[nodiscard]] std::uint32_t Mean() const
    {
        if (opaque <= 0)
            return 0;
        const auto level = [](double value) { return static_cast<std::uint32_t>(std::clamp(value + 0.5, 0.0, 255.0)); };
        return level(opaque / share * 255) << 24 | level(red / opaque) << 16 | level(green / opaque) << 8 |
               level(blue / opaque);
    }
};

PicturePixels::PicturePixels(const Picture& picture, std::uint32_t color)
{
    if (picture.form != Picture::Form::JpegGray && picture.form != Picture::Form::JpegRgb)
        Read(picture, color);
    else if (const auto rows = render::UnpackPicture(picture))
        Read(*rows, color);
}

void PicturePixels::Read(const Picture& picture, std::uint32_t color)
{
    const std::size_t row = RowBytes(picture);
    if (picture.width <= 0 || picture.height <= 0 ||
        picture.bytes.size() < row * static_cast<std::size_t>(picture.height))
        return;
    m_width = picture.width;
    m_height = picture.height;
    m_pixels.reserve(static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height));
    const auto* const bytes = reinterpret_cast<const unsigned char*>(picture.bytes.data());
    for (int y = 0; y < m_height; ++y)
        for (int x = 0; x < m_width; ++x)
            m_pixels.push_back(PixelOf(picture, bytes + row * static_cast<std::size_t>(y), x, color & 0xFFFFFF));
}

/// That of the edge beyond it.
std::uint32_t PicturePixels::Pixel(double x, double y) const
{
    const int column = static_cast<int>(std::clamp(std::floor(x), 0.0, m_width - 1.0));
    const int row = static_cast<int>(std::clamp(std::floor(y), 0.0, m_height - 1.0));
    return m_pixels[static_cast<std::size_t>(row) * static_cast<std::size_t>(m_width) +
                    static_cast<std::size_t>(column)];
}

std::uint32_t PicturePixels::At(Vec2 place, Vec2 across, Vec2 down) const
{
    const double width = m_width, height = m_height;
    const double x = place.x * width, y = (1 - place.y) * height;
    const Vec2 a{across.x * width, -across.y * height}, d{down.x * width, -down.y * height};
    const double size = std::max(std::hypot(a.x, a.y), std::hypot(d.x, d.y));
    Sum sum;
    if (size <= 1) {
        const double left = std::floor(x - 0.5), top = std::floor(y - 0.5);
        const double right = x - 0.5 - left, low = y - 0.5 - top;
        sum.Add(Pixel(left, top), (1 - right) * (1 - low));
        sum.Add(Pixel(left + 1, top), right * (1 - low));
        sum.Add(Pixel(left, top + 1), (1 - right) * low);
        sum.Add(Pixel(left + 1, top + 1), right * low);
        return sum.Mean();
    }
    constexpr double kMost = 8; // places a side: enough for a mean
    const int count = static_cast<int>(std::min(std::ceil(size), kMost));
    for (int i = 0; i < count; ++i) {
        for (int j = 0; j < count; ++j) {
            const double u = (i + 0.5) / count - 0.5, v = (j + 0.5) / count - 0.5;
            sum.Add(Pixel(x + a.x * u + d.x * v, y + a.y * u + d.y * v), 1);
        }
    }
    return sum.Mean();
}

} // namespace sm::scene
