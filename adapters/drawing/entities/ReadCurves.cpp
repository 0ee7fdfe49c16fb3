// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/Curves.h"
#include "entities/EntityTags.h"

namespace sm::drawing {

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

} // namespace sm::drawing
