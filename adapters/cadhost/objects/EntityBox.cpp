// SPDX-License-Identifier: GPL-3.0-or-later
#include "objects/EntityBox.h"

#include "drawing/EntityKinds.h"
#include "drawing/entities/Curves.h"
#include "drawing/entities/Dimensions.h"
#include "drawing/entities/Images.h"
#include "drawing/entities/Inserts.h"
#include "drawing/entities/Polylines.h"
#include "drawing/entities/TaggedPoints.h"
#include "drawing/entities/Viewports.h"
#include "objects/Ocs.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace sm::cadhost {
namespace {

void Add(Box2& box, Vec3 p)
{
    box.Add(Vec2{p.x, p.y});
}

template <class Data> Data ReadAs(const drawing::Drawing& drawing, const drawing::EntityRecord& record)
{
    Data data;
    drawing::Read(drawing, record, data);
    return data;
}

Box2 FrameOf(const drawing::ViewportData& viewport)
{
    const Vec3 half{viewport.width / 2, viewport.height / 2, 0};
    Box2 box;
    Add(box, viewport.center - half);
    Add(box, viewport.center + half);
    return box;
}

Box2 FrameOf(const drawing::ImageData& image)
{
    const Vec3 across = image.u * image.size.x, up = image.v * image.size.y;
    Box2 box;
    for (const Vec3 corner :
         {image.insertion, image.insertion + across, image.insertion + up, image.insertion + across + up})
        Add(box, corner);
    return box;
}

/// A polyline's own point is but an elevation.
Box2 BoxOfVertices(const drawing::PolylineData& polyline)
{
    const bool own = !polyline.is3d && !polyline.isMesh && !polyline.isPolyface;
    Box2 box;
    for (const drawing::PolyVertex& vertex : polyline.vertices)
        Add(box, own ? WorldPoint(vertex.point, polyline.extrusion) : vertex.point);
    return box;
}

/// Kinds whose points are their own system's, not the world's (DXF reference, object coordinate systems).
bool HasOwnSystem(drawing::EntityKind kind)
{
    using Kind = drawing::EntityKind;
    constexpr std::array kOwn{Kind::Circle, Kind::Arc,    Kind::LwPolyline, Kind::Solid, Kind::Trace,   Kind::Text,
                              Kind::Attrib, Kind::Attdef, Kind::Insert,     Kind::Hatch, Kind::MPolygon};
    return std::find(kOwn.begin(), kOwn.end(), kind) != kOwn.end();
}

/// The groups that hold places: 10 always; what a few kinds hold besides. The rest are directions and sizes.
bool IsPlace(drawing::EntityKind kind, int code)
{
    using Kind = drawing::EntityKind;
    constexpr int kFirst = 10, kSecond = 11, kThird = 12;
    switch (kind) {
    case Kind::Line:
    case Kind::MLine:
    case Kind::OleFrame:
    case Kind::Light:
    case Kind::Section:
        return code == kFirst || code == kSecond;
    case Kind::MultiLeader:
        return code == kFirst || code == kThird;
    default:
        return code == kFirst;
    }
}

Box2 BoxOfPoints(const drawing::Drawing& drawing, const drawing::EntityRecord& record)
{
    std::vector<drawing::TaggedPoint> points;
    drawing::ReadPoints(drawing, record, points);
    // A hatch begins with its elevation, which is no place (DXF reference, HATCH).
    if (record.kind == drawing::EntityKind::Hatch || record.kind == drawing::EntityKind::MPolygon)
        points.erase(points.begin(), points.begin() + (points.empty() ? 0 : 1));
    const bool own = HasOwnSystem(record.kind);
    const auto entity = ReadAs<drawing::Entity>(drawing, record);
    Box2 places, others;
    for (const drawing::TaggedPoint& tagged : points) {
        const Vec3 point = own ? WorldPoint(tagged.point, entity.extrusion) : tagged.point;
        Add(IsPlace(record.kind, tagged.code) ? places : others, point);
    }
    return places.Empty() && record.kind == drawing::EntityKind::Unknown ? others : places;
}

/// A table hangs down from its insertion point, along the direction of group 11.
Box2 FrameOfTable(const drawing::Drawing& drawing, const drawing::EntityRecord& record)
{
    constexpr int kInsertion = 10, kDirection = 11;
    std::vector<drawing::TaggedPoint> points;
    drawing::ReadPoints(drawing, record, points);
    const auto find = [&](int code, Vec3 fallback) {
        const auto found =
            std::find_if(points.begin(), points.end(), [&](const auto& one) { return one.code == code; });
        return found == points.end() ? fallback : found->point;
    };
    const Vec3 at = find(kInsertion, {}), along = find(kDirection, {1, 0, 0});
    const double length = std::hypot(along.x, along.y);
    const Vec3 right = length > 0 ? Vec3{along.x / length, along.y / length, 0} : Vec3{1, 0, 0};
    const Vec2 size = drawing::ReadTableSize(drawing, record);
    const Vec3 across = right * size.x, down = Vec3{right.y, -right.x, 0} * size.y;
    Box2 box;
    for (const Vec3 corner : {at, at + across, at + down, at + across + down})
        Add(box, corner);
    return points.empty() ? Box2{} : box;
}

/// A shape of unknown form takes a square of its size.
Box2 FrameOfShape(const drawing::Drawing& drawing, const drawing::EntityRecord& record)
{
    const auto shape = ReadAs<drawing::CircleData>(drawing, record); // 10 insertion, 40 size
    const Vec3 corner = shape.center + Vec3{shape.radius, shape.radius, 0};
    Box2 box;
    Add(box, WorldPoint(shape.center, shape.extrusion));
    Add(box, WorldPoint(corner, shape.extrusion));
    return box;
}

/// The place of an entity that draws nothing itself.
Box2 PlaceOf(const drawing::Drawing& drawing, const drawing::EntityRecord& record)
{
    Box2 box;
    switch (record.kind) {
    case drawing::EntityKind::Image:
    case drawing::EntityKind::Wipeout:
    case drawing::EntityKind::Underlay:
        return FrameOf(ReadAs<drawing::ImageData>(drawing, record));
    case drawing::EntityKind::Insert: {
        const auto insert = ReadAs<drawing::InsertData>(drawing, record);
        Add(box, WorldPoint(insert.insertion, insert.extrusion));
        return box;
    }
    case drawing::EntityKind::Dimension: {
        const auto dimension = ReadAs<drawing::DimensionData>(drawing, record);
        Add(box, dimension.definitionPoint);
        Add(box, WorldPoint(dimension.textMidpoint, dimension.extrusion));
        return box;
    }
    case drawing::EntityKind::Table:
        return FrameOfTable(drawing, record);
    case drawing::EntityKind::Shape:
        return FrameOfShape(drawing, record);
    case drawing::EntityKind::Polyline:
        return BoxOfVertices(ReadAs<drawing::PolylineData>(drawing, record));
    default:
        return BoxOfPoints(drawing, record);
    }
}

} // namespace

Box2 BoxOf(const drawing::Drawing& drawing, const drawing::EntityRecord& record, render::TextEngine& text,
           render::References* references)
{
    if (record.kind == drawing::EntityKind::Viewport)
        return FrameOf(ReadAs<drawing::ViewportData>(drawing, record));
    const Box2 drawn = render::BoundsOf(drawing, record, text, references);
    return drawn.Empty() ? PlaceOf(drawing, record) : drawn;
}

} // namespace sm::cadhost
