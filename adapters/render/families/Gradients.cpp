// SPDX-License-Identifier: GPL-3.0-or-later
#include "families/Gradients.h"

#include "drawing/entities/Hatches.h"
#include "render/Arcs.h"
#include "render/ClipBox.h"

#include <algorithm>
#include <cmath>

namespace sm::render {

namespace {

constexpr int kMostBands = 64;
constexpr double kNarrowestBand = 0.2; // mm
constexpr std::uint32_t kWhite = 0xFFFFFF;

std::uint32_t Mixed(std::uint32_t from, std::uint32_t to, double part)
{
    std::uint32_t result = 0;
    for (const int shift : {16, 8, 0}) {
        const double a = from >> shift & 0xFF;
        const double b = to >> shift & 0xFF;
        result |= static_cast<std::uint32_t>(std::lround(a + (b - a) * part)) << shift;
    }
    return result;
}

int LargestDifference(std::uint32_t a, std::uint32_t b)
{
    int largest = 0;
    for (const int shift : {16, 8, 0}) {
        largest =
            std::max(largest, std::abs(static_cast<int>(a >> shift & 0xFF) - static_cast<int>(b >> shift & 0xFF)));
    }
    return largest;
}

// How a gradient runs: along lines, to both sides of a middle line, or round a point.
struct Course {
    enum class Form : std::uint8_t { Along, BothSides, Round } form = Form::Along;
    Vec2 middle{0.5, 0.5}; ///< in the box of the boundary, 0 to 1 either way
    bool curved = false;   ///< changes slowly at its far end
    bool inverse = false;
};

// DXF reference, HATCH group 470. `shift` (461) moves what is not centred to the upper left.
Course CourseOf(std::string_view name, double shift)
{
    Course course;
    course.inverse = name.starts_with("INV");
    name.remove_prefix(course.inverse ? 3 : 0);
    if (name == "CYLINDER") {
        course.form = Course::Form::BothSides;
    } else if (name == "SPHERICAL") {
        course.form = Course::Form::Round;
    } else if (name == "HEMISPHERICAL") {
        course.form = Course::Form::Round;
        course.middle.y = 0;
    } else if (name == "CURVED") {
        course.curved = true;
    }
    const double moved = std::clamp(shift, 0.0, 1.0) / 4;
    course.middle = course.middle + Vec2{-moved, course.middle.y > 0 ? moved : 0};
    return course;
}

struct Colors {
    std::uint32_t first = 0, second = 0;
};

// The file holds two colours, or one and how far its partner is lightened (above a half) or darkened (group 462).
Colors ColorsOf(const drawing::HatchData& hatch)
{
    const std::uint32_t first = hatch.gradientColors.front();
    if (hatch.gradientColors.size() > 1) {
        return {first, hatch.gradientColors[1]};
    }
    const double tint = std::clamp(hatch.gradientTint, 0.0, 1.0);
    return {first, tint >= 0.5 ? Mixed(first, kWhite, 2 * tint - 1) : Mixed(first, 0, 1 - 2 * tint)};
}

/// The boundary's box along the gradient's own directions.
struct Field {
    Vec2 right, up; ///< length 1, on the sheet
    Box2 box;
    [[nodiscard]] Vec2 At(double x, double y) const
    {
        const double along = box.min.x + box.Width() * x;
        const double across = box.min.y + box.Height() * y;
        return right * along + up * across;
    }
};

Field FieldOf(const Path& boundary, const Matrix2& plane, double angle)
{
    const auto direction = [&](double radians) {
        const Vec2 v = plane.ApplyVector({std::cos(radians), std::sin(radians)});
        const double length = Length(v);
        return length > 0 ? v * (1 / length) : Vec2{std::cos(radians), std::sin(radians)};
    };
    Field field;
    field.right = direction(angle);
    field.up = direction(angle + kTurn / 4);
    const double skew = Dot(field.right, field.up);
    const double determinant = 1 - skew * skew;
    for (const Vec2 point : boundary.points) {
        const double x = Dot(point, field.right);
        const double y = Dot(point, field.up);
        const double safe = determinant > 1e-9 ? determinant : 1;
        field.box.Add(Vec2{(x - skew * y) / safe, (y - skew * x) / safe});
    }
    return field;
}

/// What still lies ahead from part `t` of the gradient on: each band is laid over those before it.
void AppendAhead(Path& path, const Field& field, const Course& course, double t)
{
    const auto quad = [&](double x0, double x1) {
        path.MoveTo(field.At(x0, 0));
        path.LineTo(field.At(x1, 0));
        path.LineTo(field.At(x1, 1));
        path.LineTo(field.At(x0, 1));
        path.Close();
    };
    switch (course.form) {
    case Course::Form::Along:
        quad(t, 1);
        break;
    case Course::Form::BothSides:
        quad(course.middle.x * t, 1 - (1 - course.middle.x) * t);
        break;
    case Course::Form::Round: {
        // The first ring goes through the corner farthest from the middle.
        const Vec2 reach{std::max(course.middle.x, 1 - course.middle.x),
                         std::max(course.middle.y, 1 - course.middle.y)};
        const double r = std::sqrt(2.0) * (1 - t);
        AppendEllipse(path, field.At(course.middle.x, course.middle.y), field.right * (field.box.Width() * reach.x * r),
                      field.up * (field.box.Height() * reach.y * r));
        break;
    }
    }
}

} // namespace

void DrawGradient(PaintContext& context, const drawing::HatchData& hatch, const Matrix2& plane)
{
    Colors colors = ColorsOf(hatch);
    const Course course = CourseOf(hatch.gradientName, hatch.gradientShift);
    const Field field = FieldOf(context.path, plane, hatch.gradientAngle);
    if (course.inverse) {
        std::swap(colors.first, colors.second);
    }
    const double size = field.box.Width() + field.box.Height();
    const int steps = LargestDifference(colors.first, colors.second) + 1;
    const double fitting = std::isfinite(size) ? size / kNarrowestBand : 1;
    const int bands = std::min({kMostBands, steps, static_cast<int>(std::clamp(fitting, 1.0, 1000.0))});
    if (bands < 2 || context.options.boxesOnly) {
        context.ink.Fill(context.path, Mixed(colors.first, colors.second, 0.5), FillRule::EvenOdd);
        return;
    }
    // Bands that are laid over each other leave no seams; where one shows what lies behind, each keeps to itself.
    const bool opaque = hatch.transparency.value_or(255) == 255;
    if (opaque) {
        context.ink.Fill(context.path, colors.first, FillRule::EvenOdd);
        if (!context.ink.Drawn()) {
            return;
        }
    }
    const Path boundary = context.path;
    const Ink::ClipGuard guard(context.ink, boundary, FillRule::EvenOdd);
    for (int band = opaque ? 1 : 0; band < bands; ++band) {
        const double even = static_cast<double>(band) / (bands - 1);
        const double part = course.curved ? std::sin(even * kTurn / 4) : even;
        context.path.Clear();
        AppendAhead(context.path, field, course, static_cast<double>(band) / bands);
        if (!opaque && band + 1 < bands) {
            AppendAhead(context.path, field, course, static_cast<double>(band + 1) / bands);
        }
        context.ink.Fill(context.path, Mixed(colors.first, colors.second, part),
                         opaque ? FillRule::NonZero : FillRule::EvenOdd);
    }
}

} // namespace sm::render
