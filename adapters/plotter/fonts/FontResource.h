// SPDX-License-Identifier: GPL-3.0-or-later
// PostScript font resources whose text can be found again in the PDF.
//
// Names and characters: each glyph is named by its characters ("uni0416") and FontInfo/GlyphNames2Unicode holds them in
// UTF-16, from which the distiller makes the PDF's ToUnicode map.
#pragma once

#include "fonts/StrokeCut.h"
#include "render/FontFace.h"

#include <cstdint>
#include <string>
#include <vector>

namespace sm::plotter {

struct FontGlyph {
    std::uint8_t code = 0;
    std::uint32_t id = 0; ///< glyph of the face; for invisible fonts the advance in thousandths of an em
    std::string text;     ///< UTF-8
};

/// A Type 42 font with just these glyphs.
std::string VisibleFont(const std::string& name, const render::FontFace& face, const std::vector<FontGlyph>& glyphs);
/// A Type 3 font whose glyphs are drawn with a pen in the colour of the text.
std::string StrokedFont(const std::string& name, const render::FontFace& face, const StrokeCut& cut,
                        const std::vector<FontGlyph>& glyphs);
/// Advance of a cut's glyph in thousandths of its em, rounded as StrokedFont writes it.
double StrokedAdvance(const render::FontFace& face, const StrokeCut& cut, std::uint32_t glyph);
/// A Type 3 font that paints nothing and moves on.
std::string InvisibleFont(const std::string& name, const std::vector<FontGlyph>& glyphs);

} // namespace sm::plotter
