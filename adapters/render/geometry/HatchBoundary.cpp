// SPDX-License-Identifier: GPL-3.0-or-later
#include "geometry/HatchBoundary.h"

#include "drawing/entities/Polylines.h"
#include "geometry/Cubic.h"
#include "geometry/Nurbs.h"
#include "render/Arcs.h"
#include "render/ClipBox.h"
#include "render/Projection.h"

namespace sm::render {

namespace {

EllipseArc EdgeArc(const drawing::HatchEdge& edge)
{
    const bool elliptic = edge.kind == drawing::HatchEdge::Kind::EllipticArc;
    const Vec2 u = elliptic ? edge.majorAxis : Vec2{edge.radius, 0};
    const Vec2 v = elliptic ? Vec2{-u.y, u.x} * edge.ratio : Vec2{0, edge.radius};
    const auto parameter = [&](double degrees) {
        const double angle = Radians(degrees);
        if (!elliptic || !(edge.ratio > 0)) {
            return angle;
        }
        // The file gives the direction from the centre, the curve runs by parameter; both have the same quadrant.
        const double turns = std::floor(angle / kTurn + 0.5) * kTurn;
        return std::atan2(std::sin(angle) / edge.ratio, std::cos(angle)) + turns;
    };
    const double start = parameter(edge.startAngle);
    double sweep = std::fmod(parameter(edge.endAngle) - start, kTurn);
    constexpr double kNothing = 1e-9;
    sweep = sweep < kNothing ? sweep + kTurn : sweep;
    // Clockwise edges have their angles counted clockwise as well.
    return edge.counterClockwise ? EllipseArc{edge.center, u, v, start, sweep}
                                 : EllipseArc{edge.center, u, v, -start, -sweep};
}

bool AppendEdge(Path& path, const drawing::HatchEdge& edge, const Matrix2& plane)
{
    using Kind = drawing::HatchEdge::Kind;
    const auto mapped = [&](const std::vector<Vec2>& points) {
        std::vector<Vec2> result;
        for (const Vec2 point : points) {
            result.push_back(plane.Apply(point));
        }
        return result;
    };
    switch (edge.kind) {
    case Kind::Line:
        path.MoveTo(plane.Apply(edge.start));
        path.LineTo(plane.Apply(edge.end));
        return true;
    case Kind::Arc:
    case Kind::EllipticArc:
        AppendArc(path, Mapped(plane, EdgeArc(edge)), Join::Move);
        return true;
    case Kind::Spline:
        return AppendNurbs(path, {edge.degree, mapped(edge.points), edge.knots, edge.weights}) ||
               AppendFitCurve(path, mapped(edge.fitPoints), {}, false);
    }
    return false;
}

Path Reversed(const Path& path)
{
    Path result;
    std::size_t point = path.points.size() - 1;
    result.MoveTo(path.points[point]);
    for (std::size_t verb = path.verbs.size(); verb-- > 1;) {
        if (path.verbs[verb] == Verb::Cubic) {
            result.CubicTo(path.points[point - 1], path.points[point - 2], path.points[point - 3]);
            point -= 3;
        } else {
            result.LineTo(path.points[point - 1]);
            point -= 1;
        }
    }
    return result;
}

void AppendEdges(Path& path, const std::vector<drawing::HatchEdge>& edges, const Matrix2& plane)
{
    std::vector<Path> pieces;
    for (const drawing::HatchEdge& edge : edges) {
        Path piece;
        if (AppendEdge(piece, edge, plane) && piece.verbs.size() > 1) {
            pieces.push_back(std::move(piece));
        }
    }
    AppendJoined(path, std::move(pieces));
}

void AppendPolyline(Path& path, const std::vector<drawing::PolyVertex>& vertices, const Matrix2& plane)
{
    const auto at = [&](std::size_t i) { return Vec2{vertices[i].point.x, vertices[i].point.y}; };
    path.MoveTo(plane.Apply(at(0)));
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        const std::size_t next = (i + 1) % vertices.size();
        if (vertices[i].bulge != 0 && !(at(i) == at(next))) {
            AppendArc(path, Mapped(plane, BulgeArc(at(i), at(next), vertices[i].bulge)), Join::Continue);
        } else if (next != 0) {
            path.LineTo(plane.Apply(at(next)));
        }
    }
    path.Close();
}

// A piece that is closed already, as it is; true when it was one.
bool AppendWhole(Path& path, const Path& piece)
{
    const bool closed = !piece.verbs.empty() && piece.verbs.back() == Verb::Close;
    if (closed) {
        path.verbs.insert(path.verbs.end(), piece.verbs.begin(), piece.verbs.end());
        path.points.insert(path.points.end(), piece.points.begin(), piece.points.end());
    }
    return closed || piece.verbs.size() < 2;
}

} // namespace

