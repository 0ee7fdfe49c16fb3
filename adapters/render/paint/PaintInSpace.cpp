// SPDX-License-Identifier: GPL-3.0-or-later
// Views in space: the faces that hide lines are gathered first, then each entity is measured and drawn.
#include "families/Families.h"
#include "paint/Painter.h"

namespace sm::render {

namespace {

/// Of the page's diagonal: how far a line may lie behind a face that it belongs to.
constexpr double kTolerance = 2e-6;

double ToleranceOf(const Box2& window)
{
    constexpr double kPage = 300; // mm, where nothing tells
    return kTolerance * (window.Empty() ? kPage : Length(window.max - window.min));
}

} // namespace

// A run of the painters that draws nothing: its remarks are made and its budget is spent when they draw.
void Painter::CollectFaces(std::uint32_t block, const Frame& frame, const Camera& camera, HidingFaces& faces)
{
    FaceCollector collector(faces, camera);
    RenderReport* const report = m_context.report;
    const WorkBudget budget = *m_context.budget;
    m_context.faces = &collector;
    m_context.report = nullptr;
    PaintAll(block, frame);
    m_context.faces = nullptr;
    m_context.report = report;
    *m_context.budget = budget;
    faces.Seal();
    if (collector.Others() > 0 && report != nullptr) {
        report->Remark("a view that hides lines, in which curved faces of solids hide none");
    }
}

Outcome Painter::PaintInSpace(std::uint32_t block, const Frame& frame, const SpaceLook& look)
{
    HidingFaces faces(ToleranceOf(m_context.ink.Window()), m_hiddenLooks);
    const auto tell = [this](std::string_view remark) {
        if (m_context.report != nullptr) {
            m_context.report->Remark(remark);
        }
    };
    SpaceView space(look.camera, look.hidesLines ? &faces : nullptr, tell);
    const Ink::SpaceGuard guard(m_context.ink, &space);
    if (look.hidesLines) {
        CollectFaces(block, frame, look.camera, faces);
        if (faces.Empty() && !look.camera.LimitsDepth()) { // nothing hides anything
            const Ink::SpaceGuard flat(m_context.ink, nullptr);
            return PaintAll(block, frame);
        }
    }
    return PaintAll(block, frame);
}

void Painter::PaintModelInSpace(std::uint32_t block, const Frame& frame, const SpaceLook& look)
{
    if (block < m_context.drawing.Blocks().size()) {
        const OpenBlock open(m_context, block);
        PaintInSpace(block, frame, look);
    }
}

Outcome Painter::PaintBy(EntityPainter& painter, const drawing::EntityRecord& record, const Frame& frame)
{
    SpaceView* const space = m_context.ink.Space();
    if (space == nullptr || m_context.faces != nullptr) {
        return painter.Paint(record, frame);
    }
    SpaceView::Entity entity(*space);
    Frame tilted = frame;
    tilted.toPaper = SpaceView::Tilted(frame.toPaper);
    painter.Paint(record, tilted);
    entity.Draw();
    return painter.Paint(record, frame);
}

} // namespace sm::render
