// SPDX-License-Identifier: GPL-3.0-or-later
// An MTEXT as words, breaks and stacks with their look.
#pragma once

#include "text/Typesetter.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace sm::render {

enum class ParagraphAlign : std::uint8_t { Default, Left, Right, Center, Justified, Distributed };

/// What of a text stands at a tab stop.
enum class TabKind : std::uint8_t { Left, Center, Right, Decimal };

struct TabStop {
    double at = 0;
    TabKind kind = TabKind::Left;
};

/// How far apart the base lines of a paragraph's lines are.
enum class LineRule : std::uint8_t { Default, Multiple, AtLeast, Exact };

/// Of a paragraph; lengths in drawing units.
struct ParagraphStyle {
    double firstIndent = 0, leftIndent = 0, rightIndent = 0;
    double before = 0, after = 0; ///< extra room above and below
    LineRule lineRule = LineRule::Default;
    double lineValue = 0; ///< Multiple: a factor; AtLeast, Exact: a distance
    ParagraphAlign align = ParagraphAlign::Default;
    std::vector<TabStop> tabs; ///< from left to right
};

/// A Paragraph ends a paragraph, a Column besides its column of text.
struct MTextToken {
    enum class Kind : std::uint8_t { Word, Blank, Tab, Stack, Paragraph, Column } kind = Kind::Word;
    std::string text;            ///< Word, Blank: as shown; Stack: above the bar
    std::string below;           ///< Stack
    char bar = 0;                ///< Stack: '/' with a line, '#' slanted, '^' none
    bool joined = false;         ///< no line break between the token before and this one
    std::uint32_t style = 0;     ///< index of its look
    std::uint32_t paragraph = 0; ///< Paragraph, Column: index of the style of the paragraph that it ends
};

struct ParsedMText {
    std::vector<MTextToken> tokens; ///< the last one is a Paragraph
    std::vector<TypeStyle> styles;
    std::vector<ParagraphStyle> paragraphs;
};

} // namespace sm::render
