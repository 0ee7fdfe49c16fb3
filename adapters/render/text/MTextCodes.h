// The formatting of MTEXT, read into words, breaks and stacks with their look.
#pragma once

#include "render/text/Typesetter.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace sm::render {

enum class ParagraphAlign : std::uint8_t { Default, Left, Right, Center, Justified, Distributed };

/// Of a paragraph; lengths in drawing units.
struct ParagraphStyle {
    double firstIndent = 0, leftIndent = 0, rightIndent = 0;
    ParagraphAlign align = ParagraphAlign::Default;
    std::vector<double> tabs;
};

struct MTextToken {
    enum class Kind : std::uint8_t { Word, Blank, Tab, Stack, Paragraph } kind = Kind::Word;
    std::string text;            ///< Word, Blank: as shown; Stack: above the bar
    std::string below;           ///< Stack
    char bar = 0;                ///< Stack: '/' with a line, '#' slanted, '^' none
    bool joined = false;         ///< no line break between the token before and this one
    std::uint32_t style = 0;     ///< index of its look
    std::uint32_t paragraph = 0; ///< Paragraph: index of the style of the paragraph that it ends
};

struct ParsedMText {
    std::vector<MTextToken> tokens; ///< the last one is a Paragraph
    std::vector<TypeStyle> styles;
    std::vector<ParagraphStyle> paragraphs;
};

/// Reads the text; `base` is its look before any code. Codes that aren't known are left out, their text stays.
void ParseMText(std::string_view text, const TypeStyle& base, FontLibrary& fonts, ParsedMText& out);

} // namespace sm::render
