// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/entities/EntityDecoders.h"

namespace sm::drawing::dwg {

namespace {

/// What stands before it: the plot style sheet, the render mode and the view's own coordinate system.
void WriteShadePlot(Object& object)
{
    BitReader& data = object.data;
    (void)object.T();
    (void)data.RC();
    (void)data.B();
    (void)data.B();
    for (int i = 0; i < 3; ++i)
        (void)object.BD3();
    (void)data.BD();
    (void)data.BS();
    object.sink.Integer(170, data.BS());
}

/// From R2000 on; up to R14 the view stands in the extended data.
void WriteView(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    sink.Point(17, object.BD3());
    sink.Point(16, object.BD3());
    object.WriteAngle(51, data.BD());
    sink.Real(45, data.BD());
    for (const int code : {42, 43, 44})
        sink.Real(code, data.BD());
    object.WriteAngle(50, data.BD());
    sink.Point(12, object.RD2());
    for (int i = 0; i < 3; ++i)
        (void)object.RD2();
    (void)data.BS();
    if (object.Since(Release::R2007))
        (void)data.BS();
    std::uint32_t frozen = data.BL();
    sink.Integer(90, data.SignedBL());
    if (object.Since(Release::R2004))
        WriteShadePlot(object);
    for (; frozen > 0 && object.Links().Left() >= 8; --frozen)
        sink.HandleTag(331, object.H());
    if (const Handle clip = object.H(); clip != 0)
        sink.HandleTag(340, clip);
}

} // namespace

void DecodeViewport(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    sink.Point(10, object.BD3());
    sink.Real(40, data.BD());
    sink.Real(41, data.BD());
    ++object.viewports;
    sink.Integer(69, object.viewports);
    sink.Integer(68, object.viewports);
    if (object.Since(Release::R2000))
        WriteView(object);
}

} // namespace sm::drawing::dwg
