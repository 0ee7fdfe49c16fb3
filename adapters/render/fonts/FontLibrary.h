// SPDX-License-Identifier: GPL-3.0-or-later
// The fonts of a drawing: from a text style or a font's name to something that has a glyph for every character.
#pragma once

#include "drawing/Tables.h"
#include "fonts/FontFolders.h"
#include "fonts/FontMap.h"
#include "fonts/FontSubstitutions.h"
#include "fonts/OutlineFace.h"
#include "fonts/StrokeFont.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace sm::drawing {
class Drawing;
}

namespace sm::render {

/// The font that stands for one a drawing names. One of `face` and `stroke` is set.
struct Font {
    const OutlineFace* face = nullptr;
    StrokeFont* stroke = nullptr;
    double strokeWidth = 1;    ///< stroke fonts: how much wider than the file's own letters
    double faceWidth = 1;      ///< outline fonts: likewise
    StrokeFont* big = nullptr; ///< of the characters of two bytes, where a stroke font has such a companion
    [[nodiscard]] double Descent() const { return face != nullptr ? face->Descent() / face->CapHeight() : 1.0 / 3; }
};

/// Where a character's glyph comes from. Both fonts null: nowhere.
struct GlyphSource {
    const OutlineFace* face = nullptr;
    std::uint32_t glyph = 0;
    const StrokeFont* strokeFont = nullptr;
    const StrokeGlyph* strokes = nullptr; ///< of `strokeFont`
};

class FontLibrary {
public:
    /// `dataFolder` holds fonts.map; `userFolder` may hold another one and a folder "fonts". Either may be empty.
    FontLibrary(const std::string& dataFolder, const std::string& userFolder);

    const Font& ForStyle(const drawing::Drawing& drawing, std::uint32_t style);
    /// A font that an MTEXT names itself: a family, or an SHX file.
    const Font& ForFamily(const std::string& family, bool bold, bool italic);
    /// Such a file, and behind a comma its big font: "txt.shx,gbcbig.shx".
    const Font& ForShapeFile(const std::string& file);

    GlyphSource Find(const Font& font, char32_t character);
    /// One line for each, and one for each table or folder of fonts that can't be read.
    [[nodiscard]] std::vector<std::string> Substitutions() const;

private:
    /// A font file and how much wider its letters are drawn; no face: none.
    struct SizedFace {
        const OutlineFace* face = nullptr;
        double width = 1;
    };
    /// What a drawing asks for; `folder` is that of the drawing.
    struct Wish {
        const drawing::TextStyle& style;
        std::string file; ///< without folders
        std::string folder;
        std::string who; ///< for the notes
    };
    Font Resolve(const Wish& wish);
    Font ResolveShape(const Wish& wish);
    Font ResolveOutline(const Wish& wish);
    std::optional<Font> ResolveNamed(const Wish& wish);
    StrokeFont* LastStroke(std::string& drawn);
    const OutlineFace* FaceByName(const std::string& file);
    SizedFace FirstOf(const std::optional<FontChoices>& choices);
    SizedFace FaceFor(const Wish& wish, bool& exact);
    SizedFace FaceInstead(const Wish& wish);
    const OutlineFace* FaceAt(const FontPlace& place);
    const OutlineFace* AnyFace();
    StrokeFont* StrokeAt(const std::string& file, const StrokeChoice* choice);
    StrokeFont* StrokeIn(const std::string& path);
    StrokeFont* BigFontOf(const Wish& wish, const std::string& codePage);
    GlyphSource FindElsewhere(char32_t character);
    GlyphSource FindInFallbacks(char32_t character);
    const StrokeGlyph* FindInStrokes(StrokeFont& beside, char32_t character);

    FontMap m_map;
    FontFolders m_folders;
    std::map<std::string, std::unique_ptr<OutlineFace>> m_faces; ///< by path and index; null when unusable
    std::map<std::string, std::unique_ptr<StrokeFont>> m_strokes;
    std::map<std::string, Font> m_named;
    /// The last font of each style's index, with what the style asked for.
    struct StyleEntry {
        std::string fontFile, bigFontFile, family, path;
        bool bold = false, italic = false;
        const Font* font = nullptr;
    };
    std::vector<StyleEntry> m_styles;
    std::map<std::string, std::unique_ptr<Font>> m_styleFonts;
    std::unordered_map<char32_t, GlyphSource> m_elsewhere;
    FontSubstitutions m_substitutions;
    std::vector<std::string> m_troubles; ///< of the tables
};

} // namespace sm::render
