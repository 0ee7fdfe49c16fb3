// SPDX-License-Identifier: GPL-3.0-or-later
// The content of a table as all of its objects hold it from R2010 on: columns, rows of cells with contents, merges.
#include "dwg/entities/TableCells.h"

#include <algorithm>

namespace sm::drawing::dwg {

namespace {

/// Bits that one of them has at least.
constexpr std::uint32_t kLeastItem = 2, kLeastColumn = 12, kLeastRow = 12, kLeastCell = 16, kLeastMerge = 8;

constexpr std::uint32_t kValueContent = 1, kFieldContent = 2, kBlockContent = 4;

void SkipCustomData(Object& object)
{
    BitReader& data = object.data;
    for (std::uint32_t items = data.Count(data.BL(), kLeastItem); items > 0 && !object.Lost(); --items) {
        object.SkipT();
        (void)ReadTableValue(object);
    }
}

void ReadContent(Object& object, TableGrid& grid, TableCell& cell)
{
    BitReader& data = object.data;
    const std::uint32_t kind = data.BL();
    if (kind == kValueContent) {
        const std::string text = ReadTableValue(object);
        if (!cell.text.empty() && !text.empty())
            cell.text += "\\P";
        cell.text += text;
    } else if (kind == kFieldContent || kind == kBlockContent) {
        const Handle target = object.H();
        cell.isBlock = kind == kBlockContent;
        if (cell.isBlock)
            cell.block = target;
    }
    for (std::uint32_t i = data.Count(data.BL(), kLeastItem); i > 0 && !object.Lost(); --i) {
        const Handle definition = object.H();
        KeepAttribute(grid, cell, definition, object.T());
        (void)data.BL();
    }
    if (data.BS() != 0) {
        const CellFormat format = ReadCellFormat(object);
        cell.look.FillFrom(LookOf(format, format.overrides));
    }
}

void SkipGeometry(Object& object)
{
    constexpr std::uint32_t kLeast = 22, kNumbers = 10;
    BitReader& data = object.data;
    (void)data.BL();
    (void)data.BD();
    (void)data.BD();
    std::uint32_t count = data.Count(data.BL(), kLeast);
    (void)object.H();
    for (; count > 0 && !data.Overrun(); --count) {
        for (std::uint32_t i = 0; i < kNumbers; ++i)
            (void)data.BD();
        (void)data.BL();
    }
}

TableCell ReadContentCell(Object& object, TableGrid& grid)
{
    BitReader& data = object.data;
    TableCell cell;
    (void)data.BL();
    object.SkipT();
    (void)data.BL();
    SkipCustomData(object);
    if (data.BL() != 0) { // linked to data elsewhere
        (void)object.H();
        for (int i = 0; i < 3; ++i)
            (void)data.BL();
    }
    for (std::uint32_t i = data.Count(data.BL(), kLeastItem); i > 0 && !object.Lost(); --i)
        ReadContent(object, grid, cell);
    cell.look.FillFrom(ReadCellStyle(object).look);
    (void)data.BL();
    if (data.BL() != 0)
        SkipGeometry(object);
    return cell;
}

/// What all cells of a row have that have nothing of their own, and of a column.
void ReadRow(Object& object, TableGrid& grid, std::size_t row)
{
    BitReader& data = object.data;
    const std::size_t columns = grid.columnWidths.size(), first = std::min(row * columns, kMostTableCells);
    const std::size_t end = std::min(first + columns, kMostTableCells);
    for (std::uint32_t i = data.Count(data.BL(), kLeastCell); i > 0 && !object.Lost(); --i) {
        TableCell cell = ReadContentCell(object, grid);
        if (grid.cells.size() < end)
            grid.cells.push_back(std::move(cell));
    }
    (void)data.BL();
    SkipCustomData(object);
    const CellLook look = ReadCellStyle(object).look;
    (void)data.BL();
    grid.rowHeights.push_back(data.BD());
    grid.cells.resize(end);
    for (std::size_t i = first; i < end; ++i)
        grid.cells[i].look.FillFrom(look);
}

void ReadMerges(Object& object, TableGrid& grid)
{
    BitReader& data = object.data;
    const std::size_t columns = grid.columnWidths.size(), rows = grid.rowHeights.size();
    std::size_t left = grid.cells.size() * 2; // sound merges don't overlap
    for (std::uint32_t merges = data.Count(data.BL(), kLeastMerge); merges > 0 && !data.Overrun(); --merges) {
        const std::size_t top = data.BL(), first = data.BL(), bottom = data.BL(), last = data.BL();
        if (top > bottom || first > last || bottom >= rows || last >= columns)
            continue;
        for (std::size_t row = top; row <= bottom; ++row)
            for (std::size_t i = row * columns + first; i <= row * columns + last && left > 0; ++i, --left)
                if (i < grid.cells.size())
                    grid.cells[i].hidden = true;
        const std::size_t corner = top * columns + first;
        if (corner >= grid.cells.size())
            continue;
        grid.cells[corner].hidden = false;
        grid.cells[corner].columns = static_cast<std::uint32_t>(last - first + 1);
        grid.cells[corner].rows = static_cast<std::uint32_t>(bottom - top + 1);
    }
}

std::vector<CellLook> ReadColumns(Object& object, TableGrid& grid)
{
    BitReader& data = object.data;
    std::vector<CellLook> looks;
    for (std::uint32_t i = ReadTableCount(object, kLeastColumn); i > 0 && !object.Lost(); --i) {
        object.SkipT();
        (void)data.BL();
        SkipCustomData(object);
        looks.push_back(ReadCellStyle(object).look);
        (void)data.BL();
        grid.columnWidths.push_back(data.BD());
    }
    return looks;
}

} // namespace

TableGrid ReadTableContent(Object& object)
{
    BitReader& data = object.data;
    TableGrid grid;
    (void)data.RC();
    (void)object.H();
    (void)data.BL();
    if (object.Since(Release::R2013))
        (void)data.BL();
    else
        data.B();
    object.SkipT();
    object.SkipT();
    const std::vector<CellLook> columns = ReadColumns(object, grid);
    const std::uint32_t rows = ReadTableCount(object, kLeastRow);
    for (std::uint32_t row = 0; row < rows && !object.Lost(); ++row)
        ReadRow(object, grid, row);
    object.SkipH(data.Count(data.BL()));
    const CellLook table = ReadCellStyle(object).look;
    for (std::size_t i = 0; i < grid.cells.size(); ++i) {
        if (const std::size_t column = i % grid.columnWidths.size(); column < columns.size())
            grid.cells[i].look.FillFrom(columns[column]);
        grid.cells[i].look.FillFrom(table);
    }
    ReadMerges(object, grid);
    grid.style = object.H();
    (void)data.BS();
    grid.direction = object.BD3();
    return grid;
}

} // namespace sm::drawing::dwg
