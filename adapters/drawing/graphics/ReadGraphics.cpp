// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/Graphics.h"
#include "entities/EntityTags.h"
#include "graphics/GraphicsStream.h"
#include "tags/ObjectLinks.h"

namespace sm::drawing {

void Read(const Drawing& drawing, const EntityRecord& record, GraphicsData& data)
{
    constexpr std::size_t kLargest = 256'000'000;
    data = {};
    EntityTags tags(drawing.Tags(), record);
    std::string bytes;
    bool announced = false; // the chunks follow their size at once
    while (tags.Next()) {
        const int code = tags.Code();
        if (code == 310 && announced && bytes.size() < kLargest) {
            AppendChunk(tags.Cursor(), bytes);
            continue;
        }
        announced = (code == 92 || code == 160) && bytes.empty();
        tags.TakeCommon(data);
    }
    GraphicsStream(bytes, drawing).ReadAll(data);
}

} // namespace sm::drawing
