// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialect/FontGlyphs.h"

#include <algorithm>
#include <array>

namespace sm::publisher {

namespace {

bool AddStroke(DialectFont& font, std::uint8_t code, std::string_view procedure)
{
    std::string_view rest = procedure;
    std::array<double, 6> metrics{};
    for (double& value : metrics) {
        if (!TakeNumber(rest, value) || !Take(rest, " ")) {
            return false;
        }
    }
    const bool plain = rest.find_first_of("()<>[]/BTEqQgG") == std::string_view::npos;
    if (metrics[1] != 0 || !Take(rest, "d1\n") || !plain || !CheckDialectBody(rest)) {
        return false;
    }
    font.widths[code] = metrics[0];
    font.strokes[code] = std::string(procedure);
    return true;
}

constexpr std::uint8_t kNoDigit = 0xFF;

constexpr std::array<std::uint8_t, 256> kHexValues = [] {
    std::array<std::uint8_t, 256> values{};
    values.fill(kNoDigit);
    for (std::uint8_t i = 0; i < 16; ++i)
        values[static_cast<unsigned char>("0123456789ABCDEF"[i])] = i;
    return values;
}();

/// The bytes of one string, whose lines hold whole bytes; false when something else stands there.
bool AppendHex(std::string_view digits, std::string& bytes)
{
    bytes.reserve(bytes.size() + digits.size() / 2);
    for (std::size_t at = 0; at < digits.size();) {
        if (digits[at] == '\n') {
            ++at;
            continue;
        }
        const unsigned high = kHexValues[static_cast<unsigned char>(digits[at])];
        const unsigned low = at + 1 < digits.size() ? kHexValues[static_cast<unsigned char>(digits[at + 1])] : kNoDigit;
        if (high == kNoDigit || low == kNoDigit)
            return false;
        bytes += static_cast<char>(high << 4 | low);
        at += 2;
    }
    return true;
}

/// The strings of the array joined, each without its padding byte.
bool ReadSfnt(FontLines& lines, std::string& bytes)
{
    while (lines.Peek().starts_with("<")) {
        const std::size_t end = std::min(lines.rest.find('>'), lines.rest.size());
        if (!AppendHex(lines.rest.substr(1, end - 1), bytes)) {
            return false;
        }
        lines.rest.remove_prefix(end);
        if (!lines.rest.starts_with(">\n") || bytes.empty() || bytes.back() != '\0') {
            return false;
        }
        bytes.pop_back();
        lines.rest.remove_prefix(2);
    }
    return !bytes.empty();
}

} // namespace

bool ReadStrokes(FontLines& lines, const GlyphCodes& codes, DialectFont& font)
{
    const std::string_view head = lines.Line();
    if (!head.starts_with("/CharProcs ") || !head.ends_with(" dict dup begin/.notdef{0 0 0 0 0 0 d1}bind def")) {
        return false;
    }
    while (Take(lines.rest, "/")) {
        const std::size_t open = lines.rest.find('{'), close = lines.rest.find("}bind def\n");
        const std::uint8_t* code = close > open ? codes.Find(lines.rest.substr(0, open)) : nullptr;
        if (code == nullptr || close == std::string_view::npos ||
            !AddStroke(font, *code, lines.rest.substr(open + 1, close - open - 1))) {
            return false;
        }
        lines.rest.remove_prefix(lines.rest.find('\n', close) + 1);
    }
    return lines.Expect("end def") && lines.Expect("/BuildGlyph{exch/CharProcs get exch get exec}bind def") &&
           lines.Expect("/BuildChar{1 index/Encoding get exch get 1 index/BuildGlyph get exec}bind def");
}

bool ReadWidths(FontLines& lines, DialectFont& font)
{
    if (!lines.Expect("/W 256 array 0 1 255{1 index exch 0 put}for")) {
        return false;
    }
    while (lines.Peek().starts_with("dup ")) {
        std::string_view line = lines.Line();
        std::uint8_t code = 0;
        double width = 0;
        if (!Take(line, "dup ") || !TakeNumber(line, code) || !Take(line, " ") || !TakeNumber(line, width) ||
            line != " put") {
            return false;
        }
        font.widths[code] = width;
    }
    return lines.Expect("def") &&
           lines.Expect("/BuildChar{exch/W get exch get 1000 div 0 0 0 1 1 setcachedevice}bind def");
}

bool ReadOutlines(FontLines& lines, const GlyphCodes& codes, DialectFont& font)
{
    const std::string_view head = lines.Line();
    if (!head.starts_with("/CharStrings ") || !head.ends_with(" dict dup begin/.notdef 0 def")) {
        return false;
    }
    while (lines.Peek().starts_with("/")) {
        std::string_view line = lines.Line().substr(1);
        const std::size_t blank = line.find(' ');
        const std::uint8_t* code = codes.Find(line.substr(0, blank));
        std::uint16_t glyph = 0;
        line.remove_prefix(blank == std::string_view::npos ? line.size() : blank + 1);
        if (code == nullptr || !TakeNumber(line, glyph) || line != " def") {
            return false;
        }
        font.glyphs[*code] = glyph;
    }
    return lines.Expect("end def") && lines.Expect("/sfnts[") && ReadSfnt(lines, font.sfnt) && lines.Expect("]def");
}

} // namespace sm::publisher
