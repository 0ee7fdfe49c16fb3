// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the glyphs of a font resource; what isn't as the plotter writes it is refused.
#pragma once

#include "dialect/DialectPage.h"
#include "dialect/FontLines.h"

namespace sm::publisher {

bool ReadOutlines(FontLines& lines, const GlyphCodes& codes, DialectFont& font);
/// Procedures that are content streams: "/name{width 0 box d1", the strokes, "}bind def".
bool ReadStrokes(FontLines& lines, const GlyphCodes& codes, DialectFont& font);
/// Of glyphs that show nothing.
bool ReadWidths(FontLines& lines, DialectFont& font);

} // namespace sm::publisher
