#include "dialect/OutlineFonts.h"

#include "dialect/CodeMaps.h"
#include "pdf/ContentTag.h"
#include "pdf/PdfNumbers.h"

#include <fmt/format.h>

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

Object Widths(const SfntSubset& subset)
{
    Object widths = Object::newArray();
    for (const SfntGlyph& glyph : subset.glyphs) {
        widths.appendItem(Object::newReal(NumberText(glyph.advance * 1000.0 / subset.unitsPerEm)));
    }
    return Object::newArray({Object::newInteger(0), widths});
}

} // namespace

Object OutlineFonts::Font(const DialectFont& font)
{
    const auto subset = ReadSfntSubset(font.sfnt);
    if (!subset || subset->glyphs.empty()) {
        return Object::newNull();
    }
    Face& face = FaceFor(font.face.empty() ? font.name : font.face, *subset);
    GlyphNumbers numbers;
    for (const auto& [code, glyph] : font.glyphs) {
        if (glyph >= subset->glyphs.size()) {
            return Object::newNull();
        }
        const auto [place, isNew] = face.numbers.try_emplace(subset->glyphs[glyph], face.subset.glyphs.size());
        if (isNew) {
            face.subset.glyphs.push_back(subset->glyphs[glyph]);
        }
        numbers[code] = place->second;
    }
    Object& result = face.known[KeyOf(numbers, font.unicode)];
    if (!result.isInitialized()) {
        result = m_pdf.makeIndirectObject(Object::parse("<</Type/Font/Subtype/Type0>>"));
        result.replaceKey("/Encoding", CodeMap(m_pdf, numbers));
        result.replaceKey("/DescendantFonts", Object::newArray({face.descendant}));
        result.replaceKey("/ToUnicode", ToUnicode(m_pdf, font));
        face.fonts.push_back(result);
    }
    return result;
}

/// The face that still has room for a page's glyphs, whose first is the one for what is missing.
OutlineFonts::Face& OutlineFonts::FaceFor(const std::string& name, const SfntSubset& subset)
{
    for (Face& face : m_faces) {
        if (face.name == name && face.subset.unitsPerEm == subset.unitsPerEm &&
            face.subset.glyphs.size() + subset.glyphs.size() <= kMostGlyphs) {
            return face;
        }
    }
    Face& face = m_faces.emplace_back();
    face.name = name;
    face.subset = {subset.unitsPerEm, {subset.glyphs.front()}};
    face.descendant = m_pdf.makeIndirectObject(
        Object::parse("<</Type/Font/Subtype/CIDFontType2/CIDToGIDMap/Identity/DW 0/CIDSystemInfo " +
                      std::string(kGlyphCollection) + ">>"));
    return face;
}

void OutlineFonts::Finish()
{
    for (Face& face : m_faces) {
        Embed(face);
    }
}

void OutlineFonts::Embed(Face& face)
{
    SfntFacts facts;
    const std::string bytes = WriteSfntSubset(face.subset, facts);
    const std::string name = "/" + ContentTag(bytes) + "+" + face.name; // PDF 1.7, 9.6.4
    Object file = m_pdf.newStream(bytes);
    file.getDict().replaceKey("/Length1", Object::newInteger(static_cast<long long>(bytes.size())));
    Object descriptor = Object::parse(fmt::format(
        "<</Type/FontDescriptor/FontName {}/Flags 4/FontBBox[{} {} {} {}]/ItalicAngle 0/Ascent {}"
        "/Descent {}/CapHeight {}/StemV 80>>",
        name, facts.box[0], facts.box[1], facts.box[2], facts.box[3], facts.ascent, facts.descent, facts.ascent));
    descriptor.replaceKey("/FontFile2", file);
    face.descendant.replaceKey("/FontDescriptor", m_pdf.makeIndirectObject(descriptor));
    face.descendant.replaceKey("/W", Widths(face.subset));
    face.descendant.replaceKey("/BaseFont", Object::newName(name));
    for (Object& font : face.fonts) {
        font.replaceKey("/BaseFont", Object::newName(name));
    }
}

} // namespace sm::publisher
