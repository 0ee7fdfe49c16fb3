// SPDX-License-Identifier: GPL-3.0-or-later
// Points on spline edges of solids. For this room only.
#pragma once

#include "drawing/entities/Solids.h"

namespace sm::drawing {

/// The point at `t`, within the edge's knots; the edge's knots, weights and points fit each other.
Vec3 SplinePoint(const SolidEdge& edge, double t);

/// Leaves of a spline edge only what lies between two of its points, as short lines; nothing changes when it begins and
/// ends there already.
void TrimSpline(SolidEdge& edge, Vec3 from, Vec3 to);

} // namespace sm::drawing
