// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/entities/EntityDecoders.h"

namespace sm::drawing::dwg {

namespace {

void WriteRaw(Object& object, int code)
{
    object.sink.Integer(code, static_cast<std::int32_t>(object.CMC().raw));
}

void WriteBit(Object& object, int code)
{
    object.sink.Integer(code, object.data.B() ? 1 : 0);
}

void WriteLine(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    sink.Text(304, "LEADER_LINE{");
    for (std::uint32_t points = data.Count(data.BL(), 6); points > 0 && !data.Overrun(); --points)
        sink.Point(10, object.BD3());
    for (std::uint32_t gaps = data.Count(data.BL(), 12); gaps > 0 && !data.Overrun(); --gaps) {
        sink.Point(11, object.BD3());
        sink.Point(12, object.BD3());
    }
    sink.Integer(91, data.SignedBL());
    if (object.Since(Release::R2010)) {
        sink.Integer(170, data.BS());
        WriteRaw(object, 92);
        sink.HandleTag(340, object.H());
        sink.Integer(171, data.SignedBL());
        sink.Real(40, data.BD());
        sink.HandleTag(341, object.H());
        sink.Integer(93, data.SignedBL());
    }
    sink.Text(305, "}");
}

void WriteRoot(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    sink.Text(302, "LEADER{");
    WriteBit(object, 290);
    WriteBit(object, 291);
    sink.Point(10, object.BD3());
    sink.Point(11, object.BD3());
    for (std::uint32_t gaps = data.Count(data.BL(), 12); gaps > 0 && !data.Overrun(); --gaps) {
        sink.Point(12, object.BD3());
        sink.Point(13, object.BD3());
    }
    sink.Integer(90, data.SignedBL());
    sink.Real(40, data.BD());
    for (std::uint32_t lines = data.Count(data.BL(), 6); lines > 0 && !data.Overrun(); --lines)
        WriteLine(object);
    if (object.Since(Release::R2010))
        sink.Integer(271, data.BS());
    sink.Text(303, "}");
}

void WriteText(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    object.WriteT(304);
    sink.Point(11, object.BD3());
    sink.HandleTag(340, object.H());
    sink.Point(12, object.BD3());
    sink.Point(13, object.BD3());
    for (const int code : {42, 43, 44, 45})
        sink.Real(code, data.BD());
    sink.Integer(170, data.BS());
    WriteRaw(object, 90);
    sink.Integer(171, data.BS());
    sink.Integer(172, data.BS());
    WriteRaw(object, 91);
    sink.Real(141, data.BD());
    sink.Integer(92, data.SignedBL());
    WriteBit(object, 291);
    WriteBit(object, 292);
    sink.Integer(173, data.BS());
    WriteBit(object, 293);
    sink.Real(142, data.BD());
    sink.Real(143, data.BD());
    WriteBit(object, 294);
    for (std::uint32_t heights = data.Count(data.BL(), 2); heights > 0 && !data.Overrun(); --heights)
        sink.Real(144, data.BD());
    WriteBit(object, 295);
    data.B();
}

void WriteBlock(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    sink.HandleTag(341, object.H());
    for (const int code : {14, 15, 16})
        sink.Point(code, object.BD3());
    sink.Real(46, data.BD());
    WriteRaw(object, 93);
    for (int i = 0; i < 16; ++i)
        (void)data.BD();
}

void WriteContext(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    sink.Text(300, "CONTEXT_DATA{");
    for (std::uint32_t roots = data.Count(data.BL(), 12); roots > 0 && !data.Overrun(); --roots)
        WriteRoot(object);
    sink.Real(40, data.BD());
    sink.Point(10, object.BD3());
    for (const int code : {41, 140, 145})
        sink.Real(code, data.BD());
    for (const int code : {174, 175, 176, 177})
        sink.Integer(code, data.BS());
    const bool text = data.B();
    sink.Integer(290, text ? 1 : 0);
    if (text) {
        WriteText(object);
    } else {
        const bool block = data.B();
        sink.Integer(296, block ? 1 : 0);
        if (block)
            WriteBlock(object);
    }
    for (int i = 0; i < 3; ++i)
        (void)object.BD3();
    data.B();
    if (object.Since(Release::R2010)) {
        (void)data.BS();
        (void)data.BS();
    }
    sink.Text(301, "}");
}

void WriteLabels(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    if (object.Before(Release::R2010))
        for (std::uint32_t arrows = data.Count(data.BL(), 1); arrows > 0 && !data.Overrun(); --arrows) {
            data.B();
            (void)object.H();
        }
    for (std::uint32_t labels = data.Count(data.BL(), 4); labels > 0 && !data.Overrun(); --labels) {
        sink.HandleTag(330, object.H());
        object.WriteT(302);
        sink.Integer(177, data.BS());
        sink.Real(44, data.BD());
    }
}

} // namespace

void DecodeMultiLeader(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    if (object.Since(Release::R2010))
        (void)data.BS();
    sink.Text(100, "AcDbMLeader");
    WriteContext(object);
    sink.HandleTag(340, object.H());
    sink.Integer(90, data.SignedBL());
    sink.Integer(170, data.BS());
    WriteRaw(object, 91);
    sink.HandleTag(341, object.H());
    sink.Integer(171, data.SignedBL());
    WriteBit(object, 290);
    WriteBit(object, 291);
    sink.Real(41, data.BD());
    sink.HandleTag(342, object.H());
    sink.Real(42, data.BD());
    sink.Integer(172, data.BS());
    sink.HandleTag(343, object.H());
    for (const int code : {173, 95, 174, 175})
        sink.Integer(code, data.BS());
    WriteRaw(object, 92);
    WriteBit(object, 292);
    sink.HandleTag(344, object.H());
    WriteRaw(object, 93);
    sink.Point(10, object.BD3());
    sink.Real(43, data.BD());
    sink.Integer(176, data.BS());
    WriteBit(object, 293);
    WriteLabels(object);
}

} // namespace sm::drawing::dwg
