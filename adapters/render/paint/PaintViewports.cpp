#include "drawing/EntityKinds.h"
#include "drawing/entities/AnnotationContexts.h"
#include "drawing/entities/Viewports.h"
#include "geometry/HatchBoundary.h"
#include "paint/Painter.h"
#include "paint/PainterBuffers.h"
#include "render/ClipBox.h"

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

} // namespace

// A sheet is a viewport as well: the one with id 1, and in files that keep no ids the first one.
void Painter::FindSheetViewport(std::uint32_t block)
{
    m_sheetViewport = nullptr;
    drawing::ViewportData viewport;
    const drawing::EntityRecord* first = nullptr;
    std::int32_t firstId = 0;
    for (const drawing::EntityRecord& record : m_drawing.EntitiesOf(block)) {
        if (record.kind != drawing::EntityKind::Viewport) {
            continue;
        }
        Read(m_drawing, record, viewport);
        if (viewport.id == 1) {
            m_sheetViewport = &record;
            return;
        }
        if (first == nullptr) {
            first = &record;
            firstId = viewport.id;
        }
    }
    if (firstId == 0) {
        m_sheetViewport = first;
    }
}

void Painter::PaintSpace(std::uint32_t block, const Frame& frame)
{
    if (block >= m_drawing.Blocks().size()) {
        return;
    }
    const OpenBlock open(m_openBlocks, block);
    if (!m_options.paperSpace) {
        PaintAll(block, frame);
        return;
    }
    FindSheetViewport(block);
    const auto paint = [&](bool viewports) {
        for (const drawing::EntityRecord& record : m_drawing.EntitiesOf(block)) {
            if ((record.kind == drawing::EntityKind::Viewport) == viewports) {
                PaintEntity(record, frame);
            }
        }
    };
    paint(m_options.viewportsFirst);
    paint(!m_options.viewportsFirst);
}

bool Painter::ViewportIsOff(const drawing::ViewportData& viewport) const
{
    // Up to R12 the status alone tells (group 68); later it is often 0 on sheets that weren't open.
    const drawing::Version version = m_drawing.FileVersion();
    const bool oldFile = version != drawing::Version::Unknown && version <= drawing::Version::R12;
    return viewport.Off() || (oldFile && viewport.status == 0);
}

Outcome Painter::PaintViewport(const drawing::EntityRecord& record, const Frame& frame)
{
    drawing::ViewportData viewport;
    Read(m_drawing, record, viewport);
    const bool inSheet = m_options.paperSpace && m_openBlocks.size() <= 1;
    if (!inSheet || &record == m_sheetViewport || viewport.invisible || ViewportIsOff(viewport)) {
        return Outcome::Hidden;
    }
    Outcome best = Outcome::OffPage;
    if (!m_options.boxesOnly) {
        best = std::max(best, PaintViewportContent(record, viewport, frame));
    }
    if (m_options.boxesOnly || (m_options.viewportBorders && !Hidden(viewport, frame))) {
        Enter(viewport, record, frame);
        MakeClipPath(viewport, frame);
        StrokePath();
        best = std::max(best, m_ink.End() ? Outcome::Drawn : Outcome::OffPage);
    }
    return best;
}

// Puts the viewport's outline on the sheet into `m_path`; false when it shows nothing.
bool Painter::MakeClipPath(const drawing::ViewportData& viewport, const Frame& frame)
{
    m_path.Clear();
    const drawing::EntityRecord* clip = viewport.clipEntity != 0 ? m_drawing.FindEntity(viewport.clipEntity) : nullptr;
    if (clip != nullptr) {
        Path boundary;
        if (CatchPath(*clip, frame, boundary)) {
            AppendJoined(m_path, PiecesOf(boundary));
        }
        if (m_path.verbs.size() > 2) {
            return true;
        }
        Remark("a viewport clipped by an unknown shape shows its rectangle");
    }
    m_path.Clear();
    const Matrix2 plane = PlaneOf(frame.toPaper, {0, 0, 1}, 0);
    AppendBox(m_path, PaperBox(viewport));
    for (Vec2& point : m_path.points) {
        point = plane.Apply(point);
    }
    return viewport.width > 0 && viewport.height > 0;
}

Outcome Painter::PaintViewportContent(const drawing::EntityRecord& record, const drawing::ViewportData& viewport,
                                      const Frame& frame)
{
    if (!(viewport.viewHeight > 0) || !MakeClipPath(viewport, frame)) {
        return Outcome::OffPage;
    }
    const Path clip = m_path;
    if (m_ink.Bounded() && !Overlaps(HullOf(clip), m_ink.Clip())) {
        return Outcome::OffPage;
    }
    const auto& layouts = m_drawing.Layouts();
    const auto model = std::find_if(layouts.begin(), layouts.end(), [](const auto& l) { return l.isModel; });
    if (model == layouts.end() || model->block >= m_drawing.Blocks().size()) {
        return Outcome::OffPage;
    }
    if (m_viewportBudget < m_drawing.EntitiesOf(model->block).size()) {
        Remark("too many viewports for so large a model, the rest left out");
        return Outcome::NotDrawn;
    }
    if (viewport.Perspective()) {
        Remark("a perspective view drawn in parallel");
    }
    m_viewportBudget -= m_drawing.EntitiesOf(model->block).size();
    const Matrix2 sheet = PlaneOf(frame.toPaper, {0, 0, 1}, 0);
    const Matrix2 toPaper = Compose(sheet, ViewToPaper(viewport));
    Frame inner;
    inner.toPaper = Flatten(ViewMatrix(viewport.direction, viewport.target, viewport.twist), toPaper);
    inner.inherited = Inherited{};
    inner.dashScale =
        m_options.scaleLinetypesWithPaper ? frame.dashScale : frame.dashScale * ScaleOf(ViewToPaper(viewport));
    const LayerStates layers(m_drawing, viewport.frozenLayers, m_hideLayers && !m_options.everyLayer, viewport.handle);
    m_layers = &layers;
    m_annotationScale = drawing::AnnotationScaleOf(m_drawing, record);
    Outcome best = Outcome::NotReached;
    {
        const Ink::ClipGuard guard(m_ink, clip, FillRule::NonZero);
        const OpenBlock open(m_openBlocks, model->block);
        best = PaintAll(model->block, inner);
    }
    m_layers = &m_ownLayers;
    m_annotationScale = 0;
    return best == Outcome::Drawn ? Outcome::Drawn : Outcome::OffPage;
}

} // namespace sm::render
