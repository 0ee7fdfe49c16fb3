// SPDX-License-Identifier: GPL-3.0-or-later
#include "geometry/Nurbs.h"

#include "render/Projection.h"

#include <array>

namespace sm::render {

namespace {

constexpr std::int32_t kLargestDegree = 25;
constexpr double kFlatness = 0.01;

struct Weighted {
    double x = 0, y = 0, w = 1;
    friend Weighted operator*(const Weighted& p, double f) { return {p.x * f, p.y * f, p.w * f}; }
    friend Weighted operator+(const Weighted& p, const Weighted& q) { return {p.x + q.x, p.y + q.y, p.w + q.w}; }
};

std::vector<double> EvenKnots(std::size_t points, std::size_t degree)
{
    std::vector<double> knots(points + degree + 1);
    for (std::size_t i = 0; i < knots.size(); ++i) {
        const std::size_t inner = i <= degree ? 0 : std::min(i, points) - degree;
        knots[i] = static_cast<double>(inner);
    }
    return knots;
}

// The curve span by span, by its polar form: the same scheme gives points and Bezier control points.
class SpanReader {
public:
    SpanReader(const Nurbs& curve, std::span<const double> knots) : m_curve(curve), m_knots(knots) {}

    template <class Argument> Weighted Polar(std::size_t span, const Argument& argument) const
    {
        const auto degree = static_cast<std::size_t>(m_curve.degree);
        std::array<Weighted, kLargestDegree + 1> d;
        for (std::size_t i = 0; i <= degree; ++i) {
            d[i] = Control(span - degree + i);
        }
        for (std::size_t level = 1; level <= degree; ++level) {
            const double t = argument(level - 1);
            for (std::size_t i = degree; i >= level; --i) {
                const double low = m_knots[span - degree + i];
                const double high = m_knots[span + 1 + i - level];
                const double a = high > low ? (t - low) / (high - low) : 0;
                d[i] = {d[i - 1].x * (1 - a) + d[i].x * a, d[i - 1].y * (1 - a) + d[i].y * a,
                        d[i - 1].w * (1 - a) + d[i].w * a};
            }
        }
        return d[degree];
    }
    Vec2 At(std::size_t span, double t) const
    {
        const Weighted p = Polar(span, [t](std::size_t) { return t; });
        return p.w != 0 ? Vec2{p.x / p.w, p.y / p.w} : Vec2{p.x, p.y};
    }

