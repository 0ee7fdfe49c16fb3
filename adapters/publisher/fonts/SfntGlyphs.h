// SPDX-License-Identifier: GPL-3.0-or-later
// Glyphs of TrueType subsets, taken out of one file and put into another.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sm::publisher {

/// A glyph without what names it in its file. Lengths in font units.
struct SfntGlyph {
    std::uint16_t advance = 0;
    std::int16_t leftBearing = 0;
    std::string outline; ///< its record in the glyf table, of even length; empty when nothing shows
    friend auto operator<=>(const SfntGlyph&, const SfntGlyph&) = default;
};

struct SfntSubset {
    std::uint16_t unitsPerEm = 0;
    std::vector<SfntGlyph> glyphs; ///< by number; 0 is the one for what is missing
};

/// Nothing when `sfnt` isn't a TrueType file with head (long offsets), hhea, hmtx, loca, maxp and glyf that fit each
/// other, or holds a glyph that is made of others (OpenType 1.9: "Font file", "head", "hhea", "hmtx", "loca").
std::optional<SfntSubset> ReadSfntSubset(std::string_view sfnt);

/// What a PDF says of a font, in thousandths of the em.
struct SfntFacts {
    std::int32_t ascent = 0, descent = 0;
    std::int32_t box[4] = {0, 0, 0, 0};
};

/// A TrueType file of these glyphs, and its facts: of the inked box. At most 65,535 glyphs.
std::string WriteSfntSubset(const SfntSubset& subset, SfntFacts& facts);

} // namespace sm::publisher
