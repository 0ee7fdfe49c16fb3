// SPDX-License-Identifier: GPL-3.0-or-later
#include "context/Strokes.h"

#include "context/LaidTexts.h"
#include "drawing/entities/Texts.h"
#include "geometry/HatchLines.h"
#include "geometry/MappedPath.h"
#include "plotstyle/PlotPens.h"
#include "render/Arcs.h"
#include "render/ClipBox.h"

namespace sm::render {

namespace {

// From a symbol's own plane, in line type units, to the sheet.
Matrix2 PlaceOf(const SymbolPlace& place, const drawing::LinetypeElement& element, double unit, Vec2 sheetRight)
{
    const Vec2 x = place.along * unit;
    const Matrix2 onPath{x.x, x.y, -x.y, x.x, place.at.x, place.at.y};
    const Vec2 origin = onPath.Apply(element.offset);
    const Vec2 right = element.absoluteRotation ? sheetRight * unit : x;
    return Compose({right.x, right.y, -right.y, right.x, origin.x, origin.y}, Turned(element.rotation));
}

LaidText LaySymbol(PaintContext& context, const drawing::LinetypeElement& element)
{
    drawing::TextData text;
    text.text = element.text;
    text.style = element.style;
    const auto& styles = context.drawing.TextStyles();
    const bool known = element.style < styles.size();
    const double fixedHeight = known ? styles[element.style].fixedHeight : 0;
    text.height = std::abs(element.scale) * (fixedHeight > 0 ? fixedHeight : 1);
    text.widthFactor = known && styles[element.style].widthFactor > 0 ? styles[element.style].widthFactor : 1;
    text.oblique = known ? styles[element.style].obliqueAngle : 0;
    return context.text.Lay(context.drawing, text);
}

// Text and shapes of the line type along the path stroked last (DXF reference, LTYPE groups 74 to 9).
void DrawSymbols(PaintContext& context, const Pen& pen)
{
    const drawing::Linetype& linetype = context.drawing.Linetypes()[context.style.linetype];
    const std::vector<SymbolPlace> places = context.ink.Symbols();
    const Matrix2 plane = PlaneOf(context.frame->toPaper, {0, 0, 1}, 0);
    const double length = Length(plane.ApplyVector({1, 0}));
    const Vec2 right = length > 0 ? plane.ApplyVector({1, 0}) * (1 / length) : Vec2{1, 0};
    Pen plain = pen;
    plain.pattern = nullptr;
    for (std::uint32_t i = 0; i < linetype.elements.size(); ++i) {
        const drawing::LinetypeElement& element = linetype.elements[i];
        if (element.kind == drawing::LinetypeElement::Kind::Plain) {
            continue;
        }
        const bool text = element.kind == drawing::LinetypeElement::Kind::Text;
        const Path* const shape = text ? nullptr : context.Shapes().Find(element.style, element.shape);
        const LaidText laid = text ? LaySymbol(context, element) : LaidText{};
        Path strokes;
        for (const SymbolPlace& place : places) {
            if (place.element != i) {
                continue;
            }
            const Matrix2 at = PlaceOf(place, element, pen.dashScale, right);
            if (text) {
                DrawLaidText(context, laid, at);
            } else if (shape != nullptr) {
                AppendMapped(strokes, *shape, Compose(at, {element.scale, 0, 0, element.scale, 0, 0}));
            }
        }
        context.ink.Stroke(strokes, plain);
    }
}

} // namespace

void StrokePath(PaintContext& context, std::span<const std::uint32_t> breaks)
{
    StrokePath(context, context.path, context.StrokePen(), breaks);
}

void StrokePath(PaintContext& context, const Path& path, const Pen& pen, std::span<const std::uint32_t> breaks)
{
    context.ink.Stroke(path, pen, breaks);
    if (pen.pattern == nullptr || !pen.pattern->hasSymbols) {
        return;
    }
    if (pen.pattern->symbols.empty()) {
        context.Remark("letters and shapes of a line type left out");
    } else if (!context.ink.Symbols().empty()) {
        const Ink::SpaceGuard flat(context.ink, nullptr); // they stand on what shows of the line, on the sheet
        DrawSymbols(context, pen);
    }
}

void FillArea(PaintContext& context, const Path& path, FillRule rule)
{
    if (!context.switches.fills) {
        context.StrokeEdge(path);
        return;
    }
    const FillLines pattern = context.pen != nullptr ? LinesOf(context.pen->fill) : FillLines{};
    const Box2 hull = HullOf(path);
    if (pattern.families.empty() || !context.ink.Bounded() || !std::isfinite(hull.Width() + hull.Height())) {
        context.ink.Fill(path, context.style.color, rule);
        return;
    }
    const Ink::ClipGuard guard(context.ink, path, rule);
    if (context.ink.Clip().Empty()) {
        return;
    }
    Path area;
    HatchStrokes lines;
    AppendBox(area, Grown(context.ink.Clip(), pattern.width));
    HatchLines cutter(area, HullOf(area));
    for (const drawing::HatchLine& family : pattern.families) {
        cutter.Append(family, Matrix2{}, lines);
    }
    context.ink.Stroke(lines.dashes, {context.style.color, pattern.width, nullptr, 1, LineCap::Butt, LineJoin::Miter});
}

void StrokeSides(PaintContext& context, const drawing::Entity& entity)
{
    const Vec3 thickness = OcsAxes(entity.extrusion).z * entity.thickness;
    const Vec2 across = context.frame->toPaper.ApplyVector(thickness);
    // What lies behind each other in parallel views doesn't in perspective.
    const double depth = context.ink.Space() != nullptr ? context.frame->toPaper.RiseOf(thickness) : 0;
    const double length = Length(across) + std::abs(depth);
    constexpr double kNothing = 1e-4; // mm
    if (!(length > kNothing) || !std::isfinite(length)) {
        return;
    }
    Path far = context.path;
    for (Vec2& point : far.points) {
        point = point + across;
    }
    StrokePath(context, far, context.StrokePen());
    Path sides;
    const Vec2* point = context.path.points.data();
    for (const Verb verb : context.path.verbs) {
        point += verb == Verb::Cubic ? 2 : 0;
        if (verb != Verb::Close) {
            sides.MoveTo(*point);
            sides.LineTo(*point + across);
            ++point;
        }
    }
    StrokePath(context, sides, context.StrokePen());
}

} // namespace sm::render
