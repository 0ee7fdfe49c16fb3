// SPDX-License-Identifier: GPL-3.0-or-later
// How a view in space is looked at: from everywhere alike or from one point, and how deep.
#pragma once

#include "render/Matrix.h"

#include <algorithm>
#include <limits>

namespace sm::render {

/// Works on places as Projection::Place gives them: millimetres, z above the sheet.
struct Camera {
    bool perspective = false;
    Vec2 axis;           ///< where the line from the eye to the target meets the sheet
    double distance = 0; ///< of the eye from the target's plane, which lies on the sheet (z 0); perspective views alone
    /// Only what lies between them is seen.
    double front = std::numeric_limits<double>::infinity(), back = -std::numeric_limits<double>::infinity();

    [[nodiscard]] bool LimitsDepth() const
    {
        return perspective || front < std::numeric_limits<double>::max() ||
               back > std::numeric_limits<double>::lowest();
    }
    /// The highest z that is seen. What is nearly at the eye would cover the sheet many times over.
    [[nodiscard]] double Front() const
    {
        constexpr double kNearest = 0.999; // of the eye's distance
        return perspective ? std::min(front, kNearest * distance) : front;
    }
    /// Onto the sheet, with a height above it: rays to the eye become upright, lines stay straight, faces flat. For
    /// places below `Front()`.
    [[nodiscard]] Vec3 Apply(Vec3 p) const
    {
        if (!perspective) {
            return p;
        }
        const double growth = distance / (distance - p.z);
        return {axis.x + (p.x - axis.x) * growth, axis.y + (p.y - axis.y) * growth, p.z * growth};
    }
    /// Narrows from..to, parameters of a line that goes from height `a` to `b`, to what is seen; false: nothing is.
    [[nodiscard]] bool Narrow(double a, double b, double& from, double& to) const
    {
        const auto keep = [&](double inA, double inB) { // how far both ends lie within
            if (inA < 0 && inB < 0) {
                return false;
            }
            if (inA < 0) {
                from = std::max(from, inA / (inA - inB));
            } else if (inB < 0) {
                to = std::min(to, inA / (inA - inB));
            }
            return from <= to;
        };
        return keep(Front() - a, Front() - b) && keep(a - back, b - back);
    }
};

} // namespace sm::render
