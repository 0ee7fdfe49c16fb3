// SPDX-License-Identifier: GPL-3.0-or-later
// How cells of tables look, as tables, rows, columns and styles of tables store it. For this room only.
#pragma once

#include "dwg/objects/Object.h"

#include <array>
#include <optional>

namespace sm::drawing::dwg {

/// What one cell has in its own way: what isn't set is that of its row, its column or its table's style. A cell's
/// groups in DXF reference, ACAD_TABLE.
struct CellLook {
    struct Border {
        std::optional<std::int32_t> color, lineweight;
        bool hidden = false;
    };
    std::optional<Handle> style; ///< of its text
    std::optional<double> textHeight, rotation, scale;
    std::optional<std::int32_t> alignment, textColor, fillColor;
    std::array<Border, 4> borders; ///< top, right, bottom, left

    /// Takes over what isn't set yet.
    void FillFrom(const CellLook& other);
};

/// How the content of a cell is shown, with a bit for everything that isn't inherited.
struct CellFormat {
    std::uint32_t overrides = 0;
    double rotation = 0, scale = 1, textHeight = 0;
    std::int32_t alignment = 0;
    Color color;
    Handle style = 0;
};

/// A cell's, row's, column's or table's own style, from R2010 on and in objects of programs that know such styles.
struct CellStyle {
    Color fill;
    CellFormat format;
    double marginX = 0, marginY = 0;
    CellLook look; ///< what isn't inherited
    [[nodiscard]] bool Filled() const;
};

CellFormat ReadCellFormat(Object& object);
CellStyle ReadCellStyle(Object& object);
/// What `overrides` says of a format.
CellLook LookOf(const CellFormat& format, std::uint32_t overrides);
/// The groups of a cell's own look.
void WriteCellLook(Object& object, const CellLook& look);

} // namespace sm::drawing::dwg