void AppendJoined(Path& path, std::vector<Path> pieces)
{
    std::erase_if(pieces, [&](const Path& piece) { return AppendWhole(path, piece); });
    const auto first = [](const Path& p) { return p.points.front(); };
    const auto last = [](const Path& p) { return p.points.back(); };
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (i == 0 && pieces.size() > 1) {
            const auto gap = [&](Vec2 p) {
                return std::min(Length(p - first(pieces[1])), Length(p - last(pieces[1])));
            };
            if (gap(first(pieces[0])) < gap(last(pieces[0]))) {
                pieces[0] = Reversed(pieces[0]);
            }
        } else if (i > 0) {
            const Vec2 at = path.points.back();
            if (Length(last(pieces[i]) - at) < Length(first(pieces[i]) - at)) {
                pieces[i] = Reversed(pieces[i]);
            }
        }
        constexpr double kJoined = 1e-6;
        const bool joined = i > 0 && Length(first(pieces[i]) - path.points.back()) < kJoined;
        path.verbs.insert(path.verbs.end(), pieces[i].verbs.begin() + (joined ? 1 : 0), pieces[i].verbs.end());
        path.points.insert(path.points.end(), pieces[i].points.begin() + (joined ? 1 : 0), pieces[i].points.end());
        if (!joined && i > 0) { // a gap between edges is bridged
            path.verbs[path.verbs.size() - pieces[i].verbs.size()] = Verb::Line;
        }
    }
    if (!pieces.empty()) {
        path.Close();
    }
}

void AppendHatchPath(Path& path, const drawing::HatchPath& boundary, const Matrix2& plane)
{
    if (boundary.polyline.size() > 1) {
        AppendPolyline(path, boundary.polyline, plane);
    } else {
        AppendEdges(path, boundary.edges, plane);
    }
}

std::vector<Path> PiecesOf(const Path& path)
{
    std::vector<Path> pieces;
    const Vec2* point = path.points.data();
    for (const Verb verb : path.verbs) {
        if (verb == Verb::Move || pieces.empty()) {
            pieces.emplace_back();
        }
        const int count = verb == Verb::Cubic ? 3 : verb == Verb::Close ? 0 : 1;
        pieces.back().verbs.push_back(verb);
        pieces.back().points.insert(pieces.back().points.end(), point, point + count);
        point += count;
    }
    return pieces;
}

std::vector<std::vector<Vec2>> PolygonsOf(const Path& path)
{
    constexpr double kFlatness = 0.02;
    constexpr int kMostChords = 200;
    std::vector<std::vector<Vec2>> polygons;
    const Vec2* point = path.points.data();
    for (const Verb verb : path.verbs) {
        if (verb == Verb::Move) {
            polygons.emplace_back();
        }
        if (verb == Verb::Move || verb == Verb::Line) {
            polygons.back().push_back(*point++);
        } else if (verb == Verb::Cubic) {
            const Cubic curve{{polygons.back().back(), point[0], point[1], point[2]}};
            const double bend = std::max(Length(curve.p[0] - curve.p[1] * 2 + curve.p[2]),
                                         Length(curve.p[1] - curve.p[2] * 2 + curve.p[3]));
            // The error of n chords is at most 6 bend / (8 n^2).
            const double chords = std::ceil(std::sqrt(0.75 * bend / kFlatness));
            const int n = static_cast<int>(std::clamp(chords, 1.0, static_cast<double>(kMostChords)));
            for (int i = 1; i <= n; ++i) {
                polygons.back().push_back(curve.At(static_cast<double>(i) / n));
            }
            point += 3;
        }
    }
    return polygons;
}

} // namespace sm::render
