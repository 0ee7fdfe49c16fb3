// SPDX-License-Identifier: GPL-3.0-or-later
#include "scene/SnapIndex.h"

#include "render/ClipBox.h"
#include "render/Projection.h"
#include "snap/Crossings.h"

#include <limits>

namespace sm::scene {
namespace {

using render::EllipseArc;

constexpr std::size_t kMostNear = 64;      // lines, and arcs, whose intersections are asked for
constexpr std::size_t kMostShapes = 20000; // in reach: the cursor stays quick where a whole drawing lies under it

/// Gathers the candidates round one place.
class Search {
public:
    Search(const SnapShapes& shapes, const std::vector<Box2>& clips, Vec2 at, double reach)
        : m_shapes(shapes), m_clips(clips), m_at(at), m_reach(reach)
    {
    }
    bool Visit(const SnapShape& shape)
    {
        m_clip = shape.clip;
        shape.count == 0 ? VisitArc(shape) : VisitLines(shape);
        return ++m_visited < kMostShapes;
    }
    std::optional<Snap> Best()
    {
        m_clip = 0; // both lines of a crossing were in sight at their nearest
        std::vector<Vec2> points;
        for (std::size_t i = 0; i < m_lines.size(); ++i) {
            for (std::size_t j = i + 1; j < m_lines.size(); ++j) {
                if (!AreJoined(m_lines[i], m_lines[j]))
                    AppendCrossings(m_lines[i], m_lines[j], points);
            }
            for (const EllipseArc& arc : m_arcs)
                AppendCrossings(arc, m_lines[i], points);
        }
        for (std::size_t i = 0; i < m_arcs.size(); ++i) {
            for (std::size_t j = i + 1; j < m_arcs.size(); ++j)
                AppendCrossings(m_arcs[i], m_arcs[j], points);
        }
        for (const Vec2 point : points)
            Offer(SnapKind::Intersection, point);
        return m_best ? m_best : m_remote;
    }

private:
    void VisitLines(const SnapShape& shape)
    {
        const auto points = m_shapes.PointsOf(shape);
        for (std::size_t i = 0; i < points.size(); ++i) {
            const bool first = i == 0;
            const bool last = i + 1 == points.size();
            if (first ? shape.firstIsEnd : last ? shape.lastIsEnd : shape.corners)
                Offer(SnapKind::End, points[i]);
            if (last)
                break;
            if (shape.corners)
                Offer(SnapKind::Middle, (points[i] + points[i + 1]) * 0.5);
            const LinePiece line{points[i], points[i + 1]};
            if (m_lines.size() < kMostNear && IsNear(NearestOn(line, m_at)))
                m_lines.push_back(line);
        }
    }
    void VisitArc(const SnapShape& shape)
    {
        const EllipseArc& arc = m_shapes.ArcAt(shape);
        if (shape.firstIsEnd)
            Offer(SnapKind::End, arc.At(arc.start));
        if (shape.lastIsEnd)
            Offer(SnapKind::End, arc.At(arc.start + arc.sweep));
        if (shape.hasMiddle)
            Offer(SnapKind::Middle, arc.At(arc.start + arc.sweep / 2));
        Offer(SnapKind::Center, arc.center);
        const auto nearest = NearestOn(arc, m_at);
        if (!nearest || !IsNear(*nearest))
            return;
        if (!m_remote)
            m_remote = Snap{SnapKind::Center, arc.center};
        if (m_arcs.size() < kMostNear)
            m_arcs.push_back(arc);
    }
    /// Lines that follow each other: where they meet is no crossing.
    static bool AreJoined(const LinePiece& one, const LinePiece& other)
    {
        return one.b == other.a || one.a == other.b || one.a == other.a || one.b == other.b;
    }
    [[nodiscard]] bool IsNear(Vec2 point) const { return render::Length(point - m_at) <= m_reach && Shows(point); }
    [[nodiscard]] bool Shows(Vec2 point) const
    {
        return m_clip == 0 || m_clip >= m_clips.size() || render::Contains(m_clips[m_clip], {point, point});
    }
    // An end wins over what lies in the same place.
    void Offer(SnapKind kind, Vec2 point)
    {
        const double distance = render::Length(point - m_at);
        const double margin = 1e-6 * m_reach;
        const bool better =
            distance < m_distance - margin || (distance < m_distance + margin && m_best && kind < m_best->kind);
        if (distance <= m_reach && better && Shows(point)) {
            m_best = Snap{kind, point};
            m_distance = distance;
        }
    }

    const SnapShapes& m_shapes;
    const std::vector<Box2>& m_clips;
    Vec2 m_at;
    double m_reach;
    std::uint32_t m_clip = 0; ///< of the shape at hand
    std::size_t m_visited = 0;
    std::vector<LinePiece> m_lines;
    std::vector<EllipseArc> m_arcs;
    std::optional<Snap> m_best, m_remote;
    double m_distance = std::numeric_limits<double>::infinity();
};

std::vector<Box2> BoxesOf(const SnapShapes& shapes, const std::vector<Box2>& clips)
{
    std::vector<Box2> boxes;
    boxes.reserve(shapes.All().size());
    for (const SnapShape& shape : shapes.All()) {
        const Box2 box = shapes.BoxOf(shape);
        const bool clipped = shape.clip != 0 && shape.clip < clips.size();
        boxes.push_back(clipped ? render::Intersection(box, clips[shape.clip]) : box);
    }
    return boxes;
}

} // namespace

const char* SnapName(SnapKind kind)
{
    switch (kind) {
    case SnapKind::End:
        return "End point";
    case SnapKind::Middle:
        return "Middle point";
    case SnapKind::Center:
        return "Centre point";
    case SnapKind::Intersection:
        return "Intersection";
    }
    return "";
}

SnapIndex::SnapIndex(SnapShapes shapes, std::vector<Box2> clips)
    : m_shapes(std::move(shapes)), m_clips(std::move(clips)), m_tree(BoxesOf(m_shapes, m_clips))
{
}

std::optional<Snap> SnapIndex::Find(Vec2 at, double reach) const
{
    Search search(m_shapes, m_clips, at, reach);
    m_tree.Search({{at.x - reach, at.y - reach}, {at.x + reach, at.y + reach}},
                  [&](std::uint32_t shape) { return search.Visit(m_shapes.All()[shape]); });
    return search.Best();
}

} // namespace sm::scene
