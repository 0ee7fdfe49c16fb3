// SPDX-License-Identifier: GPL-3.0-or-later
#include "geometry/HatchLines.h"

#include "geometry/HatchBoundary.h"
#include "render/Arcs.h"
#include "render/ClipBox.h"
#include "render/Projection.h"

#include <array>

namespace sm::render {

namespace {

constexpr double kClosest = 0.1;    // mm between lines
constexpr double kFinestDash = 0.1; // mm, average of dashes and gaps
constexpr double kMostCrossings = 2'000'000;
constexpr double kMostDashes = 100'000; // on one line
constexpr double kDotLength = 0.02;     // mm
constexpr double kFarthest = 1e12; // line spacings or dash periods: further off, a double can't tell one from the next

struct Span {
    double low = 0, high = 0;
};

template <class Measure> Span SpanOf(const Box2& box, const Measure& measure)
{
    Span span{measure(box.min), measure(box.min)};
    for (const Vec2 corner : {Vec2{box.max.x, box.min.y}, box.max, Vec2{box.min.x, box.max.y}}) {
        const double value = measure(corner);
        span = {std::min(span.low, value), std::max(span.high, value)};
    }
    return span;
}

} // namespace

HatchLines::HatchLines(const Path& boundary, const Box2& visible, double penWidth) : m_penWidth(penWidth)
{
    for (const std::vector<Vec2>& polygon : PolygonsOf(boundary)) {
        for (std::size_t i = 0; i < polygon.size(); ++i) {
            m_edges.push_back({polygon[i], polygon[(i + 1) % polygon.size()]});
        }
    }
    Box2 box;
    for (const Edge& edge : m_edges) {
        box.Add(edge.a);
    }
    m_box = Intersection(box, visible);
}

// Which line of the family goes through `p`, whole numbers for those that are drawn.
double HatchLines::LineAt(const Family& family, Vec2 p) const
{
    return Cross(family.along, p - family.base) / family.spacing;
}

bool HatchLines::Append(const drawing::HatchLine& line, const Matrix2& plane, HatchStrokes& out)
{
    Family family;
    const Vec2 direction{std::cos(Radians(line.angle)), std::sin(Radians(line.angle))};
    const Vec2 along = plane.ApplyVector(direction);
    family.unit = Length(along);
    if (!(family.unit > 0) || m_box.Empty()) {
        return false;
    }
    family.base = plane.Apply(line.base);
    family.along = along * (1 / family.unit);
    family.offset = plane.ApplyVector(line.offset);
    family.spacing = Cross(family.along, family.offset);
    if (!std::isfinite(family.spacing) || std::abs(family.spacing) < 1e-12) {
        return false;
    }
    std::vector<double> dashes;
    double period = 0;
    for (const double dash : line.dashes) {
        dashes.push_back(dash * family.unit);
        period += std::abs(dash * family.unit);
    }
    BringNear(family, period);
    const double every = Collect(family);
    const double coarser = Coarsening(static_cast<double>(dashes.size()), period);
    for (double& dash : dashes) {
        dash *= coarser;
    }
    for (std::size_t i = 0; i + 1 < m_crossings.size();) {
        if (m_crossings[i].line == m_crossings[i + 1].line) {
            CutLine(family, m_crossings[i], m_crossings[i + 1], dashes, out);
            i += 2;
        } else {
            ++i;
        }
    }
    return every > 1 || coarser > 1;
}

// A base point or a slide from line to line so large that a spacing or a dash more changes nothing holds no phase:
// the lines then go through the middle of the area, and their dashes begin beside each other.
void HatchLines::BringNear(Family& family, double period)
{
    const double step = period > 0 ? std::min(std::abs(family.spacing), period) : std::abs(family.spacing);
    const Vec2 middle = (m_box.min + m_box.max) * 0.5;
    const double slide = Dot(family.offset, family.along);
    const double lines = Length(m_box.max - m_box.min) / std::abs(family.spacing);
    if (!(Length(middle - family.base) <= kFarthest * step)) {
        family.base = middle;
        m_moved = true;
    }
    if (!(std::abs(slide) * std::max(1.0, lines) <= kFarthest * step)) {
        family.offset = Vec2{-family.along.y, family.along.x} * family.spacing;
        m_moved = true;
    }
}

// Fills `m_crossings` and returns the step from one drawn line to the next.
double HatchLines::Collect(const Family& family)
{
    double every = std::max(1.0, std::ceil(kClosest / std::abs(family.spacing) - 1e-6));
    const Span shown = SpanOf(m_box, [&](Vec2 p) { return LineAt(family, p); });
    const auto range = [&](const Edge& edge) {
        const double a = LineAt(family, edge.a);
        const double b = LineAt(family, edge.b);
        // Half open, so that a corner on a line counts once.
        const double low = std::ceil(std::max(std::min(a, b), shown.low) / every);
        const double high = std::ceil(std::min(std::max(a, b), std::nextafter(shown.high, 1e300)) / every) - 1;
        return Span{low, high};
    };
    double count = kMostCrossings + 1;
    for (;; every *= 2) {
        count = 0;
        for (const Edge& edge : m_edges) {
            const Span lines = range(edge);
            count += std::max(0.0, lines.high - lines.low + 1);
        }
        if (!(count > kMostCrossings)) {
            break;
        }
    }
    m_crossings.clear();
    for (const Edge& edge : m_edges) {
        const Span lines = range(edge);
        const double a = LineAt(family, edge.a);
        const double b = LineAt(family, edge.b);
        const auto steps = static_cast<std::int64_t>(std::max(0.0, lines.high - lines.low + 1));
        for (std::int64_t i = 0; i < steps; ++i) {
            const double line = (lines.low + static_cast<double>(i)) * every;
            const Vec2 p = edge.a + (edge.b - edge.a) * ((line - a) / (b - a));
            m_crossings.push_back({line, Dot(p - family.base - family.offset * line, family.along)});
        }
    }
    std::sort(m_crossings.begin(), m_crossings.end(),
              [](const Crossing& l, const Crossing& r) { return l.line != r.line ? l.line < r.line : l.at < r.at; });
    return every;
}

// How many times longer dashes and gaps must be so that their number stays sensible; a line through would be darker.
double HatchLines::Coarsening(double dashes, double period) const
{
    if (!(dashes > 0) || !(period > 0)) {
        return 1;
    }
    const double longest = static_cast<double>(m_crossings.size()) / 2 * (m_box.Width() + m_box.Height());
    const double tooFine = kFinestDash * dashes / period;
    const double tooMany = dashes / period * longest / kMostDashes;
    return std::max(1.0, std::ceil(std::max(tooFine, tooMany) - 1e-6));
}

void HatchLines::CutLine(const Family& family, const Crossing& from, const Crossing& to,
                         const std::vector<double>& dashes, HatchStrokes& out) const
{
    const Vec2 origin = family.base + family.offset * from.line;
    const auto at = [&](double t) { return origin + family.along * t; };
    double t0 = 0;
    double t1 = 1;
    if (!(to.at > from.at) || !ClipLine(m_box, at(from.at), at(to.at), t0, t1)) {
        return;
    }
    const double begin = from.at + (to.at - from.at) * t0;
    const double end = from.at + (to.at - from.at) * t1;
    const auto emit = [&](Path& path, double a, double b) {
        if (b > a) {
            path.MoveTo(at(a));
            path.LineTo(at(b));
        }
    };
    double period = 0;
    for (const double dash : dashes) {
        period += std::abs(dash);
    }
    if (!(period > 0)) {
        emit(out.dashes, begin, end);
        return;
    }
    const double first = std::floor(begin / period);
    const double periods = std::ceil(end / period) - first;
    const auto count = static_cast<std::int64_t>(std::clamp(periods, 0.0, kMostDashes));
    for (std::int64_t i = 0; i < count; ++i) {
        double t = (first + static_cast<double>(i)) * period;
        for (const double dash : dashes) {
            if (dash >= 0 && t + dash >= begin && t <= end) {
                emit(dash > 0 && dash >= m_penWidth ? out.dashes : out.dots, std::max(t, begin),
                     std::min(t + std::max(dash, kDotLength), end));
            }
            t += std::abs(dash);
        }
    }
}

} // namespace sm::render
