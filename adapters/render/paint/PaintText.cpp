#include "drawing/entities/Texts.h"
#include "ink/Palette.h"
#include "paint/Painter.h"
#include "paint/PainterBuffers.h"
#include "render/FontFace.h"

#include <cmath>

namespace sm::render {

namespace {

void AppendMapped(Path& out, const Path& path, const Matrix2& map)
{
    out.verbs.insert(out.verbs.end(), path.verbs.begin(), path.verbs.end());
    for (const Vec2 point : path.points) {
        out.points.push_back(map.Apply(point));
    }
}

bool IsClosed(const Path& path)
{
    return std::find(path.verbs.begin(), path.verbs.end(), Verb::Close) != path.verbs.end();
}

void AppendOutline(Path& path, const std::vector<Vec2>& corners, const Matrix2& plane)
{
    for (const Vec2 corner : corners) {
        path.Empty() ? path.MoveTo(plane.Apply(corner)) : path.LineTo(plane.Apply(corner));
    }
    if (!corners.empty()) {
        path.Close();
    }
}

/// The four corners of a box, each side moved outwards.
std::vector<Vec2> Widened(const std::vector<Vec2>& corners, double margin)
{
    std::vector<Vec2> wide = corners;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        for (const std::size_t other : {(i + 1) % 4, (i + 3) % 4}) {
            const Vec2 side = corners[i] - corners[other];
            const double length = Length(side);
            wide[i] = wide[i] + (length > 0 ? side * (margin / length) : Vec2{});
        }
    }
    return wide;
}

/// Mirrored so that letters follow each other to the left.
bool ReadsBackwards(const Matrix2& m)
{
    return m.a * m.d - m.b * m.c < 0 && m.a < 1e-6 * std::fabs(m.b);
}

/// The shapes of a run's glyphs where they stand on the sheet.
Path GlyphsOf(const TextRun& run)
{
    Path all, glyph;
    for (std::size_t i = 0; i < run.glyphs.size() && i < run.positions.size(); ++i) {
        run.font->Outline(run.glyphs[i], glyph);
        for (Vec2& point : glyph.points) {
            point = point + run.positions[i];
        }
        AppendMapped(all, glyph, run.toPaper);
    }
    return all;
}

/// Makes an invisible run of a mirrored one that is drawn as a path: in its place, but readable, so that it is found.
void TurnRound(TextRun& run)
{
    const Matrix2 m = run.toPaper;
    const Vec2 end = m.Apply({run.advance, 0});
    run.toPaper = {-m.a, -m.b, m.c, m.d, end.x, end.y};
    run.font = nullptr;
    run.glyphs.clear();
    run.penWidth = 0;
    run.invisible = true;
}

} // namespace

bool Painter::Draw(const drawing::TextData& text, drawing::EntityKind)
{
    DrawText(m_text.Lay(m_drawing, text));
    return true;
}

bool Painter::Draw(const drawing::MTextData& text, drawing::EntityKind)
{
    const LaidText& laid = m_text.Lay(m_drawing, text);
    DrawMask(text, laid);
    DrawText(laid);
    return true;
}

// The patch behind an MTEXT: larger than its box by a part of the letters' height (DXF reference, groups 90, 45, 63). A
// frame runs at the same distance in the colour of the text.
void Painter::DrawMask(const drawing::MTextData& text, const LaidText& laid)
{
    constexpr std::int32_t kFilled = 1, kPaperColored = 2, kFramed = 16;
    const bool filled = (text.backgroundFlags & (kFilled | kPaperColored)) != 0;
    const bool framed = (text.backgroundFlags & kFramed) != 0;
    if ((!filled && !framed) || laid.outline.size() != 4 || laid.frame.size() != 4) {
        return;
    }
    const double margin = std::max(0.0, text.backgroundScale - 1) * text.height;
    m_path.Clear();
    AppendOutline(m_path, Widened(laid.frame, margin), PlaneOf(m_frame->toPaper, laid.extrusion, laid.elevation));
    if (filled) {
        constexpr std::uint32_t kPaper = 0xFFFFFF;
        const bool colored = (text.backgroundFlags & kPaperColored) == 0;
        const std::uint32_t color = text.backgroundTrueColor.value_or(PaperColor(text.backgroundColor));
        m_ink.Fill(m_path, colored ? color : kPaper, FillRule::NonZero);
    }
    if (framed) {
        m_ink.Stroke(m_path, StrokePen());
    }
}

std::uint32_t Painter::TextPartColor(const std::optional<TextColor>& color) const
{
    // Within a text, BYBLOCK is the colour of the text itself.
    if (!color || (color->index == drawing::kByBlock && !color->trueColor)) {
        return m_style.color;
    }
    drawing::Entity asked;
    asked.color = color->index;
    asked.trueColor = color->trueColor;
    Style style = Resolve(asked, *m_layer, m_frame->inherited);
    style.plotStyle = m_style.plotStyle;
    style.transparency = m_style.transparency;
    return InkOf(style);
}

void Painter::DrawRun(const TextRun& from, const Matrix2& plane, std::uint32_t color)
{
    TextRun& run = m_buffers->run;
    run = from;
    run.toPaper = Compose(plane, from.toPaper);
    run.color = color;
    run.penWidth = run.font != nullptr && run.font->IsStroked() ? StrokePen().width : 0;
    if (run.font != nullptr && ReadsBackwards(run.toPaper)) {
        DrawTextPath(GlyphsOf(run), {}, color, !run.font->IsStroked());
        TurnRound(run);
    }
    m_ink.Text(run, m_outline);
}

void Painter::DrawTextPath(const Path& path, const Matrix2& plane, std::uint32_t color, bool filled)
{
    m_path.Clear();
    AppendMapped(m_path, path, plane);
    if (filled) {
        m_ink.Fill(m_path, color, FillRule::NonZero);
        return;
    }
    Pen pen = StrokePen();
    pen.pattern = nullptr;
    pen.color = color;
    m_ink.Stroke(m_path, pen);
}

void Painter::DrawText(const LaidText& text)
{
    DrawText(text, PlaneOf(m_frame->toPaper, text.extrusion, text.elevation));
}

void Painter::DrawText(const LaidText& text, const Matrix2& plane)
{
    m_outline.Clear();
    AppendOutline(m_outline, text.outline, plane);
    if (m_options.boxesOnly) {
        m_ink.Fill(m_outline, m_style.color, FillRule::NonZero);
        return;
    }
    for (const GlyphPart& part : text.glyphs) {
        DrawRun(part.run, plane, TextPartColor(part.color));
    }
    for (const RulePart& part : text.rules) {
        DrawTextPath(part.path, plane, TextPartColor(part.color), IsClosed(part.path));
    }
}

} // namespace sm::render
