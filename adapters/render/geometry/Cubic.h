// SPDX-License-Identifier: GPL-3.0-or-later
// One cubic Bezier curve in the plane: points, parts, length, box.
#pragma once

#include "render/Matrix.h"

#include <array>

namespace sm::render {

struct Cubic {
    std::array<Vec2, 4> p;
    [[nodiscard]] Vec2 At(double t) const;
    [[nodiscard]] Vec2 Derivative(double t) const;
    /// The part from t0 to t1, as a curve of its own.
    [[nodiscard]] Cubic Part(double t0, double t1) const;
    /// Box of the control points: never smaller than the curve.
    [[nodiscard]] Box2 Hull() const;
    /// Adds the curve's own tight box.
    void AddTo(Box2& box) const;
};

/// Length of a curve and, the other way round, the parameter of a length; fitted once, asked many times.
class CubicLength {
public:
    explicit CubicLength(const Cubic& curve);
    [[nodiscard]] double Total() const { return m_sums.back(); }
    [[nodiscard]] double ParameterAt(double length) const;

private:
    static constexpr int kParts = 8;
    [[nodiscard]] double Between(double t0, double t1) const;
    Cubic m_curve;
    std::array<double, kParts + 1> m_sums{};
};

} // namespace sm::render
