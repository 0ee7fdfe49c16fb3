// SPDX-License-Identifier: GPL-3.0-or-later
// What each kind of entity becomes: one table from type number and class name to decoder. For this room only.
#pragma once

#include "dwg/objects/Object.h"

namespace sm::drawing::dwg {

/// Reads what follows the common head of an entity and writes its tags. The handles of vertices and attributes go into
/// Object::members.
using DecodeEntity = void (*)(Object&);

struct EntityRow {
    std::uint32_t type;         ///< 0: known by its class alone
    std::string_view className; ///< empty: never a class
    std::string_view name;      ///< in DXF
    DecodeEntity decode;
    bool hasGraphics = false; ///< what is drawn of it may be its preview
};

/// Null for what is unknown.
const EntityRow* FindEntityRow(std::uint32_t type);
const EntityRow* FindEntityRow(std::string_view className);

// Curves.cpp
void DecodeLine(Object& object);
void DecodePoint(Object& object);
void DecodeCircle(Object& object);
void DecodeArc(Object& object);
void DecodeEllipse(Object& object);
void DecodeRay(Object& object);
void DecodeSpline(Object& object);
void DecodeHelix(Object& object);
// Areas.cpp
void DecodeSolid(Object& object);
void DecodeFace(Object& object);
void DecodeShape(Object& object);
void DecodeMesh(Object& object);
// Texts.cpp
void DecodeText(Object& object);
void DecodeAttribute(Object& object);
void DecodeAttributeDefinition(Object& object);
// MTexts.cpp
void DecodeMText(Object& object);
/// How wide the lines of the MTEXT are that `object` stands on, behind its head.
double ReadMTextWidth(Object& object);
/// The MTEXT inside a multi-line attribute; `style` comes before it in the handles.
void DecodeEmbeddedMText(Object& object);
// Inserts.cpp
void DecodeInsert(Object& object);
void DecodeMInsert(Object& object);
// Tables.cpp
void DecodeTable(Object& object);
// Polylines.cpp
void DecodeLightPolyline(Object& object);
void DecodePolyline2d(Object& object);
void DecodePolyline3d(Object& object);
void DecodePolyface(Object& object);
void DecodePolygonMesh(Object& object);
/// VERTEX of any kind.
void DecodeVertex(Object& object);
// Dimensions.cpp
void DecodeDimension(Object& object);
void DecodeArcDimension(Object& object);
void DecodeJoggedDimension(Object& object);
// Notes.cpp
void DecodeLeader(Object& object);
void DecodeTolerance(Object& object);
void DecodeMLine(Object& object);
// MultiLeaders.cpp
void DecodeMultiLeader(Object& object);
// Hatches.cpp
void DecodeHatch(Object& object);
// Viewports.cpp
void DecodeViewport(Object& object);
// Pictures.cpp
void DecodeImage(Object& object);
void DecodeUnderlay(Object& object);
void DecodeOleFrame(Object& object);
// Bodies.cpp
void DecodeBody(Object& object);
/// Whether the body that `object` stands on, behind its head, is in the form that goes to Object::bodies.
bool HoldsBinaryBody(const Object& object);
/// What has nothing but a head, or nothing that is read.
void DecodeNothing(Object& object);

} // namespace sm::drawing::dwg
