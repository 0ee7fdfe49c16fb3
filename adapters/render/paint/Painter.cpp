// SPDX-License-Identifier: GPL-3.0-or-later
#include "paint/Painter.h"

#include "drawing/Annotation.h"
#include "drawing/entities/AnnotationContexts.h"
#include "families/Families.h"
#include "paint/PathCatcher.h"
#include "paint/XrefLayers.h"
#include "render/Remarks.h"

namespace sm::render {

Painter::Painter(const drawing::Drawing& drawing, ICanvas& canvas, TextEngine& text, RenderReport* report,
                 const Box2& clip, const PaintOptions& options, bool hideLayers)
    : m_context(drawing, canvas, text, report, clip, options, hideLayers)
{
}

Painter::~Painter() = default;

EntityPainter& Painter::PainterOf(drawing::EntityKind kind)
{
    EntityPainter*& painter = m_painterOf[static_cast<std::size_t>(kind)];
    if (painter == nullptr) {
        MakePainter* const make = RowOf(kind).make;
        m_painters.push_back(make(m_context, *this));
        for (std::size_t i = 0; i < m_painterOf.size(); ++i) {
            if (RowOf(static_cast<drawing::EntityKind>(i)).make == make) {
                m_painterOf[i] = m_painters.back().get();
            }
        }
    }
    return *painter;
}

Outcome Painter::Dispatch(const drawing::EntityRecord& record, const Frame& frame)
{
    if (m_context.faces != nullptr && RowOf(record.kind).faces == Faces::None) {
        return Outcome::NotReached;
    }
    EntityPainter& painter = PainterOf(record.kind);
    const Outcome outcome = PaintBy(painter, record, frame);
    if (outcome != Outcome::NotDrawn) {
        return outcome;
    }
    EntityPainter& graphics = PainterOf(drawing::EntityKind::Unknown);
    // What can't be drawn may bring a picture of itself along.
    return &painter == &graphics ? outcome : std::max(outcome, PaintBy(graphics, record, frame));
}

Outcome Painter::DispatchWithin(const drawing::EntityRecord& record, const Frame& frame)
{
    if (!m_context.budget->HasSteps()) {
        return Outcome::NotDrawn;
    }
    const Outcome outcome = Dispatch(record, frame);
    if (!m_context.budget->TakeSteps(m_context.ink.TakeSteps(), record.length)) {
        m_context.Remark(kTooMuchWork);
    }
    return outcome;
}

bool Painter::LacksScale(const drawing::EntityRecord& record)
{
    using OtherScales = PaintContext::OtherScales;
    if (m_context.otherScales == OtherScales::Shown || m_context.annotationScale == 0 ||
        SupportsScale(m_context.drawing, record, m_context.annotationScale)) {
        return false;
    }
    if (m_context.otherScales == OtherScales::LeftOutAndTold) {
        m_context.Remark("an annotative object left out of a viewport whose scale it doesn't have");
    }
    return true;
}

Outcome Painter::PaintPart(const drawing::EntityRecord& record, const Frame& frame)
{
    if (IsMeasuringOwner()) {
        return Outcome::Drawn;
    }
    try {
        if (LacksScale(record)) {
            return Outcome::Hidden;
        }
        return DispatchWithin(record, frame);
    } catch (...) { // one entity that can't be drawn never ends the drawing
        m_context.ink.End();
        m_context.Remark("an entity gave up half-way");
        return Outcome::NotDrawn;
    }
}

Outcome Painter::PaintEntity(const drawing::EntityRecord& record, const Frame& frame)
{
    const Outcome outcome = PaintPart(record, frame);
    m_best = std::max(m_best, outcome);
    if (m_context.report != nullptr) {
        m_context.report->Note(record, outcome);
    }
    return outcome;
}

bool Painter::IsStopped() const
{
    const std::atomic<bool>* const stop = m_context.options.stop;
    const std::function<bool()>* const goesOn = m_context.options.goesOn;
    return (stop != nullptr && stop->load(std::memory_order_relaxed)) || (goesOn != nullptr && !(*goesOn)());
}

Outcome Painter::PaintAll(std::uint32_t block, const Frame& frame)
{
    Outcome best = Outcome::NotReached;
    for (const drawing::EntityRecord& record : m_context.drawing.EntitiesOf(block)) {
        if (IsStopped()) {
            break;
        }
        best = std::max(best, PaintEntity(record, frame));
    }
    return best;
}

void Painter::ShowModelScale()
{
    m_context.annotationScale = drawing::ModelAnnotationScale(m_context.drawing);
    if (m_context.annotationScale != 0 && !drawing::ShowsAllAnnotations(m_context.drawing).value_or(true)) {
        m_context.otherScales = PaintContext::OtherScales::LeftOut;
    }
}

void Painter::PaintSpace(std::uint32_t block, const Frame& frame)
{
    if (block >= m_context.drawing.Blocks().size()) {
        return;
    }
    const OpenBlock open(m_context, block);
    if (!m_context.options.paperSpace) {
        PaintAll(block, frame);
        return;
    }
    const auto paint = [&](bool viewports) {
        for (const drawing::EntityRecord& record : m_context.drawing.EntitiesOf(block)) {
            if ((record.kind == drawing::EntityKind::Viewport) == viewports && !IsStopped()) {
                PaintEntity(record, frame);
            }
        }
    };
    paint(m_context.options.viewportsFirst);
    paint(!m_context.options.viewportsFirst);
}

Outcome Painter::PaintBlock(std::uint32_t block, const Frame& frame)
{
    if (IsMeasuringOwner()) {
        return Outcome::Drawn;
    }
    References& references = m_context.Referenced();
    if (References::Xref* const xref = references.IsXref(block) ? references.XrefOf(block) : nullptr) {
        return PaintXref(*xref, frame);
    }
    const WorkBudget::Inside inside(*m_context.budget);
    return TakeFromBudget(m_context.drawing.EntitiesOf(block).size()) ? PaintAll(block, frame) : Outcome::NotDrawn;
}

bool Painter::TakeFromBudget(std::uint64_t entities)
{
    const bool enough = m_context.budget->TakeEntities(entities + 1); // an empty block costs something as well
    if (!enough) {
        m_context.Remark(kTooManyEntities);
    }
    return enough;
}

// A painter of its own draws the other file, with the layers as this drawing shows them.
Outcome Painter::PaintXref(References::Xref& xref, const Frame& frame)
{
    Ink& ink = m_context.ink;
    const Box2 window = ink.Window();
    if (xref.space >= xref.file->Blocks().size() || (ink.Bounded() && window.Empty())) {
        return Outcome::OffPage;
    }
    const std::uint64_t count = xref.file->EntityCount();
    m_context.budget->Grant(&xref, kExpansionPerEntity * count);
    if (!TakeFromBudget(count)) {
        return Outcome::NotDrawn;
    }
    const WorkBudget::Inside inside(*m_context.budget);
    PaintOptions options = m_context.options;
    options.budget = m_context.budget;
    options.references = xref.references.get();
    options.switches = m_context.switches;
    options.paperSpace = false;
    Painter painter(*xref.file, ink.Canvas(), m_context.text, m_context.report != nullptr ? xref.report.get() : nullptr,
                    window, options, m_context.hideLayers);
    const Frame own = EnterXref(m_context, xref, frame, painter.m_context);
    const Ink::SpaceGuard guard(painter.m_context.ink, ink.Space());
    painter.m_context.faces = m_context.faces;
    painter.PaintSpace(xref.space, own);
    return painter.m_best;
}

bool Painter::CatchPath(const drawing::EntityRecord& record, const Frame& frame, Path& path)
{
    if (RowOf(record.kind).bounds == Bounds::Nothing) {
        return false;
    }
    PathCatcher catcher(path);
    PaintOptions options = m_context.options;
    options.boxesOnly = true;
    options.lineweights = false;
    options.budget = m_context.budget;
    Painter painter(m_context.drawing, catcher, m_context.text, nullptr, Box2{}, options, false);
    painter.PaintEntity(record, frame);
    return path.verbs.size() > 1;
}

} // namespace sm::render
