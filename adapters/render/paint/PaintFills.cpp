#include "drawing/EntityKinds.h"
#include "drawing/entities/Solids.h"
#include "geometry/Nurbs.h"
#include "paint/Painter.h"

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
    FillArea(m_path, FillRule::NonZero);
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

} // namespace sm::render
