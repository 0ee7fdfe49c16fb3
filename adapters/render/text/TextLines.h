// SPDX-License-Identifier: GPL-3.0-or-later
// Breaks the tokens of an MTEXT into lines within a width.
#pragma once

#include "text/MTextCodes.h"

namespace sm::render {

/// A token on its line.
struct LineItem {
    std::size_t token = 0;
    double x = 0, width = 0;
};

struct TextLine {
    std::size_t begin = 0, end = 0; ///< of the items; blanks at the end are left out
    double indent = 0, width = 0;
    double room = 0;             ///< 0: no limit
    double height = 0;           ///< of its highest capitals
    double above = 0, below = 0; ///< how far its fractions reach over the base line and below it; above >= height
    std::uint32_t paragraph = 0;
    bool first = false, last = false; ///< of its paragraph
    bool endsColumn = false;
    double baseline = 0; ///< set by who stacks the lines
    int column = 0;
};

/// The parts of a fraction: where they stand from the fraction's own left end on the base line.
struct StackShape {
    double width = 0;
    double top = 0, bottom = 0; ///< of the whole
    Vec2 above, below;          ///< base lines' starts
    Vec2 barFrom, barTo;
    Vec2 barHalf; ///< half the bar's thickness; {0, 0}: no bar
};

class LineBreaker {
public:
    explicit LineBreaker(Typesetter& setter) : m_setter(setter) {}
    /// `width` 0: lines end with their paragraphs. `height`: of the text before any code.
    void Break(const ParsedMText& parsed, double width, double height);
    [[nodiscard]] std::vector<TextLine>& Lines() { return m_lines; }
    [[nodiscard]] const std::vector<TextLine>& Lines() const { return m_lines; }
    [[nodiscard]] const std::vector<LineItem>& Items() const { return m_items; }
    /// A fraction beside capitals of that height.
    StackShape ShapeOf(const MTextToken& token, double lineHeight);
    [[nodiscard]] TypeStyle PartStyle(const MTextToken& token) const;

private:
    void BreakParagraph(std::size_t begin, std::size_t end, double width);
    void AddTokens(std::size_t from, std::size_t to, std::size_t end, double& x);
    [[nodiscard]] std::size_t UnbreakableEnd(std::size_t begin, std::size_t end) const;
    void EndLine(bool last, double next);
    void MeasureHeights(TextLine& line);
    double WidthOf(const MTextToken& token);
    double TabWidth(std::size_t token, std::size_t end, double x);
    double WidthAfterTab(std::size_t token, std::size_t end, bool toPoint);

    Typesetter& m_setter;
    const ParsedMText* m_parsed = nullptr;
    std::vector<LineItem> m_items;
    std::vector<TextLine> m_lines;
    TextLine m_line;        ///< the open one
    double m_height = 0;    ///< of the text before any code
    double m_blankLine = 0; ///< height of a line without anything on it
};

} // namespace sm::render
