#include "dwg/entities/EntityDecoders.h"

#include <array>

namespace sm::drawing::dwg {

namespace {

constexpr std::array kRows{
    EntityRow{1, nullptr, "TEXT", DecodeText},
    EntityRow{2, nullptr, "ATTRIB", DecodeAttribute},
    EntityRow{3, nullptr, "ATTDEF", DecodeAttributeDefinition},
    EntityRow{7, nullptr, "INSERT", DecodeInsert},
    EntityRow{8, nullptr, "INSERT", DecodeMInsert},
    EntityRow{10, nullptr, "VERTEX", DecodeVertex},
    EntityRow{11, nullptr, "VERTEX", DecodeVertex},
    EntityRow{12, nullptr, "VERTEX", DecodeVertex},
    EntityRow{13, nullptr, "VERTEX", DecodeVertex},
    EntityRow{14, nullptr, "VERTEX", DecodeVertex},
    EntityRow{15, nullptr, "POLYLINE", DecodePolyline2d},
    EntityRow{16, nullptr, "POLYLINE", DecodePolyline3d},
    EntityRow{17, nullptr, "ARC", DecodeArc},
    EntityRow{18, nullptr, "CIRCLE", DecodeCircle},
    EntityRow{19, nullptr, "LINE", DecodeLine},
    EntityRow{20, nullptr, "DIMENSION", DecodeDimension},
    EntityRow{21, nullptr, "DIMENSION", DecodeDimension},
    EntityRow{22, nullptr, "DIMENSION", DecodeDimension},
    EntityRow{23, nullptr, "DIMENSION", DecodeDimension},
    EntityRow{24, nullptr, "DIMENSION", DecodeDimension},
    EntityRow{25, nullptr, "DIMENSION", DecodeDimension},
    EntityRow{26, nullptr, "DIMENSION", DecodeDimension},
    EntityRow{27, nullptr, "POINT", DecodePoint},
    EntityRow{28, nullptr, "3DFACE", DecodeFace},
    EntityRow{29, nullptr, "POLYLINE", DecodePolyface},
    EntityRow{30, nullptr, "POLYLINE", DecodePolygonMesh},
    EntityRow{31, nullptr, "SOLID", DecodeSolid},
    EntityRow{32, nullptr, "TRACE", DecodeSolid},
    EntityRow{33, nullptr, "SHAPE", DecodeShape},
    EntityRow{34, nullptr, "VIEWPORT", DecodeViewport},
    EntityRow{35, nullptr, "ELLIPSE", DecodeEllipse},
    EntityRow{36, nullptr, "SPLINE", DecodeSpline},
    EntityRow{37, nullptr, "REGION", DecodeBody},
    EntityRow{38, nullptr, "3DSOLID", DecodeBody},
    EntityRow{39, nullptr, "BODY", DecodeBody},
    EntityRow{40, nullptr, "RAY", DecodeRay},
    EntityRow{41, nullptr, "XLINE", DecodeRay},
    EntityRow{43, "OLEFRAME", "OLEFRAME", DecodeNothing, true},
    EntityRow{44, nullptr, "MTEXT", DecodeMText},
    EntityRow{45, nullptr, "LEADER", DecodeLeader},
    EntityRow{46, nullptr, "TOLERANCE", DecodeTolerance},
    EntityRow{47, nullptr, "MLINE", DecodeMLine},
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
        if (row.className != nullptr && className == row.className)
            return &row;
    return nullptr;
}

} // namespace sm::drawing::dwg
