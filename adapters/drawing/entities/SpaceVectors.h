// SPDX-License-Identifier: GPL-3.0-or-later
// Products of vectors in space. For this room only.
#pragma once

#include "base/Geometry.h"

namespace sm::drawing {

inline double Dot(Vec3 a, Vec3 b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline Vec3 Cross(Vec3 a, Vec3 b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline double Length(Vec3 v)
{
    return std::sqrt(Dot(v, v));
}

} // namespace sm::drawing
