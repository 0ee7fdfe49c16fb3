// SPDX-License-Identifier: GPL-3.0-or-later
// One scalable font as back ends need it: metrics and outlines, or strokes, by glyph.
#pragma once

#include "render/Canvas.h"

#include <cstdint>
#include <string>
#include <vector>

namespace sm::render {

/// Quadratic outline in font units as TrueType keeps it: closed contours of on- and off-curve points.
struct GlyphContours {
    struct Point {
        std::int16_t x = 0, y = 0;
        bool onCurve = true;
        friend bool operator==(const Point&, const Point&) = default;
    };
    std::vector<Point> points;
    std::vector<std::uint16_t> ends; ///< last point of each contour
};

/// The file that holds a font.
struct FontFile {
    std::string path;
    int index = 0; ///< of a collection's fonts
    /// Its own curves are of third degree, so that the contours only come near to them.
    bool isCubic = false;
};

/// Owned by the text engine; lives as long as it does.
class FontFace {
public:
    virtual ~FontFace() = default;
    /// Letters, digits and hyphens only: "LiberationSans-Bold".
    [[nodiscard]] virtual const std::string& Name() const = 0;
    /// True: glyphs are open lines that a pen draws (see TextRun::penWidth); false: closed outlines to fill.
    [[nodiscard]] virtual bool IsStroked() const { return false; }
    [[nodiscard]] virtual std::uint16_t UnitsPerEm() const = 0;
    [[nodiscard]] virtual std::uint16_t Advance(std::uint32_t glyph) const = 0; ///< font units
    /// Good until the next call; none when stroked.
    [[nodiscard]] virtual const GlyphContours& Contours(std::uint32_t glyph) const = 0;
    /// The TrueType or OpenType file that a part with these glyphs, by the same numbers, can be taken from; null when
    /// there is none, or its glyphs have CIDs in place of names or variations.
    [[nodiscard]] virtual const FontFile* File() const { return nullptr; }
    virtual void Outline(std::uint32_t glyph, Path& out) const = 0; ///< em; cleared first
};

} // namespace sm::render
