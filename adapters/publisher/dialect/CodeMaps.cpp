// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialect/CodeMaps.h"

#include "pdf/ContentTag.h"

#include <algorithm>
#include <fmt/format.h>
#include <string>
#include <vector>

namespace sm::publisher {

namespace {

/// "2 beginbfchar", two lines, "endbfchar": at most a hundred lines a block (PDF 1.7, 9.7.5.4).
std::string InBlocks(const std::vector<std::string>& lines, const char* kind)
{
    constexpr std::size_t kMost = 100;
    std::string blocks;
    for (std::size_t first = 0; first < lines.size(); first += kMost) {
        const std::size_t count = std::min(kMost, lines.size() - first);
        blocks += fmt::format("{} begin{}\n", count, kind);
        for (std::size_t i = first; i < first + count; ++i) {
            blocks += lines[i];
        }
        blocks += fmt::format("end{}\n", kind);
    }
    return blocks;
}

/// A map of one-byte codes. `name` holds neither blanks nor delimiters.
QPDFObjectHandle Map(QPDF& pdf, const std::string& name, const std::string& head, const std::string& blocks)
{
    return pdf.newStream("/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n/CMapName /" + name +
                         " def\n" + head + "1 begincodespacerange\n<00> <FF>\nendcodespacerange\n" + blocks +
                         "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n");
}

} // namespace

QPDFObjectHandle CodeMap(QPDF& pdf, const GlyphNumbers& numbers)
{
    std::vector<std::string> lines;
    for (const auto& [code, number] : numbers) {
        lines.push_back(fmt::format("<{:02X}> {}\n", code, number));
    }
    const std::string blocks = InBlocks(lines, "cidchar");
    // Interpreters keep maps by their names: no two of one name may differ.
    const std::string name = "Glyphs-" + ContentTag(blocks);
    QPDFObjectHandle stream = Map(pdf, name,
                                  "/CIDSystemInfo 3 dict dup begin /Registry (Adobe) def /Ordering (Identity) def "
                                  "/Supplement 0 def end def\n/CMapType 1 def\n/WMode 0 def\n",
                                  blocks);
    QPDFObjectHandle dictionary = stream.getDict();
    dictionary.replaceKey("/Type", QPDFObjectHandle::newName("/CMap"));
    dictionary.replaceKey("/CMapName", QPDFObjectHandle::newName("/" + name));
    dictionary.replaceKey("/WMode", QPDFObjectHandle::newInteger(0));
    dictionary.replaceKey("/CIDSystemInfo", QPDFObjectHandle::parse(kGlyphCollection));
    return stream;
}

QPDFObjectHandle ToUnicode(QPDF& pdf, const DialectFont& font)
{
    // Codes without a text would be taken for those of a usual encoding.
    std::map<std::uint8_t, std::string> texts(font.unicode.begin(), font.unicode.end());
    for (const auto& [code, width] : font.widths) {
        texts.try_emplace(code);
    }
    std::vector<std::string> lines;
    for (const auto& [code, text] : texts) {
        lines.push_back(fmt::format("<{:02X}> <{}>\n", code, text));
    }
    return Map(pdf, "Codes", "/CMapType 2 def\n", InBlocks(lines, "bfchar"));
}

} // namespace sm::publisher
