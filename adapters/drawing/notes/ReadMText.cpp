// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/Texts.h"
#include "entities/EntityTags.h"
#include "notes/MTextColumns.h"

namespace sm::drawing {

namespace {

void Reset(MTextData& data)
{
    std::string text = std::move(data.text);
    std::vector<double> heights = std::move(data.columnHeights);
    data = {};
    data.text = std::move(text);
    data.text.clear();
    data.columnHeights = std::move(heights);
    data.columnHeights.clear();
}

void TakeDirection(const EntityTags& tags, MTextData& data)
{
    if (!data.hasDirection)
        data.direction = {};
    data.hasDirection = true;
    tags.Take(11, data.direction);
}

bool TakeColumnTag(const EntityTags& tags, MTextData& data)
{
    switch (tags.Code()) {
    case 75:
        data.columnType = tags.Integer();
        break;
    case 76:
        data.columnCount = tags.Integer();
        break;
    case 78:
        data.columnsReversed = tags.Integer() != 0;
        break;
    case 79:
        data.columnAutoHeight = tags.Integer() != 0;
        break;
    case 48:
        data.columnWidth = tags.Real();
        break;
    case 49:
        data.columnGutter = tags.Real();
        break;
    default:
        return false;
    }
    return true;
}

bool TakeBackgroundTag(const EntityTags& tags, MTextData& data)
{
    switch (tags.Code()) {
    case 90:
        data.backgroundFlags = tags.Integer();
        break;
    case 45:
        data.backgroundScale = tags.Real();
        break;
    case 63:
        data.backgroundColor = static_cast<std::int16_t>(tags.Integer() & 0x1FF);
        break;
    case 421:
        data.backgroundTrueColor = static_cast<std::uint32_t>(tags.Integer()) & 0xFFFFFF;
        break;
    default:
        return false;
    }
    return true;
}

bool TakeMTextTag(const EntityTags& tags, MTextData& data)
{
    switch (tags.Code()) {
    case 1:
    case 3:
        tags.Source().text->Append(tags.RawText(), data.text);
        break;
    case 7:
        data.style = tags.Source().StyleOf(tags.Name());
        break;
    case 40:
        data.height = tags.Real();
        break;
    case 41:
        data.width = tags.Real();
        break;
    case 46:
        data.definedHeight = tags.Real();
        break;
    case 44:
        data.lineSpacing = tags.Real();
        break;
    case 50:
        data.rotation = tags.Real();
        break;
    case 71:
        data.attachment = tags.Integer();
        break;
    case 73:
        data.lineSpacingStyle = tags.Integer();
        break;
    case 11:
    case 21:
    case 31:
        TakeDirection(tags, data);
        break;
    default:
        return false;
    }
    return true;
}

} // namespace

void Read(const Drawing& drawing, const EntityRecord& record, MTextData& data)
{
    Reset(data);
    EntityTags tags(drawing.Tags(), record);
    bool hasAngle = false;
    while (tags.Next()) {
        // Column heights (50 once more) follow the column properties.
        const bool columnHeight = tags.Code() == 50 && data.columnType != 0;
        hasAngle = hasAngle || (tags.Code() == 50 && !columnHeight);
        if (columnHeight && data.columnHeights.size() < kMostTextColumns)
            data.columnHeights.push_back(tags.Real());
        if (columnHeight || tags.Take(10, data.insertion) || TakeMTextTag(tags, data))
            continue;
        if (!TakeColumnTag(tags, data) && !TakeBackgroundTag(tags, data))
            tags.TakeCommon(data);
    }
    if (tags.Cursor().Code() == 101)
        TakeEmbeddedColumns(tags.Cursor(), data);
    else if (tags.Cursor().Code() == 1001)
        TakeExtendedColumns(tags.Cursor(), data);
    // CAD programs leave out the direction along the world's x axis, also where the text's own plane has another one.
    data.hasDirection = data.hasDirection || !hasAngle;
    DecodeCarets(data.text);
}

} // namespace sm::drawing
