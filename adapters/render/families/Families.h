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
MakePainter MakeHatches;                                                                           // Hatches.cpp
MakePainter MakeInserts;                                                                           // Inserts.cpp
MakePainter MakeViewports;                                                                         // Viewports.cpp
MakePainter MakeImages;                                                                            // Images.cpp
MakePainter MakeLeaders, MakeMultiLeaders, MakeMLines, MakeTolerances, MakeTables, MakeDimensions; // Notes.cpp
MakePainter MakeOleFrames;                                                                         // OleFrames.cpp
MakePainter MakeGraphics;                                                                          // Graphics.cpp

enum class Bounds : std::uint8_t { Nothing, Areas }; ///< whether a kind's outline may bound hatches and viewports

struct PainterRow {
    drawing::EntityKind kind;
    MakePainter* make; ///< kinds with the same one share the painter
    Bounds bounds = Bounds::Nothing;
};

/// Kinds that have no row are drawn by the picture that they bring along, by MakeGraphics.
inline constexpr auto kPainters = std::to_array<PainterRow>({
    {drawing::EntityKind::Line, MakeLines, Bounds::Areas},
    {drawing::EntityKind::XLine, MakeLines},
    {drawing::EntityKind::Ray, MakeLines},
    {drawing::EntityKind::Circle, MakeCircles, Bounds::Areas},
    {drawing::EntityKind::Arc, MakeArcs, Bounds::Areas},
    {drawing::EntityKind::Ellipse, MakeEllipses, Bounds::Areas},
    {drawing::EntityKind::Spline, MakeSplines, Bounds::Areas},
    {drawing::EntityKind::Helix, MakeSplines, Bounds::Areas},
    {drawing::EntityKind::LwPolyline, MakePolylines, Bounds::Areas},
    {drawing::EntityKind::Polyline, MakePolylines, Bounds::Areas},
    {drawing::EntityKind::Point, MakePoints},
    {drawing::EntityKind::Shape, MakeShapes},
    {drawing::EntityKind::Solid, MakeQuads, Bounds::Areas},
    {drawing::EntityKind::Trace, MakeQuads, Bounds::Areas},
    {drawing::EntityKind::Face3d, MakeQuads, Bounds::Areas},
    {drawing::EntityKind::Region, MakeSolids, Bounds::Areas},
    {drawing::EntityKind::Solid3d, MakeSolids},
    {drawing::EntityKind::Body, MakeSolids},
    {drawing::EntityKind::Surface, MakeSolids},
    {drawing::EntityKind::Mesh, MakeMeshes},
    {drawing::EntityKind::Text, MakeTexts},
    {drawing::EntityKind::RemoteText, MakeTexts},
    {drawing::EntityKind::MText, MakeMTexts},
    {drawing::EntityKind::Attrib, MakeAttributes},
    {drawing::EntityKind::Attdef, MakeAttributes},
    {drawing::EntityKind::Hatch, MakeHatches},
    {drawing::EntityKind::MPolygon, MakeHatches},
    {drawing::EntityKind::Insert, MakeInserts},
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
