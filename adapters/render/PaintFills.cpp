#include "render/Nurbs.h"
#include "render/Painter.h"

namespace sm::render {

bool Painter::Draw(const drawing::QuadData& quad, drawing::EntityKind kind)
{
    if (kind == drawing::EntityKind::Face3d) {
        DrawFaceEdges(quad);
        return true;
    }
    const Matrix2 plane = PlaneOf(m_frame->toPaper, quad.extrusion, quad.corners[0].z);
    for (const std::size_t i : {0, 1, 3, 2}) { // the last two corners are crossed in the file
        const Vec2 at = plane.Apply({quad.corners[i].x, quad.corners[i].y});
        m_path.Empty() ? m_path.MoveTo(at) : m_path.LineTo(at);
    }
    m_path.Close();
    m_ink.Fill(m_path, m_style.color, FillRule::NonZero);
    return true;
}

void Painter::DrawFaceEdges(const drawing::QuadData& quad)
{
    for (std::size_t i = 0; i < quad.corners.size(); ++i) {
        const Vec3 from = quad.corners[i];
        const Vec3 to = quad.corners[(i + 1) % quad.corners.size()];
        const bool hidden = (quad.invisibleEdges >> i & 1) != 0;
        if (!hidden && !(from == to)) {
            m_path.MoveTo(m_frame->toPaper.Apply(from));
            m_path.LineTo(m_frame->toPaper.Apply(to));
        }
    }
    StrokePath();
}

bool Painter::Draw(const drawing::LeaderData& leader, drawing::EntityKind)
{
    std::vector<Vec2> points;
    for (const Vec3 vertex : leader.vertices) {
        points.push_back(m_frame->toPaper.Apply(vertex));
    }
    if (points.size() < 2) {
        return true;
    }
    const double unit = ScaleOf(PlaneOf(m_frame->toPaper, {0, 0, 1}, 0));
    const double size = m_drawing.HeaderReal("$DIMASZ", 0.18) * m_drawing.HeaderReal("$DIMSCALE", 1) * unit;
    const Vec2 first = points[1] - points[0];
    // A leader shorter than two arrows goes without one.
    if (leader.arrowHead && size > 0 && Length(first) > 2 * size) {
        const Vec2 along = first * (size / Length(first));
        const Vec2 across = Vec2{-along.y, along.x} * (1.0 / 6);
        m_path.MoveTo(points[0]);
        m_path.LineTo(points[0] + along + across);
        m_path.LineTo(points[0] + along - across);
        m_path.Close();
        m_ink.Fill(m_path, m_style.color, FillRule::NonZero);
        m_path.Clear();
        points[0] = points[0] + along;
    }
    if (leader.spline && AppendFitCurve(m_path, points, {}, false)) {
        StrokePath();
        return true;
    }
    for (const Vec2 point : points) {
        m_path.Empty() ? m_path.MoveTo(point) : m_path.LineTo(point);
    }
    StrokePath();
    return true;
}

} // namespace sm::render
