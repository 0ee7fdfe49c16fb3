// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/EntityKinds.h"
#include "drawing/entities/Inserts.h"
#include "entities/EntityTags.h"

#include <algorithm>

namespace sm::drawing {

namespace {

void Reset(InsertData& data)
{
    std::string name = std::move(data.blockName);
    std::vector<EntityRecord> attributes = std::move(data.attributes);
    data = {};
    name.clear();
    attributes.clear();
    data.blockName = std::move(name);
    data.attributes = std::move(attributes);
}

void TakeInsertTag(const EntityTags& tags, InsertData& data)
{
    switch (tags.Code()) {
    case 2:
        data.block = tags.Source().BlockOf(tags.Name());
        tags.Source().text->Decode(tags.Name(), data.blockName);
        break;
    case 41:
        data.scale.x = tags.Real();
        break;
    case 42:
        data.scale.y = tags.Real();
        break;
    case 43:
        data.scale.z = tags.Real();
        break;
    case 44:
        data.columnSpacing = tags.Real();
        break;
    case 45:
        data.rowSpacing = tags.Real();
        break;
    case 50:
        data.rotation = tags.Real();
        break;
    case 70:
        data.columns = tags.Integer();
        break;
    case 71:
        data.rows = tags.Integer();
        break;
    case 66:
        break;
    default:
        tags.TakeCommon(data);
    }
}

void BoundArray(InsertData& data)
{
    constexpr std::int32_t kMost = 1'000'000;
    data.columns = std::clamp(data.columns, 1, kMost);
    data.rows = std::clamp(data.rows, 1, kMost / data.columns);
}

/// The ATTRIB records behind the insert's own tags; `tags` stands on a code 0.
void ReadAttributes(TagCursor tags, const EntityRecord& record, std::vector<EntityRecord>& attributes)
{
    bool open = false;
    bool more = true;
    while (more) {
        if (tags.Code() == 0) {
            if (open)
                attributes.back().length = static_cast<std::uint32_t>(tags.Begin() - attributes.back().begin);
            open = tags.Name() == "ATTRIB";
            if (open)
                attributes.push_back({.begin = tags.End(),
                                      .length = static_cast<std::uint32_t>(record.begin + record.length - tags.End()),
                                      .line = tags.Line(),
                                      .kind = EntityKind::Attrib,
                                      .paperSpace = record.paperSpace,
                                      .nameIndex = 0});
        }
        more = tags.Next();
    }
}

} // namespace

void Read(const Drawing& drawing, const EntityRecord& record, InsertData& data)
{
    Reset(data);
    data.block = kNoBlock;
    EntityTags tags(drawing.Tags(), record);
    while (tags.Next())
        if (!tags.Take(10, data.insertion))
            TakeInsertTag(tags, data);
    BoundArray(data);
    TagCursor rest = tags.Cursor();
    bool more = true;
    while (more && rest.Code() != 0)
        more = rest.Next();
    if (more)
        ReadAttributes(rest, tags.Record(), data.attributes);
}

} // namespace sm::drawing
