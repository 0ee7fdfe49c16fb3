// SPDX-License-Identifier: GPL-3.0-or-later
#include "ink/WideLine.h"

#include "render/Projection.h"

#include <vector>

namespace sm::render {

namespace {

Vec2 Normal(Vec2 direction)
{
    const double length = Length(direction);
    return length > 0 ? Vec2{-direction.y / length, direction.x / length} : Vec2{};
}

Vec2 StartDirection(const WideSegment& s)
{
    if (s.bulge == 0) {
        return s.to - s.from;
    }
    const EllipseArc arc = BulgeArc(s.from, s.to, s.bulge);
    return s.bulge > 0 ? arc.v : arc.v * -1;
}

Vec2 EndDirection(const WideSegment& s)
{
    const Vec2 back = StartDirection({s.to, s.from, -s.bulge, 0, 0});
    return back * -1;
}

// Counter-clockwise on the sheet whatever the map does, so that pieces that overlap never cancel each other.
void AppendPolygon(Path& path, const std::vector<Vec2>& corners, const Matrix2& plane)
{
    std::vector<Vec2> mapped;
    double area = 0;
    for (const Vec2 corner : corners) {
        mapped.push_back(plane.Apply(corner));
    }
    for (std::size_t i = 0; i < mapped.size(); ++i) {
        area += Cross(mapped[i] - mapped[0], mapped[(i + 1) % mapped.size()] - mapped[0]);
    }
    if (area < 0) {
        std::reverse(mapped.begin(), mapped.end());
    }
    path.MoveTo(mapped[0]);
    for (std::size_t i = 1; i < mapped.size(); ++i) {
        path.LineTo(mapped[i]);
    }
    path.Close();
}

} // namespace

void AppendWideSegment(Path& path, const WideSegment& s, const Matrix2& plane)
{
    std::vector<Vec2> left;
    std::vector<Vec2> right;
    const auto add = [&](Vec2 at, Vec2 normal, double width) {
        left.push_back(at + normal * (width / 2));
        right.push_back(at - normal * (width / 2));
    };
    if (s.bulge == 0) {
        const Vec2 normal = Normal(s.to - s.from);
        add(s.from, normal, s.startWidth);
        add(s.to, normal, s.endWidth);
    } else {
        const EllipseArc arc = BulgeArc(s.from, s.to, s.bulge);
        constexpr double kStep = kTurn / 120;
        const int steps = std::max(2, static_cast<int>(std::ceil(std::abs(arc.sweep) / kStep)));
        const double side = s.bulge > 0 ? -1 : 1;
        for (int i = 0; i <= steps; ++i) {
            const double part = static_cast<double>(i) / steps;
            const Vec2 at = arc.At(arc.sweep * part);
            const Vec2 outward = (at - arc.center) * (1 / Length(arc.u));
            add(at, outward * side, s.startWidth + (s.endWidth - s.startWidth) * part);
        }
    }
    left.insert(left.end(), right.rbegin(), right.rend());
    AppendPolygon(path, left, plane);
}

void AppendWideCorner(Path& path, const WideSegment& before, const WideSegment& after, const Matrix2& plane)
{
    const Vec2 in = EndDirection(before);
    const Vec2 out = StartDirection(after);
    const double turn = Cross(in, out);
    const double size = Length(in) * Length(out);
    constexpr double kStraight = 1e-6;
    const bool pointed = before.endWidth <= 0 || after.startWidth <= 0;
    if (pointed || !(std::abs(turn) > kStraight * size)) {
        return;
    }
    const double side = turn > 0 ? -0.5 : 0.5; // the outer side of the corner
    const Vec2 corner = before.to;
    const Vec2 a = Normal(in) * (side * before.endWidth);
    const Vec2 b = Normal(out) * (side * after.startWidth);
    std::vector<Vec2> points{corner, corner + a};
    // The sides meet at corner + a + in * k.
    const double k = Cross(b - a, out) / turn;
    constexpr double kLongestMiter = 4; // half widths
    const double longest = kLongestMiter * std::max(Length(a), Length(b));
    if (k > 0 && k * Length(in) < longest) {
        points.push_back(corner + a + in * k);
    }
    points.push_back(corner + b);
    AppendPolygon(path, points, plane);
}

} // namespace sm::render
