// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/ClipArea.h"

#include "geometry/HatchBoundary.h"

#include <vector>

namespace sm::render {

namespace {

// Keeps the side of a line where `inside` is not negative; `inside` is an affine function of the point.
template <class Inside> void Cut(std::vector<Vec2>& polygon, const Inside& inside)
{
    std::vector<Vec2> kept;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Vec2 a = polygon[i];
        const Vec2 b = polygon[(i + 1) % polygon.size()];
        const double da = inside(a);
        const double db = inside(b);
        if (da >= 0) {
            kept.push_back(a);
        }
        if ((da < 0) != (db < 0)) {
            kept.push_back(a + (b - a) * (da / (da - db)));
        }
    }
    polygon = std::move(kept);
}

} // namespace

void AppendClippedArea(const Path& path, const Box2& box, Path& out)
{
    for (std::vector<Vec2> polygon : PolygonsOf(path)) {
        Cut(polygon, [&](Vec2 p) { return p.x - box.min.x; });
        Cut(polygon, [&](Vec2 p) { return box.max.x - p.x; });
        Cut(polygon, [&](Vec2 p) { return p.y - box.min.y; });
        Cut(polygon, [&](Vec2 p) { return box.max.y - p.y; });
        for (std::size_t i = 0; i < polygon.size(); ++i) {
            i == 0 ? out.MoveTo(polygon[i]) : out.LineTo(polygon[i]);
        }
        if (!polygon.empty()) {
            out.Close();
        }
    }
}

} // namespace sm::render
