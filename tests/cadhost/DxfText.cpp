// SPDX-License-Identifier: GPL-3.0-or-later
#include "DxfText.h"

#include <charconv>

namespace sm::cadhost {
namespace {

/// Handles of a layout's block record, block and layout object.
std::string Handle(int base, std::size_t index)
{
    std::array<char, 16> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), base + static_cast<int>(index), 16);
    return {buffer.data(), end.ptr};
}

constexpr int kRecord = 0x100, kBlock = 0x200, kLayout = 0x300;

std::string BlockName(std::size_t index, int active)
{
    if (index == 0)
        return "*Model_Space";
    if (static_cast<int>(index) == (active == 0 ? 1 : active))
        return "*Paper_Space";
    return "*Paper_Space" + std::to_string(index);
}

std::string BlockTags(std::size_t index, const std::string& name, const std::string& entities)
{
    return Tag(0, "BLOCK") + Tag(5, Handle(kBlock, index)) + Tag(330, Handle(kRecord, index)) + Tag(100, "AcDbEntity") +
           Tag(8, "0") + Tag(100, "AcDbBlockBegin") + Tag(2, name) + Tag(70, "0") + Tag(10, 0) + Tag(20, 0) +
           Tag(30, 0) + Tag(3, name) + Tag(1, "") + entities + Tag(0, "ENDBLK") + Tag(8, "0");
}

std::string PlotTags(const DxfLayout& l)
{
    std::string text =
        Tag(100, "AcDbPlotSettings") + Tag(1, "") + Tag(2, l.configName) + Tag(4, l.mediaName) + Tag(6, l.viewName);
    for (int i = 0; i < 4; ++i)
        text += Tag(40 + i, l.margins[static_cast<std::size_t>(i)]);
    text += Tag(44, l.paperWidth) + Tag(45, l.paperHeight) + Tag(46, l.origin[0]) + Tag(47, l.origin[1]);
    text += Tag(48, l.window[0]) + Tag(49, l.window[1]) + Tag(140, l.window[2]) + Tag(141, l.window[3]);
    text += Tag(142, l.scaleNumerator) + Tag(143, l.scaleDenominator) + Tag(70, l.flags) + Tag(72, l.paperUnits) +
            Tag(73, l.rotation) + Tag(74, l.plotType) + Tag(7, l.styleSheet) + Tag(75, l.standardScale) + Tag(147, 1);
    return text;
}

std::string LayoutTags(const DxfLayout& l, std::size_t index)
{
    return Tag(0, "LAYOUT") + Tag(5, Handle(kLayout, index)) + Tag(330, "1A") + PlotTags(l) + Tag(100, "AcDbLayout") +
           Tag(1, l.name) + Tag(70, 1) + Tag(71, l.tabOrder) + Tag(10, l.limits[0]) + Tag(20, l.limits[1]) +
           Tag(11, l.limits[2]) + Tag(21, l.limits[3]) + Tag(14, l.extents[0]) + Tag(24, l.extents[1]) +
           Tag(15, l.extents[2]) + Tag(25, l.extents[3]) + Tag(330, Handle(kRecord, index));
}

std::string Section(const std::string& name, const std::string& content)
{
    return Tag(0, "SECTION") + Tag(2, name) + content + Tag(0, "ENDSEC");
}

std::string Table(const std::string& name, const std::string& entries)
{
    return Tag(0, "TABLE") + Tag(2, name) + Tag(70, 1) + entries + Tag(0, "ENDTAB");
}

} // namespace

DxfDrawing::DxfDrawing()
{
    model.name = "Model";
    model.tabOrder = 0;
    model.flags = 1712;
    model.plotType = 0;
    model.configName = "none_device";
}

DxfLayout& DxfDrawing::AddSheet(const std::string& name)
{
    sheets.emplace_back();
    sheets.back().name = name;
    sheets.back().tabOrder = static_cast<int>(sheets.size());
    return sheets.back();
}

std::string DxfDrawing::Text() const
{
    std::vector<const DxfLayout*> layouts{&model};
    for (const DxfLayout& sheet : sheets)
        layouts.push_back(&sheet);
    std::string records, blockTags, layoutTags, entries, entities;
    for (std::size_t i = 0; i < layouts.size(); ++i) {
        const std::string name = BlockName(i, active);
        const bool inEntities = i == 0 || name == "*Paper_Space";
        records += Tag(0, "BLOCK_RECORD") + Tag(5, Handle(kRecord, i)) + Tag(2, name) + Tag(340, Handle(kLayout, i));
        blockTags += BlockTags(i, name, inEntities ? "" : layouts[i]->entities);
        layoutTags += LayoutTags(*layouts[i], i);
        entries += Tag(3, layouts[i]->name) + Tag(350, Handle(kLayout, i));
        entities += inEntities ? layouts[i]->entities : "";
    }
    const std::string head = Tag(9, "$ACADVER") + Tag(1, "AC1015") + Tag(9, "$HANDSEED") + Tag(5, "FFF") +
                             Tag(9, "$TILEMODE") + Tag(70, active == 0 ? 1 : 0);
    const std::string root = Tag(0, "DICTIONARY") + Tag(5, "C") + Tag(330, "0") + Tag(100, "AcDbDictionary") +
                             Tag(3, "ACAD_LAYOUT") + Tag(350, "1A");
    const std::string list = Tag(0, "DICTIONARY") + Tag(5, "1A") + Tag(330, "C") + Tag(100, "AcDbDictionary") + entries;
    return Section("HEADER", head + header) +
           Section("TABLES", Table("VPORT", viewport) + Table("VIEW", views) + Table("APPID", "") +
                                 Table("BLOCK_RECORD", records)) +
           Section("BLOCKS", blockTags + blocks) + Section("ENTITIES", entities) +
           Section("OBJECTS", root + list + layoutTags + objects) + Tag(0, "EOF");
}

std::string Tag(int code, const std::string& value)
{
    return std::to_string(code) + "\n" + value + "\n";
}

std::string Tag(int code, double value)
{
    std::array<char, 64> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return Tag(code, std::string(buffer.data(), end.ptr));
}

std::string LineTags(double x1, double y1, double x2, double y2, const std::string& more)
{
    return Tag(0, "LINE") + Tag(8, "0") + Tag(10, x1) + Tag(20, y1) + Tag(11, x2) + Tag(21, y2) + more;
}

std::string ViewTags(const std::string& name, double x, double y, double width, double height, const std::string& more)
{
    return Tag(0, "VIEW") + Tag(2, name) + Tag(70, 0) + Tag(40, height) + Tag(10, x) + Tag(20, y) + Tag(41, width) +
           Tag(11, 0) + Tag(21, 0) + Tag(31, 1) + more;
}

DxfDrawing OneSheet()
{
    DxfDrawing drawing;
    drawing.AddSheet("Sheet 1");
    return drawing;
}

std::string Plain(const char* kind, const std::string& more)
{
    return Tag(0, kind) + Tag(8, "0") + more;
}

} // namespace sm::cadhost
