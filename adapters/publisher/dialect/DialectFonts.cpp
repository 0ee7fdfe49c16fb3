// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialect/DialectPage.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>

namespace sm::publisher {

namespace {

/// Reads a resource line by line; every step answers whether the text was as the plotter writes it.
class FontReader {
public:
    explicit FontReader(std::string_view text) : m_text(text) {}

    std::optional<std::vector<DialectFont>> ReadAll()
    {
        std::vector<DialectFont> fonts;
        while (!m_text.empty()) {
            DialectFont font;
            if (!ReadFont(font)) {
                return std::nullopt;
            }
            fonts.push_back(std::move(font));
        }
        return fonts;
    }

private:
    std::string_view Line()
    {
        const std::size_t end = m_text.find('\n');
        const std::string_view line = m_text.substr(0, end);
        m_text.remove_prefix(end == std::string_view::npos ? m_text.size() : end + 1);
        return line;
    }
    std::string_view Peek() const { return m_text.substr(0, m_text.find('\n')); }
    bool Expect(std::string_view line) { return Line() == line; }

    static bool Take(std::string_view& text, std::string_view beginning)
    {
        const bool there = text.starts_with(beginning);
        text.remove_prefix(there ? beginning.size() : 0);
        return there;
    }
    template <class Number> static bool TakeNumber(std::string_view& text, Number& number)
    {
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
        return error == std::errc();
    }

