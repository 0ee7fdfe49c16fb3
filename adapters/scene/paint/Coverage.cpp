// SPDX-License-Identifier: GPL-3.0-or-later
#include "paint/Coverage.h"

#include <utility>

namespace sm::scene {
namespace {
using render::Verb;

} // namespace

void Coverage::Begin(const PixelBox& box)
{
    for (int y = m_first; y < m_last; ++y)
        Row(y).clear();
    m_box = box;
    m_first = m_last = 0;
    if (box.Empty())
        return;
    const auto rows = static_cast<std::size_t>(box.Height());
    if (m_rows.size() < rows)
        m_rows.resize(rows);
}

void Coverage::Add(const render::Path& path)
{
    std::size_t next = 0;
    Vec2 start, at;
    for (const Verb verb : path.verbs) {
        if (verb == Verb::Close) {
            AddLine(at, start);
            at = start;
            continue;
        }
        const Vec2 to = path.points[next++];
        if (verb == Verb::Move) {
            AddLine(at, start);
            start = to;
        } else {
            AddLine(at, to);
        }
        at = to;
    }
    AddLine(at, start);
}

void Coverage::AddTurned(std::span<const Vec2> corners)
{
    double area = 0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Vec2 a = corners[i];
        const Vec2 b = corners[(i + 1) % corners.size()];
        area += a.x * b.y - a.y * b.x;
    }
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Vec2 a = corners[i];
        const Vec2 b = corners[(i + 1) % corners.size()];
        area > 0 ? AddLine(a, b) : AddLine(b, a);
    }
}

void Coverage::AddLine(Vec2 a, Vec2 b)
{
    if (m_box.Empty() || !std::isfinite(a.x + a.y + b.x + b.y) || a.y == b.y)
        return;
    const double turn = a.y < b.y ? 1 : -1;
    if (a.y > b.y)
        std::swap(a, b);
    const double slope = (b.x - a.x) / (b.y - a.y);
    const double top = std::max(a.y, static_cast<double>(m_box.top));
    const double bottom = std::min(b.y, static_cast<double>(m_box.bottom));
    if (top >= bottom)
        return;
    const int first = static_cast<int>(std::floor(top));
    const int last = static_cast<int>(std::ceil(bottom));
    const bool isFirst = m_first == m_last;
    m_first = isFirst ? first : std::min(m_first, first);
    m_last = isFirst ? last : std::max(m_last, last);
    const auto at = [&](double y) { return Vec2{y == b.y ? b.x : a.x + (y - a.y) * slope, y}; };
    Vec2 from = at(top);
    for (int y = first; y < last; ++y) {
        const Vec2 to = at(std::min(bottom, y + 1.0));
        AddInRow(y, from, to, turn);
        from = to;
    }
}

// What lies left of the box counts for all of the row, what lies right of it for nothing.
void Coverage::AddInRow(int y, Vec2 a, Vec2 b, double turn)
{
    const double left = m_box.left, right = m_box.right;
    if (a.x >= right && b.x >= right)
        return;
    std::vector<Cell>& row = Row(y);
    const auto whole = [&](double height) {
        const auto part = static_cast<float>(height * turn);
        row.push_back({m_box.left, part, part});
    };
    if (a.x <= left && b.x <= left)
        return whole(b.y - a.y);
    const auto crossing = [&](double x) { return a.y + (b.y - a.y) * ((x - a.x) / (b.x - a.x)); };
    Vec2 from = a, to = b;
    if (from.x < left) {
        from = {left, crossing(left)};
        whole(from.y - a.y);
    } else if (from.x > right) {
        from = {right, crossing(right)};
    }
    if (to.x < left) {
        to = {left, crossing(left)};
        whole(b.y - to.y);
    } else if (to.x > right) {
        to = {right, crossing(right)};
    }
    AddWithin(row, from, to, turn);
}

void Coverage::AddWithin(std::vector<Cell>& row, Vec2 a, Vec2 b, double turn) const
{
    if (a.x > b.x) { // the order of heights doesn't matter: what counts is each piece's own
        std::swap(a.x, b.x);
        std::swap(a.y, b.y);
    }
    const double height = std::abs(b.y - a.y) * turn;
    if (height == 0)
        return;
    const int first = std::min(static_cast<int>(std::floor(a.x)), m_box.right - 1);
    const int last = std::min(static_cast<int>(std::floor(b.x)), m_box.right - 1);
    const auto add = [&](int x, double from, double to, double part) {
        const double middle = (from + to) / 2 - x;
        row.push_back({x, static_cast<float>(part * (1 - middle)), static_cast<float>(part)});
    };
    if (first >= last)
        return add(first, a.x, b.x, height);
    const double perPixel = height / (b.x - a.x);
    double from = a.x;
    for (int x = first; x <= last; ++x) {
        const double to = std::min(b.x, x + 1.0);
        if (to > from)
            add(x, from, to, (to - from) * perPixel);
        from = to;
    }
}

int Coverage::Opacity(double wound, render::FillRule rule)
{
    double part = std::abs(wound);
    if (rule == render::FillRule::EvenOdd) {
        part = std::fmod(part, 2);
        part = part > 1 ? 2 - part : part;
    }
    return static_cast<int>(std::min(part, 1.0) * 255 + 0.5);
}

} // namespace sm::scene
