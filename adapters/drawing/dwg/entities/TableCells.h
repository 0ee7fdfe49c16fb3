// SPDX-License-Identifier: GPL-3.0-or-later
// The grid of a table as its entity stores it, and the groups that it becomes. For this room only.
#pragma once

#include "dwg/objects/CellStyle.h"

#include <string>
#include <vector>

namespace sm::drawing::dwg {

struct TableCell {
    bool isBlock = false, hidden = false; ///< `hidden`: covered by a merged neighbour
    std::uint32_t columns = 1, rows = 1;
    Handle block = 0;
    std::string text;
    std::vector<std::pair<Handle, std::string>> attributes; ///< of the block: definition and text
    CellLook look;
};

struct TableGrid {
    Vec3 direction{1, 0, 0};
    Handle style = 0;
    std::vector<double> columnWidths, rowHeights;
    std::vector<TableCell> cells; ///< row by row; those of the largest tables are cut off, as readers of DXF do
    std::size_t attributes = 0;   ///< kept in all cells
};

/// From behind the fields of the block reference on, up to R2007.
TableGrid ReadTableCells(Object& object);
/// The same from R2010 on.
TableGrid ReadTableContent(Object& object);
void WriteTableGrid(Object& object, const TableGrid& grid);

/// Cells, and attributes in them, that are kept of one table; a table of more rows or columns is damaged.
constexpr std::size_t kMostTableCells = 20'000;

/// How many rows or columns follow, of at least `bits` bits each; 0, and the object is lost, when there are too many.
std::uint32_t ReadTableCount(Object& object, std::uint32_t bits);

/// Keeps what an attribute of a cell's block says, unless the table has too many.
void KeepAttribute(TableGrid& grid, TableCell& cell, Handle definition, std::string_view text);

/// What shows of a value that a cell holds, from R2007 on: what the program made of it, else the text that it is.
std::string ReadTableValue(Object& object);

} // namespace sm::drawing::dwg
