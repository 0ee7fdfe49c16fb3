// SPDX-License-Identifier: GPL-3.0-or-later
#include "paint/StrokeArea.h"

#include <array>
#include <numbers>

namespace sm::scene {
namespace {

using render::LineCap;
using render::LineJoin;
using render::Verb;

constexpr double kPi = std::numbers::pi;
constexpr double kMiterLimit = 10;

double Cross(Vec2 a, Vec2 b)
{
    return a.x * b.y - a.y * b.x;
}

double Along(Vec2 a, Vec2 b)
{
    return a.x * b.x + a.y * b.y;
}

class Pen {
public:
    Pen(const PixelPen& pen, Coverage& area) : m_pen(pen), m_half(pen.width / 2), m_area(area)
    {
        constexpr double kOff = 0.02; // pixels that a chord may lie off the round
        m_step = m_half > kOff ? 2 * std::acos(1 - kOff / m_half) : kPi / 2;
    }
    void Begin(Vec2 at)
    {
        End();
        m_points.assign(1, at);
    }
    void Go(Vec2 to)
    {
        m_isDrawn = true;
        if (m_points.empty() || m_points.back() != to)
            m_points.push_back(to);
    }
    void Close()
    {
        if (m_points.empty())
            return;
        const Vec2 start = m_points.front();
        Go(start);
        Draw(m_points.size() > 2);
        m_points.assign(1, start);
        m_isDrawn = false;
    }
    void End()
    {
        if (m_isDrawn)
            Draw(false);
        m_points.clear();
        m_isDrawn = false;
    }

private:
    [[nodiscard]] Vec2 Direction(std::size_t line) const
    {
        const Vec2 d = m_points[line + 1] - m_points[line];
        return d * (1 / std::hypot(d.x, d.y));
    }
    [[nodiscard]] Vec2 Side(Vec2 direction) const { return Vec2{-direction.y, direction.x} * m_half; }

    void Draw(bool isClosed)
    {
        const std::size_t lines = m_points.size() - 1;
        if (lines == 0)
            return Dot(m_points.front());
        for (std::size_t i = 0; i < lines; ++i) {
            const Vec2 side = Side(Direction(i));
            const std::array<Vec2, 4> corners{m_points[i] + side, m_points[i + 1] + side, m_points[i + 1] - side,
                                              m_points[i] - side};
            m_area.AddTurned(corners);
            if (i + 1 < lines)
                Join(m_points[i + 1], Direction(i), Direction(i + 1));
        }
        if (isClosed)
            return Join(m_points.front(), Direction(lines - 1), Direction(0));
        Cap(m_points.front(), Direction(0) * -1);
        Cap(m_points.back(), Direction(lines - 1));
    }

    void Dot(Vec2 at)
    {
        if (m_pen.cap == LineCap::Butt)
            return;
        const Vec2 right{1, 0};
        if (m_pen.cap == LineCap::Round)
            return Fan(at, Side(right), 2 * kPi);
        Cap(at, right);
        Cap(at, right * -1);
    }

    void Cap(Vec2 at, Vec2 outwards)
    {
        if (m_pen.cap == LineCap::Butt)
            return;
        const Vec2 side = Side(outwards);
        if (m_pen.cap == LineCap::Round)
            return Fan(at, side, -kPi);
        const Vec2 reach = outwards * m_half;
        const std::array<Vec2, 4> corners{at + side, at + side + reach, at - side + reach, at - side};
        m_area.AddTurned(corners);
    }

    void Join(Vec2 at, Vec2 before, Vec2 after)
    {
        const double turn = std::atan2(Cross(before, after), Along(before, after));
        constexpr double kStraight = 1e-3;
        if (std::abs(turn) < kStraight)
            return;
        const double outer = turn > 0 ? -1 : 1;
        const Vec2 a = Side(before) * outer;
        const Vec2 b = Side(after) * outer;
        if (m_pen.join == LineJoin::Round)
            return Fan(at, a, turn);
        const double half = std::cos(turn / 2);
        if (m_pen.join == LineJoin::Miter && half * kMiterLimit >= 1) {
            const Vec2 middle = (a + b) * (1 / (2 * half * half));
            const std::array<Vec2, 4> corners{at, at + a, at + middle, at + b};
            return m_area.AddTurned(corners);
        }
        const std::array<Vec2, 3> corners{at, at + a, at + b};
        m_area.AddTurned(corners);
    }

    /// A part of the round about `at`, from `from` on by `angle`.
    void Fan(Vec2 at, Vec2 from, double angle)
    {
        const int steps = std::max(1, static_cast<int>(std::ceil(std::abs(angle) / m_step)));
        m_fan.assign(1, at);
        for (int i = 0; i <= steps; ++i) {
            const double by = angle * i / steps;
            const double c = std::cos(by), s = std::sin(by);
            m_fan.push_back(at + Vec2{from.x * c - from.y * s, from.x * s + from.y * c});
        }
        m_area.AddTurned(m_fan);
    }

    const PixelPen& m_pen;
    double m_half;
    double m_step; ///< of a round
    Coverage& m_area;
    std::vector<Vec2> m_points; ///< of the sub-path at hand
    std::vector<Vec2> m_fan;
    bool m_isDrawn = false; ///< the sub-path has more than its beginning
};

} // namespace

void AddStroke(const render::Path& path, const PixelPen& pen, Coverage& area)
{
    Pen drawn(pen, area);
    std::size_t next = 0;
    for (const Verb verb : path.verbs) {
        if (verb == Verb::Close)
            drawn.Close();
        else if (verb == Verb::Move)
            drawn.Begin(path.points[next++]);
        else
            drawn.Go(path.points[next++]);
    }
    drawn.End();
}

} // namespace sm::scene
