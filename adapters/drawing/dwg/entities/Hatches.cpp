// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/entities/EntityDecoders.h"

namespace sm::drawing::dwg {

namespace {

constexpr std::uint32_t kPolylinePath = 2, kDerivedPath = 4;
constexpr unsigned kLineEdge = 1, kArcEdge = 2, kEllipseEdge = 3, kSplineEdge = 4;

void WriteGradient(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    const bool gradient = data.BL() != 0;
    (void)data.BL();
    const double angle = data.BD(), shift = data.BD();
    (void)data.BL();
    const double tint = data.BD();
    std::uint32_t colors = data.Count(data.BL(), 4);
    if (gradient) {
        sink.Integer(450, 1);
        sink.Real(460, angle);
        sink.Real(461, shift);
        sink.Real(462, tint);
    }
    for (; colors > 0 && !data.Overrun(); --colors) {
        (void)data.BD();
        const Color color = object.CMC();
        if (const auto rgb = color.Rgb(); gradient && rgb)
            sink.Integer(421, *rgb);
    }
    const std::string_view name = object.T();
    if (gradient)
        sink.Text(470, name);
}

void WriteSplineEdge(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    sink.Integer(94, data.SignedBL());
    const bool rational = data.B();
    data.B();
    std::uint32_t knots = data.BL(), points = data.BL();
    for (knots = data.Count(knots, 2); knots > 0 && !data.Overrun(); --knots)
        sink.Real(40, data.BD());
    for (points = data.Count(points, 128); points > 0 && !data.Overrun(); --points) {
        sink.Point(10, object.RD2());
        if (rational)
            sink.Real(42, data.BD());
    }
    std::uint32_t fit = object.Since(Release::R2010) ? data.BL() : 0;
    if (fit == 0)
        return;
    for (fit = data.Count(fit, 128); fit > 0; --fit)
        sink.Point(11, object.RD2());
    sink.Point(12, object.RD2());
    sink.Point(13, object.RD2());
}

void WriteEdge(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    const unsigned kind = data.RC();
    sink.Integer(72, kind);
    switch (kind) {
    case kLineEdge:
        sink.Point(10, object.RD2());
        sink.Point(11, object.RD2());
        break;
    case kArcEdge:
    case kEllipseEdge:
        sink.Point(10, object.RD2());
        if (kind == kEllipseEdge)
            sink.Point(11, object.RD2());
        sink.Real(40, data.BD());
        object.WriteAngle(50, data.BD());
        object.WriteAngle(51, data.BD());
        sink.Integer(73, data.B() ? 1 : 0);
        break;
    case kSplineEdge:
        WriteSplineEdge(object);
        break;
    default:
        data.Fail();
    }
}

void WritePolyline(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    const bool bulges = data.B();
    sink.Integer(73, data.B() ? 1 : 0);
    for (std::uint32_t count = data.Count(data.BL(), 128); count > 0 && !data.Overrun(); --count) {
        sink.Point(10, object.RD2());
        if (const double bulge = bulges ? data.BD() : 0; bulge != 0)
            sink.Real(42, bulge);
    }
}

/// Returns the path's flags.
std::uint32_t WritePath(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    const std::uint32_t flags = data.BL();
    sink.Integer(92, flags);
    if ((flags & kPolylinePath) != 0)
        WritePolyline(object);
    else
        for (std::uint32_t edges = data.Count(data.BL(), 8); edges > 0 && !data.Overrun(); --edges)
            WriteEdge(object);
    for (std::uint32_t sources = data.BL(); sources > 0 && object.Links().Left() >= 8; --sources)
        sink.HandleTag(330, object.H());
    return flags;
}

void WritePattern(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    object.WriteAngle(52, data.BD());
    sink.Real(41, data.BD());
    sink.Integer(77, data.B() ? 1 : 0);
    for (std::uint32_t lines = data.Count(data.BS(), 12); lines > 0 && !data.Overrun(); --lines) {
        object.WriteAngle(53, data.BD());
        for (const int code : {43, 44, 45, 46})
            sink.Real(code, data.BD());
        for (std::uint32_t dashes = data.Count(data.BS(), 2); dashes > 0 && !data.Overrun(); --dashes)
            sink.Real(49, data.BD());
    }
}

} // namespace

void DecodeHatch(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    if (object.Since(Release::R2004))
        WriteGradient(object);
    sink.Real(30, data.BD());
    object.WriteExtrusion(object.BD3());
    object.WriteT(2);
    const bool solid = data.B();
    sink.Integer(70, solid ? 1 : 0);
    sink.Integer(71, data.B() ? 1 : 0);
    std::uint32_t paths = data.Count(data.BL(), 6);
    sink.Integer(91, paths);
    bool derived = false;
    for (; paths > 0 && !data.Overrun(); --paths)
        derived = (WritePath(object) & kDerivedPath) != 0 || derived;
    sink.Integer(75, data.BS());
    sink.Integer(76, data.BS());
    if (!solid)
        WritePattern(object);
    if (derived)
        (void)data.BD();
}

} // namespace sm::drawing::dwg
