// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/Viewports.h"
#include "context/Strokes.h"
#include "drawing/Annotation.h"
#include "drawing/EntityKinds.h"
#include "drawing/entities/AnnotationContexts.h"
#include "families/Families.h"
#include "geometry/HatchBoundary.h"
#include "render/ClipBox.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace sm::render {

namespace {

Box2 PaperBox(const drawing::ViewportData& viewport)
{
    const Vec2 center{viewport.center.x, viewport.center.y};
    const Vec2 half{std::abs(viewport.width) / 2, std::abs(viewport.height) / 2};
    return {center - half, center + half};
}

// Display plane of the viewport's view to paper units.
Matrix2 ViewToPaper(const drawing::ViewportData& viewport)
{
    const double scale = viewport.height / viewport.viewHeight;
    return {scale,
            0,
            0,
            scale,
            viewport.center.x - viewport.viewCenter.x * scale,
            viewport.center.y - viewport.viewCenter.y * scale};
}

using OtherScales = PaintContext::OtherScales;

/// Where a file doesn't tell whether its viewports show all annotative objects, they show those of their scale.
OtherScales OtherScalesOf(const drawing::Drawing& drawing)
{
    const std::optional<bool> all = drawing::ShowsAllAnnotations(drawing);
    return !all ? OtherScales::LeftOutAndTold : *all ? OtherScales::Shown : OtherScales::LeftOut;
}

class Viewports final : public EntityPainter {
public:
    using EntityPainter::EntityPainter;
    Outcome Paint(const drawing::EntityRecord& record, const Frame& frame) override;

private:
    [[nodiscard]] bool IsSheet(const drawing::EntityRecord& record);
    [[nodiscard]] bool IsOff(const drawing::ViewportData& viewport) const;
    bool MakeClipPath(const drawing::ViewportData& viewport, const Frame& frame);
    Outcome PaintContent(const drawing::EntityRecord& record, const drawing::ViewportData& viewport,
                         const Frame& frame);
    Outcome PaintModel(std::uint32_t block, const drawing::EntityRecord& record, const drawing::ViewportData& viewport,
                       const Frame& frame, const Path& clip);
    std::uint64_t m_budget = 100'000'000; ///< entities that viewports may still look at
    std::optional<std::uint32_t> m_space; ///< whose sheet's own viewport is known
    const drawing::EntityRecord* m_sheet = nullptr;
};

Outcome Viewports::Paint(const drawing::EntityRecord& record, const Frame& frame)
{
    drawing::ViewportData viewport;
    Read(m_drawing, record, viewport);
    const bool inSheet = m_context.options.paperSpace && m_context.openBlocks.size() <= 1;
    if (!inSheet || IsSheet(record) || viewport.invisible || IsOff(viewport)) {
        return Outcome::Hidden;
    }
    Outcome best = Outcome::OffPage;
    if (!m_context.options.boxesOnly) {
        best = std::max(best, PaintContent(record, viewport, frame));
    }
    if (m_context.options.boxesOnly || (m_context.options.viewportBorders && !m_context.Hidden(viewport, frame))) {
        m_context.Enter(viewport, record, frame);
        MakeClipPath(viewport, frame);
        StrokePath(m_context);
        best = std::max(best, m_ink.End() ? Outcome::Drawn : Outcome::OffPage);
    }
    return best;
}

// The sheet's own viewport shows nothing: it is the sheet.
bool Viewports::IsSheet(const drawing::EntityRecord& record)
{
    if (m_context.openBlocks.empty()) {
        return false;
    }
    if (m_space != m_context.openBlocks.front()) {
        m_space = m_context.openBlocks.front();
        m_sheet = drawing::SheetViewportOf(m_drawing, *m_space);
    }
    return &record == m_sheet;
}

bool Viewports::IsOff(const drawing::ViewportData& viewport) const
{
    // Up to R12 the status alone tells (group 68); later it is often 0 on sheets that weren't open.
    const drawing::Version version = m_drawing.FileVersion();
    const bool oldFile = version != drawing::Version::Unknown && version <= drawing::Version::R12;
    return viewport.Off() || (oldFile && viewport.status == 0);
}

// Puts the viewport's outline on the sheet into the path; false when it shows nothing.
bool Viewports::MakeClipPath(const drawing::ViewportData& viewport, const Frame& frame)
{
    m_path.Clear();
    const drawing::EntityRecord* clip = viewport.clipEntity != 0 ? m_drawing.FindEntity(viewport.clipEntity) : nullptr;
    if (clip != nullptr) {
        Path boundary;
        if (m_walk.CatchPath(*clip, frame, boundary)) {
            AppendJoined(m_path, PiecesOf(boundary));
        }
        if (m_path.verbs.size() > 2) {
            return true;
        }
        m_context.Remark("a viewport clipped by an unknown shape shows its rectangle");
    }
    m_path.Clear();
    const Matrix2 plane = PlaneOf(frame.toPaper, {0, 0, 1}, 0);
    AppendBox(m_path, PaperBox(viewport));
    for (Vec2& point : m_path.points) {
        point = plane.Apply(point);
    }
    return viewport.width > 0 && viewport.height > 0;
}

Outcome Viewports::PaintContent(const drawing::EntityRecord& record, const drawing::ViewportData& viewport,
                                const Frame& frame)
{
    if (!(viewport.viewHeight > 0) || !MakeClipPath(viewport, frame)) {
        return Outcome::OffPage;
    }
    const Path clip = m_path;
    if (m_ink.Bounded() && !Overlaps(HullOf(clip), m_ink.Clip())) {
        return Outcome::OffPage;
    }
    const drawing::Layout* const model = ModelLayoutOf(m_drawing);
    if (model == nullptr || model->block >= m_drawing.Blocks().size()) {
        return Outcome::OffPage;
    }
    const std::size_t count = m_drawing.EntitiesOf(model->block).size();
    if (m_budget < count) {
        m_context.Remark("too many viewports for so large a model, the rest left out");
        return Outcome::NotDrawn;
    }
    m_budget -= count;
    return PaintModel(model->block, record, viewport, frame, clip);
}

Outcome Viewports::PaintModel(std::uint32_t block, const drawing::EntityRecord& record,
                              const drawing::ViewportData& viewport, const Frame& frame, const Path& clip)
{
    const Matrix2 viewToPaper = ViewToPaper(viewport);
    const Matrix2 toPaper = Compose(PlaneOf(frame.toPaper, {0, 0, 1}, 0), viewToPaper);
    Frame inner;
    inner.toPaper = Flatten(ViewMatrix(viewport.direction, viewport.target, viewport.twist), toPaper);
    inner.inherited = Inherited{};
    inner.dashScale =
        m_context.options.scaleLinetypesWithPaper ? frame.dashScale : frame.dashScale * ScaleOf(viewToPaper);
    const LayerStates layers(m_drawing, viewport.frozenLayers, m_context.hideLayers && !m_context.options.everyLayer,
                             viewport.handle);
    m_context.layers = &layers;
    m_context.annotationScale = drawing::AnnotationScaleOf(m_drawing, record);
    m_context.otherScales = m_context.annotationScale != 0 ? OtherScalesOf(m_drawing) : OtherScales::Shown;
    Outcome best = Outcome::NotReached;
    {
        const Ink::ClipGuard guard(m_ink, clip, FillRule::NonZero);
        const OpenBlock open(m_context, block);
        const Vec2 axis = toPaper.Apply({0, 0});
        const SpaceLook look =
            LookOf(viewport.depth, viewport.direction, ScaleOf(toPaper), axis, viewport.HidesLines());
        best = look.InSpace() ? m_walk.PaintInSpace(block, inner, look) : m_walk.PaintAll(block, inner);
    }
    m_context.layers = &m_context.ownLayers;
    m_context.annotationScale = 0;
    m_context.otherScales = OtherScales::Shown;
    return best == Outcome::Drawn ? Outcome::Drawn : Outcome::OffPage;
}

} // namespace

std::unique_ptr<EntityPainter> MakeViewports(PaintContext& context, IWalk& walk)
{
    return std::make_unique<Viewports>(context, walk);
}

} // namespace sm::render
