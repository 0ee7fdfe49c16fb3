// SPDX-License-Identifier: GPL-3.0-or-later
// Which painter draws which kind of entity.
#pragma once

#include "drawing/EntityKinds.h"
#include "families/EntityPainter.h"

#include <array>
#include <memory>

namespace sm::render {

using MakePainter = std::unique_ptr<EntityPainter>(PaintContext&, IWalk&);

MakePainter MakeLines, MakeCircles, MakeArcs, MakeEllipses, MakeSplines;                           // Curves.cpp
MakePainter MakePolylines;                                                                         // Polylines.cpp
MakePainter MakePoints, MakeShapes;                                                                // Points.cpp
MakePainter MakeQuads, MakeSolids, MakeMeshes;                                                     // Solids.cpp
MakePainter MakeTexts, MakeMTexts, MakeAttributes;                                                 // Texts.cpp
MakePainter MakeArcTexts;                                                                          // ArcTexts.cpp
MakePainter MakeHatches;                                                                           // Hatches.cpp
MakePainter MakeInserts;                                                                           // Inserts.cpp
MakePainter MakeViewports;                                                                         // Viewports.cpp
MakePainter MakeImages;                                                                            // Images.cpp
MakePainter MakeLeaders, MakeMultiLeaders, MakeMLines, MakeTolerances, MakeTables, MakeDimensions; // Notes.cpp
MakePainter MakeOleFrames;                                                                         // OleFrames.cpp
MakePainter MakeGraphics;                                                                          // Graphics.cpp

enum class Bounds : std::uint8_t { Nothing, Areas }; ///< whether a kind's outline may bound hatches and viewports

enum class Faces : std::uint8_t { None, Own }; ///< whether a kind may hide lines, by itself or by what it holds

struct PainterRow {
    drawing::EntityKind kind;
    MakePainter* make; ///< kinds with the same one share the painter
    Bounds bounds = Bounds::Nothing;
    Faces faces = Faces::None;
};

/// Kinds that have no row are drawn by the picture that they bring along, by MakeGraphics.
inline constexpr auto kPainters = std::to_array<PainterRow>({
    {drawing::EntityKind::Line, MakeLines, Bounds::Areas, Faces::Own},
    {drawing::EntityKind::XLine, MakeLines},
    {drawing::EntityKind::Ray, MakeLines},
    {drawing::EntityKind::Circle, MakeCircles, Bounds::Areas, Faces::Own},
    {drawing::EntityKind::Arc, MakeArcs, Bounds::Areas, Faces::Own},
    {drawing::EntityKind::Ellipse, MakeEllipses, Bounds::Areas},
    {drawing::EntityKind::Spline, MakeSplines, Bounds::Areas},
    {drawing::EntityKind::Helix, MakeSplines, Bounds::Areas},
    {drawing::EntityKind::LwPolyline, MakePolylines, Bounds::Areas, Faces::Own},
    {drawing::EntityKind::Polyline, MakePolylines, Bounds::Areas, Faces::Own},
    {drawing::EntityKind::Point, MakePoints},
    {drawing::EntityKind::Shape, MakeShapes},
    {drawing::EntityKind::Solid, MakeQuads, Bounds::Areas, Faces::Own},
    {drawing::EntityKind::Trace, MakeQuads, Bounds::Areas, Faces::Own},
    {drawing::EntityKind::Face3d, MakeQuads, Bounds::Areas, Faces::Own},
    {drawing::EntityKind::Region, MakeSolids, Bounds::Areas, Faces::Own},
    {drawing::EntityKind::Solid3d, MakeSolids, Bounds::Nothing, Faces::Own},
    {drawing::EntityKind::Body, MakeSolids, Bounds::Nothing, Faces::Own},
    {drawing::EntityKind::Surface, MakeSolids, Bounds::Nothing, Faces::Own},
    {drawing::EntityKind::Mesh, MakeMeshes, Bounds::Nothing, Faces::Own},
    {drawing::EntityKind::Text, MakeTexts},
    {drawing::EntityKind::RemoteText, MakeTexts},
    {drawing::EntityKind::ArcText, MakeArcTexts},
    {drawing::EntityKind::MText, MakeMTexts},
    {drawing::EntityKind::Attrib, MakeAttributes},
    {drawing::EntityKind::Attdef, MakeAttributes},
    {drawing::EntityKind::Hatch, MakeHatches},
    {drawing::EntityKind::MPolygon, MakeHatches},
    {drawing::EntityKind::Insert, MakeInserts, Bounds::Nothing, Faces::Own},
    {drawing::EntityKind::Viewport, MakeViewports},
    {drawing::EntityKind::Image, MakeImages},
    {drawing::EntityKind::Wipeout, MakeImages},
    {drawing::EntityKind::Underlay, MakeImages},
    {drawing::EntityKind::OleFrame, MakeOleFrames},
    {drawing::EntityKind::Leader, MakeLeaders},
    {drawing::EntityKind::MultiLeader, MakeMultiLeaders},
    {drawing::EntityKind::MLine, MakeMLines},
    {drawing::EntityKind::Tolerance, MakeTolerances},
    {drawing::EntityKind::Table, MakeTables},
    {drawing::EntityKind::Dimension, MakeDimensions},
});

constexpr PainterRow RowOf(drawing::EntityKind kind)
{
    for (const PainterRow& row : kPainters) {
        if (row.kind == kind) {
            return row;
        }
    }
    return {kind, MakeGraphics};
}

} // namespace sm::render
