// SPDX-License-Identifier: GPL-3.0-or-later
// The boundary of a hatch on the sheet, and which of its paths count.
#pragma once

#include "drawing/entities/Hatches.h"
#include "render/Canvas.h"

#include <vector>

namespace sm::render {

/// Appends a boundary path as one closed sub-path, `plane` from its OCS plane to the sheet. Edges are joined in the
/// file's order and turned round where they run against it. Nothing is appended for a path without an edge.
void AppendHatchPath(Path& path, const drawing::HatchPath& boundary, const Matrix2& plane);

/// Appends lines and curves that follow each other as one closed sub-path, each turned round where it runs against the
/// others, gaps bridged; pieces that are closed already stand for themselves. Each piece is one sub-path.
void AppendJoined(Path& path, std::vector<Path> pieces);

/// Each sub-path for itself.
std::vector<Path> PiecesOf(const Path& path);

/// The corners of each sub-path; curves as chords that stray less than 0.02 mm.
std::vector<std::vector<Vec2>> PolygonsOf(const Path& path);

/// How many of the other polygons each one lies in. All 0 for more than 500 of them.
std::vector<int> NestingDepths(const std::vector<std::vector<Vec2>>& polygons);

/// The boundary that is filled, by the even-odd rule, as the hatch's island style says (DXF reference, group 75). Boxes
/// of texts aren't part of it.
Path FilledBoundary(const drawing::HatchData& hatch, const Matrix2& plane);

/// What stays free of the hatch wherever it lies: boxes of texts (DXF reference, group 92), as clips by the even-odd
/// rule that show all of `area` but them. Boxes that overlap stand in different clips. Empty without such boxes.
std::vector<Path> ClipsRoundTexts(const drawing::HatchData& hatch, const Matrix2& plane, const Box2& area);

} // namespace sm::render
