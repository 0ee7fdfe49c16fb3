// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/TextLines.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace sm::render {

namespace {

using Kind = MTextToken::Kind;

constexpr double kTabStep = 4; ///< default tab stops, in heights

bool IsText(Kind kind)
{
    return kind == Kind::Word || kind == Kind::Blank;
}

} // namespace

TypeStyle LineBreaker::PartStyle(const MTextToken& token) const
{
    TypeStyle style = m_parsed->styles[token.style];
    if (token.kind == Kind::Stack) {
        style.under = style.over = style.strike = false;
    }
    return style;
}

double LineBreaker::WidthOf(const MTextToken& token)
{
    return token.kind == Kind::Stack ? ShapeOf(token, m_height).width
                                     : m_setter.Measure(token.text, m_parsed->styles[token.style]);
}

StackShape LineBreaker::ShapeOf(const MTextToken& token, double lineHeight)
{
    const TypeStyle style = PartStyle(token);
    const double small = style.height, gap = 0.2 * small, thin = 0.03 * small;
    const double above = m_setter.Measure(token.text, style), below = m_setter.Measure(token.below, style);
    StackShape shape;
    double up = small + 2 * gap; // of the upper base line over the lower one
    if (token.bar == '#') {
        up = 0.8 * small;
        const double slant = 0.6 * small;
        shape.width = above + below + slant;
        shape.below.x = above + slant;
        shape.barFrom = {above, 0};
        shape.barTo = {above + slant, up + small};
        shape.barHalf = {thin, 0};
    } else {
        const bool bare = token.bar == '^';
        shape.width = std::max(above, below) + (bare ? 0 : gap);
        shape.above.x = bare ? 0 : (shape.width - above) / 2;
        shape.below.x = bare ? 0 : (shape.width - below) / 2;
        shape.barFrom = {0, small + gap};
        shape.barTo = {shape.width, small + gap};
        shape.barHalf = {0, bare ? 0 : thin};
    }
    const double whole = up + small;
    shape.bottom = style.align == LineAlign::Bottom ? 0 : lineHeight - whole;
    shape.bottom /= style.align == LineAlign::Center ? 2 : 1;
    shape.top = shape.bottom + whole;
    shape.above.y = shape.bottom + up;
    shape.below.y = shape.bottom;
    shape.barFrom.y += shape.bottom;
    shape.barTo.y += shape.bottom;
    return shape;
}

/// Width of what stands behind a tab, up to the next one; `toPoint`: only up to its decimal point.
double LineBreaker::WidthAfterTab(std::size_t token, std::size_t end, bool toPoint)
{
    double width = 0;
    for (std::size_t i = token + 1; i < end && m_parsed->tokens[i].kind != Kind::Tab; ++i) {
        const MTextToken& next = m_parsed->tokens[i];
        const std::size_t point = toPoint && IsText(next.kind) ? next.text.find_first_of(".,") : std::string::npos;
        if (point != std::string::npos) {
            return width + m_setter.Measure(std::string_view(next.text).substr(0, point), m_parsed->styles[next.style]);
        }
        width += WidthOf(next);
    }
    return width;
}

double LineBreaker::TabWidth(std::size_t token, std::size_t end, double x)
{
    const ParagraphStyle& style = m_parsed->paragraphs[m_line.paragraph];
    // Where the lines after the first one begin, the first one has a stop without being told.
    const double near = x + 1e-9 * m_height;
    const double hanging = style.leftIndent > near ? style.leftIndent : std::numeric_limits<double>::infinity();
    for (const TabStop& stop : style.tabs) {
        if (stop.at <= near) {
            continue;
        }
        if (hanging < stop.at) {
            break;
        }
        const double room = stop.at - x;
        if (stop.kind == TabKind::Left) {
            return room;
        }
        const double behind = WidthAfterTab(token, end, stop.kind == TabKind::Decimal);
        return std::max(0.0, room - (stop.kind == TabKind::Center ? behind / 2 : behind));
    }
    const double step = kTabStep * m_height;
    const double next = (std::floor(x / step + 1e-9) + 1) * step;
    return (std::isfinite(hanging) ? hanging : next) - x;
}

/// The end of the tokens from `begin` on between which a line can't break.
std::size_t LineBreaker::UnbreakableEnd(std::size_t begin, std::size_t end) const
{
    std::size_t to = begin + 1;
    while (to < end && m_parsed->tokens[to].joined) {
        ++to;
    }
    return to;
}

