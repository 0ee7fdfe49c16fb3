// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/StrokeCut.h"

#include "fonts/PenWidth.h"

#include <algorithm>
#include <cmath>

namespace sm::plotter {

namespace {

constexpr double kFinest = 0.008;   // mm on the sheet that rounding may shift
constexpr double kSmallest = 0.01;  // mm, height of an em
constexpr double kLargest = 10000;  // mm
constexpr double kLargestPart = 30; // em, of width, shear and pen

/// The step of numbers in em: a power of two, at most `kFinest` on paper.
double StepFor(double height)
{
    return std::exp2(std::clamp(std::floor(std::log2(kFinest / height)), -20.0, -7.0));
}

double Rounded(double value, double step)
{
    return std::round(value / step) * step;
}

} // namespace

std::optional<CutText> CutOf(const render::Matrix2& m, double penWidth)
{
    const double along = std::hypot(m.a, m.b), area = m.Determinant();
    const double height = along > 0 ? std::abs(area) / along : 0;
    if (!(height >= kSmallest && height <= kLargest)) {
        return std::nullopt;
    }
    const double cos = m.a / along, sin = m.b / along;
    CutText text;
    text.width = along / height;
    text.shear = (m.c * cos + m.d * sin) / height;
    if (!(text.width <= kLargestPart && std::abs(text.shear) <= kLargestPart && penWidth <= kLargestPart * height)) {
        return std::nullopt;
    }
    const double step = StepFor(height);
    text.cut = {std::max(Rounded(text.width, step), step), Rounded(text.shear, step),
                std::max(Rounded(penWidth / height, step), step)};
    if (text.cut.pen * height < std::min(penWidth, kThinnestPen)) {
        text.cut.pen += step;
    }
    const double up = area > 0 ? height : -height;
    text.toPaper = {cos * height, sin * height, -sin * up, cos * up, m.e, m.f};
    return text;
}

} // namespace sm::plotter
