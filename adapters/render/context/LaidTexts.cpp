// SPDX-License-Identifier: GPL-3.0-or-later
#include "context/LaidTexts.h"

#include "geometry/MappedPath.h"
#include "render/FontFace.h"

#include <algorithm>
#include <cmath>

namespace sm::render {

namespace {

bool IsClosed(const Path& path)
{
    return std::find(path.verbs.begin(), path.verbs.end(), Verb::Close) != path.verbs.end();
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

std::uint32_t PartColor(const PaintContext& context, const std::optional<TextColor>& color)
{
    // Within a text, BYBLOCK is the colour of the text itself.
    if (!color || (color->index == drawing::kByBlock && !color->trueColor)) {
        return context.style.color;
    }
    drawing::Entity asked;
    asked.color = color->index;
    asked.trueColor = color->trueColor;
    Style style = Resolve(asked, *context.layer, context.frame->inherited);
    style.plotStyle = context.style.plotStyle;
    style.transparency = context.style.transparency;
    return context.InkOf(style);
}

void DrawTextPath(PaintContext& context, const Path& path, const Matrix2& plane, std::uint32_t color, bool filled)
{
    context.path.Clear();
    AppendMapped(context.path, path, plane);
    if (filled) {
        context.ink.Fill(context.path, color, FillRule::NonZero);
        return;
    }
    Pen pen = context.StrokePen();
    pen.pattern = nullptr;
    pen.color = color;
    context.ink.Stroke(context.path, pen);
}

/// Of laying it out.
std::uint64_t CostOf(const LaidText& text)
{
    constexpr std::uint64_t kLettersAStep = 4;
    std::uint64_t letters = 0;
    for (const GlyphPart& part : text.glyphs) {
        letters += part.run.positions.size();
    }
    return letters / kLettersAStep;
}

void DrawRun(PaintContext& context, const TextRun& from, const Matrix2& plane, std::uint32_t color)
{
    TextRun& run = context.run;
    run = from;
    run.toPaper = Compose(plane, from.toPaper);
    run.color = color;
    run.penWidth = run.font != nullptr && run.font->IsStroked() ? context.StrokePen().width : 0;
    if (run.font != nullptr && ReadsBackwards(run.toPaper)) {
        DrawTextPath(context, GlyphsOf(run), {}, color, !run.font->IsStroked());
        TurnRound(run);
    }
    context.ink.Text(run, context.outline);
}

} // namespace

void AppendCorners(Path& path, const std::vector<Vec2>& corners, const Matrix2& plane)
{
    for (const Vec2 corner : corners) {
        path.Empty() ? path.MoveTo(plane.Apply(corner)) : path.LineTo(plane.Apply(corner));
    }
    if (!corners.empty()) {
        path.Close();
    }
}

void DrawLaidText(PaintContext& context, const LaidText& text)
{
    if (context.switches.textFrames && !text.outline.empty()) {
        context.path.Clear();
        AppendCorners(context.path, text.outline, PlaneOf(context.frame->toPaper, text.extrusion, text.elevation));
        context.StrokeEdge(context.path);
        context.Remark("a text seen as its box: the drawing asks for it (QTEXTMODE)");
        return;
    }
    DrawLaidText(context, text, PlaneOf(context.frame->toPaper, text.extrusion, text.elevation));
}

void DrawLaidText(PaintContext& context, const LaidText& text, const Matrix2& plane)
{
    context.outline.Clear();
    AppendCorners(context.outline, text.outline, plane);
    context.Spend(CostOf(text));
    if (context.options.boxesOnly) {
        context.ink.Fill(context.outline, context.style.color, FillRule::NonZero);
        return;
    }
    for (const GlyphPart& part : text.glyphs) {
        DrawRun(context, part.run, plane, PartColor(context, part.color));
        TellMissing(part, [&](const std::string& remark) { context.Remark(remark); });
    }
    for (const RulePart& part : text.rules) {
        DrawTextPath(context, part.path, plane, PartColor(context, part.color), IsClosed(part.path));
    }
}

} // namespace sm::render
