#include "paint/Painter.h"

#include "drawing/EntityKinds.h"
#include "drawing/entities/AnnotationContexts.h"
#include "geometry/HatchLines.h"
#include "paint/PainterBuffers.h"
#include "plotstyle/PlotPens.h"
#include "render/ClipBox.h"

namespace sm::render {

namespace {

// What inserts may unfold to in all: enough for any real sheet, and over in seconds where a file asks for more.
constexpr std::uint64_t kLargestExpansion = 2'000'000;
constexpr std::uint64_t kExpansionPerEntity = 8;

// Kinds that a thickness makes upright walls of.
bool HasSides(drawing::EntityKind kind)
{
    using drawing::EntityKind;
    switch (kind) {
    case EntityKind::Line:
    case EntityKind::Circle:
    case EntityKind::Arc:
    case EntityKind::LwPolyline:
    case EntityKind::Polyline:
    case EntityKind::Solid:
    case EntityKind::Trace:
        return true;
    default:
        return false;
    }
}

bool IsPicture(drawing::EntityKind kind)
{
    return kind == drawing::EntityKind::Image || kind == drawing::EntityKind::Wipeout ||
           kind == drawing::EntityKind::Underlay;
}

} // namespace

Painter::Painter(const drawing::Drawing& drawing, ICanvas& canvas, TextEngine& text, RenderReport* report,
                 const Box2& clip, const PaintOptions& options, bool hideLayers)
    : m_drawing(drawing), m_text(text), m_report(report), m_options(options), m_hideLayers(hideLayers),
      m_ink(canvas, clip), m_ownLayers(drawing, {}, hideLayers && !options.everyLayer), m_layers(&m_ownLayers),
      m_budget(kLargestExpansion + kExpansionPerEntity * drawing.EntityCount()), m_buffers(std::make_unique<Buffers>())
{
    for (const drawing::Linetype& linetype : drawing.Linetypes()) {
        m_patterns.push_back(MakeDashPattern(linetype, CanDrawSymbols(linetype)));
    }
}

Painter::~Painter() = default;

template <class Data> Outcome Painter::Leaf(Data& data, const drawing::EntityRecord& record, const Frame& frame)
{
    Read(m_drawing, record, data);
    if (Hidden(data, frame)) {
        return Outcome::Hidden;
    }
    if (m_annotationScale != 0) {
        drawing::AdaptTo(m_drawing, record, m_annotationScale, data);
    }
    Enter(data, record, frame);
    const bool possible = Draw(data, record.kind);
    if (data.thickness != 0 && HasSides(record.kind)) {
        DrawThickness(data);
    }
    const bool drawn = m_ink.End();
    if (drawn && !m_layer->plots && m_hideLayers) {
        return Outcome::Hidden; // it is there for those who show its layer
    }
    return drawn ? Outcome::Drawn : possible ? Outcome::OffPage : Outcome::NotDrawn;
}

Outcome Painter::Try(const drawing::EntityRecord& record, const Frame& frame)
{
    try {
        if (IsPicture(record.kind)) {
            return PaintImage(record, frame);
        }
        const Outcome outcome =
            record.kind == drawing::EntityKind::Viewport ? PaintViewport(record, frame) : Dispatch(record, frame);
        // What can't be drawn may bring a picture of itself along.
        const bool missing = outcome == Outcome::NotDrawn;
        return missing ? std::max(outcome, Leaf(m_buffers->graphics, record, frame)) : outcome;
    } catch (...) { // one entity that can't be drawn never ends the drawing
        m_ink.End();
        Remark("an entity gave up half-way");
        return Outcome::NotDrawn;
    }
}

Outcome Painter::PaintEntity(const drawing::EntityRecord& record, const Frame& frame)
{
    const Outcome outcome = Try(record, frame);
    m_best = std::max(m_best, outcome);
    if (m_report != nullptr) {
        m_report->Note(record, outcome);
    }
    return outcome;
}

Outcome Painter::PaintAll(std::uint32_t block, const Frame& frame)
{
    Outcome best = Outcome::NotReached;
    for (const drawing::EntityRecord& record : m_drawing.EntitiesOf(block)) {
        if (m_options.stop != nullptr && m_options.stop->load(std::memory_order_relaxed)) {
            break;
        }
        best = std::max(best, PaintEntity(record, frame));
    }
    return best;
}

Outcome Painter::PaintBlock(std::uint32_t block, const Frame& frame)
{
    if (References::Guest* guest = Referenced().IsXref(block) ? Referenced().GuestOf(block) : nullptr) {
        return PaintGuest(*guest, m_insert, frame);
    }
    const std::span<const drawing::EntityRecord> records = m_drawing.EntitiesOf(block);
    if (m_budget <= records.size() + 1) {
        m_budget = 0;
        Remark("blocks unfold to too many entities, the rest left out");
        return Outcome::NotDrawn;
    }
    m_budget -= records.size() + 1; // an empty block costs something as well
    return PaintAll(block, frame);
}

Outcome Painter::Dispatch(const drawing::EntityRecord& record, const Frame& frame)
{
    using drawing::EntityKind;
    Buffers& buffers = *m_buffers;
    switch (record.kind) {
    case EntityKind::Line:
    case EntityKind::XLine:
    case EntityKind::Ray:
        return Leaf(buffers.line, record, frame);
    case EntityKind::Circle:
        return Leaf(buffers.circle, record, frame);
    case EntityKind::Arc:
        return Leaf(buffers.arc, record, frame);
    case EntityKind::Ellipse:
        return Leaf(buffers.ellipse, record, frame);
    case EntityKind::LwPolyline:
    case EntityKind::Polyline:
        return Leaf(buffers.polyline, record, frame);
    case EntityKind::Spline:
    case EntityKind::Helix:
        return Leaf(buffers.spline, record, frame);
    case EntityKind::Point:
        return Leaf(buffers.point, record, frame);
    case EntityKind::Solid:
    case EntityKind::Trace:
    case EntityKind::Face3d:
        return Leaf(buffers.quad, record, frame);
    case EntityKind::Text:
        return Leaf(buffers.text, record, frame);
    case EntityKind::Attrib:
        return PaintAttribute(record, frame);
    case EntityKind::Attdef:
        return PaintAttdef(record, frame);
    case EntityKind::MText:
        return Leaf(buffers.mtext, record, frame);
    case EntityKind::Hatch:
    case EntityKind::MPolygon:
        return Leaf(buffers.hatch, record, frame);
    case EntityKind::Leader:
    case EntityKind::MultiLeader:
    case EntityKind::Tolerance:
    case EntityKind::MLine:
    case EntityKind::Table:
        return PaintNote(record, frame);
    case EntityKind::Shape:
        return Leaf(buffers.shape, record, frame);
    case EntityKind::Mesh:
        return Leaf(buffers.mesh, record, frame);
    case EntityKind::Region:
    case EntityKind::Solid3d:
    case EntityKind::Body:
    case EntityKind::Surface:
        return Leaf(buffers.solid, record, frame);
    case EntityKind::Insert:
        return PaintInsert(record, frame);
    case EntityKind::Dimension:
        return PaintDimension(record, frame);
    default:
        return Leaf(buffers.graphics, record, frame);
    }
}

Outcome Painter::PaintAttribute(const drawing::EntityRecord& record, const Frame& frame)
{
    Read(m_drawing, record, m_buffers->text);
    return PaintReadAttribute(record, frame);
}

Outcome Painter::PaintReadAttribute(const drawing::EntityRecord& record, const Frame& frame)
{
    const drawing::TextData& text = m_buffers->text;
    constexpr std::int32_t kInvisible = 1;
    const std::int32_t mode = m_drawing.HeaderInteger("$ATTMODE", 1); // 0 none shows, 1 as marked, 2 all show
    const bool shown = mode == 2 || (mode != 0 && (text.attributeFlags & kInvisible) == 0);
    if (!shown || Hidden(text, frame)) {
        return Outcome::Hidden;
    }
    Enter(text, record, frame);
    if (text.embeddedMText) {
        Read(m_drawing, *text.embeddedMText, m_buffers->mtext);
        Draw(m_buffers->mtext, drawing::EntityKind::MText);
    } else {
        Draw(text, record.kind);
    }
    return m_ink.End() ? Outcome::Drawn : Outcome::OffPage;
}

// A definition shows only where it is constant: inserts carry no attribute for it.
Outcome Painter::PaintAttdef(const drawing::EntityRecord& record, const Frame& frame)
{
    Read(m_drawing, record, m_buffers->text);
    constexpr std::int32_t kConstant = 2;
    const bool constant = (m_buffers->text.attributeFlags & kConstant) != 0 && !m_openBlocks.empty();
    return constant ? PaintAttribute(record, frame) : Outcome::Hidden;
}

bool Painter::Hidden(const drawing::Entity& entity, const Frame& frame) const
{
    return (entity.invisible && m_hideLayers) || !m_layers->Of(EffectiveLayer(entity, frame.inherited)).shown;
}

void Painter::Enter(const drawing::Entity& entity, const drawing::EntityRecord& record, const Frame& frame)
{
    m_frame = &frame;
    m_layer = &m_layers->Of(EffectiveLayer(entity, frame.inherited));
    m_style = Resolve(entity, *m_layer, frame.inherited);
    m_pen = m_options.pens != nullptr ? &m_options.pens->Of(m_style) : nullptr;
    m_style.color = InkOf(m_style);
    m_linetypeScale = entity.linetypeScale > 0 ? entity.linetypeScale : 1;
    const auto& layers = m_drawing.Layers();
    const bool isGuest = entity.layer < m_guest.layers.size();
    const std::string_view layer = isGuest                        ? std::string_view(m_guest.layers[entity.layer])
                                   : entity.layer < layers.size() ? std::string_view(layers[entity.layer].name)
                                                                  : "0";
    const std::uint32_t shownBy = frame.inherited.hiddenBy.value_or(EffectiveLayer(entity, frame.inherited));
    m_ink.Begin(
        {isGuest ? m_guest.handle : entity.handle, drawing::KindName(record.kind), layer, m_guest.InHost(shownBy)});
    m_path.Clear();
}

double Painter::PenWidth(double lineweight) const
{
    return m_options.lineweights ? lineweight * m_options.lineweightScale : 0;
}

Pen Painter::StrokePen() const
{
    Pen pen;
    pen.color = m_style.color;
    pen.width = PenWidth(m_style.width);
    pen.pattern = m_style.linetype < m_patterns.size() ? &m_patterns[m_style.linetype] : nullptr;
    pen.dashScale = m_frame->dashScale * m_linetypeScale;
    if (m_pen == nullptr) {
        return pen;
    }
    if (m_pen->width) { // a table's lineweights hold whether or not the objects' are plotted
        pen.width = *m_pen->width * m_options.lineweightScale;
    }
    if (m_pen->ownLinetype) {
        pen.pattern = &m_pen->pattern;
        pen.dashScale = m_pen->patternUnit;
    }
    pen.cap = m_pen->cap.value_or(pen.cap);
    pen.join = m_pen->join.value_or(pen.join);
    return pen;
}

std::uint32_t Painter::InkOf(const Style& style) const
{
    const std::uint32_t color = style.color | std::uint32_t{style.transparency} << 24;
    return m_options.pens != nullptr ? m_options.pens->Of(style).ColorOf(color) : color;
}

void Painter::FillArea(const Path& path, FillRule rule)
{
    const FillLines pattern = m_pen != nullptr ? LinesOf(m_pen->fill) : FillLines{};
    const Box2 hull = HullOf(path);
    if (pattern.families.empty() || !m_ink.Bounded() || !std::isfinite(hull.Width() + hull.Height())) {
        m_ink.Fill(path, m_style.color, rule);
        return;
    }
    const Ink::ClipGuard guard(m_ink, path, rule);
    if (m_ink.Clip().Empty()) {
        return;
    }
    Path area, lines;
    AppendBox(area, Grown(m_ink.Clip(), pattern.width));
    HatchLines cutter(area, HullOf(area));
    for (const drawing::HatchLine& family : pattern.families) {
        cutter.Append(family, Matrix2{}, lines);
    }
    m_ink.Stroke(lines, {m_style.color, pattern.width, nullptr, 1, LineCap::Butt, LineJoin::Miter});
}

void Painter::StrokePath(std::span<const std::uint32_t> breaks)
{
    StrokePath(m_path, StrokePen(), breaks);
}

void Painter::StrokePath(const Path& path, const Pen& pen, std::span<const std::uint32_t> breaks)
{
    m_ink.Stroke(path, pen, breaks);
    if (pen.pattern == nullptr || !pen.pattern->hasSymbols) {
        return;
    }
    if (pen.pattern->symbols.empty()) {
        Remark("letters and shapes of a line type left out");
    } else if (!m_ink.Symbols().empty()) {
        DrawSymbols(pen);
    }
}

void Painter::Remark(std::string_view text)
{
    if (m_report != nullptr) {
        m_report->Remark(text);
    }
}

} // namespace sm::render
