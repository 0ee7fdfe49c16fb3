// SPDX-License-Identifier: GPL-3.0-or-later
// Walks over the entities of a drawing and has each painted by its family's painter.
#pragma once

#include "context/PaintContext.h"
#include "context/Walk.h"
#include "drawing/EntityKinds.h"

#include <array>
#include <memory>
#include <vector>

namespace sm::render {

class EntityPainter;

class Painter final : private IWalk {
public:
    /// As PaintContext.
    Painter(const drawing::Drawing& drawing, ICanvas& canvas, TextEngine& text, RenderReport* report, const Box2& clip,
            const PaintOptions& options, bool hideLayers = true);
    ~Painter() override;

    /// Annotative entities look as at the model tab's own scale from here on.
    void ShowModelScale();
    void PaintSpace(std::uint32_t block, const Frame& frame);
    /// The model tab's own view, where it asks for more than a flat picture.
    void PaintModelInSpace(std::uint32_t block, const Frame& frame, const SpaceLook& look);
    Outcome PaintEntity(const drawing::EntityRecord& record, const Frame& frame);
    [[nodiscard]] Ink& Output() { return m_context.ink; }

private:
    [[nodiscard]] bool IsStopped() const; ///< what is drawn is no longer wanted
    Outcome PaintBlock(std::uint32_t block, const Frame& frame) override;
    Outcome PaintAll(std::uint32_t block, const Frame& frame) override;
    Outcome PaintInSpace(std::uint32_t block, const Frame& frame, const SpaceLook& look) override;
    Outcome PaintPart(const drawing::EntityRecord& record, const Frame& frame) override;
    bool CatchPath(const drawing::EntityRecord& record, const Frame& frame, Path& path) override;

    bool LacksScale(const drawing::EntityRecord& record);
    void CollectFaces(std::uint32_t block, const Frame& frame, const Camera& camera, HidingFaces& faces);
    Outcome PaintBy(EntityPainter& painter, const drawing::EntityRecord& record, const Frame& frame);
    /// While an entity that holds others is measured, they are left alone: each is measured by itself.
    [[nodiscard]] bool IsMeasuringOwner() const { return m_context.ink.Measuring(); }
    Outcome Dispatch(const drawing::EntityRecord& record, const Frame& frame);
    [[nodiscard]] EntityPainter& PainterOf(drawing::EntityKind kind);
    Outcome DispatchWithin(const drawing::EntityRecord& record, const Frame& frame);
    bool TakeFromBudget(std::uint64_t entities);
    Outcome PaintXref(References::Xref& xref, const Frame& frame);

    PaintContext m_context;
    /// By kind, made when the first entity of a family is met; kinds of one family share theirs.
    std::array<EntityPainter*, static_cast<std::size_t>(drawing::EntityKind::Count)> m_painterOf{};
    std::vector<std::unique_ptr<EntityPainter>> m_painters;
    std::uint64_t m_hiddenLooks = 60'000'000; ///< see HidingFaces; about two seconds of work
    Outcome m_best = Outcome::NotReached;     ///< of all entities painted so far
};

} // namespace sm::render
