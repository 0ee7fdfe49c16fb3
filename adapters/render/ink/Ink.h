// SPDX-License-Identifier: GPL-3.0-or-later
// The last step before the canvas: what lies off the page is left out, line types are cut, and it is noted whether an
// entity drew anything.
#pragma once

#include "ink/Dasher.h"
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

    /// Verbs of paths and letters that came along since the last call, and those that line types made of them; what
    /// lies off the page costs less.
    void AddSteps(std::uint64_t steps) { m_steps += steps; }
    [[nodiscard]] std::uint64_t TakeSteps() { return std::exchange(m_steps, 0); }

    [[nodiscard]] ICanvas& Canvas() { return m_canvas; }

    [[nodiscard]] const Box2& Clip() const { return m_clip; }
    /// True when something was drawn since `Begin`.
    [[nodiscard]] bool Drawn() const { return m_announced; }
    [[nodiscard]] bool Bounded() const { return m_bounded; }

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
    };

private:
    [[nodiscard]] bool Shows(const Path& path, double margin);
    void Announce();
    ICanvas& m_canvas;
    Box2 m_clip;
    bool m_bounded = true;
    EntityMark m_mark;
    bool m_announced = false;
    Box2 m_hull; ///< of the path last looked at
    std::uint64_t m_steps = 0;
    Dasher m_dasher;
    Path m_cut;
};

} // namespace sm::render
