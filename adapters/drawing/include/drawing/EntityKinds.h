// SPDX-License-Identifier: GPL-3.0-or-later
// The kinds of entities: the one list that their enumeration, their names and their count come from.
#pragma once

#include "drawing/EntityRecord.h"

#include <string_view>

/// A row a kind: its enumerator, then its names in DXF files; the first is the one that KindName gives.
// clang-format off
#define SM_ENTITY_KINDS(KIND)                                                                                          \
    KIND(Line, "LINE", "3DLINE") /* 3DLINE: releases before R10 */                                                     \
    KIND(Circle, "CIRCLE")                                                                                             \
    KIND(Arc, "ARC")                                                                                                   \
    KIND(Ellipse, "ELLIPSE")                                                                                           \
    KIND(LwPolyline, "LWPOLYLINE")                                                                                     \
    KIND(Polyline, "POLYLINE")                                                                                         \
    KIND(Spline, "SPLINE")                                                                                             \
    KIND(Helix, "HELIX")                                                                                               \
    KIND(Point, "POINT")                                                                                               \
    KIND(Solid, "SOLID")                                                                                               \
    KIND(Trace, "TRACE")                                                                                               \
    KIND(Face3d, "3DFACE")                                                                                             \
    KIND(Text, "TEXT")                                                                                                 \
    KIND(Attrib, "ATTRIB")                                                                                             \
    KIND(Attdef, "ATTDEF")                                                                                             \
    KIND(RemoteText, "RTEXT")                                                                                          \
    KIND(ArcText, "ARCALIGNEDTEXT")                                                                                    \
    KIND(MText, "MTEXT")                                                                                               \
    KIND(Insert, "INSERT")                                                                                             \
    KIND(Dimension, "DIMENSION", "ARC_DIMENSION", "LARGE_RADIAL_DIMENSION")                                            \
    KIND(Hatch, "HATCH")                                                                                               \
    KIND(MPolygon, "MPOLYGON")                                                                                         \
    KIND(Viewport, "VIEWPORT")                                                                                         \
    KIND(Leader, "LEADER")                                                                                             \
    KIND(MultiLeader, "MULTILEADER", "MLEADER")                                                                        \
    KIND(MLine, "MLINE")                                                                                               \
    KIND(Tolerance, "TOLERANCE")                                                                                       \
    KIND(Shape, "SHAPE")                                                                                               \
    KIND(XLine, "XLINE")                                                                                               \
    KIND(Ray, "RAY")                                                                                                   \
    KIND(Image, "IMAGE")                                                                                               \
    KIND(Wipeout, "WIPEOUT")                                                                                           \
    KIND(Underlay, "PDFUNDERLAY", "DWFUNDERLAY", "DGNUNDERLAY")                                                        \
    KIND(Table, "ACAD_TABLE")                                                                                          \
    KIND(Mesh, "MESH")                                                                                                 \
    KIND(Region, "REGION")                                                                                             \
    KIND(Solid3d, "3DSOLID")                                                                                           \
    KIND(Body, "BODY")                                                                                                 \
    KIND(Surface, "SURFACE", "EXTRUDEDSURFACE", "LOFTEDSURFACE", "REVOLVEDSURFACE", "SWEPTSURFACE", "PLANESURFACE",    \
         "NURBSURFACE")                                                                                                \
    KIND(Proxy, "ACAD_PROXY_ENTITY", "ACAD_PROXY_OBJECT")                                                              \
    KIND(OleFrame, "OLE2FRAME", "OLEFRAME")                                                                            \
    KIND(Light, "LIGHT")                                                                                               \
    KIND(Sun, "SUN")                                                                                                   \
    KIND(Section, "SECTION", "SECTIONOBJECT")                                                                          \
    KIND(GeoPosition, "GEOPOSITIONMARKER", "POSITIONMARKER")
// clang-format on

namespace sm::drawing {

enum class EntityKind : std::uint8_t {
    Unknown,
#define SM_KIND(kind, ...) kind,
    SM_ENTITY_KINDS(SM_KIND)
#undef SM_KIND
        Count
};

/// The DXF name of a kind ("LINE"); for Unknown the record's own name is asked with `Drawing::EntityName`.
const char* KindName(EntityKind kind);
/// Unknown for names that aren't in the list.
EntityKind KindOf(std::string_view name);

} // namespace sm::drawing
