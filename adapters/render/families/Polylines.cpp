// SPDX-License-Identifier: GPL-3.0-or-later
#include "polylines/PolylinePen.h"

#include "drawing/EntityKinds.h"
#include "families/Families.h"
#include "polylines/PolylineMeshes.h"

namespace sm::render {

namespace {

class Polylines final : public LeafPainter<drawing::PolylineData> {
public:
    using LeafPainter::LeafPainter;

private:
    bool Draw(const drawing::PolylineData& polyline, drawing::EntityKind /*kind*/) override
    {
        m_pen.Draw(polyline);
        return true;
    }
    void AddFaces(const drawing::PolylineData& polyline, const drawing::EntityRecord& record,
                  FaceCollector& faces) override;
    [[nodiscard]] bool HasSides(drawing::EntityKind /*kind*/) const override { return true; }
    PolylinePen m_pen{m_context};
};

// Meshes hide by their faces, lines by the walls that a thickness makes of them.
void Polylines::AddFaces(const drawing::PolylineData& polyline, const drawing::EntityRecord&, FaceCollector& faces)
{
    if (polyline.isPolyface || polyline.isMesh) {
        AddMeshFaces(polyline, faces);
        return;
    }
    if (polyline.thickness == 0 || polyline.is3d) {
        return;
    }
    FlatLine line;
    const drawing::PolyVertex* previous = nullptr;
    for (const drawing::PolyVertex& vertex : polyline.vertices) {
        if (!IsDrawnVertex(polyline, vertex)) {
            continue;
        }
        const Vec2 at{vertex.point.x, vertex.point.y};
        previous == nullptr ? line.points.push_back(at)
                            : line.AddBulge({previous->point.x, previous->point.y}, at, previous->bulge);
        previous = &vertex;
    }
    if (polyline.closed && previous != nullptr && previous->bulge != 0) {
        line.AddBulge({previous->point.x, previous->point.y}, Vec2{line.points.front()}, previous->bulge);
    }
    AddThickness(faces, line, polyline.closed, polyline, ElevationOf(polyline));
}

} // namespace

std::unique_ptr<EntityPainter> MakePolylines(PaintContext& context, IWalk& walk)
{
    return std::make_unique<Polylines>(context, walk);
}

} // namespace sm::render
