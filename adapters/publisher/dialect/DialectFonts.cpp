// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialect/FontGlyphs.h"

#include <algorithm>
#include <iterator>

namespace sm::publisher {

namespace {

std::string FaceName(std::string_view text)
{
    constexpr std::size_t kLongest = 63; // what readers of old take of a name
    std::string name;
    std::copy_if(text.begin(), text.end(), std::back_inserter(name), [](char c) {
        return c == '-' || (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    });
    return name.substr(0, kLongest);
}

bool ReadSource(FontLines& lines, FontSource& source)
{
    std::string_view line = lines.Peek();
    source.curves = line.starts_with("% Cubic ") ? Curves::Cubic : Curves::Quadratic;
    if (!Take(line, "% Cubic ") && !Take(line, "% Quadratic ")) {
        return true;
    }
    if (!TakeNumber(line, source.index) || !Take(line, " ") || line.empty()) {
        return false;
    }
    source.path = line;
    for (lines.Line(); Take(lines.rest, "% Glyphs");) {
        for (line = lines.Line(); Take(line, " ");) {
            if (!TakeNumber(line, source.glyphs.emplace_back())) {
                return false;
            }
        }
        if (!line.empty()) {
            return false;
        }
    }
    return true;
}

bool ReadBox(FontLines& lines, std::array<double, 4>& box)
{
    std::string_view line = lines.Line();
    bool right = Take(line, "/FontBBox[");
    for (double& edge : box) {
        right = right && TakeNumber(line, edge) && Take(line, " ");
    }
    return right && line == "]def";
}

bool ReadHead(FontLines& lines, DialectFont& font)
{
    const std::string_view head = lines.Line();
    const auto is = [&](const char* type, const char* scale) {
        return head == "13 dict begin/FontType " + std::string(type) + " def/FontName/" + font.name +
                           " def/FontMatrix[" + scale + " 0 0 " + scale + " 0 0]def";
    };
    if (is("42", "1")) {
        font.kind = DialectFont::Kind::Outlines;
        return lines.Expect("/PaintType 0 def/FontBBox[0 0 0 0]def");
    }
    if (is("3", ".001")) {
        font.kind = DialectFont::Kind::Strokes;
        return ReadBox(lines, font.box);
    }
    return is("3", "1") && lines.Expect("/FontBBox[0 -0.25 1 1]def");
}

bool ReadEncoding(FontLines& lines, GlyphCodes& codes)
{
    if (!lines.Expect("/Encoding 256 array 0 1 255{1 index exch/.notdef put}for")) {
        return false;
    }
    while (lines.Peek().starts_with("dup ")) {
        std::string_view line = lines.Line();
        std::uint8_t code = 0;
        if (!Take(line, "dup ") || !TakeNumber(line, code) || !Take(line, "/") || !line.ends_with(" put")) {
            return false;
        }
        codes.Add(line.substr(0, line.size() - 4), code);
    }
    return lines.Expect("def");
}

bool ReadUnicode(FontLines& lines, const GlyphCodes& codes, DialectFont& font)
{
    if (!lines.Line().starts_with("/FontInfo 2 dict dup begin/GlyphNames2Unicode ")) {
        return false;
    }
    while (lines.Peek().starts_with("/")) {
        const std::string_view line = lines.Line().substr(1);
        const std::size_t open = line.find('<'), close = line.find(">def");
        const std::uint8_t* code = open == std::string_view::npos ? nullptr : codes.Find(line.substr(0, open));
        if (code == nullptr || close == std::string_view::npos || close + 4 != line.size()) {
            return false;
        }
        font.unicode[*code] = std::string(line.substr(open + 1, close - open - 1));
    }
    return lines.Expect("end def end def");
}

bool ReadGlyphs(FontLines& lines, const GlyphCodes& codes, DialectFont& font)
{
    return font.kind == DialectFont::Kind::Outlines  ? ReadOutlines(lines, codes, font)
           : font.kind == DialectFont::Kind::Strokes ? ReadStrokes(lines, codes, font)
                                                     : ReadWidths(lines, font);
}

bool ReadFont(FontLines& lines, DialectFont& font)
{
    std::string_view line = lines.Line();
    if (!Take(line, "%%BeginResource: font F")) {
        return false;
    }
    font.name = "F" + std::string(line);
    if (lines.Peek().starts_with("% ")) {
        font.face = FaceName(lines.Line().substr(2));
    }
    GlyphCodes codes;
    return ReadSource(lines, font.source) && ReadHead(lines, font) && ReadEncoding(lines, codes) &&
           ReadUnicode(lines, codes, font) && ReadGlyphs(lines, codes, font) &&
           lines.Expect("FontName currentdict end definefont pop") && lines.Expect("%%EndResource");
}

} // namespace

std::optional<std::vector<DialectFont>> ReadDialectFonts(std::string_view setup)
{
    std::vector<DialectFont> fonts;
    for (FontLines lines{setup}; !lines.rest.empty();) {
        if (!ReadFont(lines, fonts.emplace_back())) {
            return std::nullopt;
        }
    }
    return fonts;
}

} // namespace sm::publisher
