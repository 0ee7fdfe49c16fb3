// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/entities/EntityDecoders.h"

namespace sm::drawing::dwg {

void DecodeSolid(Object& object)
{
    object.WriteThickness(object.BT());
    const double elevation = object.data.BD();
    for (int corner = 0; corner < 4; ++corner) {
        const Vec2 place = object.RD2();
        object.sink.Point(10 + corner, Vec3{place.x, place.y, elevation});
    }
    object.WriteExtrusion(object.BE());
}

void DecodeFace(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    if (object.Before(Release::R2000)) {
        for (int corner = 0; corner < 4; ++corner)
            sink.Point(10 + corner, object.BD3());
        sink.Integer(70, data.BS());
        return;
    }
    const bool noFlags = data.B(), flat = data.B();
    Vec3 place = {data.RD(), data.RD(), 0};
    place.z = flat ? 0 : data.RD();
    sink.Point(10, place);
    for (int corner = 1; corner < 4; ++corner) {
        place = Vec3{data.DD(place.x), data.DD(place.y), data.DD(place.z)};
        sink.Point(10 + corner, place);
    }
    if (!noFlags)
        sink.Integer(70, data.BS());
}

void DecodeShape(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    sink.Point(10, object.BD3());
    sink.Real(40, data.BD());
    object.WriteAngle(50, data.BD());
    sink.Real(41, data.BD());
    object.WriteAngle(51, data.BD());
    object.WriteThickness(data.BD());
    // The file holds the number of the shape in the style's file, never its name.
    sink.Integer(75, data.BS());
    object.WriteExtrusion(object.BD3());
    sink.HandleTag(340, object.H());
}

void DecodeMesh(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    sink.Integer(71, data.BS());
    sink.Integer(72, data.B() ? 1 : 0);
    sink.Integer(91, data.SignedBL());
    std::uint32_t count = data.Count(data.BL(), 6);
    sink.Integer(92, count);
    for (; count > 0 && !data.Overrun(); --count)
        sink.Point(10, object.BD3());
    count = data.Count(data.BL(), 2);
    sink.Integer(93, count);
    for (; count > 0 && !data.Overrun(); --count)
        sink.Integer(90, data.SignedBL());
    sink.Integer(94, 0);
}

void DecodeNothing(Object&) {}

} // namespace sm::drawing::dwg
