// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/objects/CellStyle.h"
#include "dwg/records/RecordDecoders.h"

namespace sm::drawing::dwg {

namespace {

/// Bits of a multiline style's flags as they are stored, and as they are in DXF.
constexpr std::pair<std::uint32_t, std::int32_t> kFlags[] = {{1, 2},   {2, 1},     {16, 16},    {32, 64},
                                                             {64, 32}, {256, 256}, {512, 1024}, {1024, 512}};

constexpr std::uint32_t kByLayerIndex = 32767, kByBlockIndex = 32766;

/// Up to R2013 the line type is a place in its table.
void WriteElementLinetype(Object& object)
{
    if (object.Since(Release::R2018)) {
        object.WriteName(6, object.H());
        return;
    }
    const std::uint32_t index = object.data.BS();
    if (index == kByLayerIndex)
        object.sink.Text(6, "BYLAYER");
    else if (index == kByBlockIndex)
        object.sink.Text(6, "BYBLOCK");
    else if (index < object.names.linetypes.size())
        object.WriteName(6, object.names.linetypes[index]);
}

void WriteRaw(Object& object, int code)
{
    object.sink.Integer(code, static_cast<std::int32_t>(object.CMC().raw));
}

} // namespace

void DecodeMLineStyle(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    object.WriteT(2);
    object.WriteT(3);
    const std::uint32_t stored = data.BS();
    std::int32_t flags = 0;
    for (const auto& [bit, value] : kFlags)
        flags |= (stored & bit) != 0 ? value : 0;
    sink.Integer(70, flags);
    object.WriteColor(object.CMC());
    object.WriteAngle(51, data.BD());
    object.WriteAngle(52, data.BD());
    for (unsigned elements = data.RC(); elements > 0 && !data.Overrun(); --elements) {
        sink.Real(49, data.BD());
        object.WriteColor(object.CMC());
        WriteElementLinetype(object);
    }
}

void DecodeMLeaderStyle(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    if (object.Since(Release::R2010))
        (void)data.BS();
    for (const int code : {170, 171, 172})
        sink.Integer(code, data.BS());
    sink.Integer(90, data.SignedBL());
    sink.Real(40, data.BD());
    sink.Real(41, data.BD());
    sink.Integer(173, data.BS());
    WriteRaw(object, 91);
    sink.HandleTag(340, object.H());
    sink.Integer(92, data.SignedBL());
    sink.Integer(290, data.B() ? 1 : 0);
    sink.Real(42, data.BD());
    sink.Integer(291, data.B() ? 1 : 0);
    sink.Real(43, data.BD());
    object.WriteT(3);
    sink.HandleTag(341, object.H());
    sink.Real(44, data.BD());
    object.WriteT(300);
    sink.HandleTag(342, object.H());
    for (const int code : {174, 178, 175, 176})
        sink.Integer(code, data.BS());
    WriteRaw(object, 93);
    sink.Real(45, data.BD());
    sink.Integer(292, data.B() ? 1 : 0);
}

namespace {

/// What begins the values of data, title and header cells each: there is one even without a name.
void WriteTextStyle(Object& object, Handle style)
{
    object.sink.Text(7, object.names.Of(style));
}

void WriteTableRow(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    constexpr int kBorders = 6;
    WriteTextStyle(object, object.H());
    sink.Real(140, data.BD());
    sink.Integer(170, data.BS());
    sink.Integer(62, object.CMTC().Index());
    sink.Integer(63, object.CMTC().Index());
    sink.Integer(283, data.B() ? 1 : 0);
    for (int i = 0; i < kBorders; ++i) {
        (void)data.BS();
        data.B();
        (void)object.CMTC();
    }
    if (object.Since(Release::R2007)) { // what kind of values the cells hold
        (void)data.BL();
        (void)data.BL();
        object.SkipT();
    }
}

void DecodeOldTableStyle(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    object.WriteT(3);
    sink.Integer(70, data.BS());
    sink.Integer(71, data.BS());
    sink.Real(40, data.BD());
    sink.Real(41, data.BD());
    sink.Integer(280, data.B() ? 1 : 0);
    sink.Integer(281, data.B() ? 1 : 0);
    for (int row = 0; row < 3; ++row)
        WriteTableRow(object);
}

/// Numbers of the cell styles that a table style has always.
constexpr std::uint32_t kTitleStyle = 1, kHeaderStyle = 2, kDataStyle = 3;

void WriteCellStyle(Object& object, const CellStyle& style)
{
    TagSink& sink = object.sink;
    WriteTextStyle(object, style.format.style);
    sink.Real(140, style.format.textHeight);
    sink.Integer(170, style.format.alignment);
    sink.Integer(62, style.format.color.Index());
    sink.Integer(63, style.fill.Index());
    sink.Integer(283, style.Filled() ? 1 : 0);
}

} // namespace

void DecodeTableStyle(Object& object)
{
    constexpr std::uint32_t kLeastStyle = 10;
    if (object.Before(Release::R2010)) {
        DecodeOldTableStyle(object);
        return;
    }
    BitReader& data = object.data;
    (void)data.RC();
    object.WriteT(3);
    (void)data.BL();
    (void)data.BL();
    (void)object.H();
    const CellStyle table = ReadCellStyle(object);
    (void)data.BL();
    (void)data.BL();
    object.SkipT();
    std::array<CellStyle, kDataStyle> styles;
    for (std::uint32_t i = data.Count(data.BL(), kLeastStyle); i > 0 && !object.Lost(); --i) {
        const std::uint32_t number = data.BL();
        CellStyle style = ReadCellStyle(object);
        (void)data.BL();
        (void)data.BL();
        object.SkipT();
        if (number >= kTitleStyle && number <= kDataStyle)
            styles[number - 1] = std::move(style);
    }
    object.sink.Real(40, table.marginX);
    object.sink.Real(41, table.marginY);
    for (const std::uint32_t number : {kDataStyle, kTitleStyle, kHeaderStyle})
        WriteCellStyle(object, styles[number - 1]);
}

} // namespace sm::drawing::dwg
