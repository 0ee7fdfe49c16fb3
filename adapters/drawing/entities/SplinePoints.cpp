// SPDX-License-Identifier: GPL-3.0-or-later
#include "entities/SplinePoints.h"

namespace sm::drawing {

namespace {

struct Weighted {
    Vec3 p;
    double w = 1;
};

double Distance(Vec3 a, Vec3 b)
{
    const Vec3 d = a - b;
    return std::sqrt(d.x * d.x + d.y * d.y + d.z * d.z);
}

/// The parameter of the sample nearest to `point`, then refined between its neighbours.
double Nearest(const SolidEdge& edge, const std::vector<double>& samples, Vec3 point)
{
    std::size_t best = 0;
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < samples.size(); ++i)
        if (const double d = Distance(SplinePoint(edge, samples[i]), point); d < least) {
            least = d;
            best = i;
        }
    double low = samples[best > 0 ? best - 1 : 0], high = samples[std::min(best + 1, samples.size() - 1)];
    constexpr int kSteps = 60;
    for (int step = 0; step < kSteps; ++step) {
        const double a = low + (high - low) / 3, b = high - (high - low) / 3;
        (Distance(SplinePoint(edge, a), point) < Distance(SplinePoint(edge, b), point) ? high : low) =
            Distance(SplinePoint(edge, a), point) < Distance(SplinePoint(edge, b), point) ? b : a;
    }
    return (low + high) / 2;
}

std::vector<double> Samples(const SolidEdge& edge)
{
    constexpr int kPerSpan = 12;
    constexpr std::size_t kMost = 20'000;
    const auto degree = static_cast<std::size_t>(edge.degree);
    std::vector<double> samples;
    for (std::size_t k = degree; k < edge.points.size() && samples.size() < kMost; ++k)
        for (int i = 0; edge.knots[k + 1] > edge.knots[k] && i < kPerSpan; ++i)
            samples.push_back(edge.knots[k] + (edge.knots[k + 1] - edge.knots[k]) * i / kPerSpan);
    samples.push_back(edge.knots[edge.points.size()]);
    return samples;
}

} // namespace

Vec3 SplinePoint(const SolidEdge& edge, double t)
{
    const auto degree = static_cast<std::size_t>(edge.degree);
    std::size_t span = degree;
    while (span + 1 < edge.points.size() && edge.knots[span + 1] <= t)
        ++span;
    std::vector<Weighted> row;
    for (std::size_t i = span - degree; i <= span; ++i) {
        const double w = edge.weights.empty() ? 1 : edge.weights[i];
        row.push_back({edge.points[i] * w, w});
    }
    for (std::size_t round = 1; round <= degree; ++round)
        for (std::size_t i = degree; i >= round; --i) {
            const double low = edge.knots[span - degree + i], high = edge.knots[span + 1 + i - round];
            const double part = high > low ? (t - low) / (high - low) : 0;
            row[i] = {row[i - 1].p * (1 - part) + row[i].p * part, row[i - 1].w * (1 - part) + row[i].w * part};
        }
    return row[degree].p * (row[degree].w != 0 ? 1 / row[degree].w : 1);
}

void TrimSpline(SolidEdge& edge, Vec3 from, Vec3 to)
{
    if (edge.points.size() <= static_cast<std::size_t>(edge.degree))
        return;
    const Vec3 first = edge.points.front(), last = edge.points.back();
    const double near = 1e-4 * (1e-3 + Distance(from, to));
    const bool whole = (Distance(first, from) < near && Distance(last, to) < near) ||
                       (Distance(first, to) < near && Distance(last, from) < near);
    if (whole)
        return;
    const std::vector<double> samples = Samples(edge);
    const double a = Nearest(edge, samples, from), b = Nearest(edge, samples, to);
    SolidEdge trimmed;
    trimmed.kind = SolidEdge::Kind::Spline;
    trimmed.degree = 1;
    trimmed.points.push_back(SplinePoint(edge, std::min(a, b)));
    for (const double t : samples)
        if (t > std::min(a, b) && t < std::max(a, b))
            trimmed.points.push_back(SplinePoint(edge, t));
    trimmed.points.push_back(SplinePoint(edge, std::max(a, b)));
    edge = std::move(trimmed);
}

} // namespace sm::drawing
