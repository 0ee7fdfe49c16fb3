// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/Arcs.h"

#include "render/Projection.h"

namespace sm::render {

void AppendArc(Path& path, const EllipseArc& arc, Join join)
{
    if (join == Join::Move) {
        path.MoveTo(arc.At(arc.start));
    }
    if (!std::isfinite(arc.sweep) || arc.sweep == 0) {
        return;
    }
    const double sweep = std::clamp(arc.sweep, -kTurn, kTurn);
    const int parts = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / (kTurn / 4) - 1e-9)));
    const double step = sweep / parts;
    const double k = 4.0 / 3 * std::tan(step / 4);
    double cosine = std::cos(arc.start);
    double sine = std::sin(arc.start);
    for (int i = 1; i <= parts; ++i) {
        const double end = arc.start + step * i;
        const double nextCosine = std::cos(end);
        const double nextSine = std::sin(end);
        path.CubicTo(arc.center + arc.u * (cosine - k * sine) + arc.v * (sine + k * cosine),
                     arc.center + arc.u * (nextCosine + k * nextSine) + arc.v * (nextSine - k * nextCosine),
                     arc.center + arc.u * nextCosine + arc.v * nextSine);
        cosine = nextCosine;
        sine = nextSine;
    }
}

void AppendEllipse(Path& path, Vec2 center, Vec2 u, Vec2 v)
{
    constexpr double kQuarter = 0.5522847498307936; // 4/3 tan(22.5 degrees)
    const Vec2 ku = u * kQuarter;
    const Vec2 kv = v * kQuarter;
    path.MoveTo(center + u);
    path.CubicTo(center + u + kv, center + v + ku, center + v);
    path.CubicTo(center + v - ku, center - u + kv, center - u);
    path.CubicTo(center - u - kv, center - v - ku, center - v);
    path.CubicTo(center - v + ku, center + u - kv, center + u);
    path.Close();
}

EllipseArc BulgeArc(Vec2 a, Vec2 b, double bulge)
{
    const Vec2 chord = b - a;
    // Distance of the centre from the chord's middle, to its left, in chord lengths.
    const double offset = (1 / bulge - bulge) / 4;
    const Vec2 center = (a + b) * 0.5 + Vec2{-chord.y, chord.x} * offset;
    const Vec2 radius = a - center;
    return {center, radius, {-radius.y, radius.x}, 0, 4 * std::atan(bulge)};
}

EllipseArc Mapped(const Matrix2& map, const EllipseArc& arc)
{
    return {map.Apply(arc.center), map.ApplyVector(arc.u), map.ApplyVector(arc.v), arc.start, arc.sweep};
}

double CounterClockwiseSweep(double startDegrees, double endDegrees)
{
    const double sweep = std::fmod(endDegrees - startDegrees, 360);
    constexpr double kNothing = 1e-10;
    return Radians(sweep > kNothing ? sweep : sweep + 360);
}

} // namespace sm::render
