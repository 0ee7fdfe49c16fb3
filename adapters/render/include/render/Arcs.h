// SPDX-License-Identifier: GPL-3.0-or-later
// Circles, ellipses and bulges as cubic Bezier curves; the radius is off by at most 0.027 %.
#pragma once

#include "render/Canvas.h"

namespace sm::render {

/// An ellipse in the plane: center + u cos t + v sin t. A circle has u and v of one length at right angles; any affine
/// image of an ellipse is one again.
struct EllipseArc {
    Vec2 center, u, v;
    double start = 0, sweep = 0; ///< radians; the sweep may be negative
    [[nodiscard]] Vec2 At(double t) const { return center + u * std::cos(t) + v * std::sin(t); }
};

enum class Join : bool { Move, Continue };

/// Appends the arc; `Join::Continue` leaves out the first point, the path stands there already.
void AppendArc(Path& path, const EllipseArc& arc, Join join);

/// Appends the whole ellipse as a closed sub-path.
void AppendEllipse(Path& path, Vec2 center, Vec2 u, Vec2 v);

/// The circle of a polyline segment from `a` to `b`; `bulge` is the tangent of a quarter of the angle, positive when it
/// runs counter-clockwise (DXF reference, group 42). `bulge` is not 0.
EllipseArc BulgeArc(Vec2 a, Vec2 b, double bulge);

/// `arc` under an affine map.
EllipseArc Mapped(const Matrix2& map, const EllipseArc& arc);

/// Sweep in radians from one angle to another, both in degrees, counter-clockwise, above 0 and up to a whole turn.
double CounterClockwiseSweep(double startDegrees, double endDegrees);

inline constexpr double kTurn = 6.283185307179586;
inline double Radians(double degrees)
{
    return degrees * (kTurn / 360);
}

} // namespace sm::render
