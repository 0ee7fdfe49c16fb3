// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/entities/EntityDecoders.h"

#include <span>

namespace sm::drawing::dwg {

namespace {

constexpr std::uint32_t kOrdinate = 20, kLinear = 21, kAligned = 22, kAngular3 = 23, kAngular2 = 24, kRadius = 25,
                        kDiameter = 26;

/// Reads what all dimensions have and writes it; the result is group 70 but for the kind.
std::int32_t WriteCommon(Object& object)
{
    constexpr unsigned kDefaultPlace = 1, kOwnBlock = 2;
    constexpr std::int32_t kUserPlace = 128, kBlockIsOwn = 32;
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    if (object.Since(Release::R2010))
        (void)data.RC();
    object.WriteExtrusion(object.BD3());
    const Vec2 text = object.RD2();
    sink.Point(11, Vec3{text.x, text.y, data.BD()});
    const unsigned flags = data.RC();
    object.WriteT(1);
    object.WriteAngle(53, data.BD());
    object.WriteAngle(51, data.BD());
    (void)object.BD3();
    (void)data.BD();
    if (object.Since(Release::R2000)) {
        sink.Integer(71, data.BS());
        (void)data.BS();
        (void)data.BD();
        sink.Real(42, data.BD());
    }
    for (int i = 0; i < 3 && object.Since(Release::R2007); ++i)
        data.B();
    const Vec2 offset = object.RD2();
    if (offset.x != 0 || offset.y != 0)
        sink.Point(12, Vec3{offset.x, offset.y, 0});
    object.WriteName(3, object.H());
    object.WriteName(2, object.H());
    return ((flags & kDefaultPlace) == 0 ? kUserPlace : 0) | ((flags & kOwnBlock) != 0 ? kBlockIsOwn : 0);
}

void WritePoints(Object& object, std::initializer_list<int> codes)
{
    for (const int code : codes)
        object.sink.Point(code, object.BD3());
}

void WriteAligned(Object& object, bool linear)
{
    WritePoints(object, {13, 14, 10});
    object.WriteAngle(52, object.data.BD());
    if (linear)
        object.WriteAngle(50, object.data.BD());
}

void WriteAngular2(Object& object)
{
    const Vec2 arc = object.RD2();
    object.sink.Point(16, Vec3{arc.x, arc.y, 0});
    WritePoints(object, {13, 14, 15, 10});
}

} // namespace

void DecodeDimension(Object& object)
{
    constexpr std::int32_t kTypes[] = {6, 0, 1, 5, 2, 4, 3};
    constexpr std::int32_t kAlongX = 64;
    std::int32_t type = WriteCommon(object) | kTypes[object.type - kOrdinate];
    BitReader& data = object.data;
    switch (object.type) {
    case kOrdinate:
        WritePoints(object, {10, 13, 14});
        type |= (data.RC() & 1) != 0 ? kAlongX : 0;
        break;
    case kLinear:
    case kAligned:
        WriteAligned(object, object.type == kLinear);
        break;
    case kAngular3:
        WritePoints(object, {10, 13, 14, 15});
        break;
    case kAngular2:
        WriteAngular2(object);
        break;
    case kRadius:
    case kDiameter:
        WritePoints(object, {object.type == kRadius ? 10 : 15, object.type == kRadius ? 15 : 10});
        object.sink.Real(40, data.BD());
        break;
    default:
        break;
    }
    object.sink.Integer(70, type);
}

void DecodeArcDimension(Object& object)
{
    (void)WriteCommon(object);
    BitReader& data = object.data;
    WritePoints(object, {10, 13, 14, 15});
    const bool partial = data.B();
    object.sink.Real(40, data.BD());
    object.sink.Real(41, data.BD());
    data.B();
    WritePoints(object, {16, 17});
    object.sink.Integer(70, partial ? 1 : 0); // the last of two groups of this number in DXF
}

void DecodeJoggedDimension(Object& object)
{
    constexpr std::int32_t kRadiusType = 4;
    const std::int32_t type = WriteCommon(object) | kRadiusType;
    WritePoints(object, {10, 15});
    object.sink.Real(40, object.data.BD());
    WritePoints(object, {14, 13});
    object.sink.Integer(70, type);
}

} // namespace sm::drawing::dwg
