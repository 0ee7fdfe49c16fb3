// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/entities/TableCells.h"

namespace sm::drawing::dwg {

namespace {

/// What a cell up to R2007 has in its own way. Those of the borders are three rows of four bits: top, right, bottom,
/// left.
constexpr std::uint32_t kAlignment = 1, kNoFill = 2, kFill = 4, kTextColor = 8, kTextStyle = 0x10, kTextHeight = 0x20,
                        kBorderColor = 0x40, kBorderLineweight = 0x400, kBorderVisibility = 0x4000;

constexpr std::uint32_t kBlockCell = 2;

CellLook ReadLook(Object& object)
{
    BitReader& data = object.data;
    CellLook look;
    if (!data.B())
        return look;
    const std::uint32_t overrides = data.BL();
    const auto has = [overrides](std::uint32_t bit) { return (overrides & bit) != 0; };
    (void)data.RC();
    if (has(kAlignment))
        look.alignment = data.SignedBS();
    const bool empty = has(kNoFill) && data.B();
    if (has(kFill))
        look.fillColor = object.CMTC().Index();
    if (empty)
        look.fillColor.reset();
    if (has(kTextColor))
        look.textColor = object.CMTC().Index();
    if (has(kTextStyle))
        look.style = object.H();
    if (has(kTextHeight))
        look.textHeight = data.BD();
    for (std::size_t side = 0; side < look.borders.size(); ++side) {
        CellLook::Border& border = look.borders[side];
        if (has(kBorderColor << side))
            border.color = object.CMTC().Index();
        if (has(kBorderLineweight << side))
            border.lineweight = data.SignedBS();
        if (has(kBorderVisibility << side))
            border.hidden = data.BS() != 0;
    }
    return look;
}

void ReadBlockOfCell(Object& object, TableGrid& grid, TableCell& cell)
{
    constexpr std::uint32_t kLeastAttribute = 2;
    BitReader& data = object.data;
    const double scale = data.BD();
    std::uint32_t attributes = data.B() ? data.Count(data.BS(), kLeastAttribute) : 0;
    for (; attributes > 0 && !object.Lost(); --attributes) {
        const Handle definition = object.H();
        (void)data.BS();
        KeepAttribute(grid, cell, definition, object.T());
    }
    cell.look.scale = scale;
}

TableCell ReadCell(Object& object, TableGrid& grid)
{
    BitReader& data = object.data;
    TableCell cell;
    cell.isBlock = data.BS() == kBlockCell;
    (void)data.RC();
    cell.hidden = data.B();
    data.B();
    cell.columns = data.BL();
    cell.rows = data.BL();
    const double rotation = data.BD();
    const Handle value = object.H(); // of a block, or of a field in place of a text
    if (cell.isBlock) {
        cell.block = value;
        ReadBlockOfCell(object, grid, cell);
    } else if (object.Before(Release::R2007) && value == 0) {
        cell.text = object.T();
    }
    const std::optional<double> scale = cell.look.scale;
    cell.look = ReadLook(object);
    cell.look.scale = scale;
    cell.look.rotation = rotation;
    if (object.Since(Release::R2007)) {
        (void)data.BL();
        cell.text = ReadTableValue(object);
    }
    return cell;
}

/// The value as a text, if it is one. Valid until the next text is read.
std::string_view ReadValue(Object& object, std::uint32_t type)
{
    constexpr std::uint32_t kNone = 0, kInteger = 1, kReal = 2, kString = 4, kDate = 8, kPoint2 = 16, kPoint3 = 32,
                            kLink = 64, kGeneral = 512;
    BitReader& data = object.data;
    std::string_view text;
    switch (type) {
    case kNone:
    case kInteger:
        (void)data.BL();
        break;
    case kReal:
        (void)data.BD();
        break;
    case kString:
    case kGeneral:
        text = object.Utf16(data.BL() / 2);
        break;
    case kDate:
    case kPoint2:
    case kPoint3:
        data.Skip(std::uint64_t{data.BL()} * 8);
        break;
    case kLink:
        (void)object.H();
        break;
    default:
        data.Fail();
    }
    return text;
}

void WriteCell(Object& object, const TableCell& cell)
{
    TagSink& sink = object.sink;
    sink.Integer(171, cell.isBlock ? 2 : 1);
    sink.Integer(173, cell.hidden ? 1 : 0);
    sink.Integer(175, cell.columns);
    sink.Integer(176, cell.rows);
    if (cell.isBlock) {
        sink.HandleTag(340, cell.block);
        sink.Real(144, cell.look.scale.value_or(1));
        for (const auto& [definition, text] : cell.attributes) {
            sink.HandleTag(331, definition);
            sink.Text(300, text);
        }
    }
    if (!cell.text.empty())
        sink.Text(1, cell.text);
    WriteCellLook(object, cell.look);
}

} // namespace

std::uint32_t ReadTableCount(Object& object, std::uint32_t bits)
{
    const std::uint32_t count = object.data.Count(object.data.BL(), bits);
    if (count <= kMostTableCells)
        return count;
    object.data.Fail();
    return 0;
}

void KeepAttribute(TableGrid& grid, TableCell& cell, Handle definition, std::string_view text)
{
    if (grid.attributes++ < kMostTableCells)
        cell.attributes.emplace_back(definition, text);
}

std::string ReadTableValue(Object& object)
{
    constexpr std::uint32_t kEmpty = 1;
    BitReader& data = object.data;
    const bool empty = (data.BL() & kEmpty) != 0;
    const std::uint32_t type = data.BL();
    std::string value;
    if (!empty)
        value = ReadValue(object, type);
    (void)data.BL();
    object.SkipT();
    const std::string_view shown = object.T();
    return shown.empty() ? value : std::string(shown);
}

TableGrid ReadTableCells(Object& object)
{
    constexpr std::uint32_t kLeastNumber = 2, kLeastCell = 20;
    BitReader& data = object.data;
    TableGrid grid;
    (void)data.BS();
    grid.direction = object.BD3();
    const std::uint32_t columns = ReadTableCount(object, kLeastNumber), rows = ReadTableCount(object, kLeastNumber);
    for (std::uint32_t i = 0; i < columns && !data.Overrun(); ++i)
        grid.columnWidths.push_back(data.BD());
    for (std::uint32_t i = 0; i < rows && !data.Overrun(); ++i)
        grid.rowHeights.push_back(data.BD());
    grid.style = object.H();
    std::uint64_t cells = std::uint64_t{columns} * rows;
    if (cells > data.Left() / kLeastCell)
        data.Fail();
    for (; cells > 0 && grid.cells.size() < kMostTableCells && !object.Lost(); --cells)
        grid.cells.push_back(ReadCell(object, grid));
    return grid;
}

void WriteTableGrid(Object& object, const TableGrid& grid)
{
    TagSink& sink = object.sink;
    sink.HandleTag(342, grid.style);
    sink.Point(11, grid.direction);
    for (const double height : grid.rowHeights)
        sink.Real(141, height);
    for (const double width : grid.columnWidths)
        sink.Real(142, width);
    for (const TableCell& cell : grid.cells)
        WriteCell(object, cell);
}

} // namespace sm::drawing::dwg
