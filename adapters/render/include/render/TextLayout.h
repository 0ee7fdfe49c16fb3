// SPDX-License-Identifier: GPL-3.0-or-later
// Text entities as runs of glyphs in the entity's own plane.
//
// All geometry is in the entity's OCS: x and y of the plane, drawing units, already turned, sheared, mirrored, aligned
// and wrapped. Colours are given only where the text's own formatting sets one. Nothing vanishes: a missing font gets a
// substitute, a missing glyph a substitute font's glyph or a visible box.
#pragma once

#include "drawing/Properties.h"
#include "render/Canvas.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sm::drawing {
class Drawing;
struct MTextData;
struct TextData;
} // namespace sm::drawing

namespace sm::render {

struct TextColor {
    std::int16_t index = drawing::kByBlock;
    std::optional<std::uint32_t> trueColor;
};

/// Glyphs of one font, outlines or strokes: `run.toPaper` maps em to the OCS plane here; `run.color` and `run.penWidth`
/// are not set.
struct GlyphPart {
    TextRun run;
    bool missing = false; ///< boxes for characters that no font has
    std::optional<TextColor> color;
};

/// Tells, where the part shows boxes, one remark for each character that no font has.
void TellMissing(const GlyphPart& part, const std::function<void(const std::string& remark)>& tell);

/// Under-, over- and strike-through lines, fraction bars: filled or stroked like the text.
struct RulePart {
    Path path;
    std::optional<TextColor> color;
};

struct LaidText {
    std::vector<GlyphPart> glyphs;
    std::vector<RulePart> rules;
    double elevation = 0; ///< z in the OCS
    Vec3 extrusion{0, 0, 1};
    std::vector<Vec2> outline; ///< the four corners of the text's box (turned with it); empty for an empty text
    std::vector<Vec2> frame;   ///< MTEXT: the corners of its whole width and all its columns, what a mask lies behind
};

/// What a line outside of any drawing is set in.
struct LineLook {
    std::string family; ///< "Arial"
    bool bold = false, italic = false;
};

/// Where fonts.map is looked for (the user's lines count before the shipped ones) and, in `user`, a folder "fonts".
struct TextFolders {
    std::string data, user; ///< may be empty
};
/// The shipped data that whoever wires the program found, and the user's own folder.
TextFolders TextFoldersOf(const std::string& shareFolder);

/// Lays text out; keeps fonts open between calls. Not for use by several threads at once.
class TextEngine {
public:
    static std::unique_ptr<TextEngine> Create(const TextFolders& folders);
    /// Reads what all engines of this process and of those that it forks share: many drawings need it but once.
    static void Prepare();
    virtual ~TextEngine() = default;
    /// TEXT, ATTRIB, ATTDEF. The result is valid until the next call.
    virtual const LaidText& Lay(const drawing::Drawing&, const drawing::TextData&) = 0;
    virtual const LaidText& Lay(const drawing::Drawing&, const drawing::MTextData&) = 0;
    /// A line as it stands, without codes: on the x axis from (0, 0) on, the font's em 1 high; letters of other fonts
    /// have the height of its own. The outline is the line's width and its capitals' height.
    virtual const LaidText& Lay(std::string_view line, const LineLook& look) = 0;
    /// "txt.shx drawn with ... (style STANDARD)": one line for each substitution made so far.
    [[nodiscard]] virtual std::vector<std::string> Substitutions() const = 0;
};

} // namespace sm::render
