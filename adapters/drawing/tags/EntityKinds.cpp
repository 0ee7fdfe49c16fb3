#include "tags/EntityKinds.h"

#include <array>
#include <unordered_map>
#include <utility>

namespace sm::drawing {

namespace {

using Kind = EntityKind;

/// The first name of a kind is the one that KindName gives.
constexpr std::array<std::pair<const char*, Kind>, 59> kNames{{
    {"LINE", Kind::Line},
    {"3DLINE", Kind::Line}, // of releases before R10
    {"CIRCLE", Kind::Circle},
    {"ARC", Kind::Arc},
    {"ELLIPSE", Kind::Ellipse},
    {"LWPOLYLINE", Kind::LwPolyline},
    {"POLYLINE", Kind::Polyline},
    {"SPLINE", Kind::Spline},
    {"HELIX", Kind::Helix},
    {"POINT", Kind::Point},
    {"SOLID", Kind::Solid},
    {"TRACE", Kind::Trace},
    {"3DFACE", Kind::Face3d},
    {"TEXT", Kind::Text},
    {"ATTRIB", Kind::Attrib},
    {"ATTDEF", Kind::Attdef},
    {"MTEXT", Kind::MText},
    {"INSERT", Kind::Insert},
    {"DIMENSION", Kind::Dimension},
    {"ARC_DIMENSION", Kind::Dimension},
    {"LARGE_RADIAL_DIMENSION", Kind::Dimension},
    {"HATCH", Kind::Hatch},
    {"MPOLYGON", Kind::MPolygon},
    {"VIEWPORT", Kind::Viewport},
    {"LEADER", Kind::Leader},
    {"MULTILEADER", Kind::MultiLeader},
    {"MLEADER", Kind::MultiLeader},
    {"MLINE", Kind::MLine},
    {"TOLERANCE", Kind::Tolerance},
    {"SHAPE", Kind::Shape},
    {"XLINE", Kind::XLine},
    {"RAY", Kind::Ray},
    {"IMAGE", Kind::Image},
    {"WIPEOUT", Kind::Wipeout},
    {"PDFUNDERLAY", Kind::Underlay},
    {"DWFUNDERLAY", Kind::Underlay},
    {"DGNUNDERLAY", Kind::Underlay},
    {"ACAD_TABLE", Kind::Table},
    {"MESH", Kind::Mesh},
    {"REGION", Kind::Region},
    {"3DSOLID", Kind::Solid3d},
    {"BODY", Kind::Body},
    {"SURFACE", Kind::Surface},
    {"EXTRUDEDSURFACE", Kind::Surface},
    {"LOFTEDSURFACE", Kind::Surface},
    {"REVOLVEDSURFACE", Kind::Surface},
    {"SWEPTSURFACE", Kind::Surface},
    {"PLANESURFACE", Kind::Surface},
    {"NURBSURFACE", Kind::Surface},
    {"ACAD_PROXY_ENTITY", Kind::Proxy},
    {"OLE2FRAME", Kind::OleFrame},
    {"OLEFRAME", Kind::OleFrame},
    {"LIGHT", Kind::Light},
    {"SUN", Kind::Sun},
    {"SECTION", Kind::Section},
    {"SECTIONOBJECT", Kind::Section},
    {"GEOPOSITIONMARKER", Kind::GeoPosition},
    {"POSITIONMARKER", Kind::GeoPosition},
    {"ACAD_PROXY_OBJECT", Kind::Proxy},
}};

} // namespace

EntityKind KindOf(std::string_view name)
{
    static const std::unordered_map<std::string_view, Kind> kKinds(kNames.begin(), kNames.end());
    const auto found = kKinds.find(name);
    return found == kKinds.end() ? Kind::Unknown : found->second;
}

const char* KindName(EntityKind kind)
{
    for (const auto& [name, known] : kNames)
        if (known == kind)
            return name;
    return "UNKNOWN";
}

} // namespace sm::drawing
