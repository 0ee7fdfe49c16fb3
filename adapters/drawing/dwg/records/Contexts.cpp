// SPDX-License-Identifier: GPL-3.0-or-later
// How an annotative entity looks at one of its scales.
#include "dwg/records/RecordDecoders.h"

namespace sm::drawing::dwg {

namespace {

void WriteHead(Object& object)
{
    object.sink.Integer(70, object.data.BS());
    object.sink.Integer(290, object.data.B() ? 1 : 0);
    object.sink.HandleTag(340, object.H());
}

} // namespace

/// Other kinds keep their one look: only their scale is read.
void DecodeAnyContext(Object& object)
{
    WriteHead(object);
}

void DecodeTextContext(Object& object)
{
    BitReader& data = object.data;
    WriteHead(object);
    object.sink.Integer(70, data.BS());
    object.WriteAngle(50, data.BD());
    object.sink.Point(10, object.RD2());
    object.sink.Point(11, object.RD2());
}

void DecodeMTextContext(Object& object)
{
    BitReader& data = object.data;
    WriteHead(object);
    object.sink.Integer(70, data.SignedBL());
    object.sink.Point(10, object.BD3());
    object.sink.Point(11, object.BD3());
    for (const int code : {40, 41, 42, 43})
        object.sink.Real(code, data.BD());
}

void DecodeInsertContext(Object& object)
{
    BitReader& data = object.data;
    WriteHead(object);
    object.WriteAngle(50, data.BD());
    object.sink.Point(10, object.BD3());
    for (const int code : {41, 42, 43})
        object.sink.Real(code, data.BD());
}

} // namespace sm::drawing::dwg
