// SPDX-License-Identifier: GPL-3.0-or-later
#include "snap/Crossings.h"

#include "render/Projection.h"

#include <algorithm>
#include <cmath>

namespace sm::scene {

using render::Cross;
using render::Dot;
using render::EllipseArc;
using render::Length;

namespace {

constexpr double kBeyond = 1e-9; // of a line: ends that just touch meet

/// `p` where the arc is a part of the circle of radius 1 about (0, 0); nothing for a flat one.
std::optional<Vec2> InUnit(const EllipseArc& arc, Vec2 p, bool isVector)
{
    const double area = Cross(arc.u, arc.v);
    if (area == 0 || !std::isfinite(area))
        return std::nullopt;
    const Vec2 d = isVector ? p : p - arc.center;
    return Vec2{Cross(d, arc.v) / area, Cross(arc.u, d) / area};
}

bool HasAngle(const EllipseArc& arc, double angle)
{
    const double from = arc.sweep >= 0 ? arc.start : arc.start + arc.sweep;
    double turn = std::fmod(angle - from, render::kTurn);
    if (turn < 0)
        turn += render::kTurn;
    const double sweep = std::abs(arc.sweep);
    return turn <= sweep + kBeyond || turn >= render::kTurn - kBeyond;
}

bool IsCircle(const EllipseArc& arc)
{
    const double u = Length(arc.u);
    const double v = Length(arc.v);
    return std::abs(u - v) <= 1e-6 * u && std::abs(Dot(arc.u, arc.v)) <= 1e-6 * u * v;
}

bool IsOn(const EllipseArc& arc, Vec2 p)
{
    const auto unit = InUnit(arc, p, false);
    return unit && HasAngle(arc, std::atan2(unit->y, unit->x));
}

} // namespace

Vec2 NearestOn(const LinePiece& line, Vec2 at)
{
    const Vec2 along = line.b - line.a;
    const double square = Dot(along, along);
    const double t = square > 0 ? std::clamp(Dot(at - line.a, along) / square, 0.0, 1.0) : 0;
    return line.a + along * t;
}

std::optional<Vec2> NearestOn(const EllipseArc& arc, Vec2 at)
{
    const auto unit = InUnit(arc, at, false);
    if (!unit || (unit->x == 0 && unit->y == 0))
        return std::nullopt;
    const double angle = std::atan2(unit->y, unit->x);
    return HasAngle(arc, angle) ? std::optional(arc.At(angle)) : std::nullopt;
}

void AppendCrossings(const LinePiece& one, const LinePiece& other, std::vector<Vec2>& points)
{
    const Vec2 p = one.b - one.a;
    const Vec2 q = other.b - other.a;
    const double area = Cross(p, q);
    if (std::abs(area) <= 1e-12 * Length(p) * Length(q))
        return;
    const double s = Cross(other.a - one.a, q) / area;
    const double t = Cross(other.a - one.a, p) / area;
    const auto inside = [](double part) { return part >= -kBeyond && part <= 1 + kBeyond; };
    if (inside(s) && inside(t))
        points.push_back(one.a + p * s);
}

void AppendCrossings(const EllipseArc& arc, const LinePiece& line, std::vector<Vec2>& points)
{
    const auto from = InUnit(arc, line.a, false);
    const auto along = InUnit(arc, line.b - line.a, true);
    if (!from || !along)
        return;
    const double a = Dot(*along, *along);
    const double b = Dot(*from, *along);
    const double c = Dot(*from, *from) - 1;
    double root = b * b - a * c;
    if (!(a > 0) || root < -1e-9 * a)
        return;
    root = std::sqrt(std::max(root, 0.0));
    for (const double sign : {-1.0, 1.0}) {
        const double t = (-b + sign * root) / a;
        const Vec2 unit = *from + *along * t;
        if (t >= -kBeyond && t <= 1 + kBeyond && HasAngle(arc, std::atan2(unit.y, unit.x)))
            points.push_back(line.a + (line.b - line.a) * t);
        if (root == 0)
            break;
    }
}

void AppendCrossings(const EllipseArc& one, const EllipseArc& other, std::vector<Vec2>& points)
{
    if (!IsCircle(one) || !IsCircle(other))
        return;
    const double r = Length(one.u);
    const double q = Length(other.u);
    const Vec2 between = other.center - one.center;
    const double distance = Length(between);
    if (!(distance > 1e-9 * r))
        return;
    const double along = (r * r - q * q + distance * distance) / (2 * distance);
    const double square = r * r - along * along;
    if (square < -1e-9 * r * r)
        return;
    const double aside = std::sqrt(std::max(square, 0.0));
    const Vec2 unit = between * (1 / distance);
    for (const double sign : {-1.0, 1.0}) {
        const Vec2 point = one.center + unit * along + Vec2{-unit.y, unit.x} * (sign * aside);
        if (IsOn(one, point) && IsOn(other, point))
            points.push_back(point);
        if (aside == 0)
            break;
    }
}

} // namespace sm::scene
