// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/MLines.h"
#include "entities/EntityTags.h"

namespace sm::drawing {

namespace {

constexpr std::int32_t kClosedMLine = 2, kNoStartCap = 4, kNoEndCap = 8;

std::uint32_t Count(std::size_t size)
{
    return static_cast<std::uint32_t>(size);
}

bool TakeVertexTag(const EntityTags& tags, MLineData& data)
{
    if (tags.Code() == 11)
        data.vertices.push_back({.point = {}, .direction = {}, .miter = {}, .first = Count(data.pieces.size())});
    if (data.vertices.empty())
        return false;
    MLineData::Vertex& vertex = data.vertices.back();
    return tags.Take(11, vertex.point) || tags.Take(12, vertex.direction) || tags.Take(13, vertex.miter);
}

/// 74 and 75 announce counts, which nothing relies on: 41 and 42 are the lengths themselves.
bool TakeLength(const EntityTags& tags, MLineData& data)
{
    if (data.vertices.empty())
        return false;
    if (tags.Code() == 74) {
        data.pieces.push_back({.first = Count(data.lengths.size())});
        ++data.vertices.back().count;
        return true;
    }
    if ((tags.Code() != 41 && tags.Code() != 42) || data.vertices.back().count == 0)
        return false;
    MLineData::Piece& piece = data.pieces.back();
    data.lengths.push_back(tags.Real());
    ++(tags.Code() == 41 && piece.fillCount == 0 ? piece.count : piece.fillCount);
    return true;
}

void TakeFlags(MLineData& data, std::int32_t flags)
{
    data.closed = (flags & kClosedMLine) != 0;
    data.noStartCap = (flags & kNoStartCap) != 0;
    data.noEndCap = (flags & kNoEndCap) != 0;
}

const Slice* StyleOf(const Drawing::Source& source, Handle handle, std::string_view rawName)
{
    if (const auto found = source.noteStyles.find(handle); handle != 0 && found != source.noteStyles.end())
        return &found->second;
    const auto index = source.multilineStyleNames.Find(rawName, *source.text);
    return index ? &source.multilineStyles[*index] : nullptr;
}

void TakeColor(Entity& pen, const TagCursor& tag)
{
    if (tag.Code() == 62)
        pen.color = static_cast<std::int16_t>(std::clamp(tag.Integer(), 0, 256));
    else if (tag.Code() == 420)
        pen.trueColor = static_cast<std::uint32_t>(tag.Long() & 0xFFFFFF);
}

void TakeStyleTag(const Drawing::Source& source, const TagCursor& tag, MLineData& data)
{
    switch (tag.Code()) {
    case 70:
        data.styleFlags = tag.Integer();
        break;
    case 51:
        data.startAngle = tag.Real();
        break;
    case 52:
        data.endAngle = tag.Real();
        break;
    case 49:
        data.elements.emplace_back();
        data.elements.back().offset = tag.Real();
        break;
    case 6:
        if (!data.elements.empty())
            data.elements.back().pen.linetype = source.LinetypeOf(tag.Name());
        break;
    default:
        TakeColor(data.elements.empty() ? data.fill : data.elements.back().pen, tag);
    }
}

void ReadStyle(const Drawing::Source& source, const Slice& slice, MLineData& data)
{
    TagCursor tags = source.TagsOf(slice);
    bool inBraces = false;
    while (tags.Next() && tags.Code() < 1000) {
        if (tags.Code() == 102)
            inBraces = tags.Name().starts_with('{');
        else if (!inBraces)
            TakeStyleTag(source, tags, data);
    }
}

} // namespace

void Read(const Drawing& drawing, const EntityRecord& record, MLineData& data)
{
    data = {};
    const Drawing::Source& source = drawing.Tags();
    EntityTags tags(source, record);
    std::string_view styleName;
    Handle style = 0;
    while (tags.Next()) {
        if (TakeVertexTag(tags, data) || TakeLength(tags, data))
            continue;
        if (tags.Code() == 2)
            styleName = tags.Name();
        else if (tags.Code() == 340)
            style = tags.HandleValue();
        else if (tags.Code() == 71)
            TakeFlags(data, tags.Integer());
        else
            tags.TakeCommon(data);
    }
    if (const Slice* slice = StyleOf(source, style, styleName))
        ReadStyle(source, *slice, data);
}

} // namespace sm::drawing
