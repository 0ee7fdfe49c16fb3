// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/entities/EntityDecoders.h"

#include <algorithm>

namespace sm::drawing::dwg {

namespace {

constexpr std::uint32_t kFilled = 1, kFramed = 0x10;

void WriteBackground(Object& object)
{
    BitReader& data = object.data;
    const std::uint32_t flags = data.BL();
    if (flags != 0)
        object.sink.Integer(90, flags);
    if ((flags & kFilled) == 0 && (object.Before(Release::R2018) || (flags & kFramed) == 0))
        return;
    object.sink.Real(45, data.BD());
    object.WriteColor(object.CMC(), 63, 421);
    object.sink.Integer(441, data.SignedBL());
}

/// From R2018 on: the columns, as an object of its own in DXF.
void WriteColumns(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    if (!data.B())
        return;
    constexpr std::int32_t kDynamic = 2;
    (void)data.BS();
    data.B();
    (void)object.H();
    sink.Text(101, "Embedded Object");
    sink.Integer(70, data.SignedBL());
    sink.Point(10, object.BD3());
    sink.Point(11, object.BD3());
    for (const int code : {40, 41, 42, 43})
        sink.Real(code, data.BD());
    const std::int32_t type = data.SignedBS();
    sink.Integer(71, type);
    if (type == 0)
        return;
    std::uint32_t count = data.BL();
    sink.Integer(72, count);
    sink.Real(44, data.BD());
    sink.Real(45, data.BD());
    const bool automatic = data.B();
    sink.Integer(73, automatic ? 1 : 0);
    sink.Integer(74, data.B() ? 1 : 0);
    if (automatic || type != kDynamic)
        return;
    for (count = data.Count(count, 2); count > 0 && !data.Overrun(); --count)
        sink.Real(46, std::max(data.BD(), 0.0)); // below 0: as high as its lines
}

void WriteMText(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    sink.Point(10, object.BD3());
    object.WriteExtrusion(object.BD3());
    sink.Point(11, object.BD3());
    sink.Real(41, data.BD());
    if (object.Since(Release::R2007))
        sink.Real(46, data.BD());
    sink.Real(40, data.BD());
    sink.Integer(71, data.BS());
    sink.Integer(72, data.BS());
    (void)data.BD();
    (void)data.BD();
    object.WriteT(1);
    object.WriteName(7, object.H());
    if (object.Since(Release::R2000)) {
        sink.Integer(73, data.BS());
        sink.Real(44, data.BD());
        data.B();
    }
    if (object.Since(Release::R2004))
        WriteBackground(object);
    if (object.Since(Release::R2018))
        WriteColumns(object);
}

} // namespace

double ReadMTextWidth(Object& object)
{
    BitReader& data = object.data;
    for (int i = 0; i < 3; ++i)
        (void)object.BD3();
    for (int i = object.Since(Release::R2007) ? 3 : 2; i > 0; --i)
        (void)data.BD();
    (void)data.BS();
    (void)data.BS();
    (void)data.BD();
    return data.BD();
}

void DecodeMText(Object& object)
{
    WriteMText(object);
}

void DecodeEmbeddedMText(Object& object)
{
    const std::uint32_t mode = object.mode;
    const Handle owner = object.owner;
    object.ReadEmbeddedHead();
    object.mode = mode;
    object.owner = owner;
    WriteMText(object);
    BitReader& data = object.data;
    if (const std::uint32_t size = data.BS(); size > 0) {
        data.Skip(std::uint64_t{size} * 8);
        (void)object.H();
        (void)data.BS();
    }
}

} // namespace sm::drawing::dwg
