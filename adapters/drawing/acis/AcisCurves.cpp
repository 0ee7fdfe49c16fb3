// SPDX-License-Identifier: GPL-3.0-or-later
#include "acis/AcisCurves.h"

#include "entities/SpaceVectors.h"
#include "entities/SplinePoints.h"

namespace sm::drawing {

namespace {

using Kind = AcisToken::Kind;
constexpr double kSame = 1e-6;

bool Near(Vec3 a, Vec3 b)
{
    return Length(a - b) <= kSame * (1 + Length(a));
}
/// The sense of a curve stands behind it, in old releases as a number.
bool IsReversed(const AcisToken& token)
{
    return token.word == "reversed" || (token.kind == Kind::Number && token.number == 1);
}
bool IsEdge(const AcisRecord& record)
{
    return record.name == "edge" || record.name == "tedge-edge";
}

} // namespace

bool AcisCurves::Append(std::vector<SolidEdge>& edges)
{
    m_map = BodyMap();
    bool complete = true;
    for (const AcisRecord& record : m_records.All()) {
        if (IsEdge(record))
            complete = AppendEdge(record, edges) && complete;
        else if (record.name == "face") {
            AppendWhole(record, edges);
            AppendWall(record, edges);
        }
    }
    return complete;
}

// Three rows, a place, and a scale; points are rows on the left.
AcisCurves::Map AcisCurves::BodyMap() const
{
    Map map;
    for (const AcisRecord& record : m_records.All()) {
        const std::vector<double> n = record.name == "transform" ? m_records.Numbers(record) : std::vector<double>{};
        // Some versions put the record's own number first, and some write three flags as numbers behind.
        constexpr std::size_t kNumbers = 13, kFlags = 3;
        if (n.size() < kNumbers)
            continue;
        const std::size_t first = n.size() == kNumbers + 1 || n.size() == kNumbers + 1 + kFlags ? 1 : 0;
        const double scale = n[first + 12] != 0 ? n[first + 12] : 1;
        map.x = PointAt(n, first) * scale;
        map.y = PointAt(n, first + 3) * scale;
        map.z = PointAt(n, first + 6) * scale;
        map.origin = PointAt(n, first + 9);
        break;
    }
    return map;
}

bool AcisCurves::Vertex(const AcisRecord& record, Vec3& point) const
{
    for (std::size_t i = record.first; i < record.end; ++i) {
        const AcisRecord* const target = m_records.Target(m_records.Token(i));
        if (target == nullptr || target->name != "point")
            continue;
        const std::vector<double> numbers = m_records.Numbers(*target);
        if (numbers.size() < 3)
            return false;
        point = PointAt(numbers, 0);
        return true;
    }
    return false;
}

bool AcisCurves::AppendEdge(const AcisRecord& record, std::vector<SolidEdge>& edges) const
{
    std::vector<Vec3> ends;
    const AcisRecord* curve = nullptr;
    bool reversed = false;
    for (std::size_t i = record.first; i < record.end; ++i) {
        const AcisToken& token = m_records.Token(i);
        const AcisRecord* const target = m_records.Target(token);
        Vec3 point;
        if (target != nullptr && target->name.ends_with("vertex") && Vertex(*target, point))
            ends.push_back(point);
        else if (target != nullptr && target->name.ends_with("-curve"))
            curve = target;
        else if (curve != nullptr && m_records.Target(m_records.Token(i - 1)) == curve)
            reversed = IsReversed(token);
    }
    if (ends.size() < 2)
        return ends.empty() && curve == nullptr; // an edge shrunk to a point draws nothing
    const Vec3 from = reversed ? ends[1] : ends[0], to = reversed ? ends[0] : ends[1];
    if (curve == nullptr || curve->name == "straight-curve") {
        if (!Near(from, to)) {
            edges.emplace_back();
            edges.back().start = m_map.Point(from);
            edges.back().end = m_map.Point(to);
        }
        return true;
    }
    return curve->name == "ellipse-curve" ? AppendArc(*curve, from, to, edges) : AppendSpline(*curve, from, to, edges);
}

// Centre, normal, longer half axis, ratio.
bool AcisCurves::AppendArc(const AcisRecord& curve, Vec3 from, Vec3 to, std::vector<SolidEdge>& edges) const
{
    const std::vector<double> n = m_records.Numbers(curve);
    if (n.size() < 10)
        return false;
    const Vec3 center = PointAt(n, 0), normal = PointAt(n, 3), u = PointAt(n, 6);
    const double size = Length(normal);
    if (!(Length(u) > 0) || !(size > 0))
        return false;
    const Vec3 v = Cross(normal * (1 / size), u) * n[9];
    const auto angle = [&](Vec3 p) {
        const double vv = Dot(v, v);
        return std::atan2(vv > 0 ? Dot(p - center, v) / vv : 0, Dot(p - center, u) / Dot(u, u));
    };
    SolidEdge edge;
    edge.kind = SolidEdge::Kind::Arc;
    edge.center = m_map.Point(center);
    edge.u = m_map.Vector(u);
    edge.v = m_map.Vector(v);
    edge.from = angle(from);
    edge.sweep = Near(from, to) ? kTurn : std::fmod(angle(to) - edge.from + 2 * kTurn, kTurn);
    if (edge.sweep < 1e-9)
        edge.sweep = kTurn;
    edges.push_back(edge);
    return true;
}

// Degree, closure, count of knots, knots with their multiplicities, control points.
bool AcisCurves::ReadSpline(std::size_t at, SolidEdge& edge) const
{
    const auto number = [&](std::size_t i) {
        return i < m_records.TokenCount() && m_records.Token(i).kind == Kind::Number ? m_records.Token(i).number : -1;
    };
    const bool rational = m_records.Token(at).word == "nurbs";
    const double degree = number(at + 1), count = number(at + 3);
    constexpr double kMostKnots = 1'000'000;
    if (!(degree >= 1 && degree <= 25) || !(count >= 2 && count <= kMostKnots))
        return false;
    edge.degree = static_cast<std::int32_t>(degree);
    edge.knots.clear();
    std::size_t i = at + 4;
    for (double k = 0; k < count; ++k, i += 2) {
        const double times = number(i + 1);
        if (!(times >= 1 && times <= degree + 1) || i + 1 >= m_records.TokenCount())
            return false;
        edge.knots.insert(edge.knots.end(), static_cast<std::size_t>(times), m_records.Token(i).number);
    }
    const std::size_t points = edge.knots.size() + 1 - static_cast<std::size_t>(edge.degree);
    const std::size_t width = rational ? 4 : 3;
    if (points < 2 || points > m_records.TokenCount() || i + points * width > m_records.TokenCount())
        return false;
    // The save leaves out one knot at either end.
    edge.knots.insert(edge.knots.begin(), edge.knots.front());
    edge.knots.push_back(edge.knots.back());
    for (std::size_t p = 0; p < points; ++p, i += width) {
        for (std::size_t c = 0; c < width; ++c)
            if (m_records.Token(i + c).kind != Kind::Number)
                return false;
        edge.points.push_back(
            {m_records.Token(i).number, m_records.Token(i + 1).number, m_records.Token(i + 2).number});
        if (rational)
            edge.weights.push_back(m_records.Token(i + 3).number);
    }
    return true;
}

bool AcisCurves::AppendSpline(const AcisRecord& curve, Vec3 from, Vec3 to, std::vector<SolidEdge>& edges) const
{
    std::size_t at = curve.first;
    while (at < curve.end && m_records.Token(at).kind != Kind::Open)
        ++at;
    std::size_t end = curve.end;
    if (at + 2 < curve.end && m_records.Token(at + 1).word == "ref" && m_records.Token(at + 2).number >= 0) {
        at = m_records.Part(static_cast<std::size_t>(std::min(m_records.Token(at + 2).number, 1e9)));
        end = m_records.TokenCount();
    }
    const auto isSpline = [&](const AcisToken& token) {
        return token.kind == Kind::Word && (token.word == "nubs" || token.word == "nurbs");
    };
    while (at < end && !isSpline(m_records.Token(at)))
        ++at;
    SolidEdge edge;
    edge.kind = SolidEdge::Kind::Spline;
    if (at >= end || !ReadSpline(at, edge))
        return false;
    if (!Near(from, to))
        TrimSpline(edge, from, to);
    for (Vec3& point : edge.points)
        point = m_map.Point(point);
    edges.push_back(std::move(edge));
    return true;
}

} // namespace sm::drawing
