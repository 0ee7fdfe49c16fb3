// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/FontResource.h"

#include "base/text/NumberText.h"
#include "base/text/Utf8.h"
#include "fonts/TrueTypeSubset.h"

#include <array>
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
    for (std::size_t at = 0; at < text.size();) {
        const auto character = base::ReadUtf8(text, at);
        if (!character) {
            continue;
        }
        const auto c = static_cast<std::uint32_t>(*character);
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

constexpr std::size_t kBytesInLine = 100;

/// A line that is full ends.
void PutHexLine(std::string& out, std::string_view bytes)
{
    std::array<char, 2 * kBytesInLine + 1> line;
    char* end = line.data();
    for (const char byte : bytes) {
        *end++ = kDigits[static_cast<unsigned char>(byte) >> 4];
        *end++ = kDigits[static_cast<unsigned char>(byte) & 0xF];
    }
    if (bytes.size() == kBytesInLine) {
        *end++ = '\n';
    }
    out.append(line.data(), end);
}

void PutSfnts(std::string& out, const std::vector<std::string>& strings)
{
    out += "/sfnts[\n";
    for (const std::string& bytes : strings) {
        out += '<';
        for (std::size_t at = 0; at < bytes.size(); at += kBytesInLine) {
            PutHexLine(out, std::string_view(bytes).substr(at, kBytesInLine));
        }
        out += "00>\n"; // the padding byte that the format asks for
    }
    out += "]def\n";
}

std::string Opening(const std::string& name, const char* type, const char* scale = "1")
{
    return "%%BeginResource: font " + name + "\n13 dict begin/FontType " + type + " def/FontName/" + name +
           " def/FontMatrix[" + scale + " 0 0 " + scale + " 0 0]def\n";
}

void PutThousandths(std::string& out, double value)
{
    char room[base::kNumberRoom];
    out.append(room, base::PutDecimal(room, value, 1));
    out += ' ';
}

void PutBox(std::string& out, const Box2& box)
{
    const bool empty = box.Empty();
    for (const double edge : {box.min.x, box.min.y, box.max.x, box.max.y}) {
        PutThousandths(out, empty ? 0 : edge);
    }
}

/// The font's own file, and the numbers there of the subset's glyphs from 1 on, as comments. Of cubic curves the subset
/// holds approximations.
void PutFile(std::string& out, const render::FontFace& face, const std::vector<std::uint32_t>& ids)
{
    const render::FontFile* file = face.File();
    if (file == nullptr || file->path.find_first_of("\r\n") != std::string::npos) {
        return;
    }
    out += (file->isCubic ? "% Cubic " : "% Quadratic ") + std::to_string(file->index) + " " + file->path + "\n";
    constexpr std::size_t kMostInLine = 32;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        out += (i % kMostInLine == 0 ? "% Glyphs " : " ") + std::to_string(ids[i]);
        out += i % kMostInLine == kMostInLine - 1 || i + 1 == ids.size() ? "\n" : "";
    }
}

void PutStrokes(std::string& out, const render::Path& path)
{
    const Vec2* point = path.points.data();
    for (const render::Verb verb : path.verbs) {
        const int count = verb == render::Verb::Cubic ? 3 : verb == render::Verb::Close ? 0 : 1;
        for (int i = 0; i < count; ++i, ++point) {
            PutThousandths(out, point->x);
            PutThousandths(out, point->y);
        }
        out += verb == render::Verb::Move ? "m\n" : verb == render::Verb::Line ? "l\n" : count > 0 ? "c\n" : "h\n";
    }
}

/// A glyph's procedure, which is a PDF content stream as well; `box` grows by its ink.
std::string GlyphProcedure(const render::FontFace& face, const StrokeCut& cut, std::uint32_t glyph, Box2& box)
{
    render::Path path;
    face.Outline(glyph, path);
    Box2 ink;
    const double half = 500 * cut.pen + 1;
    for (Vec2& p : path.points) {
        p = {1000 * (cut.width * p.x + cut.shear * p.y), 1000 * p.y};
        ink.Add(Vec2{std::floor(p.x - half), std::floor(p.y - half)});
        ink.Add(Vec2{std::ceil(p.x + half), std::ceil(p.y + half)});
    }
    std::string out;
    PutThousandths(out, StrokedAdvance(face, cut, glyph));
    out += "0 ";
    PutBox(out, ink);
    out += "d1\n";
    if (!path.Empty()) {
        box.Add(ink.min);
        box.Add(ink.max);
        PutThousandths(out, 1000 * cut.pen);
        out += "w\n1 J\n1 j\n";
        PutStrokes(out, path);
        out += "S\n";
    }
    return out;
}

} // namespace

std::string VisibleFont(const std::string& name, const render::FontFace& face, const std::vector<FontGlyph>& glyphs)
{
    const std::vector<std::string> names = GlyphNames(glyphs);
    std::vector<std::uint32_t> ids;
    for (const FontGlyph& glyph : glyphs) {
        ids.push_back(glyph.id);
    }
    std::string source = "% " + face.Name() + "\n";
    PutFile(source, face, ids);
    std::string out = Opening(name, "42");
    out.insert(out.find('\n') + 1, source);
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

double StrokedAdvance(const render::FontFace& face, const StrokeCut& cut, std::uint32_t glyph)
{
    const double em = static_cast<double>(face.Advance(glyph)) / face.UnitsPerEm();
    return std::round(cut.width * em * 10000) / 10;
}

std::string StrokedFont(const std::string& name, const render::FontFace& face, const StrokeCut& cut,
                        const std::vector<FontGlyph>& glyphs)
{
    const std::vector<std::string> names = GlyphNames(glyphs);
    Box2 box;
    std::string procedures;
    for (std::size_t i = 0; i < glyphs.size(); ++i) {
        procedures += "/" + names[i] + "{" + GlyphProcedure(face, cut, glyphs[i].id, box) + "}bind def\n";
    }
    std::string out = Opening(name, "3", ".001");
    out.insert(out.find('\n') + 1, "% " + face.Name() + "\n");
    out += "/FontBBox[";
    PutBox(out, box);
    out += "]def\n";
    PutCommon(out, glyphs, names);
    out += "/CharProcs " + std::to_string(glyphs.size() + 1) + " dict dup begin/.notdef{0 0 0 0 0 0 d1}bind def\n";
    out += procedures;
    return out + "end def\n/BuildGlyph{exch/CharProcs get exch get exec}bind def\n"
                 "/BuildChar{1 index/Encoding get exch get 1 index/BuildGlyph get exec}bind def\n"
                 "FontName currentdict end definefont pop\n%%EndResource\n";
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
