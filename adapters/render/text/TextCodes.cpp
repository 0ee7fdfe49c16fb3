// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/TextCodes.h"

#include "base/text/Keywords.h"
#include "base/text/Utf8.h"

#include <charconv>
#include <cstdint>

namespace sm::render {

namespace {

bool ParseDigits(std::string_view text, std::size_t count, int base, std::uint32_t& value)
{
    if (text.size() < count) {
        return false;
    }
    const auto [end, error] = std::from_chars(text.data(), text.data() + count, value, base);
    return error == std::errc{} && end == text.data() + count;
}

/// The characters above ASCII that drawings' own fonts keep at 127 to 129.
char32_t ByNumber(std::uint32_t number)
{
    switch (number) {
    case 127:
        return 0xB0;
    case 128:
        return 0xB1;
    case 129:
        return 0xD8;
    default:
        return number;
    }
}

bool DecodePercent(std::string_view text, std::size_t& at, std::string& out)
{
    std::uint32_t number = 0;
    if (ParseDigits(text.substr(at + 2), 3, 10, number)) {
        base::AppendUtf8(out, ByNumber(number));
        at += 5;
        return true;
    }
    char32_t c = 0;
    switch (base::LowerAscii(text[at + 2])) {
    case 'c':
        c = 0xD8;
        break;
    case 'd':
        c = 0xB0;
        break;
    case 'p':
        c = 0xB1;
        break;
    case '%':
        c = U'%';
        break;
    default:
        return false;
    }
    base::AppendUtf8(out, c);
    at += 3;
    return true;
}

} // namespace

bool DecodeCharacter(std::string_view text, std::size_t& at, std::string& out)
{
    if (at + 2 >= text.size()) {
        return false;
    }
    if (text[at] == '%' && text[at + 1] == '%') {
        return DecodePercent(text, at, out);
    }
    std::uint32_t value = 0;
    if (text[at] == '\\' && (text[at + 1] == 'U' || text[at + 1] == 'u') && text[at + 2] == '+' &&
        ParseDigits(text.substr(at + 3), 4, 16, value)) {
        at += 7;
        std::uint32_t low = 0;
        if (value >= 0xD800 && value < 0xDC00 && text.substr(at).starts_with("\\U+") &&
            ParseDigits(text.substr(at + 3), 4, 16, low) && low >= 0xDC00 && low < 0xE000) {
            value = 0x10000 + ((value - 0xD800) << 10 | (low - 0xDC00));
            at += 7;
        }
        base::AppendUtf8(out, value >= 0xD800 && value < 0xE000 ? 0xFFFD : value);
        return true;
    }
    return false;
}

void DecodeLine(std::string_view line, std::vector<CodedPiece>& pieces)
{
    std::size_t count = 0;
    CodedPiece flags;
    const auto begin = [&] {
        if (pieces.size() <= count) {
            pieces.emplace_back();
        }
        CodedPiece& piece = pieces[count++];
        piece.text.clear();
        piece.under = flags.under;
        piece.over = flags.over;
        piece.strike = flags.strike;
    };
    begin();
    for (std::size_t at = 0; at < line.size();) {
        std::string& text = pieces[count - 1].text;
        if (DecodeCharacter(line, at, text)) {
            continue;
        }
        const std::string_view rest = line.substr(at);
        const char code = rest.size() > 2 && rest.starts_with("%%") ? base::LowerAscii(rest[2]) : '\0';
        if (code == 'u' || code == 'o' || code == 'k') {
            bool& flag = code == 'u' ? flags.under : code == 'o' ? flags.over : flags.strike;
            flag = !flag;
            at += 3;
            begin();
        } else if (rest.size() > 1 && rest[0] == '^' && (rest[1] == ' ' || rest[1] == 'I' || rest[1] == 'J')) {
            text += rest[1] == ' ' ? "^" : rest[1] == 'I' ? "    " : " ";
            at += 2;
        } else {
            text += line[at++];
        }
    }
    pieces.resize(count);
}

} // namespace sm::render
