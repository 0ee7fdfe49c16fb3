// SPDX-License-Identifier: GPL-3.0-or-later
#include "graphics/PackedPolyline.h"

#include "dwg/bits/BitReader.h"

namespace sm::drawing {

namespace {

using dwg::BitReader;

enum Flag : std::uint32_t {
    kHasExtrusion = 1,
    kHasThickness = 2,
    kHasWidth = 4,
    kHasElevation = 8,
    kHasBulges = 16,
    kHasWidths = 32,
    kIsClosed = 512,
    kHasIdentifiers = 1024
};

void ReadVertices(BitReader& bits, std::size_t count, PolylineData& polyline)
{
    Vec3 last;
    for (std::size_t i = 0; i < count && !bits.Overrun(); ++i) {
        if (i == 0) {
            last.x = bits.RD();
            last.y = bits.RD();
        } else {
            last.x = bits.DD(last.x);
            last.y = bits.DD(last.y);
        }
        polyline.vertices.emplace_back().point = last;
    }
}

} // namespace

bool ReadPackedPolyline(std::string_view bytes, PolylineData& polyline)
{
    BitReader bits(bytes);
    const std::uint32_t flags = bits.BS();
    const auto real = [&](Flag flag) { return (flags & flag) != 0 ? bits.BD() : 0; };
    const auto count = [&](Flag flag) { return (flags & flag) != 0 ? bits.BL() : 0; };
    polyline.constantWidth = real(kHasWidth);
    polyline.elevation = real(kHasElevation);
    polyline.thickness = real(kHasThickness);
    if ((flags & kHasExtrusion) != 0) {
        const double x = bits.BD(), y = bits.BD();
        polyline.extrusion = {x, y, bits.BD()};
    }
    const std::uint32_t vertices = bits.BL();
    const std::uint32_t bulges = count(kHasBulges), identifiers = count(kHasIdentifiers), widths = count(kHasWidths);
    polyline.closed = (flags & kIsClosed) != 0;
    if (vertices > bits.Left() / 4)
        return false;
    ReadVertices(bits, vertices, polyline);
    for (std::uint32_t i = 0; i < bulges && i < vertices; ++i)
        polyline.vertices[i].bulge = bits.BD();
    for (std::uint32_t i = 0; i < identifiers && i < vertices; ++i)
        (void)bits.BL();
    for (std::uint32_t i = 0; i < widths && i < vertices; ++i) {
        polyline.vertices[i].startWidth = bits.BD();
        polyline.vertices[i].endWidth = bits.BD();
    }
    for (PolyVertex& vertex : polyline.vertices)
        if (widths == 0)
            vertex.startWidth = vertex.endWidth = polyline.constantWidth;
    return !bits.Overrun();
}

} // namespace sm::drawing
