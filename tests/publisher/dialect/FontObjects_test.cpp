// SPDX-License-Identifier: GPL-3.0-or-later
// What pages have in common of their fonts is written once.
#include "publisher/dialect/FontBench.h"

namespace sm::publisher {
namespace {

const SfntGlyph kWide{900, 0, ""}, kNarrow{200, 0, ""}, kMiddle{500, 7, ""};

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
