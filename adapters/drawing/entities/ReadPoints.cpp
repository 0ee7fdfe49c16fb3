// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/Points.h"
#include "entities/EntityTags.h"

namespace sm::drawing {

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

void Read(const Drawing& drawing, const EntityRecord& record, ShapeData& data)
{
    data = {};
    EntityTags tags(drawing.Tags(), record);
    while (tags.Next()) {
        if (tags.Take(10, data.insertion))
            continue;
        switch (tags.Code()) {
        case 2:
            DecodeText(tags.Source(), tags.Name(), data.name);
            break;
        // Of a DWG alone.
        case 75:
            data.number = static_cast<std::uint16_t>(tags.Integer() & 0xFFFF);
            break;
        case 340:
            data.style = tags.Source().StyleOfHandle(tags.HandleValue());
            break;
        case 40:
            data.size = tags.Real();
            break;
        case 41:
            data.widthFactor = tags.Real();
            break;
        case 50:
            data.rotation = tags.Real();
            break;
        case 51:
            data.oblique = tags.Real();
            break;
        default:
            tags.TakeCommon(data);
        }
    }
}

} // namespace sm::drawing
