// SPDX-License-Identifier: GPL-3.0-or-later
// Fonts of pages as the plotter defines them, put into a document.
#pragma once

#include "dialect/DialectFontObjects.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace sm::publisher {

/// A TrueType subset of these glyphs, that the codes from "A" on stand for.
inline DialectFont Outlines(const std::string& face, const std::vector<SfntGlyph>& glyphs)
{
    DialectFont font;
    font.name = "F1";
    font.kind = DialectFont::Kind::Outlines;
    font.face = face;
    SfntSubset subset{1000, {{500, 0, ""}}};
    for (const SfntGlyph& glyph : glyphs) {
        const auto code = static_cast<std::uint8_t>('A' + font.glyphs.size());
        font.glyphs[code] = static_cast<std::uint16_t>(subset.glyphs.size());
        font.unicode[code] = "00" + std::to_string(40 + font.glyphs.size());
        subset.glyphs.push_back(glyph);
    }
    SfntFacts facts;
    font.sfnt = WriteSfntSubset(subset, facts);
    return font;
}

class Fonts : public testing::Test {
protected:
    Fonts() { m_pdf.emptyPDF(); }
    QPDFObjectHandle Descendant(QPDFObjectHandle font) { return font.getKey("/DescendantFonts").getArrayItem(0); }
    std::string CodeMap(QPDFObjectHandle font)
    {
        const auto data = font.getKey("/Encoding").getStreamData();
        const std::string text(reinterpret_cast<const char*>(data->getBuffer()), data->getSize());
        const std::size_t begin = text.find("begincidchar\n") + 13;
        return text.substr(begin, text.find("endcidchar") - begin);
    }
    QPDF m_pdf;
};

} // namespace sm::publisher
