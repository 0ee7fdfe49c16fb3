// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/EntityKinds.h"
#include "drawing/entities/Polylines.h"
#include "entities/EntityTags.h"

#include <algorithm>

namespace sm::drawing {

namespace {

void Reset(PolylineData& data)
{
    std::vector<PolyVertex> vertices = std::move(data.vertices);
    data = {};
    data.vertices = std::move(vertices);
    data.vertices.clear();
}

void TakeFlags(PolylineData& data, std::int32_t flags)
{
    data.closed = (flags & 1) != 0;
    data.curveFitted = (flags & 2) != 0;
    data.splineFitted = (flags & 4) != 0;
    data.is3d = (flags & 8) != 0;
    data.isMesh = (flags & 16) != 0;
    data.meshClosedM = data.isMesh && data.closed;
    data.meshClosedN = (flags & 32) != 0;
    data.isPolyface = (flags & 64) != 0;
    data.plinegen = (flags & 128) != 0;
}

void TakePolylineTag(const EntityTags& tags, PolylineData& data)
{
    switch (tags.Code()) {
    case 30:
        data.elevation = tags.Real();
        break;
    case 40:
        data.defaultStartWidth = tags.Real();
        break;
    case 41:
        data.defaultEndWidth = tags.Real();
        break;
    case 70:
        TakeFlags(data, tags.Integer());
        break;
    case 71:
        data.meshM = tags.Integer();
        break;
    case 72:
        data.meshN = tags.Integer();
        break;
    case 73: // a smoothed mesh is as fine as these say
        data.meshM = data.splineFitted && data.isMesh ? tags.Integer() : data.meshM;
        break;
    case 74:
        data.meshN = data.splineFitted && data.isMesh ? tags.Integer() : data.meshN;
        break;
    case 75:
        data.curveType = tags.Integer();
        break;
    case 10:
    case 20:
        break;
    default:
        tags.TakeCommon(data);
    }
}

void TakeVertexTag(const TagCursor& tags, PolyVertex& vertex)
{
    switch (tags.Code()) {
    case 10:
        vertex.point.x = tags.Real();
        break;
    case 20:
        vertex.point.y = tags.Real();
        break;
    case 30:
        vertex.point.z = tags.Real();
        break;
    case 40:
        vertex.startWidth = tags.Real();
        break;
    case 41:
        vertex.endWidth = tags.Real();
        break;
    case 42:
        vertex.bulge = tags.Real();
        break;
    case 70:
        vertex.flags = static_cast<std::uint8_t>(tags.Integer() & 0xFF);
        break;
    case 71:
    case 72:
    case 73:
    case 74:
        vertex.face[static_cast<std::size_t>(tags.Code() - 71)] = tags.Integer();
        break;
    default:
        break;
    }
}

/// The VERTEX records behind the polyline's own tags; `tags` stands on the first code 0.
void ReadVertices(TagCursor tags, PolylineData& data)
{
    bool inVertex = false;
    do {
        if (tags.Code() == 0) {
            inVertex = tags.Name() == "VERTEX";
            if (inVertex)
                data.vertices.push_back(
                    {.point = {}, .bulge = 0, .startWidth = data.defaultStartWidth, .endWidth = data.defaultEndWidth});
        } else if (inVertex) {
            TakeVertexTag(tags, data.vertices.back());
        }
    } while (tags.Next());
}

void BoundMesh(PolylineData& data)
{
    const auto found = static_cast<std::int32_t>(std::min<std::size_t>(data.vertices.size(), 0x7FFFFFFF));
    data.meshM = std::clamp(data.meshM, 0, found);
    data.meshN = std::clamp(data.meshN, 0, found);
}

void ReadOldPolyline(EntityTags& tags, PolylineData& data)
{
    while (tags.Next())
        TakePolylineTag(tags, data);
    // The walk stops at extended data as well: the vertices lie behind it.
    TagCursor rest = tags.Cursor();
    bool more = true;
    while (more && rest.Code() != 0)
        more = rest.Next();
    if (more && rest.Code() == 0)
        ReadVertices(rest, data);
    for (PolyVertex& vertex : data.vertices)
        if (!data.is3d && !data.isMesh && !data.isPolyface)
            vertex.point.z = data.elevation;
    BoundMesh(data);
}

void TakeLightVertexTag(const EntityTags& tags, PolylineData& data)
{
    if (tags.Code() == 10) {
        data.vertices.push_back({.point = {tags.Real(), 0, data.elevation},
                                 .bulge = 0,
                                 .startWidth = data.constantWidth,
                                 .endWidth = data.constantWidth});
        return;
    }
    if (data.vertices.empty())
        return;
    PolyVertex& vertex = data.vertices.back();
    switch (tags.Code()) {
    case 20:
        vertex.point.y = tags.Real();
        break;
    case 40:
        vertex.startWidth = tags.Real();
        break;
    case 41:
        vertex.endWidth = tags.Real();
        break;
    case 42:
        vertex.bulge = tags.Real();
        break;
    default:
        break;
    }
}

void ReadLightPolyline(EntityTags& tags, PolylineData& data)
{
    while (tags.Next()) {
        switch (tags.Code()) {
        case 10:
        case 20:
        case 40:
        case 41:
        case 42:
            TakeLightVertexTag(tags, data);
            break;
        case 43:
            data.constantWidth = tags.Real();
            break;
        case 70:
            TakeFlags(data, tags.Integer() & (1 | 128));
            break;
        case 90:
        case 91:
            break;
        default:
            tags.TakeCommon(data);
        }
    }
    data.defaultStartWidth = data.defaultEndWidth = data.constantWidth;
    for (PolyVertex& vertex : data.vertices)
        vertex.point.z = data.elevation;
}

} // namespace

void Read(const Drawing& drawing, const EntityRecord& record, PolylineData& data)
{
    Reset(data);
    EntityTags tags(drawing.Tags(), record);
    if (record.kind == EntityKind::LwPolyline)
        ReadLightPolyline(tags, data);
    else
        ReadOldPolyline(tags, data);
}

} // namespace sm::drawing
