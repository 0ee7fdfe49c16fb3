// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialect/OutlineFonts.h"

#include "fonts/FileSubset.h"
#include "pdf/ContentTag.h"
#include "pdf/PdfNumbers.h"

#include <fmt/format.h>
#include <stdexcept>

namespace sm::publisher {

namespace {

using Object = QPDFObjectHandle;
constexpr std::size_t kMostGlyphs = 65535;

std::string KeyOf(const GlyphNumbers& numbers, const std::map<std::uint8_t, std::string>& unicode)
{
    std::string key;
    for (const auto& [code, number] : numbers) {
        const auto text = unicode.find(code);
        key += fmt::format("{} {} {}\n", code, number, text == unicode.end() ? std::string() : text->second);
    }
    return key;
}

/// Of all glyphs of an embedded file.
Object Widths(const std::vector<std::uint16_t>& advances, std::uint16_t unitsPerEm)
{
    std::vector<Object> widths;
    for (const std::uint16_t advance : advances) {
        widths.push_back(Object::newReal(NumberText(advance * 1000.0 / unitsPerEm)));
    }
    return Object::newArray({Object::newInteger(0), Object::newArray(widths)});
}

} // namespace

Object OutlineFonts::Font(const DialectFont& font)
{
    const auto subset = ReadSfntSubset(font.sfnt);
    if (!subset || subset->glyphs.empty()) {
        return Object::newNull();
    }
    Face& face = FaceFor(font, *subset);
    GlyphNumbers numbers;
    for (const auto& [code, glyph] : font.glyphs) {
        if (glyph >= subset->glyphs.size()) {
            return Object::newNull();
        }
        const auto [place, isNew] = face.numbers.try_emplace(subset->glyphs[glyph], face.subset.glyphs.size());
        if (isNew) {
            face.subset.glyphs.push_back(subset->glyphs[glyph]);
            const std::vector<std::uint32_t>& known = font.source.glyphs;
            face.source.glyphs.push_back(glyph > 0 && glyph <= known.size() ? known[glyph - 1U] : 0);
        }
        numbers[code] = place->second;
    }
    Object& result = face.known[KeyOf(numbers, font.unicode)];
    if (!result.isInitialized()) {
        result = m_pdf.makeIndirectObject(Object::parse("<</Type/Font/Subtype/Type0>>"));
        result.replaceKey("/DescendantFonts", Object::newArray({face.descendant}));
        result.replaceKey("/ToUnicode", ToUnicode(m_pdf, font));
        face.fonts.emplace_back(result, numbers);
    }
    return result;
}

/// The face that still has room for a page's glyphs, whose first is the one for what is missing.
OutlineFonts::Face& OutlineFonts::FaceFor(const DialectFont& font, const SfntSubset& subset)
{
    const std::string& name = font.face.empty() ? font.name : font.face;
    for (Face& face : m_faces) {
        if (face.name == name && face.source.path == font.source.path && face.source.index == font.source.index &&
            face.subset.unitsPerEm == subset.unitsPerEm &&
            face.subset.glyphs.size() + subset.glyphs.size() <= kMostGlyphs) {
            return face;
        }
    }
    Face& face = m_faces.emplace_back();
    face.name = name;
    face.source = {font.source.path, font.source.index, font.source.curves, {0}};
    face.subset = {subset.unitsPerEm, {subset.glyphs.front()}};
    face.descendant = m_pdf.makeIndirectObject(
        Object::parse("<</Type/Font/DW 0/CIDSystemInfo " + std::string(kGlyphCollection) + ">>"));
    return face;
}

std::vector<std::string> OutlineFonts::Finish()
{
    std::vector<std::string> remarks;
    for (Face& face : m_faces) {
        Embed(face, remarks);
    }
    return remarks;
}

/// Throws std::runtime_error, with the reason, when the file isn't what the pages were made with.
OutlineFonts::Program OutlineFonts::OfItsFile(const Face& face)
{
    const auto& [path, index, curves, glyphs] = face.source;
    FileSubset subset = MakeFileSubset(path, index, curves, {glyphs.begin(), glyphs.end()});
    Program program{std::move(subset.program), curves == Curves::Cubic, std::move(subset.advances), {}};
    for (std::size_t i = 0; i < glyphs.size(); ++i) {
        const std::uint16_t number = subset.numbers.at(glyphs[i]);
        if (i > 0 && program.advances[number] != face.subset.glyphs[i].advance) {
            throw std::runtime_error("it has other advances than on the pages");
        }
        program.numbers.push_back(number);
    }
    return program;
}

OutlineFonts::Program OutlineFonts::OfItsPages(const Face& face, SfntFacts& facts)
{
    Program program{WriteSfntSubset(face.subset, facts), false, {}, {}};
    for (const SfntGlyph& glyph : face.subset.glyphs) {
        program.numbers.push_back(static_cast<std::uint16_t>(program.advances.size()));
        program.advances.push_back(glyph.advance);
    }
    return program;
}

void OutlineFonts::Embed(Face& face, std::vector<std::string>& remarks)
{
    SfntFacts facts;
    Program program = OfItsPages(face, facts);
    if (!face.source.path.empty()) {
        try {
            program = OfItsFile(face);
        } catch (const std::runtime_error& error) {
            const bool isCubic = face.source.curves == Curves::Cubic; // the pages have quadratic ones as they are
            remarks.push_back((isCubic ? "The curves of the font " + face.name + " come near to its own only: "
                                       : "The font " + face.name + " is embedded as the pages hold it: ") +
                              error.what());
        }
    }
    const std::string name = "/" + ContentTag(program.bytes) + "+" + face.name; // PDF 1.7, 9.6.4
    Object file = m_pdf.newStream(program.bytes);
    Object descriptor = Object::parse(fmt::format(
        "<</Type/FontDescriptor/FontName {}/Flags 4/FontBBox[{} {} {} {}]/ItalicAngle 0/Ascent {}"
        "/Descent {}/CapHeight {}/StemV 80>>",
        name, facts.box[0], facts.box[1], facts.box[2], facts.box[3], facts.ascent, facts.descent, facts.ascent));
    if (program.isCubic) { // PDF 1.7, 9.9
        file.getDict().replaceKey("/Subtype", Object::newName("/CIDFontType0C"));
    } else {
        file.getDict().replaceKey("/Length1", Object::newInteger(static_cast<long long>(program.bytes.size())));
        face.descendant.replaceKey("/CIDToGIDMap", Object::newName("/Identity"));
    }
    descriptor.replaceKey(program.isCubic ? "/FontFile3" : "/FontFile2", file);
    face.descendant.replaceKey("/Subtype", Object::newName(program.isCubic ? "/CIDFontType0" : "/CIDFontType2"));
    face.descendant.replaceKey("/FontDescriptor", m_pdf.makeIndirectObject(descriptor));
    face.descendant.replaceKey("/W", Widths(program.advances, face.subset.unitsPerEm));
    face.descendant.replaceKey("/BaseFont", Object::newName(name));
    for (auto& [font, numbers] : face.fonts) {
        Complete(font, numbers, name, program);
    }
}

/// What a page's font doesn't know before the glyphs have their last numbers.
void OutlineFonts::Complete(Object font, GlyphNumbers numbers, const std::string& name, const Program& program)
{
    for (auto& [code, number] : numbers) {
        number = program.numbers[number];
    }
    Object map = CodeMap(m_pdf, numbers);
    font.replaceKey("/Encoding", map);
    // The name of a composite font of cubic curves ends with that of its map (PDF 1.7, 9.7.6.1).
    const std::string suffix = program.isCubic ? "-" + map.getDict().getKey("/CMapName").getName().substr(1) : "";
    font.replaceKey("/BaseFont", Object::newName(name + suffix));
}

} // namespace sm::publisher
