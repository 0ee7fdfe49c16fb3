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

    /// What the model tab's own plot settings ask for and nobody draws is told.
    void TellHiddenLines() { m_context.RemarkHiddenLines(); }
    /// Annotative entities look as at the model tab's own scale from here on.
    void ShowModelScale();
    void PaintSpace(std::uint32_t block, const Frame& frame);
    Outcome PaintEntity(const drawing::EntityRecord& record, const Frame& frame);
    [[nodiscard]] Ink& Output() { return m_context.ink; }

private:
    Outcome PaintBlock(std::uint32_t block, const Frame& frame) override;
    Outcome PaintAll(std::uint32_t block, const Frame& frame) override;
    Outcome PaintPart(const drawing::EntityRecord& record, const Frame& frame) override;
    bool CatchPath(const drawing::EntityRecord& record, const Frame& frame, Path& path) override;

    bool LacksScale(const drawing::EntityRecord& record);
    Outcome Dispatch(const drawing::EntityRecord& record, const Frame& frame);
    [[nodiscard]] EntityPainter& PainterOf(drawing::EntityKind kind);
    Outcome DispatchWithin(const drawing::EntityRecord& record, const Frame& frame);
    bool TakeFromBudget(std::uint64_t entities);
    Outcome PaintXref(References::Xref& xref, const Frame& frame);

    PaintContext m_context;
    /// By kind, made when the first entity of a family is met; kinds of one family share theirs.
    std::array<EntityPainter*, static_cast<std::size_t>(drawing::EntityKind::Count)> m_painterOf{};
    std::vector<std::unique_ptr<EntityPainter>> m_painters;
    Outcome m_best = Outcome::NotReached; ///< of all entities painted so far
};

} // namespace sm::render
