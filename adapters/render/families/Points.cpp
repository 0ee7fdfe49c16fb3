// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/Points.h"
#include "drawing/EntityKinds.h"
#include "families/Families.h"
#include "geometry/MappedPath.h"
#include "render/Arcs.h"
#include "render/ClipBox.h"

#include <cmath>

namespace sm::render {

namespace {

class Points final : public LeafPainter<drawing::PointData> {
public:
    using LeafPainter::LeafPainter;

private:
    bool Draw(const drawing::PointData& point, drawing::EntityKind /*kind*/) override;
    [[nodiscard]] double HalfSize() const;
    void AppendSign(std::int32_t mode, Vec2 at, double half);
};

double Points::HalfSize() const
{
    constexpr double kPartOfView = 0.05; // of the view's height, when no size is given
    const double given = m_context.switches.pointSize;
    const double unit = ScaleOf(PlaneOf(ToPaper(), {0, 0, 1}, 0));
    const Box2 page = m_ink.Window();
    const double view = page.Empty() ? 0 : page.Height();
    const double size = given > 0 ? given * unit : view * (given < 0 ? -given / 100 : kPartOfView);
    return m_context.options.boxesOnly ? 0 : size / 2;
}

// DXF reference, $PDMODE: 0 dot, 1 nothing, 2 plus, 3 cross, 4 tick; 32 and 64 add a frame.
void Points::AppendSign(std::int32_t mode, Vec2 at, double half)
{
    const auto line = [&](double x0, double y0, double x1, double y1) {
        m_path.MoveTo(at + Vec2{x0, y0} * half);
        m_path.LineTo(at + Vec2{x1, y1} * half);
    };
    constexpr double kDot = 0.02; // mm
    switch (mode % 32) {
    case 0:
        m_path.MoveTo(at);
        m_path.LineTo(at + Vec2{m_context.options.boxesOnly ? 0 : kDot, 0});
        break;
    case 2:
        line(-2, 0, 2, 0);
        line(0, -2, 0, 2);
        break;
    case 3:
        line(-2, -2, 2, 2);
        line(-2, 2, 2, -2);
        break;
    case 4:
        line(0, 0, 0, 1);
        break;
    default:
        break;
    }
    if ((mode & 32) != 0) {
        AppendEllipse(m_path, at, {half, 0}, {0, half});
    }
    if ((mode & 64) != 0) {
        AppendBox(m_path, {at - Vec2{half, half}, at + Vec2{half, half}});
    }
}

bool Points::Draw(const drawing::PointData& point, drawing::EntityKind)
{
    const Vec2 at = ToPaper().Apply(point.location);
    m_ink.Survey({&at, 1}); // signs stand upright on the sheet
    AppendSign(m_context.switches.pointMode, at, HalfSize());
    Pen pen = m_context.StrokePen();
    pen.pattern = nullptr;
    m_ink.Stroke(m_path, pen);
    return true;
}

class Shapes final : public LeafPainter<drawing::ShapeData> {
public:
    using LeafPainter::LeafPainter;

private:
    bool Draw(const drawing::ShapeData& shape, drawing::EntityKind /*kind*/) override;
};

bool Shapes::Draw(const drawing::ShapeData& shape, drawing::EntityKind)
{
    ShapeLibrary& library = m_context.Shapes();
    const Path* const strokes = shape.number != 0 ? library.Find(shape.style, shape.number) : library.Find(shape.name);
    if (strokes == nullptr) {
        m_context.Remark("a shape whose file is missing left out");
        return false;
    }
    const Matrix2 plane = PlaneOf(ToPaper(), shape.extrusion, shape.insertion.z);
    const double slant = std::tan(Radians(shape.oblique));
    const double lean = std::isfinite(slant) ? slant : 0;
    const Matrix2 form{shape.size * shape.widthFactor, 0, shape.size * lean, shape.size, 0, 0};
    Matrix2 placed = Compose(Turned(shape.rotation), form);
    placed.e = shape.insertion.x;
    placed.f = shape.insertion.y;
    AppendMapped(m_path, *strokes, Compose(plane, placed));
    Pen pen = m_context.StrokePen();
    pen.pattern = nullptr;
    m_ink.Stroke(m_path, pen);
    return true;
}

} // namespace

std::unique_ptr<EntityPainter> MakePoints(PaintContext& context, IWalk& walk)
{
    return std::make_unique<Points>(context, walk);
}

std::unique_ptr<EntityPainter> MakeShapes(PaintContext& context, IWalk& walk)
{
    return std::make_unique<Shapes>(context, walk);
}

} // namespace sm::render
