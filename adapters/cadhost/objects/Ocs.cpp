// SPDX-License-Identifier: GPL-3.0-or-later
#include "objects/Ocs.h"

#include <cmath>

namespace sm::cadhost {
namespace {

Vec3 Cross(Vec3 a, Vec3 b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

Vec3 Unit(Vec3 v)
{
    const double length = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
    return length > 0 && std::isfinite(length) ? v * (1 / length) : Vec3{0, 0, 1};
}

} // namespace

Vec3 WorldPoint(Vec3 own, Vec3 extrusion)
{
    constexpr double kNearZ = 1.0 / 64;
    const Vec3 z = Unit(extrusion);
    if (z == Vec3{0, 0, 1})
        return own;
    const bool nearZ = std::abs(z.x) < kNearZ && std::abs(z.y) < kNearZ;
    const Vec3 x = Unit(Cross(nearZ ? Vec3{0, 1, 0} : Vec3{0, 0, 1}, z));
    const Vec3 y = Unit(Cross(z, x));
    return x * own.x + y * own.y + z * own.z;
}

} // namespace sm::cadhost
