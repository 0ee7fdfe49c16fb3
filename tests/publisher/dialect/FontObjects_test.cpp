// SPDX-License-Identifier: GPL-3.0-or-later
// What pages have in common of their fonts is written once.
#include "dialect/DialectFontObjects.h"

#include <gtest/gtest.h>

namespace sm::publisher {
namespace {

DialectFont Outlines(const std::string& face, const std::vector<SfntGlyph>& glyphs)
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

const SfntGlyph kWide{900, 0, ""}, kNarrow{200, 0, ""}, kMiddle{500, 7, ""};

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

TEST_F(Fonts, OfOneFaceShareItsFile)
{
    FontObjects fonts(m_pdf);
    auto first = fonts.Font(Outlines("Plain", {kWide, kNarrow}));
    auto second = fonts.Font(Outlines("Plain", {kMiddle, kWide}));
    fonts.Finish();
    EXPECT_EQ(Descendant(first).getObjGen(), Descendant(second).getObjGen());
    EXPECT_EQ(CodeMap(first), "<41> 1\n<42> 2\n");
    EXPECT_EQ(CodeMap(second), "<41> 3\n<42> 1\n");
    EXPECT_NE(first.getKey("/Encoding").getDict().getKey("/CMapName").getName(),
              second.getKey("/Encoding").getDict().getKey("/CMapName").getName());
    EXPECT_EQ(Descendant(first).getKey("/W").unparse(), "[ 0 [ 500 900 200 500 ] ]");
}

TEST_F(Fonts, WithTheSameCodesAreOne)
{
    FontObjects fonts(m_pdf);
    auto first = fonts.Font(Outlines("Plain", {kWide, kNarrow}));
    auto second = fonts.Font(Outlines("Plain", {kWide, kNarrow}));
    auto other = fonts.Font(Outlines("Plain", {kNarrow, kWide}));
    EXPECT_EQ(first.getObjGen(), second.getObjGen());
    EXPECT_FALSE(first.getObjGen() == other.getObjGen());
}

TEST_F(Fonts, OfOtherFacesStandApart)
{
    FontObjects fonts(m_pdf);
    auto first = fonts.Font(Outlines("Plain", {kWide}));
    auto second = fonts.Font(Outlines("Plain-Bold", {kWide}));
    EXPECT_FALSE(Descendant(first).getObjGen() == Descendant(second).getObjGen());
}

TEST_F(Fonts, AreCalledByATagOfTheirOwnAndTheirTrueName)
{
    FontObjects fonts(m_pdf);
    auto first = fonts.Font(Outlines("Plain", {kWide}));
    auto second = fonts.Font(Outlines("Plain-Bold", {kNarrow}));
    fonts.Finish();
    const std::string name = first.getKey("/BaseFont").getName(), other = second.getKey("/BaseFont").getName();
    EXPECT_EQ(name.substr(7), "+Plain");
    EXPECT_EQ(other.substr(7), "+Plain-Bold");
    EXPECT_EQ(name.substr(1, 6).find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ"), std::string::npos) << name;
    EXPECT_NE(name.substr(1, 6), other.substr(1, 6));
    EXPECT_EQ(Descendant(first).getKey("/BaseFont").getName(), name);
    EXPECT_EQ(Descendant(first).getKey("/FontDescriptor").getKey("/FontName").getName(), name);
}

/// A font of Debian's whose curves are cubic, with the numbers of "B" and "A", and their advances.
constexpr char kCubic[] = "/usr/share/fonts/opentype/urw-base35/URWGothic-Book.otf";

DialectFont Cubic(const std::string& path, std::uint16_t advanceOfA)
{
    DialectFont font = Outlines("Gothic", {{574, 0, ""}, {advanceOfA, 0, ""}});
    font.cubic = {path, 0, {35, 34}};
    return font;
}

struct CubicRow {
    const char* name;
    std::string path;
    std::uint16_t advanceOfA;
    const char* file;  ///< the descriptor's key
    const char* codes; ///< what they lead to
    const char* remark;
};

class CubicFonts : public Fonts, public testing::WithParamInterface<CubicRow> {};

TEST_P(CubicFonts, KeepTheirCurvesWhereTheirFileIsAsItWas)
{
    FontObjects fonts(m_pdf);
    auto font = fonts.Font(Cubic(GetParam().path, GetParam().advanceOfA));
    const auto remarks = fonts.Finish();
    EXPECT_TRUE(Descendant(font).getKey("/FontDescriptor").hasKey(GetParam().file));
    EXPECT_EQ(CodeMap(font), GetParam().codes);
    ASSERT_EQ(remarks.size(), *GetParam().remark == 0 ? 0U : 1U);
    EXPECT_EQ(remarks.empty() ? "" : remarks.front(), GetParam().remark);
}

INSTANTIATE_TEST_SUITE_P(
    Files, CubicFonts,
    testing::Values(CubicRow{"Same", kCubic, 740, "/FontFile3", "<41> 2\n<42> 1\n", ""},
                    CubicRow{"Other", kCubic, 741, "/FontFile2", "<41> 1\n<42> 2\n",
                             "The curves of the font Gothic come near to its own only: its file has changed"},
                    CubicRow{"Gone", "/nowhere/x.otf", 740, "/FontFile2", "<41> 1\n<42> 2\n",
                             "The curves of the font Gothic come near to its own only: No such file or directory"},
                    CubicRow{"NoFont", "/etc/passwd", 740, "/FontFile2", "<41> 1\n<42> 2\n",
                             "The curves of the font Gothic come near to its own only: it holds no CFF table"},
                    CubicRow{"OfQuadraticCurves", "/usr/share/fonts/truetype/liberation/LiberationSans-Regular.ttf",
                             740, "/FontFile2", "<41> 1\n<42> 2\n",
                             "The curves of the font Gothic come near to its own only: it holds no CFF table"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(Fonts, ThatCantBeReadAreRefused)
{
    FontObjects fonts(m_pdf);
    DialectFont cut = Outlines("Plain", {kWide});
    cut.sfnt.resize(cut.sfnt.size() / 2);
    DialectFont beyond = Outlines("Plain", {kWide});
    beyond.glyphs['B'] = 2;
    EXPECT_TRUE(fonts.Font(cut).isNull());
    EXPECT_TRUE(fonts.Font(beyond).isNull());
}

TEST_F(Fonts, DrawnWithAPenShareTheirGlyphs)
{
    DialectFont font;
    font.kind = DialectFont::Kind::Strokes;
    font.widths = {{'A', 500.0}, {'B', 400.0}};
    font.strokes = {{'A', "500 0 0 0 9 9 d1\n0 0 m\n9 9 l\nS\n"}, {'B', "400 0 0 0 9 9 d1\n0 9 m\n9 0 l\nS\n"}};
    DialectFont fewer = font;
    fewer.widths.erase('B');
    FontObjects fonts(m_pdf);
    auto first = fonts.Font(font), second = fonts.Font(font), third = fonts.Font(fewer);
    EXPECT_EQ(first.getObjGen(), second.getObjGen());
    EXPECT_FALSE(first.getObjGen() == third.getObjGen());
    EXPECT_EQ(first.getKey("/CharProcs").getKey("/c41").getObjGen(),
              third.getKey("/CharProcs").getKey("/c41").getObjGen());
}

} // namespace
} // namespace sm::publisher
