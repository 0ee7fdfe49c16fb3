// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/ClipBox.h"

#include "geometry/Cubic.h"

namespace sm::render {

namespace {

// Appends pieces and keeps connected ones in one sub-path.
class Stitcher {
public:
    explicit Stitcher(Path& out) : m_out(out) {}
    void Line(Vec2 a, Vec2 b)
    {
        Start(a);
        m_out.LineTo(b);
        m_at = b;
    }
    void Curve(const Cubic& c)
    {
        Start(c.p[0]);
        m_out.CubicTo(c.p[1], c.p[2], c.p[3]);
        m_at = c.p[3];
    }

private:
    void Start(Vec2 p)
    {
        if (!m_started || m_at != p) {
            m_out.MoveTo(p);
        }
        m_started = true;
    }
    Path& m_out;
    Vec2 m_at;
    bool m_started = false;
};

void ClipCurve(const Cubic& curve, const Box2& box, int depth, Stitcher& out)
{
    const Box2 hull = curve.Hull();
    if (!Overlaps(hull, box)) {
        return;
    }
    constexpr int kMostHalvings = 16;
    if (depth == kMostHalvings || (hull.Width() <= 2 * box.Width() && hull.Height() <= 2 * box.Height())) {
        out.Curve(curve);
        return;
    }
    ClipCurve(curve.Part(0, 0.5), box, depth + 1, out);
    ClipCurve(curve.Part(0.5, 1), box, depth + 1, out);
}

} // namespace

Box2 Intersection(const Box2& a, const Box2& b)
{
    return {{std::max(a.min.x, b.min.x), std::max(a.min.y, b.min.y)},
            {std::min(a.max.x, b.max.x), std::min(a.max.y, b.max.y)}};
}

bool ClipLine(const Box2& box, Vec2 a, Vec2 b, double& t0, double& t1)
{
    const auto narrow = [&](double from, double step, double low, double high) {
        if (step == 0) {
            return from >= low && from <= high;
        }
        const double first = (low - from) / step;
        const double second = (high - from) / step;
        t0 = std::max(t0, std::min(first, second));
        t1 = std::min(t1, std::max(first, second));
        return t0 <= t1;
    };
    return narrow(a.x, b.x - a.x, box.min.x, box.max.x) && narrow(a.y, b.y - a.y, box.min.y, box.max.y);
}

Box2 HullOf(const Path& path)
{
    Box2 box;
    for (const Vec2 point : path.points) {
        box.Add(point);
    }
    return box;
}

void AppendClipped(const Path& path, const Box2& box, Path& out)
{
    Stitcher stitcher(out);
    const auto line = [&](Vec2 a, Vec2 b) {
        double t0 = 0;
        double t1 = 1;
        if (ClipLine(box, a, b, t0, t1)) {
            stitcher.Line(t0 == 0 ? a : a + (b - a) * t0, t1 == 1 ? b : a + (b - a) * t1);
        }
    };
    Vec2 start, at;
    const Vec2* point = path.points.data();
    for (const Verb verb : path.verbs) {
        switch (verb) {
        case Verb::Move:
            start = at = *point++;
            break;
        case Verb::Line:
            line(at, *point);
            at = *point++;
            break;
        case Verb::Cubic:
            ClipCurve({{at, point[0], point[1], point[2]}}, box, 0, stitcher);
            at = point[2];
            point += 3;
            break;
        case Verb::Close:
            line(at, start);
            at = start;
            break;
        }
    }
}

void AppendBox(Path& path, const Box2& box)
{
    path.MoveTo(box.min);
    path.LineTo({box.max.x, box.min.y});
    path.LineTo(box.max);
    path.LineTo({box.min.x, box.max.y});
    path.Close();
}

} // namespace sm::render
