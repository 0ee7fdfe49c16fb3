#include "drawing/entities/Points.h"
#include "drawing/entities/Texts.h"
#include "paint/Painter.h"
#include "paint/PainterBuffers.h"

namespace sm::render {

namespace {

Matrix2 Turned(double degrees)
{
    const double c = std::cos(Radians(degrees));
    const double s = std::sin(Radians(degrees));
    return {c, s, -s, c, 0, 0};
}

// From a symbol's own plane, in line type units, to the sheet.
Matrix2 PlaceOf(const SymbolPlace& place, const drawing::LinetypeElement& element, double unit, Vec2 sheetRight)
{
    const Vec2 x = place.along * unit;
    const Matrix2 onPath{x.x, x.y, -x.y, x.x, place.at.x, place.at.y};
    const Vec2 origin = onPath.Apply(element.offset);
    const Vec2 right = element.absoluteRotation ? sheetRight * unit : x;
    return Compose({right.x, right.y, -right.y, right.x, origin.x, origin.y}, Turned(element.rotation));
}

void AppendMapped(Path& out, const Path& path, const Matrix2& map)
{
    out.verbs.insert(out.verbs.end(), path.verbs.begin(), path.verbs.end());
    for (const Vec2 point : path.points) {
        out.points.push_back(map.Apply(point));
    }
}

} // namespace

// True when all that the line type's elements name can be drawn.
bool Painter::CanDrawSymbols(const drawing::Linetype& linetype)
{
    if (m_options.boxesOnly) {
        return false;
    }
    for (const drawing::LinetypeElement& element : linetype.elements) {
        const bool shape = element.kind == drawing::LinetypeElement::Kind::Shape;
        if (shape && Shapes().Find(element.style, element.shape) == nullptr) {
            return false;
        }
    }
    return true;
}

ShapeLibrary& Painter::Shapes()
{
    if (!m_buffers->shapes) {
        m_buffers->shapes.emplace(m_drawing);
    }
    return *m_buffers->shapes;
}

// Text and shapes of the line type along the path stroked last (DXF reference, LTYPE groups 74 to 9).
void Painter::DrawSymbols(const Pen& pen)
{
    const drawing::Linetype& linetype = m_drawing.Linetypes()[m_style.linetype];
    const std::vector<SymbolPlace> places = m_ink.Symbols();
    const Matrix2 plane = PlaneOf(m_frame->toPaper, {0, 0, 1}, 0);
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
        const Path* const shape = text ? nullptr : Shapes().Find(element.style, element.shape);
        const LaidText laid = text ? LaySymbol(element) : LaidText{};
        Path strokes;
        for (const SymbolPlace& place : places) {
            if (place.element != i) {
                continue;
            }
            const Matrix2 at = PlaceOf(place, element, pen.dashScale, right);
            if (text) {
                DrawText(laid, at);
            } else if (shape != nullptr) {
                AppendMapped(strokes, *shape, Compose(at, {element.scale, 0, 0, element.scale, 0, 0}));
            }
        }
        m_ink.Stroke(strokes, plain);
    }
}

LaidText Painter::LaySymbol(const drawing::LinetypeElement& element)
{
    drawing::TextData text;
    text.text = element.text;
    text.style = element.style;
    const auto& styles = m_drawing.TextStyles();
    const bool known = element.style < styles.size();
    const double fixedHeight = known ? styles[element.style].fixedHeight : 0;
    text.height = std::abs(element.scale) * (fixedHeight > 0 ? fixedHeight : 1);
    text.widthFactor = known && styles[element.style].widthFactor > 0 ? styles[element.style].widthFactor : 1;
    text.oblique = known ? styles[element.style].obliqueAngle : 0;
    return m_text.Lay(m_drawing, text);
}

bool Painter::Draw(const drawing::ShapeData& shape, drawing::EntityKind)
{
    const Path* const strokes = Shapes().Find(shape.name);
    if (strokes == nullptr) {
        Remark("a shape whose file is missing left out");
        return false;
    }
    const Matrix2 plane = PlaneOf(m_frame->toPaper, shape.extrusion, shape.insertion.z);
    const double slant = std::tan(Radians(shape.oblique));
    const double lean = std::isfinite(slant) ? slant : 0;
    const Matrix2 form{shape.size * shape.widthFactor, 0, shape.size * lean, shape.size, 0, 0};
    Matrix2 placed = Compose(Turned(shape.rotation), form);
    placed.e = shape.insertion.x;
    placed.f = shape.insertion.y;
    AppendMapped(m_path, *strokes, Compose(plane, placed));
    Pen pen = StrokePen();
    pen.pattern = nullptr;
    m_ink.Stroke(m_path, pen);
    return true;
}

} // namespace sm::render
