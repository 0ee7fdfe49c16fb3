// SPDX-License-Identifier: GPL-3.0-or-later
// DIMENSION, LEADER and TOLERANCE; what their styles say stands in DimStyles.h. Colours and line types of the parts
// follow the entity where they are BYBLOCK and its layer where they are BYLAYER.
#pragma once

#include "drawing/entities/Entity.h"

#include <string>
#include <vector>

namespace sm::drawing {

/// LEADER; all points and directions in the WCS.
struct LeaderData : Entity {
    std::vector<Vec3> vertices; ///< tip first; a hook line is the last segment
    bool spline = false;
    bool arrowHead = true;
    Vec3 horizontal{1, 0, 0};    ///< the direction of hook lines
    bool hook = false;           ///< the last segment is a hook line
    std::int32_t annotation = 3; ///< 0 text, 1 tolerance, 2 block, 3 none
    double textWidth = 0;
};
void Read(const Drawing&, const EntityRecord&, LeaderData&);

/// DIMENSION and its relatives. `textMidpoint`, `blockOffset` and `arcPoint` are in the OCS, the others in the WCS.
struct DimensionData : Entity {
    enum class Form : std::uint8_t { Rotated, Aligned, Angular, Diameter, Radius, ThreePoint, Ordinate, Arc, Jogged };
    std::uint32_t block = kNoBlock; ///< the anonymous block that holds its picture
    std::string blockName;
    std::int32_t type = 0; ///< 70: a form and flags; 64 ordinate of x, 128 text placed by hand
    Form form = Form::Rotated;
    Vec3 definitionPoint;                                               ///< 10
    Vec3 textMidpoint;                                                  ///< 11
    Vec3 blockOffset;                                                   ///< 12: how far its picture stands off
    Vec3 first, second, third;                                          ///< 13, 14, 15
    Vec3 arcPoint;                                                      ///< 16
    std::string text;                                                   ///< empty or "<>": the measurement; " ": none
    double rotation = 0, oblique = 0, textRotation = 0, horizontal = 0; ///< 50, 52, 53, 51; degrees
};
void Read(const Drawing&, const EntityRecord&, DimensionData&);

/// TOLERANCE: rows of cells. Insertion is the middle of the first row's left end, WCS.
struct ToleranceData : Entity {
    Vec3 insertion;
    Vec3 direction{1, 0, 0};
    std::string text; ///< rows apart by line ends, cells by "%%v"
};
void Read(const Drawing&, const EntityRecord&, ToleranceData&);

} // namespace sm::drawing
