// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/Hatches.h"
#include "context/Strokes.h"
#include "drawing/EntityKinds.h"
#include "families/Families.h"
#include "families/Gradients.h"
#include "geometry/HatchBoundary.h"
#include "geometry/HatchLines.h"
#include "render/ClipBox.h"

#include <deque>

namespace sm::render {

namespace {

class Hatches final : public LeafPainter<drawing::HatchData> {
public:
    using LeafPainter::LeafPainter;

private:
    bool Draw(const drawing::HatchData& hatch, drawing::EntityKind /*kind*/) override;
    void AppendSources(const drawing::HatchData& hatch);
    void DrawPattern(const drawing::HatchData& hatch, const Matrix2& plane);

    HatchStrokes m_strokes; ///< keeps its memory from hatch to hatch
};

// A boundary that the file gives by its source objects alone (DXF reference, HATCH groups 97 and 330).
void Hatches::AppendSources(const drawing::HatchData& hatch)
{
    for (const drawing::HatchPath& path : hatch.paths) {
        std::vector<Path> pieces;
        for (const drawing::Handle source : path.sources) {
            const drawing::EntityRecord* const record = m_drawing.FindEntity(source);
            Path piece;
            if (record != nullptr && m_walk.CatchPath(*record, *m_context.frame, piece) && !piece.Empty()) {
                pieces.push_back(std::move(piece));
            }
        }
        AppendJoined(m_path, std::move(pieces));
    }
}

bool Hatches::Draw(const drawing::HatchData& hatch, drawing::EntityKind)
{
    const Matrix2 plane = PlaneOf(ToPaper(), hatch.extrusion, hatch.elevation);
    m_path = FilledBoundary(hatch, plane);
    if (m_path.Empty()) {
        AppendSources(hatch);
    }
    if (m_path.Empty()) {
        m_context.Remark("a hatch without a boundary left out");
        return false;
    }
    if (!m_context.switches.fills) {
        m_context.Remark("a hatch left out: the drawing's fills are off (FILLMODE)");
        return false;
    }
    m_ink.Survey(m_path.points);
    std::deque<Ink::ClipGuard> roundTexts;
    if (!m_context.options.boxesOnly) {
        const Box2 hull = HullOf(m_path);
        const Box2 seen = m_ink.Bounded() ? Intersection(hull, Grown(m_ink.Clip(), 1)) : hull;
        for (const Path& clip : ClipsRoundTexts(hatch, plane, seen)) {
            roundTexts.emplace_back(m_ink, clip, FillRule::EvenOdd);
        }
    }
    if (hatch.gradient && !hatch.gradientColors.empty()) {
        DrawGradient(m_context, hatch, plane);
        return true;
    }
    if (hatch.solid || hatch.gradient || m_context.options.boxesOnly) {
        FillArea(m_context, m_path, FillRule::EvenOdd);
        return true;
    }
    if (hatch.lines.empty()) {
        m_context.Remark("a hatch without pattern lines left out");
        return false;
    }
    DrawPattern(hatch, plane);
    return true;
}

void Hatches::DrawPattern(const drawing::HatchData& hatch, const Matrix2& plane)
{
    const Box2 hull = HullOf(m_path);
    const Box2 visible = m_ink.Bounded() ? Grown(m_ink.Clip(), 1) : hull;
    if (!Overlaps(hull, visible) || !std::isfinite(hull.Width() + hull.Height())) {
        return;
    }
    std::vector<drawing::HatchLine> families = hatch.lines;
    if (hatch.patternDouble && families.size() == 1) {
        drawing::HatchLine across = families.front();
        across.angle += 90;
        across.offset = {-across.offset.y, across.offset.x};
        families.push_back(across);
    }
    Pen pen = m_context.StrokePen();
    pen.pattern = nullptr;
    HatchLines lines(m_path, visible, pen.width);
    m_strokes.dashes.Clear();
    m_strokes.dots.Clear();
    bool thinned = false;
    for (const drawing::HatchLine& family : families) {
        thinned = lines.Append(family, plane, m_strokes) || thinned;
    }
    if (thinned) {
        m_context.Remark("a hatch pattern too dense for paper thinned out");
    }
    if (lines.Moved()) {
        m_context.Remark("a hatch pattern that begins too far off begins in its area");
    }
    constexpr double kHairline = 0.05; // mm; lines as close as paper can hold them stay grey
    pen.width = thinned ? std::min(pen.width, kHairline) : pen.width;
    pen.cap = thinned ? LineCap::Butt : pen.cap; // dots stand for their share of the line there
    m_ink.Stroke(m_strokes.dots, pen);
    pen.cap = LineCap::Butt;
    m_ink.Stroke(m_strokes.dashes, pen);
}

} // namespace

std::unique_ptr<EntityPainter> MakeHatches(PaintContext& context, IWalk& walk)
{
    return std::make_unique<Hatches>(context, walk);
}

} // namespace sm::render
