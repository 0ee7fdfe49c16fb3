// SPDX-License-Identifier: GPL-3.0-or-later
// What the ink does in views in space, before anything is drawn flat.
#include "ink/Ink.h"

#include "geometry/MappedPath.h"
#include "ink/SpaceView.h"
#include "render/ClipBox.h"
#include "render/FontFace.h"

#include <algorithm>

namespace sm::render {

namespace {

/// The clips that faces leave of an area, for its lifetime.
class FaceClips {
public:
    FaceClips(ICanvas& canvas, const std::vector<Path>& clips) : m_canvas(canvas), m_count(clips.size())
    {
        for (const Path& clip : clips) {
            m_canvas.PushClip(clip, FillRule::EvenOdd);
        }
    }
    ~FaceClips()
    {
        try {
            for (std::size_t i = 0; i < m_count; ++i) {
                m_canvas.PopClip();
            }
        } catch (...) { // a canvas that can't pop has failed for good, and says so at its end
        }
    }
    FaceClips(const FaceClips&) = delete;
    FaceClips& operator=(const FaceClips&) = delete;

private:
    ICanvas& m_canvas;
    std::size_t m_count;
};

Path UnitSquareOn(const Matrix2& toPaper)
{
    Path square;
    AppendBox(square, {{0, 0}, {1, 1}});
    for (Vec2& point : square.points) {
        point = toPaper.Apply(point);
    }
    return square;
}

} // namespace

void Ink::StrokeInSpace(const Path& path, const Pen& pen, std::span<const std::uint32_t> breaks)
{
    m_dasher.ForgetSymbols();
    if (!m_space->Draws()) {
        m_space->Measure(path.points);
        return;
    }
    constexpr double kFar = 1e9; // mm
    const Box2 visible = m_bounded ? Grown(m_clip, pen.width) : Box2{{-kFar, -kFar}, {kFar, kFar}};
    const bool cut = m_space->CutLines(path, breaks, visible, m_inSpace, m_breaks);
    StrokeFlat(cut ? m_inSpace : path, pen, cut ? std::span<const std::uint32_t>(m_breaks) : breaks);
}

void Ink::FillInSpace(const Path& path, std::uint32_t color, FillRule rule)
{
    if (!m_space->Draws()) {
        m_space->Measure(path.points);
        return;
    }
    std::vector<Path> clips;
    if (m_space->CutArea(path, m_inSpace, &clips)) {
        const FaceClips guard(m_canvas, clips);
        FillFlat(m_inSpace, color, rule);
    }
}

void Ink::TextInSpace(const TextRun& run, const Path& outline)
{
    if (!m_space->Draws()) {
        m_space->Measure(outline.points);
        m_space->Measure(SpaceView::CornersOf(run.toPaper));
        return;
    }
    std::vector<Path> clips;
    const bool shows = m_space->CutArea(outline, m_inSpace, &clips);
    const SpaceView::Place place = m_space->LiftPlace(run.toPaper);
    if (!shows || !m_space->Sees(place.origin.z)) {
        return;
    }
    const FaceClips guard(m_canvas, clips);
    if (!m_space->Eye().perspective) {
        TextFlat(run, outline);
        return;
    }
    TextRun flat = run;
    flat.toPaper = m_space->Flat(place);
    const Path at = m_inSpace;
    if (run.font != nullptr && !run.invisible) {
        DrawGlyphs(run, place);
        flat.font = nullptr;
        flat.glyphs.clear();
        flat.penWidth = 0;
        flat.invisible = true;
    }
    TextFlat(flat, at);
}

// In perspective no letter is as large as the next: their shapes are drawn, the text lies on them to be found.
void Ink::DrawGlyphs(const TextRun& run, const SpaceView::Place& place)
{
    Path all, glyph;
    for (std::size_t i = 0; i < run.glyphs.size() && i < run.positions.size(); ++i) {
        run.font->Outline(run.glyphs[i], glyph);
        for (Vec2& point : glyph.points) {
            Vec3 at = place.At(point + run.positions[i]);
            at.z = std::min(at.z, m_space->Eye().Front());
            const Vec3 flat = m_space->Eye().Apply(at);
            point = {flat.x, flat.y};
        }
        Append(all, glyph);
    }
    if (run.font->IsStroked()) {
        StrokeFlat(all, {.color = run.color, .width = run.penWidth}, {});
    } else {
        FillFlat(all, run.color, FillRule::NonZero);
    }
}

void Ink::ImageInSpace(const Picture& picture, const Matrix2& toPaper, std::uint32_t color)
{
    const Path square = UnitSquareOn(toPaper);
    if (!m_space->Draws()) {
        m_space->Measure(square.points);
        m_space->Measure(SpaceView::CornersOf(toPaper));
        return;
    }
    std::vector<Path> clips;
    const bool shows = m_space->CutArea(square, m_inSpace, &clips);
    const SpaceView::Place place = m_space->LiftPlace(toPaper);
    if (!shows || !m_space->Sees(place.origin.z)) {
        return;
    }
    const bool perspective = m_space->Eye().perspective;
    if (perspective) {
        m_space->Tell("a picture in a perspective view drawn in parallel");
    }
    const FaceClips guard(m_canvas, clips);
    ImageFlat(picture, perspective ? m_space->Flat(place) : toPaper, color);
}

bool Ink::ClipInSpace(const Path& path)
{
    if (!m_space->Draws()) {
        m_space->Measure(path.points);
        return false;
    }
    if (!m_space->CutArea(path, m_inSpace, nullptr)) {
        m_inSpace.Clear(); // a clip that shows nothing
        AppendBox(m_inSpace, {{0, 0}, {0, 0}});
    }
    return true;
}

void Ink::Survey(std::span<const Vec2> points)
{
    if (m_space != nullptr) {
        m_space->Survey(points);
    }
}

} // namespace sm::render
