// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/OutlineReader.h"

namespace sm::render {

namespace {

struct PathSink {
    Path& path;
    double scale;
    Vec2 at;
    Vec2 Scaled(const FT_Vector* v) const
    {
        return {static_cast<double>(v->x) * scale, static_cast<double>(v->y) * scale};
    }
};

int MoveTo(const FT_Vector* to, void* user)
{
    auto& sink = *static_cast<PathSink*>(user);
    if (!sink.path.Empty()) {
        sink.path.Close();
    }
    sink.at = sink.Scaled(to);
    sink.path.MoveTo(sink.at);
    return 0;
}

int LineTo(const FT_Vector* to, void* user)
{
    auto& sink = *static_cast<PathSink*>(user);
    sink.at = sink.Scaled(to);
    sink.path.LineTo(sink.at);
    return 0;
}

int ConicTo(const FT_Vector* control, const FT_Vector* to, void* user)
{
    auto& sink = *static_cast<PathSink*>(user);
    const Vec2 c = sink.Scaled(control), end = sink.Scaled(to);
    sink.path.CubicTo((sink.at + c * 2) * (1.0 / 3), (end + c * 2) * (1.0 / 3), end);
    sink.at = end;
    return 0;
}

int CubicTo(const FT_Vector* c1, const FT_Vector* c2, const FT_Vector* to, void* user)
{
    auto& sink = *static_cast<PathSink*>(user);
    sink.at = sink.Scaled(to);
    sink.path.CubicTo(sink.Scaled(c1), sink.Scaled(c2), sink.at);
    return 0;
}

std::int16_t Rounded(double value)
{
    return static_cast<std::int16_t>(std::clamp(std::lround(value), -32768L, 32767L));
}

struct ContourSink {
    GlyphContours& out;
    Vec2 at;
    void Add(Vec2 p, bool onCurve)
    {
        out.points.push_back({Rounded(p.x), Rounded(p.y), onCurve});
        at = p;
    }
    void EndContour()
    {
        if (out.points.empty() || (!out.ends.empty() && out.ends.back() + 1U == out.points.size())) {
            return;
        }
        const std::size_t first = out.ends.empty() ? 0 : out.ends.back() + 1U;
        if (out.points.size() > first + 1 && out.points.back() == out.points[first]) {
            out.points.pop_back(); // contours close by themselves
        }
        out.ends.push_back(static_cast<std::uint16_t>(out.points.size() - 1));
    }
};

ContourSink& Sink(void* user)
{
    return *static_cast<ContourSink*>(user);
}

Vec2 Whole(const FT_Vector* v)
{
    return {static_cast<double>(v->x), static_cast<double>(v->y)};
}

int ContourMove(const FT_Vector* to, void* user)
{
    Sink(user).EndContour();
    Sink(user).Add(Whole(to), true);
    return 0;
}

int ContourLine(const FT_Vector* to, void* user)
{
    Sink(user).Add(Whole(to), true);
    return 0;
}

int ContourConic(const FT_Vector* control, const FT_Vector* to, void* user)
{
    Sink(user).Add(Whole(control), false);
    Sink(user).Add(Whole(to), true);
    return 0;
}

int ContourCubic(const FT_Vector* first, const FT_Vector* second, const FT_Vector* to, void* user)
{
    constexpr int kParts = 4;
    const Vec2 p0 = Sink(user).at, p1 = Whole(first), p2 = Whole(second), p3 = Whole(to);
    const auto point = [&](double t) {
        const double s = 1 - t;
        return p0 * (s * s * s) + p1 * (3 * s * s * t) + p2 * (3 * s * t * t) + p3 * (t * t * t);
    };
    const auto slope = [&](double t) {
        const double s = 1 - t;
        return (p1 - p0) * (3 * s * s) + (p2 - p1) * (6 * s * t) + (p3 - p2) * (3 * t * t);
    };
    for (int i = 0; i < kParts; ++i) {
        const double t0 = static_cast<double>(i) / kParts, t1 = static_cast<double>(i + 1) / kParts;
        const Vec2 a = point(t0), b = point(t1);
        const double third = (t1 - t0) / 3;
        const Vec2 c1 = a + slope(t0) * third, c2 = b - slope(t1) * third;
        Sink(user).Add(((c1 + c2) * 3 - a - b) * 0.25, false);
        Sink(user).Add(b, true);
    }
    return 0;
}

} // namespace

void ReadOutline(const FT_Outline& outline, double scale, Path& out)
{
    PathSink sink{out, scale, {}};
    const FT_Outline_Funcs funcs{MoveTo, LineTo, ConicTo, CubicTo, 0, 0};
    FT_Outline_Decompose(const_cast<FT_Outline*>(&outline), &funcs, &sink);
    if (!out.Empty()) {
        out.Close();
    }
}

void ReadContours(const FT_Outline& outline, GlyphContours& out)
{
    ContourSink sink{out, {}};
    const FT_Outline_Funcs funcs{ContourMove, ContourLine, ContourConic, ContourCubic, 0, 0};
    FT_Outline_Decompose(const_cast<FT_Outline*>(&outline), &funcs, &sink);
    sink.EndContour();
}

} // namespace sm::render
