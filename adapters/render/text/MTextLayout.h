// MTEXT: paragraphs broken into lines within a width and put where the attachment says.
#pragma once

#include "render/text/MTextCodes.h"

namespace sm::render {

class MTextLayout {
public:
    MTextLayout(FontLibrary& fonts, LaidParts& parts) : m_fonts(fonts), m_parts(parts), m_setter(fonts, parts) {}
    void Lay(const drawing::Drawing& drawing, const drawing::MTextData& text);

private:
    /// A token on its line.
    struct Item {
        std::size_t token = 0;
        double x = 0, width = 0;
    };
    struct Line {
        std::size_t begin = 0, end = 0; ///< of m_items; blanks at the end are left out
        double indent = 0, width = 0, room = 0;
        double height = 0; ///< of its highest capitals
        double baseline = 0;
        std::uint32_t paragraph = 0;
        bool last = false; ///< of its paragraph
    };
    TypeStyle BaseStyle(const drawing::Drawing& drawing, const drawing::MTextData& text);
    Box2 Filled(double boxWidth, int column, double descent) const;
    void BreakLines(double width);
    void BreakParagraph(std::size_t begin, std::size_t end, std::uint32_t paragraph, double width);
    std::size_t UnbreakableEnd(std::size_t begin, std::size_t end) const;
    void EndLine(Line& line, bool last, double next);
    double WidthOf(const MTextToken& token);
    double TabWidth(const ParagraphStyle& style, double x) const;
    void StackLines(const drawing::MTextData& text);
    void SetLines(double boxWidth, int column);
    void SetLine(const Line& line, double x, double spread);
    void SetStack(const MTextToken& token, Vec2 pen, double lineHeight);
    double LineStart(const Line& line, double boxWidth, int column, double& spread) const;
    std::size_t GapsIn(const Line& line) const;
    TypeStyle PartStyle(const MTextToken& token) const;

    FontLibrary& m_fonts;
    LaidParts& m_parts;
    Typesetter m_setter;
    ParsedMText m_parsed;
    std::vector<Item> m_items;
    std::vector<Line> m_lines;
    double m_height = 0;    ///< of the text before any code
    double m_blankLine = 0; ///< height of a line without anything on it
    std::string m_joined;
};

} // namespace sm::render
