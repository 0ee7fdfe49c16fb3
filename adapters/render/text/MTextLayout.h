// SPDX-License-Identifier: GPL-3.0-or-later
// MTEXT: paragraphs broken into lines within a width, stacked in columns and put where the attachment says.
#pragma once

#include "text/TextLines.h"

namespace sm::drawing {
struct MTextData;
} // namespace sm::drawing

namespace sm::render {

class MTextLayout {
public:
    MTextLayout(FontLibrary& fonts, LaidParts& parts)
        : m_fonts(fonts), m_parts(parts), m_setter(fonts, parts), m_breaker(m_setter)
    {
    }
    void Lay(const drawing::Drawing& drawing, const drawing::MTextData& text);

private:
    TypeStyle BaseStyle(const drawing::Drawing& drawing, const drawing::MTextData& text);
    [[nodiscard]] Box2 Filled(double descent, int column) const;
    void StackLines(const drawing::MTextData& text);
    [[nodiscard]] double StepTo(const TextLine& line, const TextLine& before, const drawing::MTextData& text) const;
    void PlaceColumns(const drawing::MTextData& text, double lineWidth);
    void SetLines(int column);
    void SetLine(const TextLine& line, double x, double spread);
    std::size_t SetPiece(const TextLine& line, std::size_t first, double& x, double spread);
    void SetStack(const MTextToken& token, Vec2 pen, double lineHeight);
    [[nodiscard]] double LineStart(const TextLine& line, int column, double& spread) const;
    [[nodiscard]] std::size_t GapsIn(const TextLine& line) const;

    FontLibrary& m_fonts;
    LaidParts& m_parts;
    Typesetter m_setter;
    LineBreaker m_breaker;
    ParsedMText m_parsed;
    double m_height = 0;      ///< of the text before any code
    double m_columnWidth = 0; ///< of the one or each column
    double m_boxWidth = 0, m_boxBottom = 0;
    std::vector<double> m_columnStarts; ///< x of each column
    std::string m_joined;
};

} // namespace sm::render
