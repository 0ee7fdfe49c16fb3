// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/objects/CellStyle.h"

namespace sm::drawing::dwg {

namespace {

/// What a cell can have in its own way, and what an edge of it can.
constexpr std::uint32_t kRotation = 4, kScale = 8, kAlignment = 0x10, kTextColor = 0x20, kTextStyle = 0x40,
                        kTextHeight = 0x80, kFill = 0x200;
constexpr std::uint32_t kEdgeLineweight = 2, kEdgeColor = 8, kEdgeVisibility = 0x10;

constexpr std::uint32_t kNoColor = 0xC8;

bool IsNone(const Color& color)
{
    return color.raw >> 24 == kNoColor;
}

void ReadEdge(Object& object, CellLook& look)
{
    constexpr std::array<std::uint32_t, 4> kSides{1, 0x20, 4, 8}; // 2 and 0x10 lie between cells
    BitReader& data = object.data;
    const std::uint32_t edge = data.BL();
    if (edge == 0)
        return;
    CellLook::Border border;
    const std::uint32_t overrides = data.BL();
    (void)data.BL();
    const Color color = object.CMTC();
    const std::int32_t lineweight = data.SignedBL();
    object.SkipH(1);
    const bool hidden = data.BL() != 0;
    (void)data.BD();
    if ((overrides & kEdgeColor) != 0)
        border.color = color.Index();
    if ((overrides & kEdgeLineweight) != 0)
        border.lineweight = lineweight;
    border.hidden = hidden && (overrides & kEdgeVisibility) != 0;
    for (std::size_t side = 0; side < look.borders.size(); ++side)
        if ((edge & kSides[side]) != 0)
            look.borders[side] = border;
}

template <class Value> void Fill(std::optional<Value>& value, const std::optional<Value>& other)
{
    if (!value)
        value = other;
}

} // namespace

bool CellStyle::Filled() const
{
    return !IsNone(fill);
}

void CellLook::FillFrom(const CellLook& other)
{
    Fill(style, other.style);
    Fill(textHeight, other.textHeight);
    Fill(rotation, other.rotation);
    Fill(scale, other.scale);
    Fill(alignment, other.alignment);
    Fill(textColor, other.textColor);
    Fill(fillColor, other.fillColor);
    for (std::size_t side = 0; side < borders.size(); ++side) {
        Fill(borders[side].color, other.borders[side].color);
        Fill(borders[side].lineweight, other.borders[side].lineweight);
        borders[side].hidden = borders[side].hidden || other.borders[side].hidden;
    }
}

CellFormat ReadCellFormat(Object& object)
{
    BitReader& data = object.data;
    CellFormat format;
    format.overrides = data.BL();
    for (int i = 0; i < 3; ++i) // flags, kind and unit of its values
        (void)data.BL();
    object.SkipT();
    format.rotation = data.BD();
    format.scale = data.BD();
    format.alignment = data.SignedBL();
    format.color = object.CMTC();
    format.style = object.H();
    format.textHeight = data.BD();
    return format;
}

CellLook LookOf(const CellFormat& format, std::uint32_t overrides)
{
    CellLook look;
    if ((overrides & kRotation) != 0)
        look.rotation = format.rotation;
    if ((overrides & kScale) != 0)
        look.scale = format.scale;
    if ((overrides & kAlignment) != 0)
        look.alignment = format.alignment;
    if ((overrides & kTextColor) != 0)
        look.textColor = format.color.Index();
    if ((overrides & kTextStyle) != 0)
        look.style = format.style;
    if ((overrides & kTextHeight) != 0)
        look.textHeight = format.textHeight;
    return look;
}

CellStyle ReadCellStyle(Object& object)
{
    constexpr std::uint32_t kLeastEdge = 2;
    BitReader& data = object.data;
    CellStyle style;
    (void)data.BL();
    if (data.BS() == 0)
        return style;
    const std::uint32_t overrides = data.BL();
    (void)data.BL();
    style.fill = object.CMTC();
    (void)data.BL();
    style.format = ReadCellFormat(object);
    style.look = LookOf(style.format, overrides);
    if ((overrides & kFill) != 0 && style.Filled())
        style.look.fillColor = style.fill.Index();
    if (data.BS() != 0) { // at the top, left, bottom and right; between contents
        style.marginY = data.BD();
        style.marginX = data.BD();
        for (int i = 0; i < 4; ++i)
            (void)data.BD();
    }
    for (std::uint32_t edges = data.Count(data.BL(), kLeastEdge); edges > 0 && !data.Overrun(); --edges)
        ReadEdge(object, style.look);
    return style;
}

void WriteCellLook(Object& object, const CellLook& look)
{
    constexpr std::array kDigits{9, 5, 6, 8};
    TagSink& sink = object.sink;
    if (look.style)
        object.WriteName(7, *look.style);
    for (const auto& [code, value] : {std::pair(140, look.textHeight), std::pair(145, look.rotation)})
        if (value)
            sink.Real(code, *value);
    for (const auto& [code, value] :
         {std::pair(170, look.alignment), std::pair(63, look.fillColor), std::pair(64, look.textColor)})
        if (value)
            sink.Integer(code, *value);
    for (std::size_t side = 0; side < kDigits.size(); ++side) {
        const CellLook::Border& border = look.borders[side];
        if (border.color)
            sink.Integer(60 + kDigits[side], *border.color);
        if (border.lineweight)
            sink.Integer(270 + kDigits[side], *border.lineweight);
        if (border.hidden)
            sink.Integer(280 + kDigits[side], 0);
    }
}

} // namespace sm::drawing::dwg
