// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/MTextLayout.h"

#include "base/Numbers.h"
#include "drawing/entities/Texts.h"
#include "text/TextColumns.h"
#include "text/TextPlane.h"

#include <algorithm>
#include <cmath>

namespace sm::render {

namespace {

using Kind = MTextToken::Kind;

constexpr double kLineStep = 5.0 / 3; ///< base line to base line, in heights (DXF reference, MTEXT group 44)

double HeightOf(const drawing::Drawing& drawing, const drawing::MTextData& text)
{
    const auto& styles = drawing.TextStyles();
    const double fixed = text.style < styles.size() ? styles[text.style].fixedHeight : 0;
    return base::IsSize(text.height) ? text.height : base::IsSize(fixed) ? fixed : 2.5;
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

/// From the base line of the line before to that of `line`.
double MTextLayout::StepTo(const TextLine& line, const TextLine& before, const drawing::MTextData& text) const
{
    constexpr std::int32_t kExact = 2;
    const ParagraphStyle& style = m_parsed.paragraphs[line.paragraph];
    const double usual = text.lineSpacing >= 0.25 && text.lineSpacing <= 4 ? text.lineSpacing : 1;
    const double factor = style.lineRule == LineRule::Multiple ? style.lineValue : usual;
    const bool exact = text.lineSpacingStyle == kExact;
    double step = (exact ? m_height : line.height) * kLineStep * factor;
    step += exact ? 0 : line.above - line.height + before.below;
    if (style.lineRule == LineRule::Exact) {
        step = style.lineValue;
    } else if (style.lineRule == LineRule::AtLeast) {
        step = std::max(step, style.lineValue);
    }
    const double between =
        (line.first ? style.before : 0) + (before.last ? m_parsed.paragraphs[before.paragraph].after : 0);
    return step + between;
}

/// Gives each line its column and, from the column's top, its base line.
void MTextLayout::StackLines(const drawing::MTextData& text)
{
    std::vector<TextLine>& lines = m_breaker.Lines();
    double y = 0;
    int column = 0;
    bool top = true;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        TextLine& line = lines[i];
        const double step = top ? line.above : StepTo(line, lines[i - 1], text);
        const double limit = ColumnHeight(text, column);
        if (!top && limit > 0 && step - y > limit * (1 + 1e-9) && column + 1 < ColumnLimit(text)) {
            ++column;
            y = -line.above;
        } else {
            y -= step;
        }
        line.column = column;
        line.baseline = y;
        top = line.endsColumn && column + 1 < ColumnLimit(text);
        column += top ? 1 : 0;
        y = top ? 0 : y;
    }
}

void MTextLayout::PlaceColumns(const drawing::MTextData& text, double lineWidth)
{
    const std::vector<TextLine>& lines = m_breaker.Lines();
    const int used = lines.back().column + 1;
    const int count = std::max(used, ColumnsShown(text));
    const double gutter = count > 1 && base::IsSize(text.columnGutter) ? text.columnGutter : 0;
    m_columnWidth = lineWidth;
    m_boxWidth = count * lineWidth + (count - 1) * gutter;
    m_columnStarts.clear();
    for (int i = 0; i < count; ++i) {
        const int at = text.columnsReversed ? count - 1 - i : i;
        m_columnStarts.push_back(at * (lineWidth + gutter));
    }
    m_boxBottom = 0;
    for (const TextLine& line : lines) {
        m_boxBottom = std::min(m_boxBottom, line.baseline);
    }
}

std::size_t MTextLayout::GapsIn(const TextLine& line) const
{
    std::size_t gaps = 0;
    for (std::size_t i = line.begin; i < line.end; ++i) {
        const Kind kind = m_parsed.tokens[m_breaker.Items()[i].token].kind;
        gaps = kind == Kind::Tab ? 0 : gaps + (kind == Kind::Blank ? 1 : 0);
    }
    return gaps;
}

/// Where the line's x = 0 comes to stand in its column.
double MTextLayout::LineStart(const TextLine& line, int column, double& spread) const
{
    const double room = line.room > 0 ? line.room : m_columnWidth;
    const ParagraphAlign align = m_parsed.paragraphs[line.paragraph].align;
    if (align == ParagraphAlign::Justified || align == ParagraphAlign::Distributed) {
        const std::size_t gaps = GapsIn(line);
        const bool fills = gaps > 0 && (!line.last || align == ParagraphAlign::Distributed);
        spread = fills ? std::max(0.0, room - line.width) / static_cast<double>(gaps) : 0;
        return 0;
    }
    const bool right = align == ParagraphAlign::Right || (align == ParagraphAlign::Default && column == 2);
    const bool center = align == ParagraphAlign::Center || (align == ParagraphAlign::Default && column == 1);
    return right ? room - line.width : center ? (room - line.width) / 2 : 0;
}

void MTextLayout::SetLines(int column)
{
    for (const TextLine& line : m_breaker.Lines()) {
        double spread = 0;
        const double start = LineStart(line, column, spread);
        SetLine(line, m_columnStarts[static_cast<std::size_t>(line.column)] + start, spread);
    }
}

void MTextLayout::SetLine(const TextLine& line, double x, double spread)
{
    std::size_t lastTab = line.begin;
    for (std::size_t i = line.begin; i < line.end; ++i) {
        lastTab = m_parsed.tokens[m_breaker.Items()[i].token].kind == Kind::Tab ? i : lastTab;
    }
    for (std::size_t i = line.begin; i < line.end;) {
        const LineItem& item = m_breaker.Items()[i];
        const MTextToken& token = m_parsed.tokens[item.token];
        if (token.kind == Kind::Stack) {
            SetStack(token, {x + item.x, line.baseline}, line.height);
        }
        if (token.kind == Kind::Stack || token.kind == Kind::Tab) {
            ++i;
        } else {
            i = SetPiece(line, i, x, i >= lastTab ? spread : 0);
        }
    }
}

/// Neighbours of one look are set as one piece, so that a line stays one text. Returns the first item behind it.
std::size_t MTextLayout::SetPiece(const TextLine& line, std::size_t first, double& x, double spread)
{
    const std::uint32_t look = m_parsed.tokens[m_breaker.Items()[first].token].style;
    const TypeStyle& style = m_parsed.styles[look];
    const double lower = line.height - style.height;
    const double rise = style.align == LineAlign::Center ? lower / 2 : style.align == LineAlign::Top ? lower : 0;
    const Vec2 pen{x + m_breaker.Items()[first].x, line.baseline + rise};
    m_joined.clear();
    std::size_t i = first;
    for (; i < line.end; ++i) {
        const MTextToken& next = m_parsed.tokens[m_breaker.Items()[i].token];
        if ((next.kind != Kind::Word && next.kind != Kind::Blank) || next.style != look) {
            break;
        }
        m_joined += next.text;
        if (spread > 0 && next.kind == Kind::Blank) {
            ++i;
            x += spread;
            break;
        }
    }
    m_setter.Set(m_joined, style, pen);
    return i;
}

void MTextLayout::SetStack(const MTextToken& token, Vec2 pen, double lineHeight)
{
    const TypeStyle style = m_breaker.PartStyle(token);
    const StackShape shape = m_breaker.ShapeOf(token, lineHeight);
    m_setter.Set(token.text, style, pen + shape.above);
    m_setter.Set(token.below, style, pen + shape.below);
    if (shape.barHalf != Vec2{}) {
        RulePart& bar = m_parts.AddRule();
        bar.color = style.color;
        AddBar(bar.path, pen + shape.barFrom, pen + shape.barTo, shape.barHalf);
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
        base.width = base::IsSize(style.widthFactor) ? style.widthFactor : 1;
        base.oblique = std::isfinite(style.obliqueAngle) ? style.obliqueAngle : 0;
    }
    return base;
}

/// The box that the lines fill, its top at 0.
Box2 MTextLayout::Filled(double descent, int column) const
{
    Box2 box;
    for (const TextLine& line : m_breaker.Lines()) {
        if (line.end == line.begin) {
            continue;
        }
        double spread = 0;
        const double start = m_columnStarts[static_cast<std::size_t>(line.column)] + LineStart(line, column, spread);
        const double wide = line.width + spread * static_cast<double>(GapsIn(line));
        box.Add(Vec2{start + m_breaker.Items()[line.begin].x, m_boxBottom - descent});
        box.Add(Vec2{start + wide, 0});
    }
    return box;
}

void MTextLayout::Lay(const drawing::Drawing& drawing, const drawing::MTextData& text)
{
    m_parts.Begin();
    const TypeStyle base = BaseStyle(drawing, text);
    m_height = base.height;
    ParseMText(text.text, base, m_fonts, m_parsed);
    const double asked = HasColumns(text) && base::IsSize(text.columnWidth) ? text.columnWidth : text.width;
    const double wrap = base::IsSize(asked) ? asked : 0;
    m_breaker.Break(m_parsed, wrap, m_height);
    StackLines(text);
    double lineWidth = wrap;
    for (const TextLine& line : m_breaker.Lines()) {
        lineWidth = std::max(lineWidth, wrap > 0 ? 0 : line.width);
    }
    PlaceColumns(text, lineWidth);

    const int place = text.attachment >= 1 && text.attachment <= 9 ? text.attachment - 1 : 0;
    const int column = place % 3, row = place / 3;
    SetLines(column);
    const Matrix2 toAnchor{1, 0, 0, 1, -m_boxWidth * column / 2, -m_boxBottom * row / 2};
    const Matrix2 map = Compose(PlaneOf(text), toAnchor);
    const double descent = base.font->Descent() * m_breaker.Lines().back().height;
    const Box2 filled = Filled(descent, column);
    m_parts.Place(map, filled.Width() > 0 ? filled : Box2{});
    LaidText& result = m_parts.Result();
    result.elevation = ElevationOf(text);
    result.extrusion = text.extrusion;
    Box2 frame;
    frame.Add(Vec2{0, 0});
    frame.Add(Vec2{m_boxWidth, m_boxBottom - descent});
    SetCorners(frame, map, result.frame);
}

} // namespace sm::render
