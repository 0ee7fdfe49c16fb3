// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/entities/EntityDecoders.h"

namespace sm::drawing::dwg {

void DecodeLeader(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    data.B();
    sink.Integer(73, data.BS());
    sink.Integer(72, data.BS());
    for (std::uint32_t count = data.Count(data.BL(), 6); count > 0 && !data.Overrun(); --count)
        sink.Point(10, object.BD3());
    (void)object.BD3();
    object.WriteExtrusion(object.BD3());
    sink.Point(211, object.BD3());
    sink.Point(212, object.BD3());
    if (object.Since(Release::R14))
        sink.Point(213, object.BD3());
    if (object.Before(Release::R2000))
        (void)data.BD();
    if (object.Before(Release::R2010)) {
        sink.Real(40, data.BD());
        sink.Real(41, data.BD());
    }
    sink.Integer(74, data.B() ? 1 : 0);
    sink.Integer(71, data.B() ? 1 : 0);
    object.annotation = object.H();
    sink.HandleTag(340, object.annotation);
    object.WriteName(3, object.H());
    // A hook line isn't among the points: whether there is one, and how long it is, the annotation and the style tell.
    constexpr std::int32_t kHookToMake = 2;
    sink.Integer(75, kHookToMake);
}

void DecodeTolerance(Object& object)
{
    BitReader& data = object.data;
    if (object.Before(Release::R2000)) {
        (void)data.BS();
        (void)data.BD();
        (void)data.BD();
    }
    object.sink.Point(10, object.BD3());
    object.sink.Point(11, object.BD3());
    object.WriteExtrusion(object.BD3());
    object.WriteT(1);
    object.WriteName(3, object.H());
}

namespace {

void WriteLengths(Object& object, int count, int length)
{
    BitReader& data = object.data;
    std::uint32_t lengths = data.Count(data.BS(), 2);
    object.sink.Integer(count, lengths);
    for (; lengths > 0 && !data.Overrun(); --lengths)
        object.sink.Real(length, data.BD());
}

} // namespace

void DecodeMLine(Object& object)
{
    constexpr std::uint32_t kClosed = 2;
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    sink.Real(40, data.BD());
    sink.Integer(70, data.RC());
    sink.Point(10, object.BD3());
    object.WriteExtrusion(object.BD3());
    const std::uint32_t open = data.BS();
    const std::uint32_t lines = data.RC();
    std::uint32_t vertices = data.Count(data.BS(), 18);
    sink.Integer(71, open == 3 ? 1 | kClosed : open);
    for (; vertices > 0 && !data.Overrun(); --vertices) {
        for (const int code : {11, 12, 13})
            sink.Point(code, object.BD3());
        for (std::uint32_t line = 0; line < lines && !data.Overrun(); ++line) {
            WriteLengths(object, 74, 41);
            WriteLengths(object, 75, 42);
        }
    }
    sink.HandleTag(340, object.H());
}

} // namespace sm::drawing::dwg
