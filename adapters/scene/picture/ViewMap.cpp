// SPDX-License-Identifier: GPL-3.0-or-later
#include "scene/ViewMap.h"

#include <algorithm>
#include <cmath>

namespace sm::scene {
namespace {

constexpr double kMargin = 0.03;    // of the window, on each side
constexpr double kFarthest = 0.02;  // of the scale that shows everything
constexpr double kNearest = 200000; // beyond it numbers in 64 bits lose their pixels in large drawings

double FittingScale(const ViewMap& map, const Box2& box)
{
    const double across = box.Width() > 0 ? map.width * (1 - 2 * kMargin) / box.Width() : 0;
    const double along = box.Height() > 0 ? map.height * (1 - 2 * kMargin) / box.Height() : 0;
    const double scale = across > 0 && along > 0 ? std::min(across, along) : std::max(across, along);
    return scale > 0 && std::isfinite(scale) ? scale : 1;
}

} // namespace

Box2 ViewMap::Visible() const
{
    const Vec2 half{width / 2.0 / scale, height / 2.0 / scale};
    return {center - half, center + half};
}

void ViewMap::Fit(const Box2& box)
{
    if (box.Empty())
        return;
    center = (box.min + box.max) * 0.5;
    scale = FittingScale(*this, box);
}

void ViewMap::ZoomAbout(Vec2 pixel, double factor, const Box2& home)
{
    const double whole = FittingScale(*this, home);
    const double wanted = std::clamp(scale * factor, whole * kFarthest, whole * kNearest);
    const Vec2 fixed = ToScene(pixel);
    scale = wanted;
    center = center + fixed - ToScene(pixel);
}

void ViewMap::MoveBy(Vec2 pixels)
{
    center = {center.x - pixels.x / scale, center.y + pixels.y / scale};
}

ViewMap ViewMap::Enlarged(double factor) const
{
    ViewMap map = *this;
    map.scale = scale * factor;
    map.width = std::max(1, static_cast<int>(std::lround(width * factor)));
    map.height = std::max(1, static_cast<int>(std::lround(height * factor)));
    return map;
}

} // namespace sm::scene
