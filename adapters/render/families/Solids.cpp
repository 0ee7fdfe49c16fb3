// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/Solids.h"
#include "context/Strokes.h"
#include "drawing/EntityKinds.h"
#include "families/Families.h"
#include "geometry/Nurbs.h"
#include "render/Arcs.h"

#include <algorithm>
#include <utility>

namespace sm::render {

namespace {

class Quads final : public LeafPainter<drawing::QuadData> {
public:
    using LeafPainter::LeafPainter;

private:
    bool Draw(const drawing::QuadData& quad, drawing::EntityKind kind) override;
    void AddFaces(const drawing::QuadData& quad, const drawing::EntityRecord& record, FaceCollector& faces) override;
    [[nodiscard]] bool HasSides(drawing::EntityKind kind) const override { return kind != drawing::EntityKind::Face3d; }
    void DrawEdges(const drawing::QuadData& quad);
};

bool Quads::Draw(const drawing::QuadData& quad, drawing::EntityKind kind)
{
    if (kind == drawing::EntityKind::Face3d) {
        DrawEdges(quad);
        return true;
    }
    const Matrix2 plane = PlaneOf(ToPaper(), quad.extrusion, quad.corners[0].z);
    for (const std::size_t i : {0, 1, 3, 2}) { // the last two corners are crossed in the file
        const Vec2 at = plane.Apply({quad.corners[i].x, quad.corners[i].y});
        m_path.Empty() ? m_path.MoveTo(at) : m_path.LineTo(at);
    }
    m_path.Close();
    FillArea(m_context, m_path, FillRule::NonZero);
    return true;
}

void Quads::DrawEdges(const drawing::QuadData& quad)
{
    for (std::size_t i = 0; i < quad.corners.size(); ++i) {
        const Vec3 from = quad.corners[i];
        const Vec3 to = quad.corners[(i + 1) % quad.corners.size()];
        const bool hidden = (quad.invisibleEdges >> i & 1) != 0 && !m_context.switches.hiddenFrames;
        if (!hidden && !(from == to)) {
            m_path.MoveTo(ToPaper().Apply(from));
            m_path.LineTo(ToPaper().Apply(to));
        }
    }
    StrokePath(m_context);
}

void Quads::AddFaces(const drawing::QuadData& quad, const drawing::EntityRecord& record, FaceCollector& faces)
{
    const auto& c = quad.corners;
    if (record.kind == drawing::EntityKind::Face3d) {
        faces.Add(c);
        return;
    }
    FlatLine outline;
    for (const std::size_t i : {0, 1, 3, 2}) {
        outline.points.push_back({c[i].x, c[i].y});
    }
    faces.Add(outline.InSpace(quad.extrusion, c[0].z));
    if (quad.thickness != 0) {
        AddThickness(faces, outline, true, quad, c[0].z);
        faces.Add(outline.InSpace(quad.extrusion, c[0].z + quad.thickness));
    }
}

class Solids final : public LeafPainter<drawing::SolidData> {
public:
    using LeafPainter::LeafPainter;

private:
    bool Draw(const drawing::SolidData& solid, drawing::EntityKind /*kind*/) override;
    void AddFaces(const drawing::SolidData& solid, const drawing::EntityRecord& record, FaceCollector& faces) override;
};

bool Solids::Draw(const drawing::SolidData& solid, drawing::EntityKind)
{
    const Projection& to = ToPaper();
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
        m_context.Remark(solid.edges.empty() ? "a solid whose save can't be read left out"
                                             : "some edges of a solid left out");
    }
    if (m_path.Empty()) {
        return false;
    }
    StrokePath(m_context);
    return true;
}

void Solids::AddFaces(const drawing::SolidData&, const drawing::EntityRecord& record, FaceCollector& faces)
{
    const drawing::SolidFaces known = drawing::ReadFaces(m_drawing, record);
    for (const std::vector<std::vector<Vec3>>& face : known.flat) {
        faces.Add(face);
    }
    faces.NoteOthers(known.others);
}

class Meshes final : public LeafPainter<drawing::MeshData> {
public:
    using LeafPainter::LeafPainter;

private:
    bool Draw(const drawing::MeshData& mesh, drawing::EntityKind /*kind*/) override;
    void AddFaces(const drawing::MeshData& mesh, const drawing::EntityRecord& record, FaceCollector& faces) override;
};

// The edges of a mesh's faces, each once.
bool Meshes::Draw(const drawing::MeshData& mesh, drawing::EntityKind)
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
        m_path.MoveTo(ToPaper().Apply(mesh.vertices[a]));
        m_path.LineTo(ToPaper().Apply(mesh.vertices[b]));
    }
    StrokePath(m_context);
    return !edges.empty();
}

void Meshes::AddFaces(const drawing::MeshData& mesh, const drawing::EntityRecord&, FaceCollector& faces)
{
    const std::vector<std::int32_t>& list = mesh.faces;
    std::vector<Vec3> corners;
    for (std::size_t at = 0; at < list.size();) {
        const std::size_t count = std::min(static_cast<std::size_t>(std::max(list[at], 0)), list.size() - at - 1);
        corners.clear();
        for (std::size_t i = at + 1; i <= at + count; ++i) {
            if (list[i] >= 0 && static_cast<std::size_t>(list[i]) < mesh.vertices.size()) {
                corners.push_back(mesh.vertices[static_cast<std::size_t>(list[i])]);
            }
        }
        faces.Add(corners);
        at += 1 + count;
    }
}

} // namespace

std::unique_ptr<EntityPainter> MakeQuads(PaintContext& context, IWalk& walk)
{
    return std::make_unique<Quads>(context, walk);
}

std::unique_ptr<EntityPainter> MakeSolids(PaintContext& context, IWalk& walk)
{
    return std::make_unique<Solids>(context, walk);
}

std::unique_ptr<EntityPainter> MakeMeshes(PaintContext& context, IWalk& walk)
{
    return std::make_unique<Meshes>(context, walk);
}

} // namespace sm::render
