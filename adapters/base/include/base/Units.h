// SPDX-License-Identifier: GPL-3.0-or-later
// Figures of measure that several rooms share.
#pragma once

#include <numbers>

namespace sm::base {

inline constexpr double kMillimetresPerInch = 25.4;
inline constexpr double kPointsPerInch = 72; ///< of PostScript and PDF
inline constexpr double kPi = std::numbers::pi;

/// Points of PostScript; the product comes first, so that whole inches give whole points.
constexpr double PointsOfMillimetres(double millimetres)
{
    return millimetres * kPointsPerInch / kMillimetresPerInch;
}

constexpr double MillimetresOfPoints(double points)
{
    return points * kMillimetresPerInch / kPointsPerInch;
}

constexpr double RadiansOf(double degrees)
{
    return degrees * kPi / 180;
}

} // namespace sm::base
