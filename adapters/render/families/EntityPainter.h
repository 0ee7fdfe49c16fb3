// SPDX-License-Identifier: GPL-3.0-or-later
// What every family's painter is.
#pragma once

#include "context/FaceCollector.h"
#include "context/PaintContext.h"
#include "context/Strokes.h"
#include "context/Walk.h"
#include "drawing/entities/AnnotationContexts.h"

namespace sm::render {

/// Draws the entities of one family, with buffers of its own. Lives as long as its run; both references outlive it.
class EntityPainter {
public:
    EntityPainter(PaintContext& context, IWalk& walk)
        : m_context(context), m_walk(walk), m_drawing(context.drawing), m_ink(context.ink), m_path(context.path)
    {
    }
    virtual ~EntityPainter() = default;
    EntityPainter(const EntityPainter&) = delete;
    EntityPainter& operator=(const EntityPainter&) = delete;

    /// May throw; the walk takes it for an entity that can't be drawn.
    virtual Outcome Paint(const drawing::EntityRecord& record, const Frame& frame) = 0;

protected:
    /// Of the entity at hand.
    [[nodiscard]] const Projection& ToPaper() const { return m_context.frame->toPaper; }
    PaintContext& m_context;
    IWalk& m_walk;
    const drawing::Drawing& m_drawing;
    Ink& m_ink;
    Path& m_path; ///< the context's
};

/// A painter of entities that hold no others: reads each into the one buffer of its family and draws it, unless it is
/// hidden.
template <class Data> class LeafPainter : public EntityPainter {
public:
    using EntityPainter::EntityPainter;

    Outcome Paint(const drawing::EntityRecord& record, const Frame& frame) final
    {
        Read(m_drawing, record, m_data);
        if (m_context.Hidden(m_data, frame)) {
            return Outcome::Hidden;
        }
        if (m_context.faces != nullptr) {
            EnterFaces(record, frame);
            return Outcome::NotReached;
        }
        if (m_context.annotationScale != 0) {
            drawing::AdaptTo(m_drawing, record, m_context.annotationScale, m_data);
        }
        m_context.Enter(m_data, record, frame);
        const bool possible = Draw(m_data, record.kind);
        if (m_data.thickness != 0 && HasSides(record.kind)) {
            StrokeSides(m_context, m_data);
        }
        const bool drawn = m_ink.End();
        if (drawn && !m_context.layer->plots && m_context.hideLayers) {
            return Outcome::Hidden; // it is there for those who show its layer
        }
        return drawn ? Outcome::Drawn : possible ? Outcome::OffPage : Outcome::NotDrawn;
    }

private:
    /// False: its content can't be drawn.
    virtual bool Draw(const Data& data, drawing::EntityKind kind) = 0;
    /// Its faces, for views that hide lines.
    virtual void AddFaces(const Data& /*data*/, const drawing::EntityRecord& /*record*/, FaceCollector& /*faces*/) {}
    void EnterFaces(const drawing::EntityRecord& record, const Frame& frame)
    {
        const LayerState& layer = m_context.layers->Of(EffectiveLayer(m_data, frame.inherited));
        if (layer.plots || !m_context.hideLayers) { // what isn't there hides nothing
            m_context.faces->Enter(frame.toPaper, m_ink.Limited() ? std::optional(m_ink.Clip()) : std::nullopt);
            AddFaces(m_data, record, *m_context.faces);
        }
    }
    /// A thickness makes upright walls of what `Draw` left in the path.
    [[nodiscard]] virtual bool HasSides(drawing::EntityKind /*kind*/) const { return false; }
    Data m_data;
};

} // namespace sm::render
