// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/records/RecordDecoders.h"

#include <vector>

namespace sm::drawing::dwg {

void DecodeImageDefinition(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    (void)data.BL();
    sink.Point(10, object.RD2());
    object.WriteT(1);
    sink.Integer(280, data.B() ? 1 : 0);
    sink.Integer(281, data.RC());
    sink.Point(11, object.RD2());
}

void DecodeUnderlayDefinition(Object& object)
{
    object.WriteT(1);
    object.WriteT(2);
}

void DecodeRasterVariables(Object& object)
{
    (void)object.data.BL();
    object.sink.Integer(70, object.data.BS());
    object.sink.Integer(71, object.data.BS());
    object.sink.Integer(72, object.data.BS());
}

void DecodeWipeoutVariables(Object& object)
{
    object.sink.Integer(70, object.data.BS());
}

void DecodeScale(Object& object)
{
    BitReader& data = object.data;
    object.sink.Integer(70, data.BS());
    object.WriteT(300);
    object.sink.Real(140, data.BD());
    object.sink.Real(141, data.BD());
    object.sink.Integer(290, data.B() ? 1 : 0);
}

void DecodeSortTable(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    sink.Text(100, "AcDbSortentsTable");
    std::uint32_t count = data.Count(data.BL(), 8);
    sink.HandleTag(330, object.H());
    for (; count > 0 && !data.Overrun(); --count) {
        const Handle key = object.DataH();
        sink.HandleTag(331, object.H());
        sink.HandleTag(5, key);
    }
}

namespace {

void WritePlane(Object& object, int flag, int distance)
{
    const std::uint32_t on = object.data.BS();
    object.sink.Integer(flag, on);
    if (on != 0)
        object.sink.Real(distance, object.data.BD());
}

} // namespace

void DecodeSpatialFilter(Object& object)
{
    constexpr int kMatrices = 24;
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    sink.Text(100, "AcDbSpatialFilter");
    std::uint32_t points = data.Count(data.BS(), 128);
    sink.Integer(70, points);
    for (; points > 0; --points)
        sink.Point(10, object.RD2());
    sink.Point(210, object.BD3());
    sink.Point(11, object.BD3());
    sink.Integer(71, data.BS());
    WritePlane(object, 72, 40);
    WritePlane(object, 73, 41);
    for (int i = 0; i < kMatrices; ++i)
        sink.Real(40, data.BD());
}

void DecodeField(Object& object)
{
    BitReader& data = object.data;
    object.WriteT(1);
    object.WriteT(2);
    for (std::uint32_t children = data.BL(); children > 0 && object.Links().Left() >= 8; --children)
        object.sink.HandleTag(360, object.H());
}

void DecodePlaceholder(Object&) {}

} // namespace sm::drawing::dwg
