// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture/Hairline.h"

#include "picture/BlendPixel.h"
#include "render/ClipBox.h"

#include <cmath>
#include <utility>

namespace sm::scene {
namespace {

void Blend(const Raster& raster, int x, int y, std::uint32_t color, int alpha)
{
    if (x < raster.left || x >= raster.right || y < raster.top || y >= raster.bottom || alpha <= 0)
        return;
    BlendPixel(raster.pixels[y * raster.stride + x], color, alpha);
}

/// Upright and level lines stand on whole pixels: they are crisp, and a grid of them is even.
void Straighten(Vec2& a, Vec2& b)
{
    constexpr double kStraight = 0.02;
    if (std::abs(a.x - b.x) < kStraight)
        a.x = b.x = std::floor(a.x) + 0.5;
    if (std::abs(a.y - b.y) < kStraight)
        a.y = b.y = std::floor(a.y) + 0.5;
}

} // namespace

void DrawDot(const Raster& raster, Vec2 at, std::uint32_t color, int opacity)
{
    if (at.x >= raster.left && at.x < raster.right && at.y >= raster.top && at.y < raster.bottom)
        Blend(raster, static_cast<int>(at.x), static_cast<int>(at.y), color, opacity);
}

// Steps along the longer axis; each step shares its ink among the two pixels that the line passes between.
void DrawHairline(const Raster& raster, Vec2 a, Vec2 b, std::uint32_t color, int opacity)
{
    double t0 = 0;
    double t1 = 1;
    const Box2 box{{raster.left - 2.0, raster.top - 2.0}, {raster.right + 2.0, raster.bottom + 2.0}};
    if (!render::ClipLine(box, a, b, t0, t1))
        return;
    const Vec2 along = b - a;
    b = a + along * t1;
    a = a + along * t0;
    Straighten(a, b);
    if (a == b)
        return DrawDot(raster, a, color, opacity);
    const bool steep = std::abs(b.y - a.y) > std::abs(b.x - a.x);
    if (steep) {
        std::swap(a.x, a.y);
        std::swap(b.x, b.y);
    }
    if (a.x > b.x)
        std::swap(a, b);
    const int first = static_cast<int>(std::floor(a.x));
    const int last = static_cast<int>(std::floor(b.x));
    const double slope = b.x > a.x ? (b.y - a.y) / (b.x - a.x) : 0;
    for (int i = first; i <= last; ++i) {
        const double from = std::max(a.x, static_cast<double>(i));
        const double to = std::min(b.x, i + 1.0);
        const double covered = first == last ? std::max(to - from, 0.5) : to - from;
        const double y = a.y + slope * ((from + to) / 2 - a.x) - 0.5;
        const double whole = std::floor(y);
        const int row = static_cast<int>(whole);
        const double ink = covered * opacity;
        const int below = static_cast<int>((y - whole) * ink + 0.5);
        const int above = static_cast<int>(ink + 0.5) - below;
        steep ? Blend(raster, row, i, color, above) : Blend(raster, i, row, color, above);
        steep ? Blend(raster, row + 1, i, color, below) : Blend(raster, i, row + 1, color, below);
    }
}

} // namespace sm::scene
