// SPDX-License-Identifier: GPL-3.0-or-later
// A part of an OpenType font whose outlines are cubic curves, by HarfBuzz's subsetter.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>

namespace sm::publisher {

/// Numbers and advances of the glyphs asked for and of glyph 0, by their numbers in the file.
struct CffSubset {
    struct Glyph {
        std::uint16_t number = 0;  ///< in the subset
        std::uint16_t advance = 0; ///< font units
    };
    std::string table; ///< the CFF table, as a PDF embeds it; a CID is a number in it (PDF 1.7, 9.7.4.2)
    std::map<std::uint32_t, Glyph> glyphs;
};

/// For fonts that call their glyphs by names, not by CIDs. Throws std::runtime_error, with the reason, when the file
/// can't be read, isn't such a font, lacks one of the glyphs or lacks advances.
CffSubset MakeCffSubset(const std::string& path, std::int32_t index, const std::set<std::uint32_t>& glyphs);

} // namespace sm::publisher
