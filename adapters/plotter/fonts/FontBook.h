// SPDX-License-Identifier: GPL-3.0-or-later
// Which glyphs of which fonts a page uses, as codes of simple PostScript fonts of at most 255 glyphs each.
#pragma once

#include "fonts/StrokeCut.h"
#include "render/FontFace.h"

#include <array>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace sm::plotter {

/// A glyph's place: font number (the page's "F3" is number 3) and code in it.
struct GlyphCode {
    std::uint16_t font = 0;
    std::uint8_t code = 0;
};

class FontBook {
public:
    /// The code of `glyph` of `face` that stands for `text` (UTF-8; may be empty).
    GlyphCode Visible(const render::FontFace& face, std::uint32_t glyph, std::string_view text);
    /// The code of an invisible glyph of that advance in thousandths of an em.
    GlyphCode Invisible(std::int32_t advance, std::string_view text);

    /// The number of a stroked font's cut; nothing when it is a new one and the page has `kMostCuts` already.
    std::optional<std::size_t> CutNumber(const render::FontFace& face, const StrokeCut& cut);
    /// The code of `glyph` in a cut.
    GlyphCode Stroked(std::size_t cut, std::uint32_t glyph, std::string_view text);
    /// Advance of `glyph` in a cut, em, exactly as the font says it.
    [[nodiscard]] double StrokedAdvance(std::size_t cut, std::uint32_t glyph) const;
    /// A drawing whose texts are all of different size would fill the page with fonts.
    static constexpr std::size_t kMostCuts = 64;

    [[nodiscard]] bool Empty() const { return m_fonts.empty(); }
    /// Names of all fonts, "F1 F2".
    [[nodiscard]] std::string Names() const;
    /// The fonts as PostScript resources for the set-up part of a page.
    [[nodiscard]] std::string Definitions() const;

private:
    struct Glyph {
        std::uint32_t id = 0; ///< invisible: advance, thousandths of an em
        std::string text;
        std::uint8_t code = 0;
    };
    struct Font {
        const render::FontFace* face = nullptr; ///< null: invisible
        StrokeCut cut;
        std::vector<Glyph> glyphs;
        std::array<bool, 256> taken{};
    };
    /// All the fonts made from one face or one cut of a face, and where each of its glyphs is.
    struct Family {
        StrokeCut cut;
        std::unordered_map<std::uint64_t, GlyphCode> singles; ///< glyph and one character
        std::map<std::pair<std::uint32_t, std::string>, GlyphCode> others;
        std::uint16_t open = 0; ///< number of the font that still has room; 0 none
    };
    GlyphCode Find(const render::FontFace* face, Family& family, std::uint32_t id, std::string_view text);
    GlyphCode Add(const render::FontFace* face, Family& family, std::uint32_t id, std::string_view text);
    static std::string Definition(const Font& font, std::size_t number);

    std::vector<Font> m_fonts;
    std::unordered_map<const render::FontFace*, Family> m_families;
    const render::FontFace* m_lastFace = nullptr;
    Family* m_lastFamily = nullptr;
    struct Cut {
        const render::FontFace* face = nullptr;
        Family family;
    };
    std::deque<Cut> m_cuts;
    std::map<std::pair<const render::FontFace*, StrokeCut>, std::size_t> m_cutNumbers;
    std::size_t m_lastCut = 0;
};

} // namespace sm::plotter
