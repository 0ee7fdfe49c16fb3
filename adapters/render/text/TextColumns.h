// SPDX-License-Identifier: GPL-3.0-or-later
// The columns of an MTEXT (DXF reference, MTEXT groups 75 to 78 and the embedded object of newer files).
#pragma once

#include "drawing/Drawing.h"
#include "drawing/entities/Texts.h"

#include <algorithm>

namespace sm::render {

enum ColumnType : std::int32_t { kNoColumns, kStaticColumns, kDynamicColumns };

inline bool HasColumns(const drawing::MTextData& text)
{
    return text.columnType == kStaticColumns || text.columnType == kDynamicColumns;
}

/// How many columns the text may have.
inline int ColumnLimit(const drawing::MTextData& text)
{
    constexpr int kMost = 1000;
    if (!HasColumns(text)) {
        return 1;
    }
    if (text.columnType == kDynamicColumns && text.columnAutoHeight) {
        return kMost;
    }
    return std::clamp(std::max(text.columnCount, static_cast<std::int32_t>(text.columnHeights.size())), 1, kMost);
}

/// How many columns take room even when the text doesn't reach them.
inline int ColumnsShown(const drawing::MTextData& text)
{
    return text.columnType == kStaticColumns ? ColumnLimit(text) : 1;
}

/// The room in a column, drawing units; 0: no limit. Text that is too long for the last one goes on below it.
inline double ColumnHeight(const drawing::MTextData& text, int column)
{
    if (!HasColumns(text)) {
        return 0;
    }
    const bool byColumn = text.columnType == kDynamicColumns && !text.columnAutoHeight;
    if (!byColumn) {
        return text.definedHeight;
    }
    const auto at = static_cast<std::size_t>(column);
    return at < text.columnHeights.size() ? text.columnHeights[at] : 0;
}

} // namespace sm::render
