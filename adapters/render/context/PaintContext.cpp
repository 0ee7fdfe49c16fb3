// SPDX-License-Identifier: GPL-3.0-or-later
#include "context/PaintContext.h"

#include "drawing/EntityKinds.h"
#include "plotstyle/PlotPens.h"

#include <algorithm>
#include <array>

namespace sm::render {

namespace {

// What inserts may unfold to in all: enough for any real sheet, and over in seconds where a file asks for more.
constexpr std::uint64_t kLargestExpansion = 2'000'000;
constexpr std::size_t kDeepestNesting = 64;

std::shared_ptr<WorkBudget> BudgetOf(const drawing::Drawing& drawing, const PaintOptions& options)
{
    constexpr std::uint64_t kStepsPerEntity = 100;
    if (options.expansion != 0) {
        return std::make_shared<WorkBudget>(options.expansion, kStepsPerEntity * options.expansion);
    }
    return std::make_shared<WorkBudget>(kLargestExpansion + kExpansionPerEntity * drawing.EntityCount());
}

Switches SwitchesOf(const drawing::Drawing& drawing, const PaintOptions& options)
{
    if (options.switches) {
        return *options.switches;
    }
    Switches switches;
    switches.frames = drawing.Frames();
    switches.attributes = drawing.HeaderInteger("$ATTMODE", 1);
    switches.pointMode = drawing.HeaderInteger("$PDMODE", 0);
    switches.pointSize = drawing.HeaderReal("$PDSIZE", 0);
    if (!options.boxesOnly) {
        switches.fills = drawing.HeaderInteger("$FILLMODE", 1) != 0;
        switches.hiddenFrames = drawing.HeaderInteger("$SPLFRAME", 0) != 0;
        switches.textFrames = drawing.HeaderInteger("$QTEXTMODE", 0) != 0;
    }
    return switches;
}

} // namespace

PaintContext::PaintContext(const drawing::Drawing& drawingToPaint, ICanvas& canvas, TextEngine& textEngine,
                           RenderReport* runReport, const Box2& clip, const PaintOptions& runOptions, bool hide)
    : drawing(drawingToPaint), text(textEngine), report(runReport), options(runOptions),
      switches(SwitchesOf(drawing, options)), hideLayers(hide), ink(canvas, clip),
      ownLayers(drawing, {}, hide && !options.everyLayer), layers(&ownLayers),
      budget(options.budget != nullptr ? options.budget : BudgetOf(drawing, options))
{
    for (const drawing::Linetype& linetype : drawing.Linetypes()) {
        m_patterns.push_back(MakeDashPattern(linetype, CanDrawSymbols(linetype)));
    }
}

PaintContext::~PaintContext() = default;

bool PaintContext::Hidden(const drawing::Entity& entity, const Frame& in) const
{
    return (entity.invisible && hideLayers) || !layers->Of(EffectiveLayer(entity, in.inherited)).shown;
}

std::optional<std::uint32_t> PaintContext::HidingLayer(const drawing::Entity& entity, const Frame& in,
                                                       bool ofFrozen) const
{
    if (!options.everyLayer || in.inherited.hiddenBy) {
        return in.inherited.hiddenBy;
    }
    const std::uint32_t effective = EffectiveLayer(entity, in.inherited);
    const auto& all = drawing.Layers();
    const bool hides = effective < all.size() && (ofFrozen ? all[effective].frozen : !layers->Of(effective).plots);
    return hides ? std::optional(effective) : std::nullopt;
}

void PaintContext::Enter(const drawing::Entity& entity, const drawing::EntityRecord& record, const Frame& in)
{
    frame = &in;
    layer = &layers->Of(EffectiveLayer(entity, in.inherited));
    style = Resolve(entity, *layer, in.inherited);
    pen = options.pens != nullptr ? &options.pens->Of(style) : nullptr;
    style.color = InkOf(style);
    linetypeScale = entity.linetypeScale > 0 ? entity.linetypeScale : 1;
    const auto& all = drawing.Layers();
    const bool ofXref = entity.layer < xref.layers.size();
    const std::string_view name = ofXref                      ? std::string_view(xref.layers[entity.layer])
                                  : entity.layer < all.size() ? std::string_view(all[entity.layer].name)
                                                              : "0";
    const std::uint32_t shownBy = in.inherited.hiddenBy.value_or(EffectiveLayer(entity, in.inherited));
    ink.Begin({ofXref ? xref.handle : entity.handle, drawing::KindName(record.kind), name, xref.InHost(shownBy)});
    path.Clear();
}

double PaintContext::PenWidth(double lineweight) const
{
    return options.lineweights ? lineweight * options.lineweightScale : 0;
}

Pen PaintContext::StrokePen() const
{
    Pen stroke;
    stroke.color = style.color;
    stroke.width = PenWidth(style.width);
    stroke.pattern = style.linetype < m_patterns.size() ? &m_patterns[style.linetype] : nullptr;
    stroke.dashScale = frame->dashScale * linetypeScale;
    if (pen == nullptr) {
        return stroke;
    }
    if (pen->width) { // a table's lineweights hold whether or not the objects' are plotted
        stroke.width = *pen->width * options.lineweightScale;
    }
    if (pen->ownLinetype) {
        stroke.pattern = &pen->pattern;
        stroke.dashScale = pen->patternUnit;
    }
    stroke.cap = pen->cap.value_or(stroke.cap);
    stroke.join = pen->join.value_or(stroke.join);
    return stroke;
}

void PaintContext::StrokeEdge(const Path& edge)
{
    Pen plain = StrokePen();
    plain.pattern = nullptr;
    ink.Stroke(edge, plain);
}

std::uint32_t PaintContext::InkOf(const Style& of) const
{
    const std::uint32_t color = of.color | std::uint32_t{of.transparency} << 24;
    return options.pens != nullptr ? options.pens->Of(of).ColorOf(color) : color;
}

bool PaintContext::CanEnter(std::uint32_t block)
{
    if (block >= drawing.Blocks().size()) {
        Remark("a block that an insert names is missing");
        return false;
    }
    if (openBlocks.size() >= kDeepestNesting ||
        std::find(openBlocks.begin(), openBlocks.end(), block) != openBlocks.end()) {
        Remark("a block that holds itself left out");
        return false;
    }
    return true;
}

void PaintContext::Remark(std::string_view remark)
{
    if (report != nullptr && !ink.Measuring()) { // what is measured is drawn later
        report->Remark(remark);
    }
}

References& PaintContext::Referenced()
{
    if (options.references == nullptr) {
        m_ownReferences = std::make_unique<References>(drawing, ReferenceOptions{});
        options.references = m_ownReferences.get();
    }
    return *options.references;
}

ShapeLibrary& PaintContext::Shapes()
{
    if (!m_shapes) {
        m_shapes.emplace(drawing);
    }
    return *m_shapes;
}

// True when all that the line type's elements name can be drawn.
bool PaintContext::CanDrawSymbols(const drawing::Linetype& linetype)
{
    if (options.boxesOnly) {
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

} // namespace sm::render
