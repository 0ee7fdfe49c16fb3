// SPDX-License-Identifier: GPL-3.0-or-later
// Fonts of strokes: compiled shape files (SHX, see ShapeFile) and the LFF text format.
//
// LFF: capitals 9 units high, one section a character.
// A section is "[hex] c", then lines: "x,y;x,y,Ab;..." is an open polyline whose points may carry the bulge b of the
// segment that ends in them; "Chex" repeats another character's strokes. Heads "# LetterSpacing: 3" and "# WordSpacing:
// 6.75" give the gap between letters and the width of a blank.
#pragma once

#include "drawing/CodePage.h"
#include "fonts/FontMap.h"
#include "render/FontFace.h"
#include "shapes/ShapeFile.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace sm::render {

/// A character as strokes; capital letters are 1 high, the base line is y = 0.
struct StrokeGlyph {
    Path path;
    double advance = 0;
    double gap = 0; ///< the part of the advance that only keeps the next letter off
};

/// As a face its glyphs are the characters' own numbers, and capitals are `kCapHeight` em high.
class StrokeFont final : public FontFace {
public:
    static constexpr double kCapHeight = 0.7;    ///< as in most outline fonts, so that found text has its size
    static constexpr std::uint32_t kMissing = 0; ///< the glyph that stands for a character no font has: a box
    /// The font in the file, or null when it can't be read or holds no character.
    static std::unique_ptr<StrokeFont> Open(const std::string& path);
    /// The same over the text of a file.
    static std::unique_ptr<StrokeFont> FromText(std::string text, std::string name = "strokes");
    /// The letters of a compiled shape file; null when it is none or holds shapes that are no letters.
    static std::unique_ptr<StrokeFont> FromShapes(std::unique_ptr<ShapeFile> shapes, std::string name = "strokes");
    /// A big font, whose characters are pairs of bytes of a code page ("ANSI_936"); null when the file is none.
    static std::unique_ptr<StrokeFont> OpenBig(const std::string& path, const std::string& codePage);
    static std::unique_ptr<StrokeFont> FromBigFont(std::unique_ptr<ShapeFile> shapes, const std::string& codePage,
                                                   std::string name = "strokes");
    /// A font that has but the box for missing characters.
    static const StrokeFont& Boxes();
    /// The widths of the font it stands for; `width` is how much wider than the file's its letters will be drawn. To
    /// be set before the first Find.
    void SetMetrics(const StrokeMetrics& metrics, double width);
    /// Of its "H", and the gap behind it, in heights of capitals; 0 without one.
    [[nodiscard]] double LetterWidth() const;
    [[nodiscard]] double LetterGap() const;
    /// All its capitals are equally wide.
    [[nodiscard]] bool IsEven() const { return m_advances.contains(U'H'); }
    /// Takes over a letter that it lacks.
    const StrokeGlyph& Adopt(char32_t character, StrokeGlyph glyph);
    /// Null when the font has none.
    [[nodiscard]] const StrokeGlyph* Find(char32_t character) const;
    /// The box when the font has none.
    [[nodiscard]] const StrokeGlyph& At(std::uint32_t glyph) const;

    [[nodiscard]] const std::string& Name() const override { return m_name; }
    [[nodiscard]] bool IsStroked() const override { return true; }
    [[nodiscard]] std::uint16_t UnitsPerEm() const override { return 10000; }
    [[nodiscard]] std::uint16_t Advance(std::uint32_t glyph) const override;
    const GlyphContours& Contours(std::uint32_t) const override
    {
        static const GlyphContours kNone;
        return kNone;
    }
    void Outline(std::uint32_t glyph, Path& out) const override;

private:
    bool Index();
    bool ReadShape(char32_t character, StrokeGlyph& glyph) const;
    [[nodiscard]] std::array<std::uint16_t, 2> NumbersOf(char32_t character) const;
    const StrokeGlyph* FindShape(char32_t character) const;
    void ReadHead(std::string_view line);
    void ReadSection(std::string_view section, StrokeGlyph& glyph, int depth, std::size_t& read) const;
    void SetWidth(char32_t character, StrokeGlyph& glyph) const;

    std::string m_name = "strokes", m_text;
    std::unique_ptr<ShapeFile> m_shapes;                       ///< null: LFF
    double m_above = 1;                                        ///< height of the shapes' capitals
    std::shared_ptr<const drawing::CodePage> m_page;           ///< of a big font
    std::unordered_map<char32_t, std::string_view> m_sections; ///< into m_text
    mutable std::unordered_map<char32_t, StrokeGlyph> m_glyphs;
    double m_letterSpacing = 3, m_wordSpacing = 6.75; ///< font units
    std::unordered_map<char32_t, double> m_advances;  ///< those laid down, font units
};

} // namespace sm::render
