// Gives a TrueType subset the table that maps a PDF font's codes to its glyphs.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace sm::publisher {

/// What a PDF font says of a TrueType file, in thousandths of the em.
struct SfntFacts {
    std::string bytes; ///< the file with a (1, 0) cmap, which simple symbolic fonts go by (PDF 1.7, 9.6.6.4)
    std::map<std::uint8_t, std::int32_t> widths;
    std::int32_t ascent = 0, descent = 0;
    std::int32_t box[4] = {0, 0, 0, 0};
};

/// Nothing when `sfnt` isn't a TrueType file with head, hhea, hmtx and glyf.
std::optional<SfntFacts> AddCodeMap(const std::string& sfnt, const std::map<std::uint8_t, std::uint16_t>& glyphs);

} // namespace sm::publisher