void LineBreaker::MeasureHeights(TextLine& line)
{
    double lone = 0;
    for (std::size_t i = line.begin; i < m_items.size(); ++i) {
        const MTextToken& token = m_parsed->tokens[m_items[i].token];
        const double height = m_parsed->styles[token.style].height;
        double& highest = token.kind == Kind::Stack ? lone : line.height;
        highest = std::max(highest, height);
    }
    line.height = line.height > 0 ? line.height : lone > 0 ? lone : m_blankLine;
    line.above = line.height;
    for (std::size_t i = line.begin; lone > 0 && i < line.end; ++i) {
        const MTextToken& token = m_parsed->tokens[m_items[i].token];
        if (token.kind == Kind::Stack) {
            const StackShape shape = ShapeOf(token, line.height);
            line.above = std::max(line.above, shape.top);
            line.below = std::max(line.below, -shape.bottom);
        }
    }
}

void LineBreaker::EndLine(bool last, double next)
{
    TextLine& line = m_line;
    line.last = last;
    line.end = m_items.size();
    while (line.end > line.begin && m_parsed->tokens[m_items[line.end - 1].token].kind == Kind::Blank) {
        --line.end;
    }
    line.width = line.end > line.begin ? m_items[line.end - 1].x + m_items[line.end - 1].width : 0;
    MeasureHeights(line);
    m_lines.push_back(line);
    TextLine following;
    following.begin = following.end = m_items.size();
    following.indent = next;
    following.room = line.room;
    following.paragraph = line.paragraph;
    m_line = following;
}

/// Puts the tokens of a word on the open line.
void LineBreaker::AddTokens(std::size_t from, std::size_t to, std::size_t end, double& x)
{
    for (std::size_t at = from; at < to; ++at) {
        const MTextToken& token = m_parsed->tokens[at];
        const bool dropped = token.kind == Kind::Blank && m_items.size() == m_line.begin && !m_line.first;
        if (dropped) {
            continue; // the blank at which the line before was broken
        }
        const double own = token.kind == Kind::Tab ? TabWidth(at, end, x) : WidthOf(token);
        m_items.push_back({at, x, own});
        x += own;
    }
}

void LineBreaker::BreakParagraph(std::size_t begin, std::size_t end, double width)
{
    const ParagraphStyle& style = m_parsed->paragraphs[m_parsed->tokens[end].paragraph];
    m_blankLine = m_parsed->styles[m_parsed->tokens[end].style].height;
    m_line = {};
    m_line.begin = m_items.size();
    m_line.paragraph = m_parsed->tokens[end].paragraph;
    m_line.first = true;
    m_line.indent = std::max(0.0, style.leftIndent + style.firstIndent);
    m_line.room = width > 0 ? std::max(0.0, width - style.rightIndent) : 0;
    double x = m_line.indent;
    for (std::size_t at = begin; at < end;) {
        const std::size_t to = UnbreakableEnd(at, end);
        double wide = 0;
        for (std::size_t i = at; i < to; ++i) {
            wide += m_parsed->tokens[i].kind == Kind::Tab ? 0 : WidthOf(m_parsed->tokens[i]);
        }
        const bool blank = m_parsed->tokens[at].kind == Kind::Blank;
        if (width > 0 && !blank && m_items.size() > m_line.begin && x + wide > m_line.room * (1 + 1e-9)) {
            EndLine(false, style.leftIndent);
            x = style.leftIndent;
        }
        AddTokens(at, to, end, x);
        at = to;
    }
    EndLine(true, 0);
    m_lines.back().endsColumn = m_parsed->tokens[end].kind == Kind::Column;
}

void LineBreaker::Break(const ParsedMText& parsed, double width, double height)
{
    m_parsed = &parsed;
    m_height = height;
    m_items.clear();
    m_lines.clear();
    std::size_t begin = 0;
    for (std::size_t i = 0; i < parsed.tokens.size(); ++i) {
        if (parsed.tokens[i].kind == Kind::Paragraph || parsed.tokens[i].kind == Kind::Column) {
            BreakParagraph(begin, i, width);
            begin = i + 1;
        }
    }
    while (m_lines.size() > 1 && m_lines.back().begin == m_lines.back().end) {
        m_lines.pop_back(); // empty paragraphs at the end take no room
    }
}

} // namespace sm::render
