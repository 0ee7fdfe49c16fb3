#include "render/text/MTextCodes.h"

#include "render/text/TextCodes.h"
#include "render/text/Unicode.h"

#include <charconv>
#include <cmath>

namespace sm::render {

namespace {

constexpr std::size_t kDeepest = 64; // groups within groups

class Parser {
public:
    Parser(std::string_view text, const TypeStyle& base, FontLibrary& fonts, ParsedMText& out)
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
    void Caret();
    void EndWord();
    void EndParagraph();
    void Add(MTextToken::Kind kind, std::string text);
    void AppendPlain();
    std::string_view Argument();
    void SetFont(std::string_view argument);
    void SetHeight(std::string_view argument);
    void SetColor(std::string_view argument, bool trueColor);
    void SetParagraph(std::string_view argument);
    void SetParagraphItem(char kind, std::string_view value);
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

double NumberOf(std::string_view text, double fallback)
{
    while (!text.empty() && (text.front() == ' ' || text.front() == '+')) {
        text.remove_prefix(1);
    }
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    (void)end;
    return error == std::errc{} && std::isfinite(value) ? value : fallback;
}

std::uint32_t Parser::Look()
{
    if (m_lookChanged) {
        m_out.styles.push_back(m_look);
        m_lookChanged = false;
    }
    return static_cast<std::uint32_t>(m_out.styles.size() - 1);
}

void Parser::Add(MTextToken::Kind kind, std::string text)
{
    MTextToken token;
    token.kind = kind;
    token.text = std::move(text);
    token.style = Look();
    token.joined = m_joins;
    m_out.tokens.push_back(std::move(token));
    m_joins = false;
}

void Parser::EndWord()
{
    if (!m_word.empty()) {
        Add(MTextToken::Kind::Word, std::move(m_word));
        m_word.clear();
    }
}

void Parser::EndParagraph()
{
    EndWord();
    Add(MTextToken::Kind::Paragraph, {});
    m_out.tokens.back().paragraph = static_cast<std::uint32_t>(m_out.paragraphs.size() - 1);
    m_joins = false;
}

void Parser::Step()
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
        const bool opens = c == '{' && m_groups.size() < kDeepest;
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

void Parser::AppendPlain()
{
    const std::size_t from = m_at;
    const char32_t c = NextCharacter(m_text, m_at);
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

void Parser::Caret()
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
std::string_view Parser::Argument()
{
    const std::size_t end = m_text.find(';', m_at);
    if (end == std::string_view::npos) {
        return {};
    }
    const std::string_view argument = m_text.substr(m_at, end - m_at);
    m_at = end + 1;
    return argument;
}

void Parser::Code()
{
    const char code = m_text[m_at++];
    if (code == 'P' || code == 'X' || code == 'N') {
        EndParagraph();
        return;
    }
    if (code == '~') {
        AppendCharacter(m_word, 0xA0);
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
    switch (code) {
    case 'L':
    case 'l':
        m_look.under = code == 'L';
        break;
    case 'O':
    case 'o':
        m_look.over = code == 'O';
        break;
    case 'K':
    case 'k':
        m_look.strike = code == 'K';
        break;
    case 'H':
    case 'h':
        SetHeight(Argument());
        break;
    case 'W':
    case 'w':
        m_look.width = Factor(Argument(), m_look.width, 0.01, 100);
        break;
    case 'Q':
    case 'q':
        m_look.oblique = NumberOf(Argument(), m_look.oblique);
        break;
    case 'T':
    case 't':
        m_look.tracking = Factor(Argument(), m_look.tracking, 0.1, 100);
        break;
    case 'C':
    case 'c':
        SetColor(Argument(), code == 'c');
        break;
    case 'F':
    case 'f':
        SetFont(Argument());
        break;
    case 'p':
        SetParagraph(Argument());
        break;
    default: // A: how fractions stand beside their line
        Argument();
    }
    m_lookChanged = true;
}

double Parser::Factor(std::string_view argument, double now, double low, double high) const
{
    const double value = NumberOf(argument, 0);
    const double factor = !argument.empty() && LowerAscii(argument.back()) == 'x' ? value * now : value;
    return factor >= low && factor <= high ? factor : now;
}

void Parser::SetHeight(std::string_view argument)
{
    m_look.height = Factor(argument, m_look.height, 1e-6 * m_base.height, 1e6 * m_base.height);
}

void Parser::SetColor(std::string_view argument, bool trueColor)
{
    const double value = NumberOf(argument, -1);
    if (value < 0 || value > 0xFFFFFF || (!trueColor && value > 256)) {
        return;
    }
    const auto number = static_cast<std::uint32_t>(value);
    TextColor color;
    if (trueColor) { // blue is the highest byte here
        color.trueColor = (number & 0xFF) << 16 | (number & 0xFF00) | number >> 16;
    } else {
        color.index = static_cast<std::int16_t>(number);
    }
    m_look.color = color;
}

void Parser::SetFont(std::string_view argument)
{
    const std::size_t end = argument.find('|');
    const std::string name(argument.substr(0, end));
    if (name.empty()) {
        return;
    }
    const bool bold = argument.find("|b1") != std::string_view::npos;
    const bool italic = argument.find("|i1") != std::string_view::npos;
    const bool shape = Lowered(name).ends_with(".shx");
    m_look.font = shape ? &m_fonts.ForShapeFile(name) : &m_fonts.ForFamily(name, bold, italic);
}

void Parser::SetParagraph(std::string_view argument)
{
    m_out.paragraphs.push_back(m_out.paragraphs.back());
    char kind = 0;
    while (!argument.empty()) {
        const std::size_t end = argument.find(',');
        std::string_view item = argument.substr(0, end);
        argument.remove_prefix(end == std::string_view::npos ? argument.size() : end + 1);
        if (!item.empty() && (item.front() == 'x' || item.front() == 'q') && item.size() > 1 && item[1] != '*') {
            item.remove_prefix(item.front() == 'x' ? 1 : 0);
        }
        const bool named = !item.empty() && ((item.front() >= 'a' && item.front() <= 'z'));
        if (named) {
            kind = item.front();
            item.remove_prefix(1);
        }
        SetParagraphItem(kind, item);
    }
}

void Parser::SetParagraphItem(char kind, std::string_view value)
{
    ParagraphStyle& style = m_out.paragraphs.back();
    const double length = NumberOf(value, 0) * m_base.height;
    const char letter = value.empty() ? '\0' : value.front();
    switch (kind) {
    case 'i':
        style.firstIndent = length;
        break;
    case 'l':
        style.leftIndent = std::max(0.0, length);
        break;
    case 'r':
        style.rightIndent = std::max(0.0, length);
        break;
    case 't':
        if (letter == '\0' || letter == 'z' || letter == '*') {
            style.tabs.clear();
        } else if (length > 0) {
            style.tabs.push_back(length);
        }
        break;
    case 'q':
        style.align = letter == 'l'   ? ParagraphAlign::Left
                      : letter == 'r' ? ParagraphAlign::Right
                      : letter == 'c' ? ParagraphAlign::Center
                      : letter == 'j' ? ParagraphAlign::Justified
                      : letter == 'd' ? ParagraphAlign::Distributed
                                      : ParagraphAlign::Default;
        break;
    default:
        break;
    }
}

void Parser::Stack(std::string_view argument)
{
    MTextToken token;
    token.kind = MTextToken::Kind::Stack;
    std::string* part = &token.text;
    for (std::size_t at = 0; at < argument.size();) {
        if (DecodeCharacter(argument, at, *part)) {
            continue;
        }
        const char c = argument[at++];
        if (token.bar == 0 && (c == '^' || c == '/' || c == '#')) {
            token.bar = c;
            part = &token.below;
        } else if (c == '\\' && at < argument.size()) {
            *part += argument[at++];
        } else if (c != ' ' || !part->empty()) {
            *part += c;
        }
    }
    token.style = Look();
    token.joined = m_joins;
    if (token.bar == 0) {
        token.kind = MTextToken::Kind::Word;
    }
    m_out.tokens.push_back(std::move(token));
    m_joins = true;
}

} // namespace

void ParseMText(std::string_view text, const TypeStyle& base, FontLibrary& fonts, ParsedMText& out)
{
    Parser(text, base, fonts, out).Run();
}

} // namespace sm::render
