// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/MTextParser.h"

#include "base/text/Keywords.h"
#include "base/text/Names.h"
#include "text/TextCodes.h"

#include <charconv>
#include <cmath>

namespace sm::render {

double LeadingNumber(std::string_view text, double fallback)
{
    while (!text.empty() && (text.front() == ' ' || text.front() == '+')) {
        text.remove_prefix(1);
    }
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    (void)end;
    return error == std::errc{} && std::isfinite(value) ? value : fallback;
}

void MTextParser::SetLook(char code)
{
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
        m_look.oblique = LeadingNumber(Argument(), m_look.oblique);
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
    default:
        SetLineAlign(Argument());
    }
}

double MTextParser::Factor(std::string_view argument, double now, double low, double high) const
{
    const double value = LeadingNumber(argument, 0);
    const double factor = !argument.empty() && base::LowerAscii(argument.back()) == 'x' ? value * now : value;
    return factor >= low && factor <= high ? factor : now;
}

void MTextParser::SetHeight(std::string_view argument)
{
    m_look.height = Factor(argument, m_look.height, 1e-6 * m_base.height, 1e6 * m_base.height);
}

void MTextParser::SetColor(std::string_view argument, bool trueColor)
{
    const double value = LeadingNumber(argument, -1);
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

void MTextParser::SetFont(std::string_view argument)
{
    const std::size_t end = argument.find('|');
    const std::string name(argument.substr(0, end));
    if (name.empty()) {
        return;
    }
    const bool bold = argument.find("|b1") != std::string_view::npos;
    const bool italic = argument.find("|i1") != std::string_view::npos;
    const bool shape = base::FoldCase(name).ends_with(".shx") || name.find(',') != std::string::npos;
    m_look.font = shape ? &m_fonts.ForShapeFile(name) : &m_fonts.ForFamily(name, bold, italic);
}

void MTextParser::SetLineAlign(std::string_view argument)
{
    const double value = LeadingNumber(argument, 0);
    m_look.align = value == 1 ? LineAlign::Center : value == 2 ? LineAlign::Top : LineAlign::Bottom;
}

void MTextParser::SetParagraph(std::string_view argument)
{
    m_out.paragraphs.push_back(m_out.paragraphs.back());
    ReadParagraphCode(argument, m_base.height, m_out.paragraphs.back());
}

void MTextParser::Stack(std::string_view argument)
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

} // namespace sm::render
