// SPDX-License-Identifier: GPL-3.0-or-later
// Lines, circles, ellipses and splines.
#pragma once

#include "drawing/entities/Entity.h"

#include <optional>
#include <vector>

namespace sm::drawing {

struct LineData : Entity {
    Vec3 start, end;
}; // WCS; also RAY, XLINE: start and direction in `end`
struct CircleData : Entity {
    Vec3 center;
    double radius = 0;
}; // OCS
struct ArcData : Entity {
    Vec3 center;
    double radius = 0, startAngle = 0, endAngle = 0;
};                            // OCS, counter-clockwise
struct EllipseData : Entity { // WCS
    Vec3 center, majorAxis;
    double ratio = 1, startParameter = 0, endParameter = 6.283185307179586; ///< radians
};
struct SplineData : Entity { // WCS
    std::int32_t degree = 3;
    bool closed = false, periodic = false, rational = false;
    std::vector<double> knots, weights;
    std::vector<Vec3> controlPoints, fitPoints;
    std::optional<Vec3> startTangent, endTangent;
};

void Read(const Drawing&, const EntityRecord&, LineData&);
void Read(const Drawing&, const EntityRecord&, CircleData&);
void Read(const Drawing&, const EntityRecord&, ArcData&);
void Read(const Drawing&, const EntityRecord&, EllipseData&);
void Read(const Drawing&, const EntityRecord&, SplineData&);

} // namespace sm::drawing
