// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/Inserts.h"
#include "drawing/EntityKinds.h"
#include "drawing/entities/AnnotationContexts.h"
#include "families/Families.h"
#include "families/Placing.h"
#include "render/Arcs.h"
#include "render/ClipBox.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <vector>

namespace sm::render {

namespace {

// Programs that convert units write the factor into the insert's scale; where nobody did, it is done here.
double UnitOf(const References::Xref& xref, const drawing::InsertData& insert)
{
    return std::abs(insert.scale.x) == 1 && std::abs(insert.scale.y) == 1 ? xref.unit : 1;
}

class Inserts final : public EntityPainter {
public:
    using EntityPainter::EntityPainter;
    Outcome Paint(const drawing::EntityRecord& record, const Frame& frame) override;

private:
    Outcome PaintCopies(const drawing::InsertData& insert, const std::vector<Vec3>& clip, const Frame& frame,
                        const Style& style);
    Outcome PaintClipped(std::uint32_t block, const std::vector<Vec3>& clip, const Frame& frame);
    Outcome PaintAttributes(const drawing::InsertData& insert, const Frame& frame, const Style& style);
    std::deque<drawing::InsertData> m_inserts; ///< one for each open block
};

Outcome Inserts::Paint(const drawing::EntityRecord& record, const Frame& frame)
{
    const std::size_t depth = m_context.openBlocks.size();
    while (m_inserts.size() <= depth) {
        m_inserts.emplace_back();
    }
    drawing::InsertData& insert = m_inserts[depth];
    Read(m_drawing, record, insert);
    const LayerState& layer = m_context.layers->Of(EffectiveLayer(insert, frame.inherited));
    // An insert on a layer that is off still shows what its block holds on other layers; a frozen one shows nothing.
    if ((insert.invisible && m_context.hideLayers) || layer.frozen) {
        return Outcome::Hidden;
    }
    if (m_context.annotationScale != 0) {
        drawing::AdaptTo(m_drawing, record, m_context.annotationScale, insert);
    }
    const Style style = Resolve(insert, layer, frame.inherited);
    std::vector<Vec3> clip;
    const bool clipped = ReadInsertClip(m_drawing, record, clip);
    const Outcome copies = PaintCopies(insert, clipped ? clip : std::vector<Vec3>{}, frame, style);
    const Outcome attributes = PaintAttributes(insert, frame, style);
    const Outcome best = std::max(copies, attributes);
    return best == Outcome::NotReached ? Outcome::OffPage : best;
}

Outcome Inserts::PaintCopies(const drawing::InsertData& insert, const std::vector<Vec3>& clip, const Frame& frame,
                             const Style& style)
{
    if (!m_context.CanEnter(insert.block)) {
        return Outcome::NotDrawn;
    }
    References::Xref* xref = nullptr;
    if (m_context.Referenced().IsXref(insert.block)) {
        xref = m_context.Referenced().XrefOf(insert.block);
        if (xref == nullptr && m_drawing.EntitiesOf(insert.block).empty()) {
            constexpr std::int32_t kOverlay = 8;
            const bool leftOut =
                !m_context.xref.layers.empty() && (m_drawing.Blocks()[insert.block].flags & kOverlay) != 0;
            return leftOut ? Outcome::Hidden : Outcome::NotDrawn;
        }
    }
    const OpenBlock open(m_context, insert.block);
    const Vec3 base = xref != nullptr ? xref->base : m_drawing.Blocks()[insert.block].base;
    const double unit = xref != nullptr ? UnitOf(*xref, insert) : 1;
    Frame inner;
    inner.inherited = {style, EffectiveLayer(insert, frame.inherited), m_context.HidingLayer(insert, frame, true)};
    inner.dashScale = frame.dashScale * std::abs(insert.scale.x) * unit;
    Outcome best = Outcome::NotReached;
    for (std::int32_t row = 0; row < insert.rows; ++row) {
        for (std::int32_t column = 0; column < insert.columns; ++column) {
            inner.toPaper = Compose(frame.toPaper, Placing(insert, base, row, column, unit));
            m_context.insert = insert.handle;
            best = std::max(best, clip.empty() ? m_walk.PaintBlock(insert.block, inner)
                                               : PaintClipped(insert.block, clip, inner));
            if (m_context.budget->IsSpent()) {
                return best;
            }
        }
    }
    return best;
}

// What of a block lies within a boundary of its own coordinates.
Outcome Inserts::PaintClipped(std::uint32_t block, const std::vector<Vec3>& clip, const Frame& frame)
{
    Path path;
    for (const Vec3 corner : clip) {
        const Vec2 at = frame.toPaper.Apply(corner);
        path.Empty() ? path.MoveTo(at) : path.LineTo(at);
    }
    path.Close();
    const Box2 hull = HullOf(path);
    if (!std::isfinite(hull.Width() + hull.Height())) {
        return m_walk.PaintBlock(block, frame);
    }
    if (m_ink.Bounded() && !Overlaps(hull, m_ink.Clip())) {
        return Outcome::OffPage;
    }
    Outcome best = Outcome::OffPage;
    {
        const Ink::ClipGuard guard(m_ink, path, FillRule::EvenOdd);
        best = m_walk.PaintBlock(block, frame);
    }
    constexpr std::int32_t kPlotted = 1; // 0 unseen, 2 seen on the screen alone
    if (m_context.switches.frames.clip == kPlotted) {
        const Style& style = frame.inherited.byBlock;
        m_ink.Stroke(path, {.color = style.color, .width = m_context.PenWidth(style.width)});
    }
    return best;
}

Outcome Inserts::PaintAttributes(const drawing::InsertData& insert, const Frame& frame, const Style& style)
{
    Frame own = frame;
    own.inherited = {style, EffectiveLayer(insert, frame.inherited), m_context.HidingLayer(insert, frame, true)};
    Outcome best = Outcome::NotReached;
    for (const drawing::EntityRecord& attribute : insert.attributes) {
        best = std::max(best, m_walk.PaintPart(attribute, own)); // attributes don't count on their own
    }
    return best;
}

} // namespace

std::unique_ptr<EntityPainter> MakeInserts(PaintContext& context, IWalk& walk)
{
    return std::make_unique<Inserts>(context, walk);
}

} // namespace sm::render
