// SPDX-License-Identifier: GPL-3.0-or-later
// The seam between what an entity means and how it is written: finished 2-D shapes on a sheet of paper.
//
// Coordinates are millimetres on the sheet, from its lower-left corner, x to the right, y up. Colours are 0xTTRRGGBB as
// they shall appear on white paper, TT the transparency: 0 opaque to 254 all but clear; a back end may draw all opaque.
// Line types are already cut into dashes, lineweights are millimetres, clips are nested. A back end must write Stroke,
// Fill, Text, PushClip and PopClip; the rest have fallbacks. Calls between BeginEntity and EndEntity belong to one
// entity of the drawing.
#pragma once

#include "render/Matrix.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sm::render {

class FontFace;
struct Picture;

enum class Verb : std::uint8_t { Move, Line, Cubic, Close }; ///< Move and Line take one point, Cubic three, Close none

/// Sub-paths of lines and cubic Bezier curves; a caller reuses it, so that drawing allocates nothing.
struct Path {
    std::vector<Verb> verbs;
    std::vector<Vec2> points;
    void Clear()
    {
        verbs.clear();
        points.clear();
    }
    [[nodiscard]] bool Empty() const { return verbs.empty(); }
    void MoveTo(Vec2 p)
    {
        verbs.push_back(Verb::Move);
        points.push_back(p);
    }
    void LineTo(Vec2 p)
    {
        verbs.push_back(Verb::Line);
        points.push_back(p);
    }
    void CubicTo(Vec2 c1, Vec2 c2, Vec2 p)
    {
        verbs.push_back(Verb::Cubic);
        points.insert(points.end(), {c1, c2, p});
    }
    void Close() { verbs.push_back(Verb::Close); }
    friend bool operator==(const Path&, const Path&) = default;
};

enum class LineCap : std::uint8_t { Butt, Round, Square };
enum class LineJoin : std::uint8_t { Miter, Round, Bevel };
enum class FillRule : std::uint8_t { NonZero, EvenOdd };

struct StrokeStyle {
    std::uint32_t color = 0;
    double width = 0; ///< mm; 0 the thinnest line that shows
    LineCap cap = LineCap::Round;
    LineJoin join = LineJoin::Round;
    friend bool operator==(const StrokeStyle&, const StrokeStyle&) = default;
};

/// Text in one font. `toPaper` maps the font's em square (1 high) to millimetres on the sheet, the baseline's start at
/// its origin. `glyphs[i]` stands at `positions[i]` (em) and shows the `clusters[i]`-th byte of `text` onwards.
struct TextRun {
    const FontFace* font = nullptr; ///< null: no outlines, see `invisible`
    std::string text;               ///< UTF-8, in reading order
    std::vector<std::uint32_t> glyphs;
    std::vector<Vec2> positions;
    std::vector<std::uint32_t> clusters;
    double advance = 0; ///< em, of the whole run
    Matrix2 toPaper;
    std::uint32_t color = 0;
    double penWidth = 0;    ///< mm; of the pen that draws a stroked font, 0 the thinnest line that shows
    bool invisible = false; ///< text that is drawn otherwise: the run makes it findable and shows nothing
};

/// Names the entity that the next calls belong to.
struct EntityMark {
    std::uint64_t handle = 0;
    std::string_view kind;     ///< "LINE"
    std::string_view layer;    ///< its own, not that of the block it stands in
    std::uint32_t shownBy = 0; ///< index of the layer that shows or hides it: the insert's where its own is "0"
};

class ICanvas {
public:
    virtual ~ICanvas() = default;
    virtual void BeginEntity(const EntityMark&) {}
    virtual void EndEntity() {}
    virtual void PushClip(const Path& path, FillRule rule) = 0;
    virtual void PopClip() = 0;
    /// The line that the next Stroke shows pieces of, where its line type or its far ends are cut off; nothing is
    /// drawn.
    virtual void Course(const Path& /*path*/) {}
    virtual void Stroke(const Path& path, const StrokeStyle& style) = 0;
    virtual void Fill(const Path& path, std::uint32_t color, FillRule rule) = 0;
    virtual void Text(const TextRun& run) = 0;
    /// `toPaper` maps the unit square, the picture's first row at its top, to the sheet. `color`: of a mask's paint.
    virtual void Image(const Picture& /*picture*/, const Matrix2& /*toPaper*/, std::uint32_t /*color*/) {}
};

} // namespace sm::render
