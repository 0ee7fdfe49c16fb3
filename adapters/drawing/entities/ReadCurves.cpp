#include "entities/EntityTags.h"

namespace sm::drawing {

void Read(const Drawing& drawing, const EntityRecord& record, Entity& data)
{
    data = {};
    EntityTags tags(drawing.Tags(), record);
    while (tags.Next())
        tags.TakeCommon(data);
}

void Read(const Drawing& drawing, const EntityRecord& record, LineData& data)
{
    data = {};
    EntityTags tags(drawing.Tags(), record);
    while (tags.Next())
        if (!tags.Take(10, data.start) && !tags.Take(11, data.end))
            tags.TakeCommon(data);
}

void Read(const Drawing& drawing, const EntityRecord& record, CircleData& data)
{
    data = {};
    EntityTags tags(drawing.Tags(), record);
    while (tags.Next()) {
        if (tags.Take(10, data.center))
            continue;
        if (tags.Code() == 40)
            data.radius = tags.Real();
        else
            tags.TakeCommon(data);
    }
}

void Read(const Drawing& drawing, const EntityRecord& record, ArcData& data)
{
    data = {};
    EntityTags tags(drawing.Tags(), record);
    while (tags.Next()) {
        if (tags.Take(10, data.center))
            continue;
        switch (tags.Code()) {
        case 40:
            data.radius = tags.Real();
            break;
        case 50:
            data.startAngle = tags.Real();
            break;
        case 51:
            data.endAngle = tags.Real();
            break;
        default:
            tags.TakeCommon(data);
        }
    }
}

void Read(const Drawing& drawing, const EntityRecord& record, EllipseData& data)
{
    data = {};
    EntityTags tags(drawing.Tags(), record);
    while (tags.Next()) {
        if (tags.Take(10, data.center) || tags.Take(11, data.majorAxis))
            continue;
        switch (tags.Code()) {
        case 40:
            data.ratio = tags.Real();
            break;
        case 41:
            data.startParameter = tags.Real();
            break;
        case 42:
            data.endParameter = tags.Real();
            break;
        default:
            tags.TakeCommon(data);
        }
    }
}

void Read(const Drawing& drawing, const EntityRecord& record, PointData& data)
{
    data = {};
    EntityTags tags(drawing.Tags(), record);
    while (tags.Next()) {
        if (tags.Take(10, data.location))
            continue;
        if (tags.Code() == 50)
            data.angle = tags.Real();
        else
            tags.TakeCommon(data);
    }
}

void Read(const Drawing& drawing, const EntityRecord& record, QuadData& data)
{
    data = {};
    EntityTags tags(drawing.Tags(), record);
    bool hasZ = false, hasFourth = false;
    while (tags.Next()) {
        const int code = tags.Code();
        const int corner = code % 10;
        if (code >= 10 && code <= 39 && corner <= 3) {
            tags.Take(10 + corner, data.corners[static_cast<std::size_t>(corner)]);
            hasZ = hasZ || code >= 30;
            hasFourth = hasFourth || corner == 3;
        } else if (code == 70) {
            data.invisibleEdges = tags.Integer();
        } else {
            tags.TakeCommon(data);
        }
    }
    if (!hasFourth)
        data.corners[3] = data.corners[2];
    for (Vec3& corner : data.corners)
        if (!hasZ)
            corner.z = data.elevation;
}

} // namespace sm::drawing
