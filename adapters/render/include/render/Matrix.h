// SPDX-License-Identifier: GPL-3.0-or-later
// Affine maps of the renderer.
#pragma once

#include "base/Geometry.h"

namespace sm::render {

/// x' = a x + c y + e, y' = b x + d y + f: the order of a PDF or PostScript matrix.
struct Matrix2 {
    double a = 1, b = 0, c = 0, d = 1, e = 0, f = 0;
    [[nodiscard]] Vec2 Apply(Vec2 p) const { return {a * p.x + c * p.y + e, b * p.x + d * p.y + f}; }
    [[nodiscard]] Vec2 ApplyVector(Vec2 v) const { return {a * v.x + c * v.y, b * v.x + d * v.y}; }
    [[nodiscard]] double Determinant() const { return a * d - b * c; }
    friend bool operator==(const Matrix2&, const Matrix2&) = default;
};

/// First `inner`, then `outer`.
inline Matrix2 Compose(const Matrix2& outer, const Matrix2& inner)
{
    return {outer.a * inner.a + outer.c * inner.b,           outer.b * inner.a + outer.d * inner.b,
            outer.a * inner.c + outer.c * inner.d,           outer.b * inner.c + outer.d * inner.d,
            outer.a * inner.e + outer.c * inner.f + outer.e, outer.b * inner.e + outer.d * inner.f + outer.f};
}

/// An affine map of space: the images of the three axes and of the origin.
struct Matrix3 {
    Vec3 x{1, 0, 0}, y{0, 1, 0}, z{0, 0, 1}, origin{0, 0, 0};
    [[nodiscard]] Vec3 Apply(Vec3 p) const { return x * p.x + y * p.y + z * p.z + origin; }
    [[nodiscard]] Vec3 ApplyVector(Vec3 v) const { return x * v.x + y * v.y + z * v.z; }
    friend bool operator==(const Matrix3&, const Matrix3&) = default;
};

/// First `inner`, then `outer`.
inline Matrix3 Compose(const Matrix3& outer, const Matrix3& inner)
{
    return {outer.ApplyVector(inner.x), outer.ApplyVector(inner.y), outer.ApplyVector(inner.z),
            outer.Apply(inner.origin)};
}

} // namespace sm::render
