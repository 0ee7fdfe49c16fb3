// SPDX-License-Identifier: GPL-3.0-or-later
// Polygons cut at lines and planes, corner by corner.
#pragma once

#include "render/Matrix.h"

#include <utility>
#include <vector>

namespace sm::render {

/// Leaves of a polygon, on the sheet or in space, what lies where `inside` isn't negative; `inside` is an affine
/// function of the point.
template <class Point, class Inside> void KeepWhere(std::vector<Point>& polygon, const Inside& inside)
{
    std::vector<Point> kept;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Point a = polygon[i];
        const Point b = polygon[(i + 1) % polygon.size()];
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

/// What lies over the box, at whatever height.
template <class Point> void KeepWithin(const Box2& box, std::vector<Point>& polygon)
{
    KeepWhere(polygon, [&](Point p) { return p.x - box.min.x; });
    KeepWhere(polygon, [&](Point p) { return box.max.x - p.x; });
    KeepWhere(polygon, [&](Point p) { return p.y - box.min.y; });
    KeepWhere(polygon, [&](Point p) { return box.max.y - p.y; });
}

} // namespace sm::render
