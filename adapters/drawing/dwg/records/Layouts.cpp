// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/records/RecordDecoders.h"

namespace sm::drawing::dwg {

namespace {

void WriteScale(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    sink.Real(142, data.BD());
    sink.Real(143, data.BD());
    object.WriteT(7);
    sink.Integer(75, data.BS());
    sink.Real(147, data.BD());
    sink.Real(148, data.BD());
    sink.Real(149, data.BD());
}

void WriteSettings(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    sink.Text(100, "AcDbPlotSettings");
    object.WriteT(1);
    object.WriteT(2);
    sink.Integer(70, data.SignedBS());
    for (const int code : {40, 41, 42, 43, 44, 45})
        sink.Real(code, data.BD());
    object.WriteT(4);
    sink.Real(46, data.BD());
    sink.Real(47, data.BD());
    for (const int code : {72, 73, 74})
        sink.Integer(code, data.SignedBS());
    for (const int code : {48, 49, 140, 141})
        sink.Real(code, data.BD());
    if (object.Before(Release::R2004))
        object.WriteT(6);
    WriteScale(object);
    if (object.Since(Release::R2004)) {
        for (const int code : {76, 77, 78})
            sink.Integer(code, data.SignedBS());
        object.WriteName(6, object.H());
    }
    if (object.Since(Release::R2007))
        (void)object.H();
}

} // namespace

void DecodePlotSettings(Object& object)
{
    WriteSettings(object);
}

void DecodeLayout(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    WriteSettings(object);
    sink.Text(100, "AcDbLayout");
    object.WriteT(1);
    const std::int32_t tab = data.SignedBL();
    sink.Integer(70, data.BS());
    sink.Integer(71, tab);
    const Vec3 system = object.BD3();
    const Vec2 low = object.RD2(), high = object.RD2();
    const Vec3 base = object.BD3(), x = object.BD3(), y = object.BD3();
    sink.Point(10, low);
    sink.Point(11, high);
    sink.Point(12, base);
    sink.Real(146, data.BD());
    (void)data.BS();
    const Vec3 least = object.BD3(), most = object.BD3();
    sink.Point(14, least);
    sink.Point(15, most);
    sink.Point(13, system);
    sink.Point(16, x);
    sink.Point(17, y);
    sink.HandleTag(330, object.H());
}

} // namespace sm::drawing::dwg
