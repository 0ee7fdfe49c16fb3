#include "dialect/DialectFontObjects.h"

#include "marks/SfntCmap.h"
#include "pdf/PdfNumbers.h"

#include <fmt/format.h>

namespace sm::publisher {

namespace {

QPDFObjectHandle Name(const std::string& name)
{
    return QPDFObjectHandle::newName(name);
}

/// PDF 1.7, 9.10.3.
QPDFObjectHandle ToUnicode(QPDF& pdf, const DialectFont& font)
{
    std::string map = "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n/CMapName /Codes def\n"
                      "/CMapType 2 def\n1 begincodespacerange\n<00> <FF>\nendcodespacerange\n";
    // Codes without a text would be taken for those of a usual encoding.
    std::map<std::uint8_t, std::string> texts(font.unicode.begin(), font.unicode.end());
    for (const auto& [code, width] : font.widths) {
        texts.try_emplace(code);
    }
    auto entry = texts.begin();
    while (entry != texts.end()) {
        std::string lines;
        int count = 0;
        for (; entry != texts.end() && count < 100; ++entry, ++count) {
            lines += fmt::format("<{:02X}> <{}>\n", entry->first, entry->second);
        }
        map += fmt::format("{} beginbfchar\n{}endbfchar\n", count, lines);
    }
    return pdf.newStream(map + "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n");
}

/// Widths from the first to the last code, 0 where there is none.
template <class Width> void SetWidths(QPDFObjectHandle font, const std::map<std::uint8_t, Width>& widths)
{
    const std::int32_t first = widths.empty() ? 0 : widths.begin()->first;
    const std::int32_t last = widths.empty() ? 0 : widths.rbegin()->first;
    auto array = QPDFObjectHandle::newArray();
    for (std::int32_t code = first; code <= last; ++code) {
        const auto found = widths.find(static_cast<std::uint8_t>(code));
        array.appendItem(QPDFObjectHandle::newReal(NumberText(found == widths.end() ? 0 : found->second)));
    }
    font.replaceKey("/FirstChar", QPDFObjectHandle::newInteger(first));
    font.replaceKey("/LastChar", QPDFObjectHandle::newInteger(last));
    font.replaceKey("/Widths", array);
}

/// Type 3: a content stream for each glyph.
QPDFObjectHandle DrawnFont(QPDF& pdf, const DialectFont& font)
{
    const bool strokes = font.kind == DialectFont::Kind::Strokes;
    const std::array<double, 4> box = strokes ? font.box : std::array<double, 4>{0, -250, 1000, 1000};
    auto result = QPDFObjectHandle::parse(
        fmt::format("<</Type/Font/Subtype/Type3/FontBBox[{} {} {} {}]/FontMatrix[.001 0 0 .001 0 0]/Resources<<>>"
                    "/Encoding<</Type/Encoding>>/CharProcs<<>>>>",
                    NumberText(box[0]), NumberText(box[1]), NumberText(box[2]), NumberText(box[3])));
    auto differences = QPDFObjectHandle::newArray();
    for (const auto& [code, width] : font.widths) {
        const std::string glyph = fmt::format("/c{:02X}", code);
        differences.appendItem(QPDFObjectHandle::newInteger(code));
        differences.appendItem(Name(glyph));
        const std::string procedure = strokes ? font.strokes.at(code) : fmt::format("{} 0 0 0 1 1 d1\n", width);
        result.getKey("/CharProcs").replaceKey(glyph, pdf.newStream(procedure));
    }
    result.getKey("/Encoding").replaceKey("/Differences", differences);
    SetWidths(result, font.widths);
    return result;
}

QPDFObjectHandle OutlineFont(QPDF& pdf, const DialectFont& font)
{
    const auto facts = AddCodeMap(font.sfnt, font.glyphs);
    if (!facts) {
        return QPDFObjectHandle::newNull();
    }
    const std::string name = "/SHEETA+" + font.name;
    auto file = pdf.newStream(facts->bytes);
    file.getDict().replaceKey("/Length1", QPDFObjectHandle::newInteger(static_cast<long long>(facts->bytes.size())));
    auto descriptor = QPDFObjectHandle::parse(
        fmt::format("<</Type/FontDescriptor/FontName {}/Flags 4/FontBBox[{} {} {} {}]/ItalicAngle 0/Ascent {}"
                    "/Descent {}/CapHeight {}/StemV 80>>",
                    name, facts->box[0], facts->box[1], facts->box[2], facts->box[3], facts->ascent, facts->descent,
                    facts->ascent));
    descriptor.replaceKey("/FontFile2", file);
    auto result = QPDFObjectHandle::parse(fmt::format("<</Type/Font/Subtype/TrueType/BaseFont {}>>", name));
    result.replaceKey("/FontDescriptor", pdf.makeIndirectObject(descriptor));
    SetWidths(result, facts->widths);
    return result;
}

} // namespace

QPDFObjectHandle MakeFontObject(QPDF& pdf, const DialectFont& font)
{
    auto result = font.kind == DialectFont::Kind::Outlines ? OutlineFont(pdf, font) : DrawnFont(pdf, font);
    if (result.isNull()) {
        return result;
    }
    result.replaceKey("/ToUnicode", ToUnicode(pdf, font));
    return pdf.makeIndirectObject(result);
}

} // namespace sm::publisher
