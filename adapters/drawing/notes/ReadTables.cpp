// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/TableEntities.h"
#include "entities/EntityTags.h"

#include <algorithm>
#include <array>

namespace sm::drawing {

namespace {

/// Cells that one table may have at most: a file that asks for more is damaged.
constexpr std::size_t kMostCells = 20'000;

void TakeCellColor(std::optional<std::int16_t>& color, std::int32_t value)
{
    if (value >= 0 && value <= kByLayer)
        color = static_cast<std::int16_t>(value);
}

bool TakeCellContent(const EntityTags& tags, TableData::Cell& cell)
{
    switch (tags.Code()) {
    case 340:
        cell.block = tags.Source().BlockOfHandle(tags.HandleValue());
        break;
    case 144:
        cell.blockScale = tags.Real();
        break;
    case 145:
        cell.rotation = tags.Real();
        break;
    case 331:
        cell.attributes.push_back({.definition = tags.HandleValue(), .text = {}});
        break;
    case 300:
        if (!cell.attributes.empty())
            DecodeText(tags.Source(), tags.RawText(), cell.attributes.back().text);
        break;
    case 1:
    case 2:
        tags.Source().text->Append(tags.RawText(), cell.text);
        break;
    default:
        return false;
    }
    return true;
}

/// DXF reference, ACAD_TABLE: lineweights 275 to 279, colours 65 to 69 and visibility 285 to 289 of the four sides.
bool TakeBorder(const EntityTags& tags, TableData::Cell& cell)
{
    constexpr std::array<std::pair<int, TableData::Side>, 4> kSides{
        {{5, TableData::Right}, {6, TableData::Bottom}, {8, TableData::Left}, {9, TableData::Top}}};
    for (const auto& [digit, side] : kSides) {
        TableData::Border& border = cell.borders[side];
        if (tags.Code() == 60 + digit)
            TakeCellColor(border.color, tags.Integer());
        else if (tags.Code() == 270 + digit)
            border.lineweight = static_cast<std::int16_t>(std::clamp(tags.Integer(), -3, 1000));
        else if (tags.Code() == 280 + digit)
            border.hidden = tags.Integer() == 0;
        else
            continue;
        return true;
    }
    return false;
}

void TakeCellTag(const EntityTags& tags, TableData::Cell& cell)
{
    if (TakeBorder(tags, cell))
        return;
    switch (tags.Code()) {
    case 173:
        cell.hidden = tags.Integer() != 0;
        break;
    case 175:
        cell.columns = std::max(tags.Integer(), 1);
        break;
    case 176:
        cell.rows = std::max(tags.Integer(), 1);
        break;
    case 7:
        cell.style = tags.Source().StyleOf(tags.Name());
        break;
    case 140:
        cell.textHeight = tags.Real();
        break;
    case 170:
        cell.alignment = tags.Integer();
        break;
    case 64:
        TakeCellColor(cell.textColor, tags.Integer());
        break;
    case 63:
        TakeCellColor(cell.fillColor, tags.Integer());
        cell.filled = cell.fillColor.has_value(); // group 283 says 0 of filled and of empty cells
        break;
    default:
        TakeCellContent(tags, cell);
    }
}

void TakeKindTag(const Drawing::Source& source, const TagCursor& tag, TableData::Kind& kind)
{
    std::optional<std::int16_t> color;
    switch (tag.Code()) {
    case 140:
        kind.textHeight = tag.Real();
        break;
    case 170:
        kind.alignment = tag.Integer();
        break;
    case 62:
    case 63:
        TakeCellColor(color, tag.Integer());
        (tag.Code() == 62 ? kind.textColor : kind.fillColor) = color.value_or(kByBlock);
        break;
    case 283:
        kind.filled = tag.Integer() != 0;
        break;
    case 7:
        kind.style = source.StyleOf(tag.Name());
        break;
    default:
        break;
    }
}

/// A TABLESTYLE: general values, then those of data, title and header cells, each from its text style (7) on.
void ReadStyle(const Drawing::Source& source, const Slice& slice, TableData& data)
{
    TagCursor tags = source.TagsOf(slice);
    std::size_t kinds = 0;
    while (tags.Next() && tags.Code() < 1000) {
        kinds += tags.Code() == 7 ? 1 : 0;
        if (kinds > data.kinds.size())
            return;
        if (kinds > 0)
            TakeKindTag(source, tags, data.kinds[kinds - 1]);
        else if (tags.Code() == 40)
            data.marginX = std::max(tags.Real(), 0.0);
        else if (tags.Code() == 41)
            data.marginY = std::max(tags.Real(), 0.0);
        else if (tags.Code() == 280)
            data.title = tags.Integer() == 0;
        else if (tags.Code() == 281)
            data.header = tags.Integer() == 0;
    }
}

/// Where the walk stands: in the table's own groups, in a cell, or in the value of a cell (from R2007 on).
struct TableWalk {
    TableData& data;
    bool inValue = false;
    Handle style = 0;

    void TakeTableTag(const EntityTags& tags)
    {
        if (tags.Take(10, data.insertion) || tags.Take(11, data.direction))
            return;
        switch (tags.Code()) {
        case 2:
            data.block = tags.Source().BlockOf(tags.Name());
            break;
        case 343:
            if (const std::uint32_t block = tags.Source().BlockOfHandle(tags.HandleValue()); block != kNoBlock)
                data.block = block;
            break;
        case 342:
            style = tags.HandleValue();
            break;
        case 141:
            data.rowHeights.push_back(std::max(tags.Real(), 0.0));
            break;
        case 142:
            data.columnWidths.push_back(std::max(tags.Real(), 0.0));
            break;
        default:
            tags.TakeCommon(data);
        }
    }

    void TakeValueTag(const EntityTags& tags)
    {
        inValue = !(tags.Code() == 304 && tags.Name() == "ACVALUE_END");
        if (inValue && tags.Code() == 302) // what shows of the value
            tags.Source().text->Append(tags.RawText(), data.cells.back().text);
    }

    void Take(const EntityTags& tags)
    {
        if (inValue) {
            TakeValueTag(tags);
        } else if (tags.Code() == 171 && data.cells.size() < kMostCells) {
            data.cells.emplace_back();
            data.cells.back().isBlock = tags.Integer() == 2;
        } else if (data.cells.empty()) {
            TakeTableTag(tags);
        } else if (tags.Code() == 301) {
            inValue = true;
        } else {
            TakeCellTag(tags, data.cells.back());
        }
    }
};

} // namespace

void Read(const Drawing& drawing, const EntityRecord& record, TableData& data)
{
    data = {};
    TableWalk walk{data};
    EntityTags tags(drawing.Tags(), record);
    while (tags.Next())
        walk.Take(tags);
    const auto& styles = drawing.Tags().noteStyles;
    if (const auto style = styles.find(walk.style); walk.style != 0 && style != styles.end())
        ReadStyle(drawing.Tags(), style->second, data);
    const std::size_t cells = data.columnWidths.size() * data.rowHeights.size();
    if (data.cells.size() > cells)
        data.cells.resize(cells);
    for (TableData::Cell& cell : data.cells)
        DecodeCarets(cell.text);
}

} // namespace sm::drawing
