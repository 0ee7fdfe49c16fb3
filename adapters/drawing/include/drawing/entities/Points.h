// Signs at a place: POINT, and SHAPE of a shape file.
#pragma once

#include "drawing/entities/Entity.h"

#include <string>

namespace sm::drawing {

struct PointData : Entity {
    Vec3 location;
    double angle = 0;
};
/// SHAPE. OCS. Which shape file holds it, the entity doesn't say.
struct ShapeData : Entity {
    Vec3 insertion;
    std::string name;
    double size = 1, rotation = 0, widthFactor = 1, oblique = 0;
};

void Read(const Drawing&, const EntityRecord&, PointData&);
void Read(const Drawing&, const EntityRecord&, ShapeData&);

} // namespace sm::drawing
