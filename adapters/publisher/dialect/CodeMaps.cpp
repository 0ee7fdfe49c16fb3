#include "dialect/CodeMaps.h"

#include <fmt/format.h>
#include <string>

namespace sm::publisher {

QPDFObjectHandle CodeMap(QPDF& pdf, const GlyphNumbers& numbers)
{
    std::string map =
        "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n"
        "/CIDSystemInfo 3 dict dup begin /Registry (Adobe) def /Ordering (Identity) def /Supplement 0 def "
        "end def\n/CMapName /Glyphs def\n/CMapType 1 def\n/WMode 0 def\n"
        "1 begincodespacerange\n<00> <FF>\nendcodespacerange\n";
    auto entry = numbers.begin();
    while (entry != numbers.end()) {
        std::string lines;
        int count = 0;
        for (; entry != numbers.end() && count < 100; ++entry, ++count) {
            lines += fmt::format("<{:02X}> {}\n", entry->first, entry->second);
        }
        map += fmt::format("{} begincidchar\n{}endcidchar\n", count, lines);
    }
    QPDFObjectHandle stream = pdf.newStream(map + "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n");
    QPDFObjectHandle dictionary = stream.getDict();
    dictionary.replaceKey("/Type", QPDFObjectHandle::newName("/CMap"));
    dictionary.replaceKey("/CMapName", QPDFObjectHandle::newName("/Glyphs"));
    dictionary.replaceKey("/WMode", QPDFObjectHandle::newInteger(0));
    dictionary.replaceKey("/CIDSystemInfo", QPDFObjectHandle::parse(kGlyphCollection));
    return stream;
}

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

} // namespace sm::publisher
