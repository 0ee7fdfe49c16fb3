// SPDX-License-Identifier: GPL-3.0-or-later
#include "geometry/Nurbs.h"
#include "render/Projection.h"

namespace sm::render {

namespace {

std::vector<Vec2> WithoutRepeats(std::span<const Vec2> points)
{
    std::vector<Vec2> result;
    for (const Vec2 point : points) {
        if (result.empty() || Length(point - result.back()) > 1e-9) {
            result.push_back(point);
        }
    }
    return result;
}

// Derivatives by chord length at each point of the curve with continuous curvature: a tridiagonal system, by
// elimination.
std::vector<Vec2> Slopes(const std::vector<Vec2>& points, const std::vector<double>& chords, const FitTangents& ends)
{
    const std::size_t last = points.size() - 1;
    std::vector<double> upper(points.size());
    std::vector<Vec2> slopes(points.size());
    const auto chordSlope = [&](std::size_t i) { return (points[i + 1] - points[i]) * (1 / chords[i]); };
    if (ends.start) {
        slopes[0] = *ends.start * (1 / Length(*ends.start));
    } else {
        upper[0] = 0.5;
        slopes[0] = chordSlope(0) * 1.5;
    }
    for (std::size_t i = 1; i < last; ++i) {
        const double before = chords[i];
        const double after = chords[i - 1];
        const Vec2 right = (chordSlope(i - 1) * before + chordSlope(i) * after) * 3;
        const double pivot = 2 * (before + after) - before * upper[i - 1];
        upper[i] = after / pivot;
        slopes[i] = (right - slopes[i - 1] * before) * (1 / pivot);
    }
    if (ends.end) {
        slopes[last] = *ends.end * (1 / Length(*ends.end));
    } else {
        slopes[last] = (chordSlope(last - 1) * 3 - slopes[last - 1]) * (1 / (2 - upper[last - 1]));
    }
    for (std::size_t i = last; i-- > 0;) {
        slopes[i] = slopes[i] - slopes[i + 1] * upper[i];
    }
    return slopes;
}

// A closed curve is an open one that runs on past the seam: what happens some points away doesn't matter any more.
constexpr std::size_t kOverlap = 12;

std::vector<Vec2> Wrapped(const std::vector<Vec2>& points)
{
    std::vector<Vec2> result;
    const std::size_t n = points.size();
    for (std::size_t i = 0; i < n + 1 + 2 * kOverlap; ++i) {
        result.push_back(points[(i + n * kOverlap - kOverlap) % n]);
    }
    return result;
}

} // namespace

bool AppendFitCurve(Path& path, std::span<const Vec2> given, const FitTangents& tangents, bool closed)
{
    std::vector<Vec2> points = WithoutRepeats(given);
    if (closed && points.size() > 2 && Length(points.front() - points.back()) <= 1e-9) {
        points.pop_back();
    }
    closed = closed && points.size() > 2;
    if (points.size() < 2) {
        return false;
    }
    FitTangents ends = closed ? FitTangents{} : tangents;
    const auto usable = [](const std::optional<Vec2>& t) { return t && Length(*t) > 0; };
    ends.start = usable(ends.start) ? ends.start : std::nullopt;
    ends.end = usable(ends.end) ? ends.end : std::nullopt;
    if (closed) {
        points = Wrapped(points);
    }
    std::vector<double> chords;
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        chords.push_back(Length(points[i + 1] - points[i]));
    }
    const std::vector<Vec2> slopes = Slopes(points, chords, ends);
    const std::size_t skipped = closed ? kOverlap : 0;
    path.MoveTo(points[skipped]);
    for (std::size_t i = skipped; i + 1 + skipped < points.size(); ++i) {
        const double third = chords[i] / 3;
        path.CubicTo(points[i] + slopes[i] * third, points[i + 1] - slopes[i + 1] * third, points[i + 1]);
    }
    if (closed) {
        path.Close();
    }
    return true;
}

} // namespace sm::render
