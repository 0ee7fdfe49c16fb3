// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialect/DialectFontObjects.h"

#include "dialect/CodeMaps.h"
#include "pdf/PdfNumbers.h"

#include <fmt/format.h>

namespace sm::publisher {

namespace {

QPDFObjectHandle Name(const std::string& name)
{
    return QPDFObjectHandle::newName(name);
}

/// Widths from the first to the last code, 0 where there is none.
template <class Width> void SetWidths(QPDFObjectHandle font, const std::map<std::uint8_t, Width>& widths)
{
    const std::int32_t first = widths.empty() ? 0 : widths.begin()->first;
    const std::int32_t last = widths.empty() ? 0 : widths.rbegin()->first;
    const auto none = QPDFObjectHandle::newInteger(0); // most codes of a sheet's font are free
    std::vector<QPDFObjectHandle> items(static_cast<std::size_t>(last - first + 1), none);
    for (const auto& [code, width] : widths) {
        items[static_cast<std::size_t>(code - first)] = QPDFObjectHandle::newReal(NumberText(width));
    }
    font.replaceKey("/FirstChar", QPDFObjectHandle::newInteger(first));
    font.replaceKey("/LastChar", QPDFObjectHandle::newInteger(last));
    font.replaceKey("/Widths", QPDFObjectHandle::newArray(items));
}

/// Everything that makes one drawn font differ from another.
std::string KeyOf(const DialectFont& font)
{
    std::string key = fmt::format("{}", fmt::join(font.box, " "));
    for (const auto& [code, width] : font.widths) {
        const auto text = font.unicode.find(code);
        const auto strokes = font.strokes.find(code);
        key += fmt::format("\n{} {} {} {}", code, width, text == font.unicode.end() ? "" : text->second,
                           strokes == font.strokes.end() ? "" : strokes->second);
    }
    return key;
}

} // namespace

/// Type 3: a content stream for each glyph, which fonts share.
QPDFObjectHandle FontObjects::DrawnFont(const DialectFont& font)
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
        QPDFObjectHandle& stream = m_procedures[procedure];
        if (!stream.isInitialized()) {
            stream = m_pdf.newStream(procedure);
        }
        result.getKey("/CharProcs").replaceKey(glyph, stream);
    }
    result.getKey("/Encoding").replaceKey("/Differences", differences);
    SetWidths(result, font.widths);
    return result;
}

QPDFObjectHandle FontObjects::Font(const DialectFont& font)
{
    if (font.kind == DialectFont::Kind::Outlines) {
        return m_outlines.Font(font);
    }
    QPDFObjectHandle& known = m_drawn[KeyOf(font)];
    if (!known.isInitialized()) {
        known = m_pdf.makeIndirectObject(DrawnFont(font));
        known.replaceKey("/ToUnicode", ToUnicode(m_pdf, font));
    }
    return known;
}

} // namespace sm::publisher
