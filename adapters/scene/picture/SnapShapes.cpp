// SPDX-License-Identifier: GPL-3.0-or-later
#include "scene/SnapShapes.h"

#include "render/Projection.h"

#include <cmath>

namespace sm::scene {

using render::EllipseArc;
using render::Path;
using render::Verb;

namespace {

constexpr double kSame = 1e-9;            // of a curve's size
constexpr std::uint32_t kMostPoints = 33; // of one shape: longer ones are shared out, so that few are looked at
constexpr int kCurveLines = 12;           // that stand for a curve which is no arc

Vec2 CubicAt(Vec2 p0, Vec2 p1, Vec2 p2, Vec2 p3, double t)
{
    const double s = 1 - t;
    return p0 * (s * s * s) + p1 * (3 * s * s * t) + p2 * (3 * s * t * t) + p3 * (t * t * t);
}

} // namespace

// The control points of an arc lie on its end tangents, a part of the way to where these meet that depends on the
// arc's angle alone; affine maps change nothing about that.
std::optional<EllipseArc> ArcOf(Vec2 p0, Vec2 p1, Vec2 p2, Vec2 p3)
{
    const Vec2 out = p1 - p0;
    const Vec2 in = p2 - p3;
    const Vec2 chord = p3 - p0;
    const double cross = render::Cross(out, in);
    const double size = render::Dot(chord, chord);
    if (!(std::abs(cross) > 1e-14 * size) || !std::isfinite(size))
        return std::nullopt;
    const double along = render::Cross(chord, in) / cross;
    const double back = render::Cross(chord, out) / cross;
    if (!(along > 1.4) || std::abs(along - back) > 1e-6 * along)
        return std::nullopt;
    const double square = 1 - 1.5 / along; // of the tangent of a quarter of the angle
    if (!(square > 1e-9) || square > 0.36)
        return std::nullopt;
    const double quarter = std::sqrt(square);
    const double half = 2 * quarter / (1 + square); // the sine of half the angle
    const Vec2 meet = p0 + out * along;
    const Vec2 middle = (p0 + p3) * 0.5;
    const Vec2 center = meet + (middle - meet) * (1 / (half * half));
    const Vec2 v = out * (1 / (4.0 / 3 * quarter));
    return EllipseArc{center, p0 - center, v, 0, 4 * std::atan(quarter)};
}

/// Takes a path apart into runs of lines, arcs and other curves.
class SnapShapeWriter {
public:
    SnapShapeWriter(SnapShapes& shapes, bool circles, bool ends, std::uint32_t clip)
        : m_shapes(shapes), m_circles(circles), m_ends(ends), m_clip(clip)
    {
    }
    void Write(const Path& path)
    {
        std::size_t next = 0;
        for (const Verb verb : path.verbs) {
            if (verb == Verb::Move) {
                EndPath();
                m_start = m_at = path.points[next];
                next += 1;
            } else if (verb == Verb::Line) {
                LineTo(path.points[next], false);
                next += 1;
            } else if (verb == Verb::Cubic) {
                CubicTo(path.points[next], path.points[next + 1], path.points[next + 2]);
                next += 3;
            } else {
                LineTo(m_start, false);
            }
        }
        EndPath();
    }

private:
    void LineTo(Vec2 to, bool curve)
    {
        if (to == m_at)
            return;
        if (m_lines.empty() || m_isCurve != curve) {
            EndLines();
            m_lines.push_back(m_at);
            m_isCurve = curve;
        }
        EndArc();
        m_lines.push_back(to);
        m_at = to;
    }
    void CubicTo(Vec2 p1, Vec2 p2, Vec2 p3)
    {
        const auto arc = m_circles ? ArcOf(m_at, p1, p2, p3) : std::nullopt;
        if (!arc) {
            const Vec2 from = m_at;
            for (int i = 1; i <= kCurveLines; ++i)
                LineTo(CubicAt(from, p1, p2, p3, static_cast<double>(i) / kCurveLines), true);
            return;
        }
        EndLines();
        const double size = render::Length(arc->u) + render::Length(arc->v);
        const bool goesOn = m_arc && render::Length(m_arc->center - arc->center) < 1e-6 * size &&
                            render::Length(m_arc->At(m_arc->sweep + arc->sweep) - p3) < 1e-6 * size;
        if (goesOn) {
            m_arc->sweep = std::min(m_arc->sweep + arc->sweep, render::kTurn);
        } else {
            EndArc();
            m_arc = arc;
        }
        m_at = p3;
    }
    void EndPath()
    {
        EndLines();
        EndArc();
    }
    void EndArc()
    {
        if (!m_arc)
            return;
        SnapShape shape;
        shape.first = static_cast<std::uint32_t>(m_shapes.m_arcs.size());
        shape.clip = m_clip;
        const bool whole = m_arc->sweep > render::kTurn - 1e-6;
        shape.firstIsEnd = shape.lastIsEnd = m_ends && !whole;
        shape.hasMiddle = !whole;
        m_shapes.m_arcs.push_back(*m_arc);
        m_shapes.m_shapes.push_back(shape);
        m_arc.reset();
    }
    void EndLines()
    {
        const auto count = static_cast<std::uint32_t>(m_lines.size());
        const bool closedCurve = m_isCurve && count > 2 && render::Length(m_lines.front() - m_lines.back()) < kSame;
        for (std::uint32_t from = 0; from + 1 < count; from += kMostPoints - 1) {
            SnapShape shape;
            shape.count = std::min(kMostPoints, count - from);
            shape.first = static_cast<std::uint32_t>(m_shapes.m_points.size());
            shape.clip = m_clip;
            shape.corners = m_ends && !m_isCurve;
            shape.firstIsEnd = m_ends && !closedCurve && (!m_isCurve || from == 0);
            shape.lastIsEnd = m_ends && !closedCurve && (!m_isCurve || from + shape.count == count);
            m_shapes.m_points.insert(m_shapes.m_points.end(), m_lines.begin() + from,
                                     m_lines.begin() + from + shape.count);
            m_shapes.m_shapes.push_back(shape);
        }
        m_lines.clear();
    }

    SnapShapes& m_shapes;
    bool m_circles, m_ends;
    std::uint32_t m_clip;
    Vec2 m_start, m_at;
    std::vector<Vec2> m_lines; ///< of the open run
    bool m_isCurve = false;
    std::optional<EllipseArc> m_arc; ///< the open one
};

void SnapShapes::Add(const Path& path, bool circles, bool ends, std::uint32_t clip)
{
    SnapShapeWriter(*this, circles, ends, clip).Write(path);
}

Box2 SnapShapes::BoxOf(const SnapShape& shape) const
{
    Box2 box;
    for (const Vec2 point : PointsOf(shape))
        box.Add(point);
    if (shape.count > 0)
        return box;
    const EllipseArc& arc = ArcAt(shape);
    const Vec2 reach{std::hypot(arc.u.x, arc.v.x), std::hypot(arc.u.y, arc.v.y)};
    return {arc.center - reach, arc.center + reach};
}

std::size_t SnapShapes::Bytes() const
{
    return m_shapes.capacity() * sizeof(SnapShape) + m_points.capacity() * sizeof(Vec2) +
           m_arcs.capacity() * sizeof(EllipseArc);
}

} // namespace sm::scene
