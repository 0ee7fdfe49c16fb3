// SPDX-License-Identifier: GPL-3.0-or-later
// Where lines and arcs meet, and the point of each that is nearest to a place.
#pragma once

#include "render/Arcs.h"

#include <optional>
#include <vector>

namespace sm::scene {

struct LinePiece {
    Vec2 a, b;
};

Vec2 NearestOn(const LinePiece& line, Vec2 at);
/// Nothing where the foot of the perpendicular lies off the arc. For an ellipse, the point in the direction of `at`.
std::optional<Vec2> NearestOn(const render::EllipseArc& arc, Vec2 at);

/// Append what both have in common; nothing for parallel lines and for circles of one centre.
void AppendCrossings(const LinePiece& one, const LinePiece& other, std::vector<Vec2>& points);
void AppendCrossings(const render::EllipseArc& arc, const LinePiece& line, std::vector<Vec2>& points);
/// Circles only: nothing where one of the arcs is a part of an ellipse.
void AppendCrossings(const render::EllipseArc& one, const render::EllipseArc& other, std::vector<Vec2>& points);

} // namespace sm::scene
