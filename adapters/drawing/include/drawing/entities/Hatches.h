// SPDX-License-Identifier: GPL-3.0-or-later
// HATCH and MPOLYGON: an area within boundaries, filled or hatched.
#pragma once

#include "drawing/entities/Polylines.h"

#include <string>
#include <vector>

namespace sm::drawing {

struct HatchEdge {
    enum class Kind : std::uint8_t { Line, Arc, EllipticArc, Spline } kind = Kind::Line;
    Vec2 start, end;                                            ///< Line
    Vec2 center, majorAxis;                                     ///< Arc, EllipticArc
    double radius = 0, ratio = 1, startAngle = 0, endAngle = 0; ///< degrees
    bool counterClockwise = true;
    std::int32_t degree = 3;
    std::vector<double> knots, weights;
    std::vector<Vec2> points; ///< control points
    std::vector<Vec2> fitPoints;
};
struct HatchPath {
    std::int32_t flags = 0;           ///< 92: 1 external, 2 polyline, 8 box of a text, 16 outermost
    std::vector<PolyVertex> polyline; ///< when flag 2 is set
    bool closed = true;
    std::vector<HatchEdge> edges;
    std::vector<Handle> sources; ///< 330: the objects that an associative boundary was made of
};
struct HatchLine {
    double angle = 0;
    Vec2 base, offset;
    std::vector<double> dashes;
}; ///< as scaled in the file
/// HATCH and MPOLYGON. OCS.
struct HatchData : Entity {
    bool solid = false;
    std::string patternName;
    std::int32_t style = 0; ///< 75: 0 odd parity, 1 outermost, 2 whole area
    double patternAngle = 0, patternScale = 1;
    bool patternDouble = false;
    std::vector<HatchPath> paths;
    std::vector<HatchLine> lines;
    bool gradient = false;
    std::string gradientName;
    double gradientAngle = 0, gradientShift = 0; ///< radians; 0 to 1
    double gradientTint = 0.5;                   ///< of the second colour when there is one alone
    std::vector<std::uint32_t> gradientColors;   ///< 0xRRGGBB
};

void Read(const Drawing&, const EntityRecord&, HatchData&);

} // namespace sm::drawing
