// SPDX-License-Identifier: GPL-3.0-or-later
// POLYLINE entities that aren't lines: meshes of rows and columns, and polyfaces.
#pragma once

#include "context/FaceCollector.h"
#include "context/PaintContext.h"
#include "drawing/entities/Polylines.h"

namespace sm::render {

void DrawPolylineMesh(PaintContext& context, const drawing::PolylineData& mesh);
void DrawPolyface(PaintContext& context, const drawing::PolylineData& face);
/// The faces of either.
void AddMeshFaces(const drawing::PolylineData& mesh, FaceCollector& faces);

} // namespace sm::render
