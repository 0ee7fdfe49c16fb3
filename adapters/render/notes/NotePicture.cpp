// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/NotePicture.h"

#include "render/Projection.h"
#include "render/Style.h"

namespace sm::render {

void NotePicture::SetPlane(Vec3 normal, Vec3 point)
{
    extrusion = normal == Vec3{} ? Vec3{0, 0, 1} : normal;
    elevation = Dot(OcsAxes(extrusion).z, point);
}

Vec2 NotePicture::ToPlane(Vec3 world) const
{
    const Matrix3 axes = OcsAxes(extrusion);
    return {Dot(axes.x, world), Dot(axes.y, world)};
}

Vec3 NotePicture::ToWorld(Vec2 point) const
{
    return OcsAxes(extrusion).Apply({point.x, point.y, elevation});
}

Path& NotePicture::Add(const drawing::Entity& pen, bool filled)
{
    shapes.push_back({{}, pen, filled});
    return shapes.back().path;
}

void NotePicture::AddLine(Vec2 from, Vec2 to, const drawing::Entity& pen)
{
    if (from == to) {
        return;
    }
    Path& path = Add(pen);
    path.MoveTo(from);
    path.LineTo(to);
}

void NotePicture::AddPolygon(std::initializer_list<Vec2> corners, const drawing::Entity& pen, bool filled)
{
    Path& path = Add(pen, filled);
    for (const Vec2 corner : corners) {
        path.Empty() ? path.MoveTo(corner) : path.LineTo(corner);
    }
    path.Close();
}

void NotePicture::AddText(drawing::MTextData text, Vec2 at)
{
    text.insertion = ToWorld(at);
    text.extrusion = extrusion;
    text.hasDirection = false;
    texts.push_back(std::move(text));
}

drawing::Entity NotePen(std::int32_t color, std::int32_t lineweight)
{
    drawing::Entity pen;
    pen.color = color >= 0 && color <= drawing::kByLayer ? static_cast<std::int16_t>(color) : drawing::kByBlock;
    pen.lineweight = lineweight >= drawing::kLineweightDefault && lineweight <= 1000
                         ? static_cast<std::int16_t>(lineweight)
                         : drawing::kLineweightByBlock;
    pen.linetype = kLinetypeByBlock;
    return pen;
}

Vec2 SizeOf(const LaidText& text)
{
    if (text.outline.size() != 4) {
        return {};
    }
    return {Length(text.outline[1] - text.outline[0]), Length(text.outline[3] - text.outline[0])};
}

} // namespace sm::render
