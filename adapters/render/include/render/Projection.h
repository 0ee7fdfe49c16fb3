// SPDX-License-Identifier: GPL-3.0-or-later
// Maps of space onto the sheet: what a view, a viewport and nested inserts come down to.
#pragma once

#include "render/Matrix.h"

namespace sm::render {

/// An affine map of space to the plane: the images of the three axes and of the origin. Beside it, what a view in space
/// needs alone: how far above the sheet a point lies, towards the eye.
struct Projection {
    Vec2 x{1, 0}, y{0, 1}, z{0, 0}, origin{0, 0};
    Vec3 rise{0, 0, 1}; ///< what a unit along each axis rises, in the sheet's units
    double height = 0;  ///< of the origin
    [[nodiscard]] Vec2 Apply(Vec3 p) const
    {
        return {x.x * p.x + y.x * p.y + z.x * p.z + origin.x, x.y * p.x + y.y * p.y + z.y * p.z + origin.y};
    }
    [[nodiscard]] Vec2 ApplyVector(Vec3 v) const
    {
        return {x.x * v.x + y.x * v.y + z.x * v.z, x.y * v.x + y.y * v.y + z.y * v.z};
    }
    [[nodiscard]] double RiseOf(Vec3 v) const { return rise.x * v.x + rise.y * v.y + rise.z * v.z; }
    /// x and y on the sheet, z above it.
    [[nodiscard]] Vec3 Place(Vec3 p) const
    {
        const Vec2 at = Apply(p);
        return {at.x, at.y, RiseOf(p) + height};
    }
};

/// First `inner`, then `outer`.
inline Projection Compose(const Projection& outer, const Matrix3& inner)
{
    return {outer.ApplyVector(inner.x),
            outer.ApplyVector(inner.y),
            outer.ApplyVector(inner.z),
            outer.Apply(inner.origin),
            {outer.RiseOf(inner.x), outer.RiseOf(inner.y), outer.RiseOf(inner.z)},
            outer.RiseOf(inner.origin) + outer.height};
}

/// The middle size of one unit of the plane on the sheet: the geometric mean over all directions.
inline double ScaleOf(const Matrix2& m)
{
    return std::sqrt(std::abs(m.Determinant()));
}

/// First `view` (its z becomes the height above the sheet), then `toPaper`.
inline Projection Flatten(const Matrix3& view, const Matrix2& toPaper)
{
    const auto image = [&](Vec3 v) { return toPaper.ApplyVector({v.x, v.y}); };
    const double scale = ScaleOf(toPaper);
    return {image(view.x),
            image(view.y),
            image(view.z),
            toPaper.Apply({view.origin.x, view.origin.y}),
            Vec3{view.x.z, view.y.z, view.z.z} * scale,
            view.origin.z * scale};
}

inline Vec3 Cross(Vec3 a, Vec3 b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline double Dot(Vec2 a, Vec2 b)
{
    return a.x * b.x + a.y * b.y;
}
inline double Dot(Vec3 a, Vec3 b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline double Cross(Vec2 a, Vec2 b)
{
    return a.x * b.y - a.y * b.x;
}
inline double Length(Vec2 v)
{
    return std::sqrt(Dot(v, v));
}
inline double Length(Vec3 v)
{
    return std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
}

/// True for the extrusion of plan drawings, by far the most common one.
inline bool IsPlanExtrusion(Vec3 n)
{
    return n.x == 0 && n.y == 0 && n.z > 0;
}

/// The axes of an object coordinate system from its extrusion, by the arbitrary axis algorithm (DXF reference). A zero
/// or non-finite extrusion counts as (0, 0, 1).
Matrix3 OcsAxes(Vec3 extrusion);

/// The plane z = `elevation` of the object coordinate system with that extrusion, as it lands on the sheet.
Matrix2 PlaneOf(const Projection& toPaper, Vec3 extrusion, double elevation);

/// True when circles stay circles.
bool IsUniform(const Matrix2& m);

} // namespace sm::render
