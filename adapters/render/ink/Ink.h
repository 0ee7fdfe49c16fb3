// SPDX-License-Identifier: GPL-3.0-or-later
// The last step before the canvas: what lies off the page is left out, line types are cut, and it is noted whether an
// entity drew anything.
#pragma once

#include "ink/Dasher.h"
#include "ink/SpaceView.h"
#include "render/Canvas.h"

#include <cstdint>
#include <span>
#include <utility>

namespace sm::render {

struct Pen {
    std::uint32_t color = 0;
    double width = 0;                     ///< mm
    const DashPattern* pattern = nullptr; ///< null: continuous
    double dashScale = 1;                 ///< mm for one line type unit
    LineCap cap = LineCap::Round;
    LineJoin join = LineJoin::Round;
};

class Ink {
public:
    /// Nothing off `clip` is drawn; an empty clip means everywhere.
    Ink(ICanvas& canvas, const Box2& clip);

    /// Calls from here on belong to `mark`. The canvas hears of it only when something is drawn.
    void Begin(const EntityMark& mark);
    /// True when something was drawn since `Begin`; tells the canvas that the entity is done.
    bool End();

    /// `breaks`: verbs where the line type starts anew, see Dasher.
    void Stroke(const Path& path, const Pen& pen, std::span<const std::uint32_t> breaks = {});
    /// Where the line type's texts and shapes stand on the path stroked last.
    [[nodiscard]] const std::vector<SymbolPlace>& Symbols() const { return m_dasher.Symbols(); }
    void Fill(const Path& path, std::uint32_t color, FillRule rule);
    /// `outline`: a path round the text, for culling alone.
    void Text(const TextRun& run, const Path& outline);
    void Image(const Picture& picture, const Matrix2& toPaper, std::uint32_t color);

    /// To those that `TakeSteps` answers.
    void AddSteps(std::uint64_t steps) { m_steps += steps; }
    /// Verbs of paths and letters that came along since the last call, and those that line types made of them; what
    /// lies off the page costs less.
    [[nodiscard]] std::uint64_t TakeSteps() { return std::exchange(m_steps, 0); }

    [[nodiscard]] ICanvas& Canvas() { return m_canvas; }

    [[nodiscard]] const Box2& Clip() const { return m_clip; }
    /// True when something was drawn since `Begin`.
    [[nodiscard]] bool Drawn() const { return m_announced; }
    /// False in views in space as well: what painters know of the page says nothing about what shows there.
    [[nodiscard]] bool Bounded() const { return m_bounded && m_space == nullptr; }
    /// What the page shows; empty: all.
    [[nodiscard]] Box2 Window() const { return m_bounded ? m_clip : Box2{}; }
    /// Whether the page shows a part alone, be it none.
    [[nodiscard]] bool Limited() const { return m_bounded; }
    /// The view in space that is drawn; null: everything lies flat.
    [[nodiscard]] SpaceView* Space() const { return m_space; }
    /// True while an entity is measured, see SpaceView: its painter runs, nothing is drawn.
    [[nodiscard]] bool Measuring() const { return m_space != nullptr && m_space->Measures(); }
    /// Tells a view in space that what follows of the entity lies in the plane of these points.
    void Survey(std::span<const Vec2> points);

    /// Draws in a view in space, or flat again (null), for its lifetime.
    class SpaceGuard {
    public:
        SpaceGuard(Ink& ink, SpaceView* space) : m_ink(ink), m_former(ink.m_space) { ink.m_space = space; }
        ~SpaceGuard() { m_ink.m_space = m_former; }
        SpaceGuard(const SpaceGuard&) = delete;
        SpaceGuard& operator=(const SpaceGuard&) = delete;

    private:
        Ink& m_ink;
        SpaceView* m_former;
    };

    /// Narrows the clip for its lifetime, whatever happens meanwhile.
    class ClipGuard {
    public:
        ClipGuard(Ink& ink, const Path& path, FillRule rule);
        ~ClipGuard();
        ClipGuard(const ClipGuard&) = delete;
        ClipGuard& operator=(const ClipGuard&) = delete;

    private:
        Ink& m_ink;
        Box2 m_former;
        bool m_bounded;
        bool m_pushed = true;
    };

private:
    [[nodiscard]] bool Shows(const Path& path, double margin);
    void Announce();
    void StrokeFlat(const Path& path, const Pen& pen, std::span<const std::uint32_t> breaks);
    void FillFlat(const Path& path, std::uint32_t color, FillRule rule);
    void TextFlat(const TextRun& run, const Path& outline);
    void ImageFlat(const Picture& picture, const Matrix2& toPaper, std::uint32_t color);
    // InkInSpace.cpp
    void StrokeInSpace(const Path& path, const Pen& pen, std::span<const std::uint32_t> breaks);
    void FillInSpace(const Path& path, std::uint32_t color, FillRule rule);
    void TextInSpace(const TextRun& run, const Path& outline);
    void ImageInSpace(const Picture& picture, const Matrix2& toPaper, std::uint32_t color);
    void DrawGlyphs(const TextRun& run, const SpaceView::Place& place);
    bool ClipInSpace(const Path& path);
    ICanvas& m_canvas;
    Box2 m_clip;
    bool m_bounded = true;
    EntityMark m_mark;
    bool m_announced = false;
    Box2 m_hull; ///< of the path last looked at
    std::uint64_t m_steps = 0;
    Dasher m_dasher;
    Path m_cut;
    SpaceView* m_space = nullptr;
    Path m_inSpace; ///< what a view in space leaves of the path at hand
    std::vector<std::uint32_t> m_breaks;
};

} // namespace sm::render
