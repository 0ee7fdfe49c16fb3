// SPDX-License-Identifier: GPL-3.0-or-later
// Paths put behind each other, as they are or carried to another plane.
#pragma once

#include "render/Arcs.h"
#include "render/Canvas.h"

#include <cmath>

namespace sm::render {

inline void Append(Path& out, const Path& path)
{
    out.verbs.insert(out.verbs.end(), path.verbs.begin(), path.verbs.end());
    out.points.insert(out.points.end(), path.points.begin(), path.points.end());
}

inline void AppendMapped(Path& out, const Path& path, const Matrix2& map)
{
    out.verbs.insert(out.verbs.end(), path.verbs.begin(), path.verbs.end());
    for (const Vec2 point : path.points) {
        out.points.push_back(map.Apply(point));
    }
}

/// A turn round the origin, counter-clockwise.
inline Matrix2 Turned(double degrees)
{
    const double c = std::cos(Radians(degrees));
    const double s = std::sin(Radians(degrees));
    return {c, s, -s, c, 0, 0};
}

} // namespace sm::render
