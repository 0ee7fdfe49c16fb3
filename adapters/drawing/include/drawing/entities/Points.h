// SPDX-License-Identifier: GPL-3.0-or-later
// Signs at a place: POINT, and SHAPE of a shape file.
#pragma once

#include "drawing/entities/Entity.h"

#include <string>

namespace sm::drawing {

struct PointData : Entity {
    Vec3 location;
    double angle = 0;
};
/// SHAPE. OCS. A DXF names it and doesn't say which shape file holds it; a DWG has its number in the file of a style.
struct ShapeData : Entity {
    Vec3 insertion;
    std::string name;         ///< empty: known by its number
    std::uint16_t number = 0; ///< 0: known by its name
    std::uint32_t style = 0;  ///< index into the text styles, with a number
    double size = 1, rotation = 0, widthFactor = 1, oblique = 0;
};

void Read(const Drawing&, const EntityRecord&, PointData&);
void Read(const Drawing&, const EntityRecord&, ShapeData&);

} // namespace sm::drawing
