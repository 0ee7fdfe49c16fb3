// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/entities/EntityDecoders.h"
#include "dwg/entities/InsertFields.h"

namespace sm::drawing::dwg {

namespace {

Vec3 ReadScale(Object& object)
{
    BitReader& data = object.data;
    if (object.Before(Release::R2000))
        return object.BD3();
    Vec3 scale{1, 1, 1};
    switch (data.BB()) {
    case 0:
        scale.x = data.RD();
        scale.y = data.DD(scale.x);
        scale.z = data.DD(scale.x);
        break;
    case 1:
        scale.y = data.DD(1);
        scale.z = data.DD(1);
        break;
    case 2:
        scale.x = scale.y = scale.z = data.RD();
        break;
    default:
        break;
    }
    return scale;
}

} // namespace

InsertFields ReadInsert(Object& object, bool array)
{
    BitReader& data = object.data;
    InsertFields insert;
    insert.insertion = object.BD3();
    insert.scale = ReadScale(object);
    insert.rotation = data.BD();
    insert.extrusion = object.BD3();
    const bool hasAttributes = data.B();
    const std::uint32_t owned = hasAttributes && object.Since(Release::R2004) ? data.BL() : 0;
    if (array) {
        insert.columns = data.BS();
        insert.rows = data.BS();
        insert.columnSpacing = data.BD();
        insert.rowSpacing = data.BD();
    }
    insert.block = object.H();
    if (hasAttributes) {
        object.ReadMembers(owned);
        (void)object.H();
    }
    return insert;
}

namespace {

void WriteInsert(Object& object, bool array)
{
    const InsertFields insert = ReadInsert(object, array);
    TagSink& sink = object.sink;
    object.WriteName(2, insert.block);
    sink.Point(10, insert.insertion);
    for (const auto& [code, scale] :
         {std::pair(41, insert.scale.x), std::pair(42, insert.scale.y), std::pair(43, insert.scale.z)})
        if (scale != 1)
            sink.Real(code, scale);
    if (insert.rotation != 0)
        object.WriteAngle(50, insert.rotation);
    if (array) {
        sink.Integer(70, insert.columns);
        sink.Integer(71, insert.rows);
        sink.Real(44, insert.columnSpacing);
        sink.Real(45, insert.rowSpacing);
    }
    object.WriteExtrusion(insert.extrusion);
}

} // namespace

void DecodeInsert(Object& object)
{
    WriteInsert(object, false);
}

void DecodeMInsert(Object& object)
{
    WriteInsert(object, true);
}

} // namespace sm::drawing::dwg
