// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/TextPlane.h"

#include "base/Numbers.h"
#include "base/Units.h"
#include "drawing/entities/Texts.h"
#include "render/Projection.h"

#include <cmath>

namespace sm::render {

namespace {

/// Axes of the OCS of an extrusion direction (DXF reference, arbitrary axis algorithm).
struct Ocs {
    Vec3 x{1, 0, 0}, y{0, 1, 0}, z{0, 0, 1};
};

Vec3 Unit(Vec3 v)
{
    const double length = std::sqrt(Dot(v, v));
    return base::IsSize(length) ? v * (1 / length) : Vec3{0, 0, 1};
}

Ocs OcsOf(Vec3 extrusion)
{
    Ocs ocs;
    ocs.z = Unit(extrusion);
    const bool nearZ = std::fabs(ocs.z.x) < 1.0 / 64 && std::fabs(ocs.z.y) < 1.0 / 64;
    ocs.x = Unit(Cross(nearZ ? Vec3{0, 1, 0} : Vec3{0, 0, 1}, ocs.z));
    ocs.y = Cross(ocs.z, ocs.x);
    return ocs;
}

} // namespace

Matrix2 PlaneOf(const drawing::MTextData& text)
{
    const Ocs ocs = OcsOf(text.extrusion);
    double angle = base::RadiansOf(text.rotation);
    if (text.hasDirection) {
        const Vec2 along{Dot(text.direction, ocs.x), Dot(text.direction, ocs.y)};
        angle = along == Vec2{} ? 0 : std::atan2(along.y, along.x);
    }
    angle = std::isfinite(angle) ? angle : 0;
    return {std::cos(angle),           std::sin(angle), -std::sin(angle), std::cos(angle), Dot(text.insertion, ocs.x),
            Dot(text.insertion, ocs.y)};
}

double ElevationOf(const drawing::MTextData& text)
{
    return Dot(text.insertion, OcsOf(text.extrusion).z);
}

} // namespace sm::render
