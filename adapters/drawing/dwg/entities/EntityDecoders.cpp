// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/entities/EntityDecoders.h"

#include <array>

namespace sm::drawing::dwg {

namespace {

constexpr std::array kRows{
    EntityRow{1, {}, "TEXT", DecodeText},
    EntityRow{2, {}, "ATTRIB", DecodeAttribute},
    EntityRow{3, {}, "ATTDEF", DecodeAttributeDefinition},
    EntityRow{7, {}, "INSERT", DecodeInsert},
    EntityRow{8, {}, "INSERT", DecodeMInsert},
    EntityRow{10, {}, "VERTEX", DecodeVertex},
    EntityRow{11, {}, "VERTEX", DecodeVertex},
    EntityRow{12, {}, "VERTEX", DecodeVertex},
    EntityRow{13, {}, "VERTEX", DecodeVertex},
    EntityRow{14, {}, "VERTEX", DecodeVertex},
    EntityRow{15, {}, "POLYLINE", DecodePolyline2d},
    EntityRow{16, {}, "POLYLINE", DecodePolyline3d},
    EntityRow{17, {}, "ARC", DecodeArc},
    EntityRow{18, {}, "CIRCLE", DecodeCircle},
    EntityRow{19, {}, "LINE", DecodeLine},
    EntityRow{20, {}, "DIMENSION", DecodeDimension},
    EntityRow{21, {}, "DIMENSION", DecodeDimension},
    EntityRow{22, {}, "DIMENSION", DecodeDimension},
    EntityRow{23, {}, "DIMENSION", DecodeDimension},
    EntityRow{24, {}, "DIMENSION", DecodeDimension},
    EntityRow{25, {}, "DIMENSION", DecodeDimension},
    EntityRow{26, {}, "DIMENSION", DecodeDimension},
    EntityRow{27, {}, "POINT", DecodePoint},
    EntityRow{28, {}, "3DFACE", DecodeFace},
    EntityRow{29, {}, "POLYLINE", DecodePolyface},
    EntityRow{30, {}, "POLYLINE", DecodePolygonMesh},
    EntityRow{31, {}, "SOLID", DecodeSolid},
    EntityRow{32, {}, "TRACE", DecodeSolid},
    EntityRow{33, {}, "SHAPE", DecodeShape},
    EntityRow{34, {}, "VIEWPORT", DecodeViewport},
    EntityRow{35, {}, "ELLIPSE", DecodeEllipse},
    EntityRow{36, {}, "SPLINE", DecodeSpline},
    EntityRow{37, {}, "REGION", DecodeBody},
    EntityRow{38, {}, "3DSOLID", DecodeBody},
    EntityRow{39, {}, "BODY", DecodeBody},
    EntityRow{40, {}, "RAY", DecodeRay},
    EntityRow{41, {}, "XLINE", DecodeRay},
    EntityRow{43, "OLEFRAME", "OLEFRAME", DecodeNothing, true},
    EntityRow{44, {}, "MTEXT", DecodeMText},
    EntityRow{45, {}, "LEADER", DecodeLeader},
    EntityRow{46, {}, "TOLERANCE", DecodeTolerance},
    EntityRow{47, {}, "MLINE", DecodeMLine},
    EntityRow{74, "OLE2FRAME", "OLE2FRAME", DecodeOleFrame, true},
    EntityRow{77, "LWPOLYLINE", "LWPOLYLINE", DecodeLightPolyline},
    EntityRow{78, "HATCH", "HATCH", DecodeHatch},
    EntityRow{498, "ACAD_PROXY_ENTITY", "ACAD_PROXY_ENTITY", DecodeNothing, true},
    EntityRow{0, "ARC_DIMENSION", "ARC_DIMENSION", DecodeArcDimension},
    EntityRow{0, "LARGE_RADIAL_DIMENSION", "LARGE_RADIAL_DIMENSION", DecodeJoggedDimension},
    EntityRow{0, "HELIX", "HELIX", DecodeHelix},
    EntityRow{0, "MULTILEADER", "MULTILEADER", DecodeMultiLeader},
    EntityRow{0, "ACAD_TABLE", "ACAD_TABLE", DecodeTable},
    EntityRow{0, "IMAGE", "IMAGE", DecodeImage},
    EntityRow{0, "WIPEOUT", "WIPEOUT", DecodeImage},
    EntityRow{0, "PDFUNDERLAY", "PDFUNDERLAY", DecodeUnderlay},
    EntityRow{0, "DWFUNDERLAY", "DWFUNDERLAY", DecodeUnderlay},
    EntityRow{0, "DGNUNDERLAY", "DGNUNDERLAY", DecodeUnderlay},
    EntityRow{0, "MESH", "MESH", DecodeMesh},
    EntityRow{0, "SURFACE", "SURFACE", DecodeBody, true},
    EntityRow{0, "EXTRUDEDSURFACE", "EXTRUDEDSURFACE", DecodeBody, true},
    EntityRow{0, "LOFTEDSURFACE", "LOFTEDSURFACE", DecodeBody, true},
    EntityRow{0, "REVOLVEDSURFACE", "REVOLVEDSURFACE", DecodeBody, true},
    EntityRow{0, "SWEPTSURFACE", "SWEPTSURFACE", DecodeBody, true},
    EntityRow{0, "PLANESURFACE", "PLANESURFACE", DecodeBody, true},
    EntityRow{0, "NURBSURFACE", "NURBSURFACE", DecodeBody, true},
};

/// The rows of the fixed types by their number.
constexpr std::size_t kFixed = 500;
const std::array<const EntityRow*, kFixed>& Fixed()
{
    static const std::array<const EntityRow*, kFixed> kByType = [] {
        std::array<const EntityRow*, kFixed> rows{};
        for (const EntityRow& row : kRows)
            if (row.type != 0)
                rows[row.type] = &row;
        return rows;
    }();
    return kByType;
}

} // namespace

const EntityRow* FindEntityRow(std::uint32_t type)
{
    return type < kFixed ? Fixed()[type] : nullptr;
}

const EntityRow* FindEntityRow(std::string_view className)
{
    for (const EntityRow& row : kRows)
        if (!row.className.empty() && className == row.className)
            return &row;
    return nullptr;
}

} // namespace sm::drawing::dwg
