// SPDX-License-Identifier: GPL-3.0-or-later
#include "acis/AcisCurves.h"
#include "drawing/entities/Solids.h"
#include "entities/EntityTags.h"
#include "tags/ObjectLinks.h"

namespace sm::drawing {

namespace {

constexpr std::size_t kLargestSave = 256'000'000;

/// Up to R2010 the save stands in groups 1 and 3, each visible character c written as 159 - c; a caret and a blank
/// stand for a caret.
void AppendLine(std::string_view raw, std::string& save)
{
    for (std::size_t i = 0; i < raw.size(); ++i) {
        const char c = raw[i];
        if (c == '^' && i + 1 < raw.size() && raw[i + 1] == ' ')
            ++i;
        const int code = static_cast<unsigned char>(c);
        save.push_back(code > ' ' && code < 127 ? static_cast<char>(159 - code) : c);
    }
}

/// From R2013 the save stands in the data section as chunks of a record's column "ASM_Data".
std::string SaveOf(const Drawing::Source& source, Handle entity)
{
    std::string save;
    for (const NamedSlice& record : source.DataRecordsOf(entity)) {
        bool mine = false;
        ForEachObjectTag(source, record, [&](const TagCursor& tag) {
            if (tag.Code() == 2)
                mine = tag.Name() == "ASM_Data";
            else if (tag.Code() == 310 && mine && save.size() < kLargestSave)
                AppendChunk(tag, save);
        });
        if (!save.empty())
            return save;
    }
    return save;
}

/// Fills what an entity has in common with all others and gives its modeller's save.
std::string ReadSave(const Drawing& drawing, const EntityRecord& record, Entity& data)
{
    EntityTags tags(drawing.Tags(), record);
    std::string save;
    while (tags.Next()) {
        if (tags.Code() == 1 && !save.empty())
            save.push_back('\n');
        if ((tags.Code() == 1 || tags.Code() == 3) && save.size() < kLargestSave)
            AppendLine(tags.RawText(), save);
        else if (tags.Code() != 2)
            tags.TakeCommon(data);
    }
    if (save.empty())
        save = SaveOf(drawing.Tags(), data.handle);
    return save;
}

} // namespace

void Read(const Drawing& drawing, const EntityRecord& record, SolidData& data)
{
    std::vector<SolidEdge> edges = std::move(data.edges);
    data = {};
    edges.clear();
    data.edges = std::move(edges);
    const std::string save = ReadSave(drawing, record, data);
    const AcisRecords records(save);
    data.complete = AcisCurves(records).Append(data.edges);
}

SolidFaces ReadFaces(const Drawing& drawing, const EntityRecord& record)
{
    Entity entity;
    const std::string save = ReadSave(drawing, record, entity);
    const AcisRecords records(save);
    return AcisCurves(records).Faces();
}

} // namespace sm::drawing
