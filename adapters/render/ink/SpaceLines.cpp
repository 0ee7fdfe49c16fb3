// SPDX-License-Identifier: GPL-3.0-or-later
// Lines of a view in space: cut where faces lie before them and where the view ends, and carried to the sheet.
#include "geometry/Cubic.h"
#include "ink/SpaceView.h"

#include <algorithm>
#include <optional>

namespace sm::render {

namespace {

using SpaceCubic = std::array<Vec3, 4>;

Vec3 PointOf(const SpaceCubic& c, double t)
{
    const double s = 1 - t;
    return c[0] * (s * s * s) + c[1] * (3 * s * s * t) + c[2] * (3 * s * t * t) + c[3] * (t * t * t);
}

Vec2 FlatOf(Vec3 p)
{
    return {p.x, p.y};
}

class LineCutter {
public:
    LineCutter(const Camera& camera, HidingFaces* faces, const Box2& visible, Path& out)
        : m_camera(camera), m_faces(faces), m_visible(visible), m_out(out)
    {
    }
    void Cut(const Path& path, std::span<const Vec3> points, std::span<const std::uint32_t> breaks,
             std::vector<std::uint32_t>& outBreaks);
    /// True when all of the path shows where it is.
    [[nodiscard]] bool Same() const { return !m_camera.perspective && m_uncut; }

private:
    void Line(Vec3 a, Vec3 b);
    void Curve(const SpaceCubic& curve);
    void Close(Vec3 from, Vec3 to);
    void FindShown(Vec3 a, Vec3 b);
    [[nodiscard]] bool AllShown() const { return m_shown == std::vector<LinePart>{{0, 1}}; }
    void EmitLine(Vec3 a, Vec3 b);
    void Start(Vec2 at);

