#include "cadhost/EntityBox.h"

#include "cadhost/Ocs.h"

namespace sm::cadhost {
namespace {

using drawing::Box2;
using drawing::Vec2;
using drawing::Vec3;

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
    default:
        return box;
    }
}

} // namespace

Box2 BoxOf(const drawing::Drawing& drawing, const drawing::EntityRecord& record, render::TextEngine& text)
{
    if (record.kind == drawing::EntityKind::Viewport)
        return FrameOf(ReadAs<drawing::ViewportData>(drawing, record));
    const Box2 drawn = render::BoundsOf(drawing, record, text);
    return drawn.Empty() ? PlaceOf(drawing, record) : drawn;
}

} // namespace sm::cadhost
