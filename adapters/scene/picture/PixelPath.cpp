// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture/PixelPath.h"

#include <algorithm>
#include <cmath>

namespace sm::scene {
namespace {

using render::Verb;

Vec2 Wide(Vec2 point)
{
    return point;
}

Vec2 Wide(Spot spot)
{
    return {static_cast<double>(spot.x), static_cast<double>(spot.y)};
}

/// Lines that keep the curve within an eighth of a pixel: the second difference bounds how far it bends away.
int LinesFor(Vec2 p0, Vec2 p1, Vec2 p2, Vec2 p3)
{
    const Vec2 a = p0 - p1 * 2 + p2;
    const Vec2 b = p1 - p2 * 2 + p3;
    const double bend = std::max(std::hypot(a.x, a.y), std::hypot(b.x, b.y));
    constexpr double kMost = 100;
    return std::isfinite(bend) ? static_cast<int>(std::clamp(std::ceil(std::sqrt(bend * 6)), 1.0, kMost)) : 1;
}

void AppendCubic(Vec2 p0, Vec2 p1, Vec2 p2, Vec2 p3, Path& out)
{
    const int lines = LinesFor(p0, p1, p2, p3);
    for (int i = 1; i < lines; ++i) {
        const double t = static_cast<double>(i) / lines;
        const double s = 1 - t;
        out.LineTo(p0 * (s * s * s) + p1 * (3 * s * s * t) + p2 * (3 * s * t * t) + p3 * (t * t * t));
    }
    out.LineTo(p3);
}

template <class Points> void Append(std::span<const Verb> verbs, const Points& points, const Matrix2& map, Path& out)
{
    std::size_t next = 0;
    Vec2 at;
    const auto take = [&] { return map.Apply(Wide(points[next++])); };
    for (const Verb verb : verbs) {
        if (verb == Verb::Move) {
            out.MoveTo(at = take());
        } else if (verb == Verb::Line) {
            out.LineTo(at = take());
        } else if (verb == Verb::Cubic) {
            const Vec2 p1 = take();
            const Vec2 p2 = take();
            const Vec2 p3 = take();
            AppendCubic(at, p1, p2, p3, out);
            at = p3;
        } else {
            out.Close();
        }
    }
}

} // namespace

Matrix2 ToPixels(const ViewMap& map, Vec2 origin)
{
    const Vec2 at = map.ToPixel(origin);
    return {map.scale, 0, 0, -map.scale, at.x, at.y};
}

void AppendFlattened(std::span<const Verb> verbs, std::span<const Spot> points, const Matrix2& map, Path& out)
{
    Append(verbs, points, map, out);
}

void AppendFlattened(const Path& path, const Matrix2& map, Path& out)
{
    Append(path.verbs, path.points, map, out);
}

} // namespace sm::scene
