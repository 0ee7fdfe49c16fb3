// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/entities/EntityDecoders.h"

#include <vector>

namespace sm::drawing::dwg {

namespace {

// Bits of a light polyline's flags.
constexpr std::uint32_t kHasExtrusion = 1, kHasThickness = 2, kHasWidth = 4, kHasElevation = 8, kHasBulges = 0x10,
                        kHasWidths = 0x20, kGenerates = 0x100, kIsClosed = 0x200, kHasIdentifiers = 0x400;
// Bits of group 70.
constexpr std::int32_t kClosed = 1, kSplineFitted = 4, k3d = 8, kMesh = 16, kPolyface = 64, kGenerate = 128;

struct LightVertices {
    std::vector<Vec2> points, widths;
    std::vector<double> bulges;
};

void ReadLightVertices(Object& object, std::uint32_t flags, LightVertices& vertices)
{
    BitReader& data = object.data;
    const auto count = [&](std::uint32_t bit) { return (flags & bit) != 0 ? data.BL() : 0U; };
    vertices.points.resize(data.Count(data.BL(), 4));
    const std::uint32_t bulges = count(kHasBulges), identifiers = count(kHasIdentifiers), widths = count(kHasWidths);
    Vec2 last;
    for (Vec2& point : vertices.points) {
        const bool raw = &point == vertices.points.data() || object.Before(Release::R2000);
        last = point = raw ? object.RD2() : object.DD2(last);
    }
    vertices.bulges.resize(data.Count(bulges, 2));
    for (double& bulge : vertices.bulges)
        bulge = data.BD();
    for (std::uint32_t i = 0; i < identifiers && !data.Overrun(); ++i)
        (void)data.BL();
    vertices.widths.resize(data.Count(widths, 4));
    for (Vec2& width : vertices.widths)
        width = object.BD2();
}

void WriteLightVertices(TagSink& sink, const LightVertices& vertices)
{
    sink.Integer(90, static_cast<std::int64_t>(vertices.points.size()));
    for (std::size_t i = 0; i < vertices.points.size(); ++i) {
        sink.Point(10, vertices.points[i]);
        if (i < vertices.widths.size()) {
            sink.Real(40, vertices.widths[i].x);
            sink.Real(41, vertices.widths[i].y);
        }
        if (i < vertices.bulges.size() && vertices.bulges[i] != 0)
            sink.Real(42, vertices.bulges[i]);
    }
}

/// Group 75 of the smooth kinds that are stored as 1 and 2.
constexpr std::int32_t kSmooth = 4;

} // namespace

void DecodeLightPolyline(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    const std::uint32_t flags = data.BS();
    sink.Integer(70, ((flags & kIsClosed) != 0 ? kClosed : 0) | ((flags & kGenerates) != 0 ? kGenerate : 0));
    if ((flags & kHasWidth) != 0)
        sink.Real(43, data.BD());
    if ((flags & kHasElevation) != 0)
        sink.Real(38, data.BD());
    if ((flags & kHasThickness) != 0)
        sink.Real(39, data.BD());
    if ((flags & kHasExtrusion) != 0)
        object.WriteExtrusion(object.BD3());
    LightVertices vertices;
    ReadLightVertices(object, flags, vertices);
    WriteLightVertices(sink, vertices);
}

void DecodePolyline2d(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    sink.Integer(70, data.BS());
    sink.Integer(75, data.BS());
    sink.Real(40, data.BD());
    sink.Real(41, data.BD());
    object.WriteThickness(object.BT());
    sink.Real(30, data.BD());
    object.WriteExtrusion(object.BE());
    object.ReadMembers(object.Since(Release::R2004) ? data.BL() : 0);
}

void DecodePolyline3d(Object& object)
{
    BitReader& data = object.data;
    const std::int32_t curve = data.RC() & 3;
    const bool closed = (data.RC() & 1) != 0;
    object.sink.Integer(70, k3d | (closed ? kClosed : 0) | (curve != 0 ? kSplineFitted : 0));
    if (curve != 0)
        object.sink.Integer(75, kSmooth + curve);
    object.ReadMembers(object.Since(Release::R2004) ? data.BL() : 0);
}

void DecodePolyface(Object& object)
{
    BitReader& data = object.data;
    object.sink.Integer(70, kPolyface);
    object.sink.Integer(71, data.BS());
    object.sink.Integer(72, data.BS());
    object.ReadMembers(object.Since(Release::R2004) ? data.BL() : 0);
}

void DecodePolygonMesh(Object& object)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    sink.Integer(70, data.BS() | kMesh);
    sink.Integer(75, data.BS());
    for (const int code : {71, 72, 73, 74})
        sink.Integer(code, data.BS());
    object.ReadMembers(object.Since(Release::R2004) ? data.BL() : 0);
}

namespace {

constexpr std::uint32_t kVertex2d = 10, kVertex3d = 11, kVertexMesh = 12, kVertexFace = 14;

void DecodeVertex2d(Object& object, std::int32_t flags)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    sink.Point(10, object.BD3());
    const double start = data.BD();
    const double end = start < 0 ? -start : data.BD();
    sink.Real(40, std::abs(start));
    sink.Real(41, end);
    if (const double bulge = data.BD(); bulge != 0)
        sink.Real(42, bulge);
    if (flags != 0)
        sink.Integer(70, flags);
}

} // namespace

void DecodeVertex(Object& object)
{
    constexpr std::int32_t kOf3d = 32, kOfMesh = 64, kOfPolyface = 128;
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    if (object.type == kVertexFace) {
        sink.Integer(70, kOfPolyface);
        for (const int code : {71, 72, 73, 74})
            sink.Integer(code, data.SignedBS());
        return;
    }
    const std::int32_t flags = data.RC();
    if (object.type == kVertex2d) {
        DecodeVertex2d(object, flags);
        return;
    }
    sink.Point(10, object.BD3());
    const std::int32_t kind = object.type == kVertex3d     ? kOf3d
                              : object.type == kVertexMesh ? kOfMesh
                                                           : kOfMesh | kOfPolyface;
    sink.Integer(70, flags | kind);
}

} // namespace sm::drawing::dwg