    static std::string FaceName(std::string_view text)
    {
        constexpr std::size_t kLongest = 63; // what readers of old take of a name
        std::string name;
        std::copy_if(text.begin(), text.end(), std::back_inserter(name), [](char c) {
            return c == '-' || (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
        });
        return name.substr(0, kLongest);
    }

    bool ReadFont(DialectFont& font)
    {
        std::string_view line = Line();
        if (!Take(line, "%%BeginResource: font F")) {
            return false;
        }
        font.name = "F" + std::string(line);
        if (Peek().starts_with("% ")) {
            font.face = FaceName(Line().substr(2));
        }
        return ReadCubicSource(font.cubic) && ReadHead(font) && ReadEncoding() && ReadUnicode(font) &&
               ReadGlyphs(font) && Expect("FontName currentdict end definefont pop") && Expect("%%EndResource");
    }

    bool ReadCubicSource(CubicSource& source)
    {
        std::string_view line = Peek();
        if (!Take(line, "% Cubic ")) {
            return true;
        }
        if (!TakeNumber(line, source.index) || !Take(line, " ") || line.empty()) {
            return false;
        }
        source.path = line;
        for (Line(); Take(m_text, "% Glyphs");) {
            for (line = Line(); Take(line, " ");) {
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

    bool ReadHead(DialectFont& font)
    {
        const std::string_view head = Line();
        const auto is = [&](const char* type, const char* scale) {
            return head == "13 dict begin/FontType " + std::string(type) + " def/FontName/" + font.name +
                               " def/FontMatrix[" + scale + " 0 0 " + scale + " 0 0]def";
        };
        if (is("42", "1")) {
            font.kind = DialectFont::Kind::Outlines;
            return Expect("/PaintType 0 def/FontBBox[0 0 0 0]def");
        }
        if (is("3", ".001")) {
            font.kind = DialectFont::Kind::Strokes;
            return ReadBox(font.box);
        }
        return is("3", "1") && Expect("/FontBBox[0 -0.25 1 1]def");
    }

    bool ReadGlyphs(DialectFont& font)
    {
        return font.kind == DialectFont::Kind::Outlines  ? ReadOutlines(font)
               : font.kind == DialectFont::Kind::Strokes ? ReadStrokes(font)
                                                         : ReadWidths(font);
    }

    bool ReadBox(std::array<double, 4>& box)
    {
        std::string_view line = Line();
        bool right = Take(line, "/FontBBox[");
        for (double& edge : box) {
            right = right && TakeNumber(line, edge) && Take(line, " ");
        }
        return right && line == "]def";
    }

    /// Procedures that are content streams: "/name{width 0 box d1", the strokes, "}bind def".
    bool ReadStrokes(DialectFont& font)
    {
        const std::string_view head = Line();
        if (!head.starts_with("/CharProcs ") || !head.ends_with(" dict dup begin/.notdef{0 0 0 0 0 0 d1}bind def")) {
            return false;
        }
        while (Take(m_text, "/")) {
            const std::size_t open = m_text.find('{'), close = m_text.find("}bind def\n");
            const std::uint8_t* code = close > open ? CodeOf(m_text.substr(0, open)) : nullptr;
            if (code == nullptr || close == std::string_view::npos ||
                !AddStroke(font, *code, m_text.substr(open + 1, close - open - 1))) {
                return false;
            }
            m_text.remove_prefix(m_text.find('\n', close) + 1);
        }
        return Expect("end def") && Expect("/BuildGlyph{exch/CharProcs get exch get exec}bind def") &&
               Expect("/BuildChar{1 index/Encoding get exch get 1 index/BuildGlyph get exec}bind def");
    }

    static bool AddStroke(DialectFont& font, std::uint8_t code, std::string_view procedure)
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

    bool ReadEncoding()
    {
        m_codes.clear();
        if (!Expect("/Encoding 256 array 0 1 255{1 index exch/.notdef put}for")) {
            return false;
        }
        while (Peek().starts_with("dup ")) {
            std::string_view line = Line();
            std::uint8_t code = 0;
            if (!Take(line, "dup ") || !TakeNumber(line, code) || !Take(line, "/") || !line.ends_with(" put")) {
                return false;
            }
            m_codes.emplace(line.substr(0, line.size() - 4), code);
        }
        return Expect("def");
    }

    /// The code of a glyph name, or null.
    const std::uint8_t* CodeOf(std::string_view name) const
    {
        const auto found = m_codes.find(name);
        return found == m_codes.end() ? nullptr : &found->second;
    }

    bool ReadUnicode(DialectFont& font)
    {
        if (!Line().starts_with("/FontInfo 2 dict dup begin/GlyphNames2Unicode ")) {
            return false;
        }
        while (Peek().starts_with("/")) {
            const std::string_view line = Line().substr(1);
            const std::size_t open = line.find('<'), close = line.find(">def");
            const std::uint8_t* code = open == std::string_view::npos ? nullptr : CodeOf(line.substr(0, open));
            if (code == nullptr || close == std::string_view::npos || close + 4 != line.size()) {
                return false;
            }
            font.unicode[*code] = std::string(line.substr(open + 1, close - open - 1));
        }
        return Expect("end def end def");
    }

    bool ReadWidths(DialectFont& font)
    {
        if (!Expect("/W 256 array 0 1 255{1 index exch 0 put}for")) {
            return false;
        }
        while (Peek().starts_with("dup ")) {
            std::string_view line = Line();
            std::uint8_t code = 0;
            double width = 0;
            if (!Take(line, "dup ") || !TakeNumber(line, code) || !Take(line, " ") || !TakeNumber(line, width) ||
                line != " put") {
                return false;
            }
            font.widths[code] = width;
        }
        return Expect("def") && Expect("/BuildChar{exch/W get exch get 1000 div 0 0 0 1 1 setcachedevice}bind def");
    }

    bool ReadOutlines(DialectFont& font)
    {
        const std::string_view head = Line();
        if (!head.starts_with("/CharStrings ") || !head.ends_with(" dict dup begin/.notdef 0 def")) {
            return false;
        }
        while (Peek().starts_with("/")) {
            std::string_view line = Line().substr(1);
            const std::size_t blank = line.find(' ');
            const std::uint8_t* code = CodeOf(line.substr(0, blank));
            std::uint16_t glyph = 0;
            line.remove_prefix(blank == std::string_view::npos ? line.size() : blank + 1);
            if (code == nullptr || !TakeNumber(line, glyph) || line != " def") {
                return false;
            }
            font.glyphs[*code] = glyph;
        }
        return Expect("end def") && Expect("/sfnts[") && ReadSfnt(font.sfnt) && Expect("]def");
    }

    static int HexValue(char c) { return c >= '0' && c <= '9' ? c - '0' : c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1; }

    /// The strings of the array joined, each without its padding byte.
    bool ReadSfnt(std::string& bytes)
    {
        while (Peek().starts_with("<")) {
            m_text.remove_prefix(1);
            int high = -1;
            while (!m_text.empty() && m_text.front() != '>') {
                const int value = HexValue(m_text.front());
                if (value < 0 && m_text.front() != '\n') {
                    return false;
                }
                if (value >= 0 && high >= 0) {
                    bytes += static_cast<char>(high << 4 | value);
                    high = -1;
                } else if (value >= 0) {
                    high = value;
                }
                m_text.remove_prefix(1);
            }
            if (!m_text.starts_with(">\n") || bytes.empty() || bytes.back() != '\0') {
                return false;
            }
            bytes.pop_back();
            m_text.remove_prefix(2);
        }
        return !bytes.empty();
    }

    std::string_view m_text;
    std::map<std::string, std::uint8_t, std::less<>> m_codes;
};

} // namespace

std::optional<std::vector<DialectFont>> ReadDialectFonts(std::string_view setup)
{
    return FontReader(setup).ReadAll();
}

} // namespace sm::publisher
