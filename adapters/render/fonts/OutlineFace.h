// SPDX-License-Identifier: GPL-3.0-or-later
// A TrueType, OpenType or Type 1 font file, opened once and kept.
#pragma once

#include "render/FontFace.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace sm::render {

/// Glyphs of one text in one font; positions in em from the text's start.
struct ShapedGlyph {
    std::uint32_t glyph = 0;
    std::uint32_t cluster = 0; ///< byte of the text
    Vec2 position;
};

/// How far ink reaches, in em from the base line.
struct InkSpan {
    double bottom = 0, top = 1;
};

class OutlineFace : public FontFace {
public:
    /// The face in the file, or null when it isn't a scalable font. `index`: of a collection's fonts.
    static std::unique_ptr<OutlineFace> Open(const std::string& path, int index);

    /// Height of capital letters in em.
    [[nodiscard]] virtual double CapHeight() const = 0;
    /// What hangs below the base line, in em, positive.
    [[nodiscard]] virtual double Descent() const = 0;
    /// Of a Chinese character that fills its square.
    [[nodiscard]] virtual InkSpan Ideographs() const = 0;
    /// 0 when the font has none.
    [[nodiscard]] virtual std::uint32_t GlyphOf(char32_t character) const = 0;
    /// Shapes a text of one script, in visual order; returns its advance in em. For what `IsComplex`.
    virtual double Shape(std::string_view text, bool rightToLeft, std::vector<ShapedGlyph>& out) const = 0;
};

} // namespace sm::render
