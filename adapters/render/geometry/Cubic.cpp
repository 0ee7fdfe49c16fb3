// SPDX-License-Identifier: GPL-3.0-or-later
#include "geometry/Cubic.h"

#include "render/Projection.h"

namespace sm::render {

Vec2 Cubic::At(double t) const
{
    const double s = 1 - t;
    return p[0] * (s * s * s) + p[1] * (3 * s * s * t) + p[2] * (3 * s * t * t) + p[3] * (t * t * t);
}

Vec2 Cubic::Derivative(double t) const
{
    const double s = 1 - t;
    return (p[1] - p[0]) * (3 * s * s) + (p[2] - p[1]) * (6 * s * t) + (p[3] - p[2]) * (3 * t * t);
}

Cubic Cubic::Part(double t0, double t1) const
{
    const double third = (t1 - t0) / 3;
    const Vec2 start = t0 <= 0 ? p[0] : At(t0);
    const Vec2 end = t1 >= 1 ? p[3] : At(t1);
    return {{start, start + Derivative(t0) * third, end - Derivative(t1) * third, end}};
}

Box2 Cubic::Hull() const
{
    Box2 box;
    for (const Vec2 point : p) {
        box.Add(point);
    }
    return box;
}

void Cubic::AddTo(Box2& box) const
{
    box.Add(p[0]);
    box.Add(p[3]);
    const Vec2 a = p[3] - p[2] * 3 + p[1] * 3 - p[0];
    const Vec2 b = p[2] - p[1] * 2 + p[0];
    const Vec2 c = p[1] - p[0];
    const auto addRoots = [&](double qa, double qb, double qc) { // qa t^2 + 2 qb t + qc = 0
        const auto add = [&](double t) {
            if (t > 0 && t < 1) {
                box.Add(At(t));
            }
        };
        const double root = qb * qb - qa * qc;
        if (root < 0) {
            return;
        }
        const double q = -(qb + std::copysign(std::sqrt(root), qb));
        add(qc / q);
        add(q / qa);
    };
    addRoots(a.x, b.x, c.x);
    addRoots(a.y, b.y, c.y);
}

CubicLength::CubicLength(const Cubic& curve) : m_curve(curve)
{
    for (int i = 0; i < kParts; ++i) {
        const auto at = static_cast<std::size_t>(i);
        m_sums[at + 1] = m_sums[at] + Between(static_cast<double>(i) / kParts, static_cast<double>(i + 1) / kParts);
    }
}

double CubicLength::Between(double t0, double t1) const
{
    constexpr std::array<double, 2> kNodes{0.3399810435848563, 0.8611363115940526}; // Gauss-Legendre, four points
    constexpr std::array<double, 2> kWeights{0.6521451548625461, 0.3478548451374538};
    const double middle = (t0 + t1) / 2;
    const double half = (t1 - t0) / 2;
    double sum = 0;
    for (std::size_t i = 0; i < kNodes.size(); ++i) {
        sum += kWeights[i] * (Length(m_curve.Derivative(middle - half * kNodes[i])) +
                              Length(m_curve.Derivative(middle + half * kNodes[i])));
    }
    return sum * half;
}

double CubicLength::ParameterAt(double length) const
{
    if (length <= 0) {
        return 0;
    }
    if (length >= Total()) {
        return 1;
    }
    std::size_t part = 0;
    while (part + 1 < kParts && m_sums[part + 1] < length) {
        ++part;
    }
    const double start = static_cast<double>(part) / kParts;
    const double inPart = m_sums[part + 1] - m_sums[part];
    const double rest = length - m_sums[part];
    double t = start + (inPart > 0 ? rest / inPart : 0) / kParts;
    for (int step = 0; step < 3; ++step) {
        const double speed = Length(m_curve.Derivative(t));
        if (speed > 0) {
            t = std::clamp(t + (rest - Between(start, t)) / speed, start, start + 1.0 / kParts);
        }
    }
    return t;
}

} // namespace sm::render
