// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/MTextParser.h"

#include "base/text/Utf8.h"
#include "fonts/Unicode.h"
#include "text/TextCodes.h"

namespace sm::render {

namespace {

constexpr std::size_t kDeepestGroup = 64; // groups within groups

} // namespace

std::uint32_t MTextParser::Look()
{
    if (m_lookChanged) {
        m_out.styles.push_back(m_look);
        m_lookChanged = false;
    }
    return static_cast<std::uint32_t>(m_out.styles.size() - 1);
}

void MTextParser::Add(MTextToken::Kind kind, std::string text)
{
    MTextToken token;
    token.kind = kind;
    token.text = std::move(text);
    token.style = Look();
    token.joined = m_joins;
    m_out.tokens.push_back(std::move(token));
    m_joins = false;
}

void MTextParser::EndWord()
{
    if (!m_word.empty()) {
        Add(MTextToken::Kind::Word, std::move(m_word));
        m_word.clear();
    }
}

void MTextParser::EndParagraph(MTextToken::Kind kind)
{
    EndWord();
    Add(kind, {});
    m_out.tokens.back().paragraph = static_cast<std::uint32_t>(m_out.paragraphs.size() - 1);
    m_joins = false;
}

void MTextParser::Step()
{
    if (DecodeCharacter(m_text, m_at, m_word)) {
        return;
    }
    const char c = m_text[m_at];
    if (c == '\\' && m_at + 1 < m_text.size()) {
        ++m_at;
        Code();
    } else if (c == '{' || c == '}') {
        ++m_at;
        const bool opens = c == '{' && m_groups.size() < kDeepestGroup;
        if (opens) {
            m_groups.push_back(m_look);
        } else if (c == '}' && !m_groups.empty()) {
            const bool glued = !m_word.empty();
            EndWord();
            m_joins = glued;
            m_look = m_groups.back();
            m_groups.pop_back();
            m_lookChanged = true;
        }
    } else if (c == '^' && m_at + 1 < m_text.size()) {
        Caret();
    } else if (c == '\n' || c == '\r') {
        ++m_at;
        if (c == '\n') {
            EndParagraph();
        }
    } else if (c == ' ' || c == '\t') {
        ++m_at;
        EndWord();
        m_joins = false;
        Add(c == ' ' ? MTextToken::Kind::Blank : MTextToken::Kind::Tab, c == ' ' ? " " : "");
    } else {
        AppendPlain();
    }
}

void MTextParser::AppendPlain()
{
    const std::size_t from = m_at;
    const char32_t c = base::NextCharacter(m_text, m_at);
    const bool breaks = BreaksAnywhere(c);
    if (breaks) {
        EndWord();
    }
    m_word += m_text.substr(from, m_at - from);
    if (breaks) {
        EndWord();
        m_joins = false;
    }
}

void MTextParser::Caret()
{
    const char code = m_text[m_at + 1];
    m_at += 2;
    switch (code) {
    case 'I':
        EndWord();
        Add(MTextToken::Kind::Tab, {});
        break;
    case 'J':
        EndParagraph();
        break;
    case 'M':
        break;
    case ' ':
        m_word += '^';
        break;
    default:
        m_word += '^';
        m_at -= 1;
    }
}

/// Up to the next ";", which is passed. A code without its ";" takes nothing.
std::string_view MTextParser::Argument()
{
    const std::size_t end = m_text.find(';', m_at);
    if (end == std::string_view::npos) {
        return {};
    }
    const std::string_view argument = m_text.substr(m_at, end - m_at);
    m_at = end + 1;
    return argument;
}

void MTextParser::Code()
{
    const char code = m_text[m_at++];
    if (code == 'P' || code == 'X' || code == 'N') {
        EndParagraph(code == 'N' ? MTextToken::Kind::Column : MTextToken::Kind::Paragraph);
        return;
    }
    if (code == '~') {
        base::AppendUtf8(m_word, 0xA0);
        return;
    }
    if (std::string_view("LlOoKkHhWwQqTtCcFfApS").find(code) == std::string_view::npos) {
        m_word += code; // an escaped character
        return;
    }
    const bool glued = !m_word.empty();
    EndWord();
    m_joins = m_joins || glued;
    if (code == 'S') {
        Stack(Argument());
        return;
    }
    SetLook(code);
    m_lookChanged = true;
}

} // namespace sm::render
