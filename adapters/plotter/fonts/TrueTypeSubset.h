// SPDX-License-Identifier: GPL-3.0-or-later
// A small TrueType font of chosen glyphs, as the strings of a Type 42 font's sfnts array.
#pragma once

#include "render/FontFace.h"

#include <cstdint>
#include <string>
#include <vector>

namespace sm::plotter {

/// Glyph 0 is empty; glyph i + 1 is `glyphs[i]` of `face`. Tables head, hhea, hmtx, loca, maxp and glyf, no hints. Each
/// string has an even length below 64 K and starts at a table or a glyph (TrueType reference; Type 42 font format).
std::vector<std::string> MakeTrueTypeSubset(const render::FontFace& face, const std::vector<std::uint32_t>& glyphs);

} // namespace sm::plotter
