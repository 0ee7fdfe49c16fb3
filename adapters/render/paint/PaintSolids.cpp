#include "drawing/entities/Solids.h"
#include "geometry/Nurbs.h"
#include "paint/Painter.h"
#include "paint/PainterBuffers.h"

namespace sm::render {

bool Painter::Draw(const drawing::SolidData& solid, drawing::EntityKind)
{
    const Projection& to = m_frame->toPaper;
    std::vector<Vec2> points;
    for (const drawing::SolidEdge& edge : solid.edges) {
        switch (edge.kind) {
        case drawing::SolidEdge::Kind::Line:
            m_path.MoveTo(to.Apply(edge.start));
            m_path.LineTo(to.Apply(edge.end));
            break;
        case drawing::SolidEdge::Kind::Arc: {
            const Vec2 center = to.Apply(edge.center);
            const Vec2 u = to.ApplyVector(edge.u);
            const Vec2 v = to.ApplyVector(edge.v);
            if (std::abs(edge.sweep) >= kTurn) {
                AppendEllipse(m_path, center, u, v);
            } else {
                AppendArc(m_path, {center, u, v, edge.from, edge.sweep}, Join::Move);
            }
            break;
        }
        case drawing::SolidEdge::Kind::Spline:
            points.clear();
            for (const Vec3 point : edge.points) {
                points.push_back(to.Apply(point));
            }
            AppendNurbs(m_path, {edge.degree, points, edge.knots, edge.weights});
            break;
        }
    }
    if (!solid.complete) {
        Remark(solid.edges.empty() ? "a solid whose save can't be read left out" : "some edges of a solid left out");
    }
    if (m_path.Empty()) {
        return false;
    }
    StrokePath();
    return true;
}

// The edges of a mesh's faces, each once.
bool Painter::Draw(const drawing::MeshData& mesh, drawing::EntityKind)
{
    std::vector<std::pair<std::uint32_t, std::uint32_t>> edges;
    const std::vector<std::int32_t>& faces = mesh.faces;
    const auto known = [&](std::int32_t i) { return i >= 0 && static_cast<std::size_t>(i) < mesh.vertices.size(); };
    for (std::size_t at = 0; at < faces.size();) {
        const auto left = faces.size() - at - 1;
        const std::size_t corners = std::min(static_cast<std::size_t>(std::max(faces[at], 0)), left);
        for (std::size_t i = 0; i < corners; ++i) {
            const std::int32_t a = faces[at + 1 + i];
            const std::int32_t b = faces[at + 1 + (i + 1) % corners];
            if (known(a) && known(b) && a != b) {
                edges.emplace_back(std::min(a, b), std::max(a, b));
            }
        }
        at += 1 + corners;
    }
    std::sort(edges.begin(), edges.end());
    edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
    for (const auto& [a, b] : edges) {
        m_path.MoveTo(m_frame->toPaper.Apply(mesh.vertices[a]));
        m_path.LineTo(m_frame->toPaper.Apply(mesh.vertices[b]));
    }
    StrokePath();
    return !edges.empty();
}

// What a thickness adds when the view isn't along it: the same outline at the far end, and lines across (DXF reference,
// common group 39).
void Painter::DrawThickness(const drawing::Entity& entity)
{
    const Vec2 across = m_frame->toPaper.ApplyVector(OcsAxes(entity.extrusion).z * entity.thickness);
    constexpr double kNothing = 1e-4; // mm
    if (!(Length(across) > kNothing) || !std::isfinite(Length(across))) {
        return;
    }
    Path far = m_path;
    for (Vec2& point : far.points) {
        point = point + across;
    }
    StrokePath(far, StrokePen());
    Path sides;
    const Vec2* point = m_path.points.data();
    for (const Verb verb : m_path.verbs) {
        point += verb == Verb::Cubic ? 2 : 0;
        if (verb != Verb::Close) {
            sides.MoveTo(*point);
            sides.LineTo(*point + across);
            ++point;
        }
    }
    StrokePath(sides, StrokePen());
}

} // namespace sm::render
