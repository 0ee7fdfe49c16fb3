// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/tables/Linetypes.h"

#include <vector>

namespace sm::drawing::dwg {

namespace {

constexpr std::uint32_t kText = 2, kShape = 4;

struct Dash {
    double length = 0;
    std::uint32_t shape = 0; ///< number of a shape, or where its text begins in the area of texts
    Vec2 offset;
    double scale = 1, rotation = 0;
    std::uint32_t flags = 0;
};

Dash ReadDash(Object& object)
{
    Dash dash;
    BitReader& data = object.data;
    dash.length = data.BD();
    dash.shape = data.BS();
    dash.offset = object.RD2();
    dash.scale = data.BD();
    dash.rotation = data.BD();
    dash.flags = data.BS();
    return dash;
}

/// The text that begins at `at` in the area of texts: bytes, or units of UTF-16 from R2007 on.
std::string_view TextAt(Object& object, BitReader area, std::uint32_t at)
{
    const bool wide = object.Since(Release::R2007);
    area.Skip(std::uint64_t{at} * (wide ? 16 : 8));
    BitReader measure = area;
    std::uint64_t length = 0;
    while (measure.Left() >= (wide ? 16U : 8U) && (wide ? measure.RS() : measure.RC()) != 0)
        ++length;
    const BitReader kept = object.data;
    object.data = area;
    const std::string_view text = wide ? object.Utf16(length) : object.Bytes(object.data, length);
    object.data = kept;
    return text;
}

void WriteDash(Object& object, const Dash& dash, Handle style, const BitReader& area)
{
    TagSink& sink = object.sink;
    sink.Real(49, dash.length);
    sink.Integer(74, dash.flags);
    if ((dash.flags & (kText | kShape)) == 0)
        return;
    const bool text = (dash.flags & kShape) == 0;
    sink.Integer(75, text ? 0 : dash.shape);
    sink.HandleTag(340, style);
    sink.Real(46, dash.scale);
    object.WriteAngle(50, dash.rotation);
    sink.Real(44, dash.offset.x);
    sink.Real(45, dash.offset.y);
    if (text)
        sink.Text(9, TextAt(object, area, dash.shape));
}

} // namespace

void WriteLinetype(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    object.WriteT(3);
    sink.Real(40, data.BD());
    (void)data.RC();
    std::vector<Dash> dashes(data.RC());
    bool hasText = false;
    for (Dash& dash : dashes) {
        dash = ReadDash(object);
        hasText = hasText || (dash.flags & kText) != 0;
    }
    BitReader area = data;
    constexpr std::uint64_t kArea = 256, kWideArea = 512;
    if (object.Before(Release::R2007))
        data.Skip(kArea * 8);
    else if (hasText)
        data.Skip(kWideArea * 8);
    area.EndAt(data.At());
    for (const Dash& dash : dashes)
        WriteDash(object, dash, object.H(), area);
}

} // namespace sm::drawing::dwg
