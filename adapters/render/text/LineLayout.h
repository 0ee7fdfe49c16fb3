// SPDX-License-Identifier: GPL-3.0-or-later
// TEXT, ATTRIB and ATTDEF: one line, put where its alignment says.
#pragma once

#include "text/TextCodes.h"
#include "text/Typesetter.h"

namespace sm::drawing {
struct TextData;
} // namespace sm::drawing

namespace sm::render {

class LineLayout {
public:
    LineLayout(FontLibrary& fonts, LaidParts& parts) : m_fonts(fonts), m_parts(parts), m_setter(fonts, parts) {}
    void Lay(const drawing::Drawing& drawing, const drawing::TextData& text);

private:
    double SetAcross(const TypeStyle& style);
    double SetDown(const TypeStyle& style);
    double DepthOf(const TypeStyle& style);
    double BehindLast(const TypeStyle& style);

    FontLibrary& m_fonts;
    LaidParts& m_parts;
    Typesetter m_setter;
    std::vector<CodedPiece> m_pieces;
};

} // namespace sm::render
