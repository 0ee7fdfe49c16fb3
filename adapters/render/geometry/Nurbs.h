// SPDX-License-Identifier: GPL-3.0-or-later
// Spline curves in the plane of the sheet.
#pragma once

#include "render/Canvas.h"

#include <optional>
#include <span>

namespace sm::render {

/// A B-spline curve; `weights` empty: all 1. Affine maps may be applied to the points beforehand.
struct Nurbs {
    std::int32_t degree = 3;
    std::span<const Vec2> points; ///< control points
    std::span<const double> knots;
    std::span<const double> weights;
};

/// Appends the curve as one sub-path: exactly, as cubic Bezier curves, up to degree 3 without weights, else as lines
/// that stray from it by less than 0.01 path units. Knots that don't fit are replaced by even ones. False, and nothing
/// appended, when there are too few points or the degree is out of range (1 to 25).
bool AppendNurbs(Path& path, const Nurbs& curve);

/// Directions at both ends; nothing: the curve ends without bend.
struct FitTangents {
    std::optional<Vec2> start, end;
};

/// Appends the smooth cubic curve through `points`, its parameter the length of the chords. False, and nothing
/// appended, for fewer than two different points.
bool AppendFitCurve(Path& path, std::span<const Vec2> points, const FitTangents& tangents, bool closed);

} // namespace sm::render
