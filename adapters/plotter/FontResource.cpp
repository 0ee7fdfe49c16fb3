#include "plotter/FontResource.h"

#include "plotter/TrueTypeSubset.h"

#include <set>
#include <string_view>

namespace sm::plotter {

namespace {

constexpr char kDigits[] = "0123456789ABCDEF";

void PutHex(std::string& out, std::uint32_t value, int digits)
{
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) {
        out += kDigits[(value >> shift) & 0xF];
    }
}

/// UTF-8 as hexadecimal UTF-16; bytes that aren't UTF-8 are left out.
std::string Utf16Hex(std::string_view text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size();) {
        const unsigned char lead = static_cast<unsigned char>(text[i]);
        const int more = lead < 0x80 ? 0 : lead < 0xC2 ? -1 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : lead < 0xF5 ? 3 : -1;
        if (more < 0 || i + static_cast<std::size_t>(more) >= text.size()) {
            ++i;
            continue;
        }
        std::uint32_t c = more == 0 ? lead : lead & (0x3FU >> more);
        for (int k = 0; k < more; ++k) {
            c = c << 6 | (static_cast<unsigned char>(text[i + 1 + static_cast<std::size_t>(k)]) & 0x3FU);
        }
        i += static_cast<std::size_t>(more) + 1;
        if (c > 0xFFFF) {
            PutHex(out, 0xD800 + ((c - 0x10000) >> 10), 4);
            PutHex(out, 0xDC00 + ((c - 0x10000) & 0x3FF), 4);
        } else {
            PutHex(out, c, 4);
        }
    }
    return out;
}

/// Names by characters, each used once: a second glyph for the same characters gets its code behind.
std::vector<std::string> GlyphNames(const std::vector<FontGlyph>& glyphs)
{
    std::vector<std::string> names;
    std::set<std::string> used;
    for (const FontGlyph& glyph : glyphs) {
        std::string name = glyph.text.empty() ? "g" + std::to_string(glyph.code) : "uni" + Utf16Hex(glyph.text);
        if (name.size() > 60 || !used.insert(name).second) {
            name = name.substr(0, 60) + ".c" + std::to_string(glyph.code);
        }
        names.push_back(std::move(name));
    }
    return names;
}

void PutCommon(std::string& out, const std::vector<FontGlyph>& glyphs, const std::vector<std::string>& names)
{
    out += "/Encoding 256 array 0 1 255{1 index exch/.notdef put}for\n";
    for (std::size_t i = 0; i < glyphs.size(); ++i) {
        out += "dup " + std::to_string(glyphs[i].code) + "/" + names[i] + " put\n";
    }
    out += "def\n/FontInfo 2 dict dup begin/GlyphNames2Unicode " + std::to_string(glyphs.size()) + " dict dup begin\n";
    for (std::size_t i = 0; i < glyphs.size(); ++i) {
        if (!glyphs[i].text.empty()) {
            out += "/" + names[i] + "<" + Utf16Hex(glyphs[i].text) + ">def\n";
        }
    }
    out += "end def end def\n";
}

void PutSfnts(std::string& out, const std::vector<std::string>& strings)
{
    out += "/sfnts[\n";
    for (const std::string& bytes : strings) {
        out += '<';
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            PutHex(out, static_cast<unsigned char>(bytes[i]), 2);
            if (i % 100 == 99) {
                out += '\n';
            }
        }
        out += "00>\n"; // the padding byte that the format asks for
    }
    out += "]def\n";
}

std::string Opening(const std::string& name, const char* type)
{
    return "%%BeginResource: font " + name + "\n13 dict begin/FontType " + type + " def/FontName/" + name +
           " def/FontMatrix[1 0 0 1 0 0]def\n";
}

} // namespace

std::string VisibleFont(const std::string& name, const render::FontFace& face, const std::vector<FontGlyph>& glyphs)
{
    const std::vector<std::string> names = GlyphNames(glyphs);
    std::vector<std::uint32_t> ids;
    for (const FontGlyph& glyph : glyphs) {
        ids.push_back(glyph.id);
    }
    std::string out = Opening(name, "42");
    out.insert(out.find('\n') + 1, "% " + face.Name() + "\n");
    out += "/PaintType 0 def/FontBBox[0 0 0 0]def\n";
    PutCommon(out, glyphs, names);
    out += "/CharStrings " + std::to_string(glyphs.size() + 1) + " dict dup begin/.notdef 0 def\n";
    for (std::size_t i = 0; i < names.size(); ++i) {
        out += "/" + names[i] + " " + std::to_string(i + 1) + " def\n";
    }
    out += "end def\n";
    PutSfnts(out, MakeTrueTypeSubset(face, ids));
    return out + "FontName currentdict end definefont pop\n%%EndResource\n";
}

std::string InvisibleFont(const std::string& name, const std::vector<FontGlyph>& glyphs)
{
    std::string out = Opening(name, "3") + "/FontBBox[0 -0.25 1 1]def\n";
    PutCommon(out, glyphs, GlyphNames(glyphs));
    out += "/W 256 array 0 1 255{1 index exch 0 put}for\n";
    for (const FontGlyph& glyph : glyphs) {
        out +=
            "dup " + std::to_string(glyph.code) + " " + std::to_string(static_cast<std::int32_t>(glyph.id)) + " put\n";
    }
    out += "def\n/BuildChar{exch/W get exch get 1000 div 0 0 0 1 1 setcachedevice}bind def\n"
           "FontName currentdict end definefont pop\n%%EndResource\n";
    return out;
}

} // namespace sm::plotter
