#include "render/text/MTextLayout.h"

#include <cmath>
#include <numbers>

namespace sm::render {

namespace {

using Kind = MTextToken::Kind;

constexpr double kLineStep = 5.0 / 3; ///< base line to base line, in heights (DXF reference, MTEXT group 44)
constexpr double kTabStep = 4;        ///< default tab stops, in heights

bool Positive(double value)
{
    return std::isfinite(value) && value > 0;
}

double HeightOf(const drawing::Drawing& drawing, const drawing::MTextData& text)
{
    const auto& styles = drawing.TextStyles();
    const double fixed = text.style < styles.size() ? styles[text.style].fixedHeight : 0;
    return Positive(text.height) ? text.height : Positive(fixed) ? fixed : 2.5;
}

/// Axes of the OCS of an extrusion direction (DXF reference, arbitrary axis algorithm).
struct Ocs {
    Vec3 x{1, 0, 0}, y{0, 1, 0}, z{0, 0, 1};
};

double Dot(Vec3 a, Vec3 b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

Vec3 Cross(Vec3 a, Vec3 b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

Vec3 Unit(Vec3 v)
{
    const double length = std::sqrt(Dot(v, v));
    return Positive(length) ? v * (1 / length) : Vec3{0, 0, 1};
}

Ocs OcsOf(Vec3 extrusion)
{
    Ocs ocs;
    ocs.z = Unit(extrusion);
    const bool nearZ = std::fabs(ocs.z.x) < 1.0 / 64 && std::fabs(ocs.z.y) < 1.0 / 64;
    ocs.x = Unit(Cross(nearZ ? Vec3{0, 1, 0} : Vec3{0, 0, 1}, ocs.z));
    ocs.y = Cross(ocs.z, ocs.x);
    return ocs;
}

/// From the text's own axes, origin at the insertion point, to the OCS plane. Insertion and direction are in the WCS.
Matrix2 PlaneOf(const drawing::MTextData& text)
{
    const Ocs ocs = OcsOf(text.extrusion);
    double angle = text.rotation * std::numbers::pi / 180;
    if (text.hasDirection) {
        const Vec2 along{Dot(text.direction, ocs.x), Dot(text.direction, ocs.y)};
        angle = along == Vec2{} ? 0 : std::atan2(along.y, along.x);
    }
    angle = std::isfinite(angle) ? angle : 0;
    return {std::cos(angle),           std::sin(angle), -std::sin(angle), std::cos(angle), Dot(text.insertion, ocs.x),
            Dot(text.insertion, ocs.y)};
}

/// A filled bar from `a` to `b`, `half` to either side.
void AddBar(Path& path, Vec2 a, Vec2 b, Vec2 half)
{
    path.MoveTo(a - half);
    path.LineTo(b - half);
    path.LineTo(b + half);
    path.LineTo(a + half);
    path.Close();
}

} // namespace

TypeStyle MTextLayout::PartStyle(const MTextToken& token) const
{
    TypeStyle style = m_parsed.styles[token.style];
    if (token.kind == Kind::Stack) {
        style.under = style.over = style.strike = false;
    }
    return style;
}

double MTextLayout::WidthOf(const MTextToken& token)
{
    const TypeStyle style = PartStyle(token);
    if (token.kind == Kind::Stack) {
        const double above = m_setter.Measure(token.text, style), below = m_setter.Measure(token.below, style);
        return token.bar == '#' ? above + below + 0.6 * style.height : std::max(above, below) + 0.2 * style.height;
    }
    return m_setter.Measure(token.text, style);
}

double MTextLayout::TabWidth(const ParagraphStyle& style, double x) const
{
    for (const double stop : style.tabs) {
        if (stop > x + 1e-9) {
            return stop - x;
        }
    }
    const double step = kTabStep * m_height;
    return (std::floor(x / step + 1e-9) + 1) * step - x;
}

/// The end of the tokens from `begin` on between which a line can't break.
std::size_t MTextLayout::UnbreakableEnd(std::size_t begin, std::size_t end) const
{
    std::size_t to = begin + 1;
    while (to < end && m_parsed.tokens[to].joined) {
        ++to;
    }
    return to;
}

void MTextLayout::EndLine(Line& line, bool last, double next)
{
    line.last = last;
    line.end = m_items.size();
    while (line.end > line.begin && m_parsed.tokens[m_items[line.end - 1].token].kind == Kind::Blank) {
        --line.end;
    }
    line.width = line.end > line.begin ? m_items[line.end - 1].x + m_items[line.end - 1].width : 0;
    line.height = line.height > 0 ? line.height : m_blankLine;
    m_lines.push_back(line);
    line = {m_items.size(), m_items.size(), next, 0, line.room, 0, 0, line.paragraph, false};
}

void MTextLayout::BreakParagraph(std::size_t begin, std::size_t end, std::uint32_t paragraph, double width)
{
    const ParagraphStyle& style = m_parsed.paragraphs[paragraph];
    Line line;
    line.begin = m_items.size();
    line.paragraph = paragraph;
    line.indent = std::max(0.0, style.leftIndent + style.firstIndent);
    line.room = width > 0 ? std::max(0.0, width - style.rightIndent) : 0;
    double x = line.indent;
    for (std::size_t at = begin; at < end;) {
        const std::size_t to = UnbreakableEnd(at, end);
        double wide = 0;
        for (std::size_t i = at; i < to; ++i) {
            wide += m_parsed.tokens[i].kind == Kind::Tab ? 0 : WidthOf(m_parsed.tokens[i]);
        }
        const bool blank = m_parsed.tokens[at].kind == Kind::Blank;
        if (line.room > 0 && !blank && m_items.size() > line.begin && x + wide > line.room * (1 + 1e-9)) {
            EndLine(line, false, style.leftIndent);
            x = style.leftIndent;
        }
        for (; at < to; ++at) {
            const MTextToken& token = m_parsed.tokens[at];
            const double own = token.kind == Kind::Tab ? TabWidth(style, x) : WidthOf(token);
            if (blank && m_items.size() == line.begin && !m_lines.empty() && !m_lines.back().last) {
                continue; // the blank at which the line before was broken
            }
            m_items.push_back({at, x, own});
            line.height = std::max(line.height, m_parsed.styles[token.style].height);
            x += own;
        }
    }
    m_blankLine = m_parsed.styles[m_parsed.tokens[end].style].height;
    EndLine(line, true, 0);
}

void MTextLayout::BreakLines(double width)
{
    m_items.clear();
    m_lines.clear();
    std::size_t begin = 0;
    for (std::size_t i = 0; i < m_parsed.tokens.size(); ++i) {
        if (m_parsed.tokens[i].kind == Kind::Paragraph) {
            BreakParagraph(begin, i, m_parsed.tokens[i].paragraph, width);
            begin = i + 1;
        }
    }
    while (m_lines.size() > 1 && m_lines.back().begin == m_lines.back().end) {
        m_lines.pop_back(); // empty paragraphs at the end take no room
    }
}

void MTextLayout::StackLines(const drawing::MTextData& text)
{
    const double factor = text.lineSpacing >= 0.25 && text.lineSpacing <= 4 ? text.lineSpacing : 1;
    constexpr std::int32_t kExact = 2;
    double y = 0;
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        const double height = text.lineSpacingStyle == kExact ? m_height : m_lines[i].height;
        y -= i == 0 ? m_lines[i].height : height * kLineStep * factor;
        m_lines[i].baseline = y;
    }
}

std::size_t MTextLayout::GapsIn(const Line& line) const
{
    std::size_t gaps = 0;
    for (std::size_t i = line.begin; i < line.end; ++i) {
        gaps += m_parsed.tokens[m_items[i].token].kind == Kind::Blank ? 1 : 0;
    }
    return gaps;
}

double MTextLayout::LineStart(const Line& line, double boxWidth, int column, double& spread) const
{
    const double room = line.room > 0 ? line.room : boxWidth;
    const ParagraphAlign align = m_parsed.paragraphs[line.paragraph].align;
    if (align == ParagraphAlign::Justified || align == ParagraphAlign::Distributed) {
        const std::size_t gaps = GapsIn(line);
        const bool fills = gaps > 0 && (!line.last || align == ParagraphAlign::Distributed);
        spread = fills ? std::max(0.0, room - line.width) / static_cast<double>(gaps) : 0;
        return 0;
    }
    const bool right = align == ParagraphAlign::Right || (align == ParagraphAlign::Default && column == 2);
    const bool center = align == ParagraphAlign::Center || (align == ParagraphAlign::Default && column == 1);
    const double left = center ? line.indent : 0;
    return right ? room - line.width : center ? (room - left - (line.width - left)) / 2 : 0;
}

void MTextLayout::SetLines(double boxWidth, int column)
{
    for (const Line& line : m_lines) {
        double spread = 0;
        const double start = LineStart(line, boxWidth, column, spread);
        SetLine(line, start, spread);
    }
}

/// Neighbours of one look are set as one piece, so that a line stays one text.
void MTextLayout::SetLine(const Line& line, double x, double spread)
{
    for (std::size_t i = line.begin; i < line.end;) {
        const Item& first = m_items[i];
        const MTextToken& token = m_parsed.tokens[first.token];
        const Vec2 pen{x + first.x, line.baseline};
        if (token.kind == Kind::Stack) {
            SetStack(token, pen, line.height);
        }
        if (token.kind == Kind::Stack || token.kind == Kind::Tab) {
            ++i;
            continue;
        }
        m_joined.clear();
        for (; i < line.end; ++i) {
            const MTextToken& next = m_parsed.tokens[m_items[i].token];
            const bool text = next.kind == Kind::Word || next.kind == Kind::Blank;
            if (!text || next.style != token.style) {
                break;
            }
            m_joined += next.text;
            if (spread > 0 && next.kind == Kind::Blank) {
                ++i;
                x += spread;
                break;
            }
        }
        m_setter.Set(m_joined, m_parsed.styles[token.style], pen);
    }
}

/// A fraction round the middle of its line's capitals.
void MTextLayout::SetStack(const MTextToken& token, Vec2 pen, double lineHeight)
{
    const TypeStyle style = PartStyle(token);
    const double small = style.height, thin = 0.04 * small;
    const double above = m_setter.Measure(token.text, style), below = m_setter.Measure(token.below, style);
    const double wide = std::max(above, below);
    if (token.bar == '#') { // slanted: raised beside lowered
        m_setter.Set(token.text, style, {pen.x, pen.y + 0.4 * small});
        m_setter.Set(token.below, style, {pen.x + above + 0.6 * small, pen.y - 0.4 * small});
        RulePart& bar = m_parts.AddRule();
        bar.color = style.color;
        const double left = pen.x + above, right = left + 0.6 * small;
        AddBar(bar.path, {left, pen.y - 0.4 * small}, {right, pen.y + 1.4 * small}, {thin, 0});
        return;
    }
    const bool limits = token.bar == '^';
    const double middle = pen.y + lineHeight / 2, gap = 0.2 * small;
    m_setter.Set(token.text, style, {pen.x + (limits ? 0 : (wide - above) / 2), middle + gap});
    m_setter.Set(token.below, style, {pen.x + (limits ? 0 : (wide - below) / 2), middle - gap - small});
    if (!limits) {
        RulePart& bar = m_parts.AddRule();
        bar.color = style.color;
        AddBar(bar.path, {pen.x, middle}, {pen.x + wide, middle}, {0, thin});
    }
}

TypeStyle MTextLayout::BaseStyle(const drawing::Drawing& drawing, const drawing::MTextData& text)
{
    const auto& styles = drawing.TextStyles();
    TypeStyle base;
    base.font = &m_fonts.ForStyle(drawing, text.style);
    base.height = HeightOf(drawing, text);
    if (text.style < styles.size()) {
        const drawing::TextStyle& style = styles[text.style];
        base.width = Positive(style.widthFactor) ? style.widthFactor : 1;
        base.oblique = std::isfinite(style.obliqueAngle) ? style.obliqueAngle : 0;
    }
    return base;
}

/// The box that the lines fill, its top at 0.
Box2 MTextLayout::Filled(double boxWidth, int column, double descent) const
{
    Box2 box;
    const double bottom = m_lines.back().baseline - descent * m_lines.back().height;
    for (const Line& line : m_lines) {
        double spread = 0;
        const double start = LineStart(line, boxWidth, column, spread);
        if (line.end > line.begin) {
            const double wide = line.width + spread * static_cast<double>(GapsIn(line));
            box.Add(Vec2{start + m_items[line.begin].x, bottom});
            box.Add(Vec2{start + wide, 0});
        }
    }
    return box;
}

void MTextLayout::Lay(const drawing::Drawing& drawing, const drawing::MTextData& text)
{
    m_parts.Begin();
    const TypeStyle base = BaseStyle(drawing, text);
    m_height = base.height;
    ParseMText(text.text, base, m_fonts, m_parsed);
    const double wrap = Positive(text.width) ? text.width : 0;
    BreakLines(wrap);
    StackLines(text);

    double boxWidth = wrap;
    for (const Line& line : m_lines) {
        boxWidth = std::max(boxWidth, wrap > 0 ? 0 : line.width);
    }
    const int place = text.attachment >= 1 && text.attachment <= 9 ? text.attachment - 1 : 0;
    const int column = place % 3, row = place / 3;
    SetLines(boxWidth, column);

    const double bottom = m_lines.back().baseline;
    const Matrix2 toAnchor{1, 0, 0, 1, -boxWidth * column / 2, -bottom * row / 2};
    const Box2 filled = Filled(boxWidth, column, base.font->Descent());
    m_parts.Place(Compose(PlaneOf(text), toAnchor), filled.Width() > 0 ? filled : Box2{});
    m_parts.Result().elevation = Dot(text.insertion, OcsOf(text.extrusion).z);
    m_parts.Result().extrusion = text.extrusion;
}

} // namespace sm::render
