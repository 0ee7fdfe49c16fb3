// SPDX-License-Identifier: GPL-3.0-or-later
#include "families/Placing.h"

#include "render/Arcs.h"
#include "render/Projection.h"

#include <cmath>

namespace sm::render {

Matrix3 Placing(const drawing::InsertData& insert, Vec3 base, std::int32_t row, std::int32_t column, double unit)
{
    const double c = std::cos(Radians(insert.rotation));
    const double s = std::sin(Radians(insert.rotation));
    const Vec3 right{c, s, 0};
    const Vec3 up{-s, c, 0};
    const Vec3 at = insert.insertion + right * (column * insert.columnSpacing) + up * (row * insert.rowSpacing);
    Matrix3 inOcs{right * (insert.scale.x * unit), up * (insert.scale.y * unit), {0, 0, insert.scale.z * unit}, at};
    inOcs.origin = inOcs.Apply(base * -1);
    return IsPlanExtrusion(insert.extrusion) ? inOcs : Compose(OcsAxes(insert.extrusion), inOcs);
}

} // namespace sm::render
