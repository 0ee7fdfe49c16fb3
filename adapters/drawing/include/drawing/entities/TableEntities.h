// SPDX-License-Identifier: GPL-3.0-or-later
// ACAD_TABLE, with what its style says already in place.
#pragma once

#include "drawing/entities/Entity.h"
#include "drawing/entities/NoteAttribute.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace sm::drawing {

/// ACAD_TABLE: its picture block, or what the entity itself holds of its cells and its style of them.
struct TableData : Entity {
    /// What all cells of a kind share.
    struct Kind {
        std::uint32_t style = 0; ///< text style
        double textHeight = 0.18;
        std::int32_t alignment = 2; ///< 1 top left to 9 bottom right
        std::int16_t textColor = kByBlock, fillColor = kByBlock;
        bool filled = false;
    };
    /// A cell's own ways with one of its edges.
    struct Border {
        std::optional<std::int16_t> color, lineweight;
        bool hidden = false;
        [[nodiscard]] bool Own() const { return color || lineweight || hidden; }
    };
    enum Side : std::uint8_t { Top, Right, Bottom, Left };
    struct Cell {
        bool isBlock = false, hidden = false; ///< `hidden`: covered by a merged neighbour
        std::int32_t columns = 1, rows = 1;
        std::string text; ///< as of an MTEXT
        std::uint32_t block = kNoBlock;
        double blockScale = 1, rotation = 0; ///< rotation in degrees
        double textHeight = 0;               ///< 0: that of its kind; so are the others that are not given
        std::int32_t alignment = 0;
        std::optional<std::uint32_t> style;
        std::optional<std::int16_t> textColor, fillColor;
        std::optional<bool> filled;
        std::array<Border, 4> borders; ///< by Side
        std::vector<NoteAttribute> attributes;
    };
    std::uint32_t block = kNoBlock;
    Vec3 insertion, direction{1, 0, 0};
    std::vector<double> columnWidths, rowHeights;
    std::vector<Cell> cells;          ///< row by row, at most columns times rows
    std::array<Kind, 3> kinds;        ///< data, title, header
    bool title = true, header = true; ///< the first row, and the one after it
    double marginX = 0.06, marginY = 0.06;
    [[nodiscard]] const Kind& KindOfRow(std::size_t row) const
    {
        const bool isTitle = title && row == 0, isHeader = header && row == (title ? 1U : 0U);
        return kinds[isTitle ? 1 : isHeader ? 2 : 0];
    }
};
void Read(const Drawing&, const EntityRecord&, TableData&);

} // namespace sm::drawing
