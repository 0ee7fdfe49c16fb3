// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/Projection.h"

#include "base/Units.h"
#include "render/FrontEnd.h"

namespace sm::render {

namespace {

Vec3 Normalized(Vec3 v, Vec3 fallback)
{
    const double length = Length(v);
    return length > 0 && std::isfinite(length) ? v * (1 / length) : fallback;
}

} // namespace

Matrix3 OcsAxes(Vec3 extrusion)
{
    if (IsPlanExtrusion(extrusion)) {
        return {};
    }
    // DXF reference, arbitrary axis algorithm: 1/64 is a value with an exact binary form in every program.
    constexpr double kNearAxis = 1.0 / 64;
    const Vec3 normal = Normalized(extrusion, {0, 0, 1});
    const bool nearZ = std::abs(normal.x) < kNearAxis && std::abs(normal.y) < kNearAxis;
    const Vec3 x = Normalized(Cross(nearZ ? Vec3{0, 1, 0} : Vec3{0, 0, 1}, normal), {1, 0, 0});
    return {x, Normalized(Cross(normal, x), {0, 1, 0}), normal, {0, 0, 0}};
}

Matrix2 PlaneOf(const Projection& toPaper, Vec3 extrusion, double elevation)
{
    if (IsPlanExtrusion(extrusion)) {
        const Vec2 origin = toPaper.Apply({0, 0, elevation});
        return {toPaper.x.x, toPaper.x.y, toPaper.y.x, toPaper.y.y, origin.x, origin.y};
    }
    const Matrix3 axes = OcsAxes(extrusion);
    const Vec2 x = toPaper.ApplyVector(axes.x);
    const Vec2 y = toPaper.ApplyVector(axes.y);
    const Vec2 origin = toPaper.Apply(axes.z * elevation);
    return {x.x, x.y, y.x, y.y, origin.x, origin.y};
}

bool IsUniform(const Matrix2& m)
{
    constexpr double kTolerance = 1e-9;
    const double xx = m.a * m.a + m.b * m.b;
    const double yy = m.c * m.c + m.d * m.d;
    const double xy = m.a * m.c + m.b * m.d;
    return std::abs(xx - yy) <= kTolerance * (xx + yy) && std::abs(xy) <= kTolerance * (xx + yy);
}

Matrix3 ViewMatrix(Vec3 direction, Vec3 target, double twist)
{
    const Vec3 normal = Normalized(direction, {0, 0, 1});
    constexpr double kVertical = 1e-9;
    const bool vertical = std::abs(normal.x) < kVertical && std::abs(normal.y) < kVertical;
    const Vec3 right =
        vertical ? Vec3{normal.z < 0 ? -1.0 : 1.0, 0, 0} : Normalized(Cross({0, 0, 1}, normal), {1, 0, 0});
    const Vec3 up = Cross(normal, right);
    const double radians = base::RadiansOf(twist);
    const double c = std::cos(radians);
    const double s = std::sin(radians);
    const Vec3 rowX = right * c - up * s;
    const Vec3 rowY = right * s + up * c;
    const auto along = [](Vec3 a, Vec3 b) { return a.x * b.x + a.y * b.y + a.z * b.z; };
    Matrix3 view{{rowX.x, rowY.x, normal.x}, {rowX.y, rowY.y, normal.y}, {rowX.z, rowY.z, normal.z}, {}};
    view.origin = Vec3{along(rowX, target), along(rowY, target), along(normal, target)} * -1;
    return view;
}

} // namespace sm::render
