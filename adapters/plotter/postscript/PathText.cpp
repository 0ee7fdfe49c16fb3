#include "postscript/PathText.h"

#include "base/text/NumberText.h"

#include <algorithm>
#include <string_view>

namespace sm::plotter {

namespace {

constexpr std::size_t kFirstRoom = std::size_t{1} << 14;

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
    m_parts.push_back({p.x, m_used, 0});
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

void PathText::Sort()
{
    for (std::size_t i = 0; i < m_parts.size(); ++i) {
        m_parts[i].length = (i + 1 < m_parts.size() ? m_parts[i + 1].from : m_used) - m_parts[i].from;
    }
    std::sort(m_parts.begin(), m_parts.end(), [](const SubPath& left, const SubPath& right) {
        return left.x != right.x ? left.x < right.x : left.from < right.from;
    });
}

void PathText::WriteTo(BodyText& body, bool sorted)
{
    const std::string_view text(m_text.data(), m_used);
    if (sorted && m_parts.size() > 1) {
        Sort();
        for (const SubPath& part : m_parts) {
            body.Append(text.substr(part.from, part.length));
        }
    } else {
        body.Append(text);
    }
    m_used = 0;
    m_parts.clear();
}

} // namespace sm::plotter