    const Camera& m_camera;
    HidingFaces* m_faces;
    const Box2& m_visible;
    Path& m_out;
    std::vector<LinePart> m_shown, m_stretches;
    bool m_uncut = true;         ///< of the path
    bool m_partUncut = true;     ///< of the sub-path
    std::optional<Vec2> m_stood; ///< where the last piece ended
};

// Parameters of a line in space, of what shows of it.
void LineCutter::FindShown(Vec3 a, Vec3 b)
{
    m_shown.clear();
    double from = 0;
    double to = 1;
    if (!m_camera.Narrow(a.z, b.z, from, to)) {
        return;
    }
    const Vec3 begin = m_camera.Apply(from == 0 ? a : a + (b - a) * from);
    const Vec3 end = m_camera.Apply(to == 1 ? b : a + (b - a) * to);
    Box2 box;
    box.Add(FlatOf(begin));
    box.Add(FlatOf(end));
    m_stretches.assign({{0, 1}});
    if (m_faces != nullptr && Overlaps(box, m_visible)) {
        m_faces->FindVisible(begin, end, m_stretches);
    }
    // A part of the way on the sheet is another one in space: further away is smaller.
    const double first = m_camera.perspective ? m_camera.distance - (a.z + (b.z - a.z) * from) : 1;
    const double last = m_camera.perspective ? m_camera.distance - (a.z + (b.z - a.z) * to) : 1;
    const auto inSpace = [&](double t) {
        const double s = t <= 0 ? 0 : t >= 1 ? 1 : t * first / (t * first + (1 - t) * last);
        return from + (to - from) * s;
    };
    for (const LinePart& stretch : m_stretches) {
        m_shown.push_back({inSpace(stretch.from), inSpace(stretch.to)});
    }
}

void LineCutter::Start(Vec2 at)
{
    if (!m_stood || !(*m_stood == at)) {
        m_out.MoveTo(at);
    }
}

void LineCutter::EmitLine(Vec3 a, Vec3 b)
{
    for (const LinePart& shown : m_shown) {
        Start(FlatOf(m_camera.Apply(shown.from == 0 ? a : a + (b - a) * shown.from)));
        const Vec2 end = FlatOf(m_camera.Apply(shown.to == 1 ? b : a + (b - a) * shown.to));
        m_out.LineTo(end);
        m_stood = end;
    }
}

void LineCutter::Line(Vec3 a, Vec3 b)
{
    FindShown(a, b);
    m_partUncut = m_partUncut && AllShown();
    EmitLine(a, b);
}

void LineCutter::Close(Vec3 from, Vec3 to)
{
    FindShown(from, to);
    m_partUncut = m_partUncut && (AllShown() || from == to);
    if (m_partUncut) {
        m_out.Close();
        m_stood.reset();
    } else if (!(from == to)) {
        EmitLine(from, to);
    }
}

// Looked at as short lines; where it isn't bent anew by the view, what shows of it stays a curve.
void LineCutter::Curve(const SpaceCubic& curve)
{
    constexpr int kFewest = 6, kMost = 64;
    constexpr double kChord = 0.7; // mm
    const Cubic flat{{FlatOf(curve[0]), FlatOf(curve[1]), FlatOf(curve[2]), FlatOf(curve[3])}};
    const Box2 hull = flat.Hull();
    const double chords = (hull.Width() + hull.Height()) / kChord;
    const int count = chords < kMost ? std::max(kFewest, static_cast<int>(chords)) : kMost;
    std::vector<LinePart> all;
    Vec3 at = curve[0];
    for (int i = 0; i < count; ++i) {
        const Vec3 next = i + 1 == count ? curve[3] : PointOf(curve, static_cast<double>(i + 1) / count);
        FindShown(at, next);
        if (m_camera.perspective) {
            m_partUncut = m_partUncut && AllShown();
            EmitLine(at, next);
        }
        for (const LinePart& shown : m_shown) {
            const LinePart part{(i + shown.from) / count, (i + shown.to) / count};
            constexpr double kSame = 1e-12;
            if (!all.empty() && part.from - all.back().to < kSame) {
                all.back().to = part.to;
            } else {
                all.push_back(part);
            }
        }
        at = next;
    }
    if (m_camera.perspective) {
        return;
    }
    m_partUncut = m_partUncut && all == std::vector<LinePart>{{0, 1}};
    for (const LinePart& shown : all) {
        const Cubic part = flat.Part(shown.from, shown.to);
        Start(part.p[0]);
        m_out.CubicTo(part.p[1], part.p[2], part.p[3]);
        m_stood = part.p[3];
    }
}

void LineCutter::Cut(const Path& path, std::span<const Vec3> points, std::span<const std::uint32_t> breaks,
                     std::vector<std::uint32_t>& outBreaks)
{
    Vec3 start, at;
    std::size_t next = 0;
    std::size_t nextBreak = 0;
    const auto finish = [&] {
        m_uncut = m_uncut && m_partUncut;
        m_partUncut = true;
        m_stood.reset();
    };
    for (std::uint32_t verb = 0; verb < path.verbs.size(); ++verb) {
        if (nextBreak < breaks.size() && breaks[nextBreak] == verb) {
            outBreaks.push_back(static_cast<std::uint32_t>(m_out.verbs.size()));
            ++nextBreak;
        }
        switch (path.verbs[verb]) {
        case Verb::Move:
            finish();
            start = at = points[next++];
            break;
        case Verb::Line:
            Line(at, points[next]);
            at = points[next++];
            break;
        case Verb::Cubic:
            Curve({at, points[next], points[next + 1], points[next + 2]});
            at = points[next + 2];
            next += 3;
            break;
        case Verb::Close:
            Close(at, start);
            at = start;
            break;
        }
    }
    finish();
}

} // namespace

bool SpaceView::CutLines(const Path& path, std::span<const std::uint32_t> breaks, const Box2& visible, Path& out,
                         std::vector<std::uint32_t>& outBreaks)
{
    const std::span<const Vec3> lifted = Lift(path.points);
    Path cut;
    std::vector<std::uint32_t> cutBreaks;
    LineCutter cutter(m_camera, m_faces, visible, cut);
    cutter.Cut(path, lifted, breaks, cutBreaks);
    TellExhausted();
    if (cutter.Same()) {
        return false;
    }
    out = std::move(cut);
    outBreaks = std::move(cutBreaks);
    return true;
}

} // namespace sm::render