    /// The control points of the span's Bezier form: its first knot is inserted until it stands as often as the degree
    /// says, then its last one.
    std::array<Weighted, kLargestDegree + 1> BezierPoints(std::size_t span) const
    {
        const auto degree = static_cast<std::size_t>(m_curve.degree);
        const double t0 = m_knots[span], t1 = m_knots[span + 1];
        std::array<Weighted, kLargestDegree + 1> d, e;
        for (std::size_t i = 0; i <= degree; ++i) {
            d[i] = Control(span - degree + i);
        }
        e[degree] = d[degree];
        for (std::size_t level = 1; level <= degree; ++level) {
            for (std::size_t i = degree; i >= level; --i) {
                const double low = m_knots[span - degree + i];
                const double high = m_knots[span + 1 + i - level];
                const double a = high > low ? (t0 - low) / (high - low) : 0;
                d[i] = d[i - 1] * (1 - a) + d[i] * a;
            }
            e[degree - level] = d[degree];
        }
        for (std::size_t level = 1; level <= degree; ++level) {
            for (std::size_t i = degree; i >= level; --i) {
                const double a = (t1 - t0) / (m_knots[span + 1 + i - level] - t0);
                e[i] = e[i - 1] * (1 - a) + e[i] * a;
            }
        }
        return e;
    }

private:
    Weighted Control(std::size_t i) const
    {
        const Vec2 p = m_curve.points[i];
        const double w = m_curve.weights.empty() ? 1 : m_curve.weights[i];
        return {p.x * w, p.y * w, w};
    }
    const Nurbs& m_curve;
    std::span<const double> m_knots;
};

// One span by the control points of its Bezier form, for the many points that a span asks for.
class BezierSpan {
public:
    BezierSpan(const SpanReader& reader, std::size_t span, std::int32_t degree)
        : m_degree(static_cast<std::size_t>(degree)), m_terms(reader.BezierPoints(span))
    {
        double binomial = 1;
        for (std::size_t i = 0; i <= m_degree; ++i) {
            m_terms[i] = m_terms[i] * binomial;
            binomial = binomial * static_cast<double>(m_degree - i) / static_cast<double>(i + 1);
        }
    }
    /// `u`: 0 at the span's beginning, 1 at its end. All terms of the Bernstein form have one sign: nothing cancels.
    Vec2 At(double u) const
    {
        const bool nearEnd = u > 0.5;
        const double ratio = nearEnd ? (1 - u) / u : u / (1 - u);
        Weighted sum;
        sum.w = 0;
        for (std::size_t i = 0; i <= m_degree; ++i) {
            sum = sum * ratio + m_terms[nearEnd ? i : m_degree - i];
        }
        const double scale = sum.w != 0 ? 1 / sum.w : std::pow(nearEnd ? u : 1 - u, static_cast<double>(m_degree));
        return {sum.x * scale, sum.y * scale};
    }

private:
    std::size_t m_degree;
    std::array<Weighted, kLargestDegree + 1> m_terms;
};

struct Stretch {
    double from = 0, to = 1;
    Vec2 a, middle, b;
};

void AppendFlat(Path& path, const BezierSpan& span, const Stretch& at, int depth, int deepest)
{
    const double half = (at.from + at.to) / 2;
    const Vec2 quarter = span.At((at.from + half) / 2);
    const Vec2 chord = at.b - at.a;
    const double length = Length(chord);
    const auto stray = [&](Vec2 p) {
        return length > kFlatness ? std::abs(Cross(chord, p - at.a)) / length : Length(p - at.a);
    };
    constexpr int kLeast = 2;
    if (depth >= deepest || (depth >= kLeast && stray(at.middle) < kFlatness && stray(quarter) < kFlatness)) {
        path.LineTo(at.b);
        return;
    }
    AppendFlat(path, span, {at.from, half, at.a, quarter, at.middle}, depth + 1, deepest);
    AppendFlat(path, span, {half, at.to, at.middle, span.At((half + at.to) / 2), at.b}, depth + 1, deepest);
}

void AppendExact(Path& path, const SpanReader& reader, std::size_t span, std::int32_t degree, double t0, double t1)
{
    const auto control = [&](std::size_t ends) {
        const Weighted p = reader.Polar(span, [&](std::size_t i) { return i < ends ? t1 : t0; });
        return Vec2{p.x, p.y};
    };
    if (degree == 1) {
        path.LineTo(control(1));
    } else if (degree == 2) {
        const Vec2 middle = control(1) * (2.0 / 3);
        const Vec2 end = control(2);
        path.CubicTo(control(0) * (1.0 / 3) + middle, end * (1.0 / 3) + middle, end);
    } else {
        const Vec2 end = control(3);
        path.CubicTo(control(1), control(2), end);
    }
}

bool KnotsFit(std::span<const double> knots, std::size_t points, std::size_t degree)
{
    return knots.size() == points + degree + 1 && std::is_sorted(knots.begin(), knots.end()) &&
           knots[points] > knots[degree];
}

} // namespace

bool AppendNurbs(Path& path, const Nurbs& curve)
{
    const auto degree = static_cast<std::size_t>(std::max(curve.degree, 0));
    const std::size_t count = curve.points.size();
    if (curve.degree < 1 || curve.degree > kLargestDegree || count <= degree) {
        return false;
    }
    std::vector<double> even;
    std::span<const double> knots = curve.knots;
    if (!KnotsFit(knots, count, degree)) {
        even = EvenKnots(count, degree);
        knots = even;
    }
    Nurbs used = curve;
    const bool weighted =
        curve.weights.size() == count &&
        std::any_of(curve.weights.begin(), curve.weights.end(), [&](double w) { return w != curve.weights.front(); });
    used.weights = weighted ? curve.weights : std::span<const double>{};
    const SpanReader reader(used, knots);
    // Many spans are short ones; what asks for more is no drawing.
    constexpr std::size_t kManySpans = 2000;
    const int deepest = count > kManySpans ? 5 : 10;
    bool started = false;
    for (std::size_t span = degree; span < count; ++span) {
        const double t0 = knots[span];
        const double t1 = knots[span + 1];
        if (!(t1 > t0)) {
            continue;
        }
        if (!started) {
            path.MoveTo(reader.At(span, t0));
            started = true;
        }
        if (!weighted && curve.degree <= 3) {
            AppendExact(path, reader, span, curve.degree, t0, t1);
        } else {
            const BezierSpan bezier(reader, span, curve.degree);
            AppendFlat(path, bezier, {0, 1, bezier.At(0), bezier.At(0.5), bezier.At(1)}, 0, deepest);
        }
    }
    return started;
}

} // namespace sm::render
