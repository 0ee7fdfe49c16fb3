// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the text of an MTEXT code by code.
#pragma once

#include "text/MTextTokens.h"

namespace sm::render {

class MTextParser {
public:
    MTextParser(std::string_view text, const TypeStyle& base, FontLibrary& fonts, ParsedMText& out)
        : m_text(text), m_base(base), m_fonts(fonts), m_out(out), m_look(base)
    {
        m_out.tokens.clear();
        m_out.styles.assign(1, base);
        m_out.paragraphs.assign(1, {});
    }

    void Run()
    {
        while (m_at < m_text.size()) {
            Step();
        }
        EndParagraph();
    }

private:
    void Step();
    void Code();
    void SetLook(char code);
    void Caret();
    void EndWord();
    void EndParagraph(MTextToken::Kind kind = MTextToken::Kind::Paragraph);
    void Add(MTextToken::Kind kind, std::string text);
    void AppendPlain();
    std::string_view Argument();
    void SetFont(std::string_view argument);
    void SetHeight(std::string_view argument);
    void SetColor(std::string_view argument, bool trueColor);
    void SetParagraph(std::string_view argument);
    void SetLineAlign(std::string_view argument);
    void Stack(std::string_view argument);
    double Factor(std::string_view argument, double now, double low, double high) const;
    std::uint32_t Look();

    std::string_view m_text;
    std::size_t m_at = 0;
    const TypeStyle& m_base;
    FontLibrary& m_fonts;
    ParsedMText& m_out;
    TypeStyle m_look;
    bool m_lookChanged = false;
    std::vector<TypeStyle> m_groups;
    std::string m_word;
    bool m_joins = false; ///< the next token must stay with the last one
};

/// Changes a style by the argument of a paragraph code ("i-3,l4,t4,c8;qc;sm1.5"); lengths in it are multiplied by
/// `height`.
void ReadParagraphCode(std::string_view argument, double height, ParagraphStyle& style);

/// The number at the text's start; `fallback` when there is none.
double LeadingNumber(std::string_view text, double fallback);

} // namespace sm::render
