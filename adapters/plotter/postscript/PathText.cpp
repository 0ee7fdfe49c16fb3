// SPDX-License-Identifier: GPL-3.0-or-later
#include "postscript/PathText.h"

#include "base/text/NumberText.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <string_view>

namespace sm::plotter {

namespace {

constexpr std::size_t kFirstRoom = std::size_t{1} << 14;
constexpr std::size_t kColumns = 256;

char* PutPoint(char* at, Dot p)
{
    at = base::PutInteger(at, p.x);
    *at++ = ' ';
    at = base::PutInteger(at, p.y);
    *at++ = ' ';
    return at;
}

} // namespace

char* PathText::Room(std::size_t bytes)
{
    if (m_text.size() - m_used < bytes) {
        m_text.resize(std::max(2 * m_text.size(), kFirstRoom));
    }
    return m_text.data() + m_used;
}

void PathText::Point(Dot p, char op)
{
    char* at = PutPoint(Room(2 * base::kNumberRoom + 4), p);
    *at++ = op;
    *at++ = '\n';
    m_used = static_cast<std::size_t>(at - m_text.data());
}

void PathText::MoveTo(Dot p)
{
    m_parts.push_back({p.x, m_used});
    Point(p, 'm');
}

void PathText::CubicTo(Dot a, Dot b, Dot c)
{
    char* at = PutPoint(PutPoint(PutPoint(Room(6 * base::kNumberRoom + 8), a), b), c);
    *at++ = 'c';
    *at++ = '\n';
    m_used = static_cast<std::size_t>(at - m_text.data());
}

void PathText::Close()
{
    char* at = Room(2);
    *at++ = 'h';
    *at++ = '\n';
    m_used += 2;
}

/// By the column of the path's width that each begins in; within a column they keep their order, which costs nothing in
/// size and makes this linear.
void PathText::Sort()
{
    const auto left = [](const SubPath& one, const SubPath& other) { return one.x < other.x; };
    const auto [first, last] = std::minmax_element(m_parts.begin(), m_parts.end(), left);
    const std::int64_t begin = first->x, width = static_cast<std::int64_t>(last->x) - begin + 1;
    const auto columnOf = [&](const SubPath& part) {
        return static_cast<std::size_t>((part.x - begin) * static_cast<std::int64_t>(kColumns) / width);
    };
    std::array<std::size_t, kColumns + 1> starts{};
    for (const SubPath& part : m_parts) {
        ++starts[columnOf(part) + 1];
    }
    std::partial_sum(starts.begin(), starts.end(), starts.begin());
    m_sorted.resize(m_parts.size());
    for (std::size_t i = 0; i < m_parts.size(); ++i) {
        const std::size_t end = i + 1 < m_parts.size() ? m_parts[i + 1].from : m_used;
        m_sorted[starts[columnOf(m_parts[i])]++] = {m_parts[i].from, end - m_parts[i].from};
    }
}

void PathText::WriteTo(BodyText& body, bool sorted)
{
    const std::string_view text(m_text.data(), m_used);
    if (sorted && m_parts.size() > 1) {
        Sort();
        for (const Piece piece : m_sorted) {
            body.Append(text.substr(piece.from, piece.length));
        }
    } else {
        body.Append(text);
    }
    m_used = 0;
    m_parts.clear();
}

} // namespace sm::plotter
