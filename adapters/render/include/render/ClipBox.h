// SPDX-License-Identifier: GPL-3.0-or-later
// Boxes and paths against each other: what lies off the page, and what of a line is left.
#pragma once

#include "render/Canvas.h"

namespace sm::render {

inline bool Overlaps(const Box2& a, const Box2& b)
{
    return a.min.x <= b.max.x && b.min.x <= a.max.x && a.min.y <= b.max.y && b.min.y <= a.max.y;
}
inline bool Contains(const Box2& outer, const Box2& inner)
{
    return inner.min.x >= outer.min.x && inner.max.x <= outer.max.x && inner.min.y >= outer.min.y &&
           inner.max.y <= outer.max.y;
}
inline Box2 Grown(const Box2& box, double by)
{
    return {{box.min.x - by, box.min.y - by}, {box.max.x + by, box.max.y + by}};
}
Box2 Intersection(const Box2& a, const Box2& b);

/// Narrows t0..t1 (parameters of the line from `a` to `b`) to what lies in `box`; false when nothing does.
bool ClipLine(const Box2& box, Vec2 a, Vec2 b, double& t0, double& t1);

/// Box of a path's points, control points included: never smaller than the path.
Box2 HullOf(const Path& path);

/// Appends what of `path`'s outline may show in `box`: lines are cut, curves are split and left out where they lie off
/// it. For paths that reach so far that an output device would lose its way.
void AppendClipped(const Path& path, const Box2& box, Path& out);

void AppendBox(Path& path, const Box2& box);

} // namespace sm::render
