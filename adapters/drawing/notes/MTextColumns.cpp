// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/MTextColumns.h"

namespace sm::drawing {

namespace {

void AddHeight(double height, MTextData& data)
{
    if (data.columnHeights.size() < kMostTextColumns)
        data.columnHeights.push_back(height);
}

constexpr int kHeights = 50, kDefinedHeight = 46;

/// `value` stands on the value of group `code` of a list in the extended data.
void TakePair(int code, const TagCursor& value, MTextData& data)
{
    switch (code) {
    case 75:
        data.columnType = value.Integer();
        break;
    case 76:
        data.columnCount = value.Integer();
        break;
    case 78:
        data.columnsReversed = value.Integer() != 0;
        break;
    case 79:
        data.columnAutoHeight = value.Integer() != 0;
        break;
    case 48:
        data.columnWidth = value.Real();
        break;
    case 49:
        data.columnGutter = value.Real();
        break;
    case kDefinedHeight:
        data.definedHeight = value.Real();
        break;
    default:
        break;
    }
}

/// One list "ACAD_MTEXT_…_BEGIN" to "…_END"; stops at the text or the name behind it. False at the end of the tags.
bool TakeList(TagCursor& tags, MTextData& data)
{
    int code = 0;
    bool heights = false;
    while (tags.Next()) {
        if (tags.Code() <= 1001)
            return tags.Code() != 0;
        if (heights && tags.Code() == 1040) {
            AddHeight(tags.Real(), data);
        } else if (code == kHeights) { // their number; they follow as reals
            heights = true;
            code = 0;
        } else if (code != 0) {
            TakePair(code, tags, data);
            code = 0;
        } else if (tags.Code() == 1070) {
            code = tags.Integer();
        }
    }
    return false;
}

} // namespace

void TakeEmbeddedColumns(TagCursor tags, MTextData& data)
{
    while (tags.Next() && tags.Code() != 0 && tags.Code() < 1000) {
        switch (tags.Code()) {
        case 41:
            data.definedHeight = tags.Real();
            break;
        case 44:
            data.columnWidth = tags.Real();
            break;
        case 45:
            data.columnGutter = tags.Real();
            break;
        case 46:
            AddHeight(tags.Real(), data);
            break;
        case 71:
            data.columnType = tags.Integer();
            break;
        case 72:
            data.columnCount = tags.Integer();
            break;
        case 73:
            data.columnAutoHeight = tags.Integer() != 0;
            break;
        case 74:
            data.columnsReversed = tags.Integer() != 0;
            break;
        default:
            break;
        }
    }
}

void TakeExtendedColumns(TagCursor tags, MTextData& data)
{
    bool mine = false, linked = false;
    for (bool more = tags.Code() == 1001; more;) {
        mine = tags.Code() == 1001 ? tags.Name() == "ACAD" : mine;
        const std::string_view name = mine && tags.Code() == 1000 ? tags.Name() : std::string_view{};
        linked = linked || name == "ACAD_MTEXT_COLUMNS_BEGIN";
        const bool list = name == "ACAD_MTEXT_COLUMN_INFO_BEGIN" || name == "ACAD_MTEXT_DEFINED_HEIGHT_BEGIN";
        more = list ? TakeList(tags, data) : tags.Next() && tags.Code() != 0;
    }
    if (linked) {
        data.width = data.columnWidth > 0 ? data.columnWidth : data.width;
        data.columnType = 0;
    }
}

} // namespace sm::drawing
