// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/entities/EntityDecoders.h"

namespace sm::drawing::dwg {

namespace {

void WriteCorners(Object& object, int code, std::uint32_t count)
{
    for (count = object.data.Count(count, 128); count > 0; --count)
        object.sink.Point(code, object.RD2());
}

/// In DXF the boundary comes back to its first corner.
void WriteClosed(Object& object, int code)
{
    Vec2 first, last;
    const std::uint32_t count = object.data.Count(object.data.BL(), 128);
    for (std::uint32_t i = 0; i < count; ++i) {
        last = object.RD2();
        first = i == 0 ? last : first;
        object.sink.Point(code, last);
    }
    if (count > 0 && last != first)
        object.sink.Point(code, first);
}

} // namespace

void DecodeImage(Object& object)
{
    constexpr std::uint32_t kRectangle = 1;
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    (void)data.BL();
    for (const int code : {10, 11, 12})
        sink.Point(code, object.BD3());
    sink.Point(13, object.RD2());
    sink.Integer(70, data.BS());
    sink.Integer(280, data.B() ? 1 : 0);
    for (const int code : {281, 282, 283})
        sink.Integer(code, data.RC());
    if (object.Since(Release::R2010))
        sink.Integer(290, data.B() ? 1 : 0);
    const std::uint32_t kind = data.BS();
    sink.Integer(71, kind);
    if (kind == kRectangle)
        WriteCorners(object, 14, 2);
    else
        WriteClosed(object, 14);
    sink.HandleTag(340, object.H());
}

void DecodeUnderlay(Object& object)
{
    constexpr unsigned kInverted = 16;
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    object.WriteExtrusion(object.BD3());
    sink.Point(10, object.BD3());
    object.WriteAngle(50, data.BD());
    const Vec3 scale = object.BD3();
    sink.Real(41, scale.x);
    sink.Real(42, scale.y);
    sink.Real(43, scale.z);
    const unsigned flags = data.RC();
    sink.Integer(280, flags);
    sink.Integer(281, data.RC());
    sink.Integer(282, data.RC());
    if ((flags & kInverted) != 0)
        sink.Integer(290, 1);
    WriteCorners(object, 11, data.BL());
    sink.HandleTag(340, object.H());
}

void DecodeOleFrame(Object& object)
{
    BitReader& data = object.data;
    object.sink.Integer(70, data.BS());
    if (object.Since(Release::R2000))
        object.sink.Integer(72, data.BS());
    const std::uint32_t size = data.Count(data.BL(), 8);
    std::string bytes;
    data.Copy(size, bytes);
    object.sink.Integer(90, size);
    object.sink.Chunks(310, bytes);
}

} // namespace sm::drawing::dwg
