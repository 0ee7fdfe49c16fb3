// SPDX-License-Identifier: GPL-3.0-or-later
#include "families/Families.h"
#include "families/GraphicsPen.h"

namespace sm::render {

namespace {

// Kinds whose own picture is but a frame, or a patch in the colour of a screen.
bool IsPatch(drawing::EntityKind kind)
{
    using drawing::EntityKind;
    return kind == EntityKind::Image || kind == EntityKind::Wipeout || kind == EntityKind::Underlay;
}

/// Entities of a kind that isn't known, and those that can't be drawn, by the picture that they bring along.
class Graphics final : public LeafPainter<drawing::GraphicsData> {
public:
    using LeafPainter::LeafPainter;

private:
    bool Draw(const drawing::GraphicsData& graphics, drawing::EntityKind kind) override;
    PolylinePen m_polylines{m_context};
};

bool Graphics::Draw(const drawing::GraphicsData& graphics, drawing::EntityKind kind)
{
    if (graphics.steps.empty() || IsPatch(kind)) {
        return false;
    }
    if (!graphics.complete) {
        m_context.Remark("a part of an entity's own picture left out");
    }
    GraphicsPen(m_context, m_polylines, graphics).Draw();
    return true;
}

} // namespace

std::unique_ptr<EntityPainter> MakeGraphics(PaintContext& context, IWalk& walk)
{
    return std::make_unique<Graphics>(context, walk);
}

} // namespace sm::render
