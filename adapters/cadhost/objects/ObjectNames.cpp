// SPDX-License-Identifier: GPL-3.0-or-later
#include "objects/ObjectNames.h"

#include "drawing/EntityKinds.h"
#include "drawing/entities/Dimensions.h"
#include "drawing/entities/Inserts.h"
#include "drawing/entities/Polylines.h"

#include <array>
#include <string_view>
#include <utility>

namespace sm::cadhost {
namespace {

using drawing::EntityKind;
constexpr const char* kUnknownClass = "AcDbZombieEntity";

constexpr std::pair<EntityKind, const char*> kClasses[] = {
    {EntityKind::Line, "AcDbLine"},
    {EntityKind::Circle, "AcDbCircle"},
    {EntityKind::Arc, "AcDbArc"},
    {EntityKind::Ellipse, "AcDbEllipse"},
    {EntityKind::LwPolyline, "AcDbPolyline"},
    {EntityKind::Spline, "AcDbSpline"},
    {EntityKind::Helix, "AcDbHelix"},
    {EntityKind::Point, "AcDbPoint"},
    {EntityKind::Solid, "AcDbSolid"},
    {EntityKind::Trace, "AcDbTrace"},
    {EntityKind::Face3d, "AcDbFace"},
    {EntityKind::Text, "AcDbText"},
    {EntityKind::Attrib, "AcDbAttribute"},
    {EntityKind::Attdef, "AcDbAttributeDefinition"},
    {EntityKind::MText, "AcDbMText"},
    {EntityKind::Hatch, "AcDbHatch"},
    {EntityKind::MPolygon, "AcDbMPolygon"},
    {EntityKind::Viewport, "AcDbViewport"},
    {EntityKind::Leader, "AcDbLeader"},
    {EntityKind::MultiLeader, "AcDbMLeader"},
    {EntityKind::MLine, "AcDbMline"},
    {EntityKind::Tolerance, "AcDbFcf"},
    {EntityKind::Shape, "AcDbShape"},
    {EntityKind::XLine, "AcDbXline"},
    {EntityKind::Ray, "AcDbRay"},
    {EntityKind::Image, "AcDbRasterImage"},
    {EntityKind::Wipeout, "AcDbWipeout"},
    {EntityKind::Table, "AcDbTable"},
    {EntityKind::Mesh, "AcDbSubDMesh"},
    {EntityKind::Region, "AcDbRegion"},
    {EntityKind::Solid3d, "AcDb3dSolid"},
    {EntityKind::Body, "AcDbBody"},
    {EntityKind::OleFrame, "AcDbOle2Frame"},
    {EntityKind::Light, "AcDbLight"},
    {EntityKind::Sun, "AcDbSun"},
    {EntityKind::Section, "AcDbSection"},
    {EntityKind::GeoPosition, "AcDbGeoPositionMarker"},
};

/// Kinds that stand for several classes, and classes without a kind, by DXF name.
constexpr std::pair<std::string_view, const char*> kClassesByName[] = {
    {"PDFUNDERLAY", "AcDbPdfReference"},        {"DWFUNDERLAY", "AcDbDwfReference"},
    {"DGNUNDERLAY", "AcDbDgnReference"},        {"SURFACE", "AcDbSurface"},
    {"PLANESURFACE", "AcDbPlaneSurface"},       {"EXTRUDEDSURFACE", "AcDbExtrudedSurface"},
    {"REVOLVEDSURFACE", "AcDbRevolvedSurface"}, {"SWEPTSURFACE", "AcDbSweptSurface"},
    {"LOFTEDSURFACE", "AcDbLoftedSurface"},     {"NURBSURFACE", "AcDbNurbSurface"},
    {"ARC_DIMENSION", "AcDbArcDimension"},      {"LARGE_RADIAL_DIMENSION", "AcDbRadialDimensionLarge"},
};

/// By the lower three bits of group 70 (DXF reference, DIMENSION).
constexpr std::array<const char*, 8> kDimensions{
    "AcDbRotatedDimension", "AcDbAlignedDimension",       "AcDb2LineAngularDimension", "AcDbDiametricDimension",
    "AcDbRadialDimension",  "AcDb3PointAngularDimension", "AcDbOrdinateDimension",     "AcDbDimension"};

const char* PolylineClass(const drawing::Drawing& drawing, const drawing::EntityRecord& record)
{
    drawing::PolylineData polyline;
    drawing::Read(drawing, record, polyline);
    return polyline.isPolyface ? "AcDbPolyFaceMesh"
           : polyline.isMesh   ? "AcDbPolygonMesh"
           : polyline.is3d     ? "AcDb3dPolyline"
                               : "AcDb2dPolyline";
}

const char* InsertClass(const drawing::Drawing& drawing, const drawing::EntityRecord& record)
{
    drawing::InsertData insert;
    drawing::Read(drawing, record, insert);
    return insert.columns > 1 || insert.rows > 1 ? "AcDbMInsertBlock" : "AcDbBlockReference";
}

const char* DimensionClass(const drawing::Drawing& drawing, const drawing::EntityRecord& record)
{
    drawing::DimensionData dimension;
    drawing::Read(drawing, record, dimension);
    return kDimensions[static_cast<std::size_t>(dimension.type & 7)];
}

} // namespace

std::string ObjectNameOf(const drawing::Drawing& drawing, const drawing::EntityRecord& record)
{
    switch (record.kind) {
    case EntityKind::Polyline:
        return PolylineClass(drawing, record);
    case EntityKind::Insert:
        return InsertClass(drawing, record);
    case EntityKind::Dimension:
        if (drawing.EntityName(record) == "DIMENSION")
            return DimensionClass(drawing, record);
        break;
    default:
        break;
    }
    for (const auto& [kind, name] : kClasses) {
        if (kind == record.kind)
            return name;
    }
    for (const auto& [dxfName, name] : kClassesByName) {
        if (dxfName == drawing.EntityName(record))
            return name;
    }
    return kUnknownClass;
}

} // namespace sm::cadhost
