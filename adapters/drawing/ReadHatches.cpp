#include "drawing/EntityTags.h"

namespace sm::drawing {

void Read(const Drawing& drawing, const EntityRecord& record, HatchData& data)
{
    data = {};
    EntityTags tags(drawing.Tags(), record);
    while (tags.Next())
        tags.TakeCommon(data);
}

} // namespace sm::drawing
