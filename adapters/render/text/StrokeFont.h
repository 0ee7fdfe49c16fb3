// Fonts of strokes in the LFF text format: capitals 9 units high, one section a character.
//
// A section is "[hex] c", then lines: "x,y;x,y,Ab;..." is an open polyline whose points may carry the bulge b of the
// segment that ends in them; "Chex" repeats another character's strokes. Heads "# LetterSpacing: 3" and "# WordSpacing:
// 6.75" give the gap between letters and the width of a blank.
#pragma once

#include "render/Canvas.h"

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

class StrokeFont {
public:
    /// The font in the file, or null when it can't be read or holds no character.
    static std::unique_ptr<StrokeFont> Open(const std::string& path);
    /// The same over the text of a file.
    static std::unique_ptr<StrokeFont> FromText(std::string text);
    /// Null when the font has none.
    [[nodiscard]] const StrokeGlyph* Find(char32_t character);

private:
    bool Index();
    void ReadHead(std::string_view line);
    void ReadSection(std::string_view section, StrokeGlyph& glyph, int depth);
    void ReadPolyline(std::string_view line, Path& path);

    std::string m_text;
    std::unordered_map<char32_t, std::string_view> m_sections; ///< into m_text
    std::unordered_map<char32_t, StrokeGlyph> m_glyphs;
    double m_letterSpacing = 3, m_wordSpacing = 6.75; ///< font units
};

} // namespace sm::render
