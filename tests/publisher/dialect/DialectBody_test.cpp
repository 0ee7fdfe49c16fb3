// SPDX-License-Identifier: GPL-3.0-or-later
// What the plotter's dialect allows in a page body, and what a body becomes.
#include "dialect/DialectPage.h"
#include "dialect/DialectPageMaker.h"

#include <gtest/gtest.h>

namespace sm::publisher {
namespace {

TEST(DialectBody, AllowsWhatMeansTheSameInAContentStream)
{
    const struct {
        const char *name, *body;
        std::int32_t depth, lowest;
    } rows[] = {
        {"empty", "", 0, 0},
        {"lines", "1 0 0 RG\n10 20 m\n30 -40 l\nS\n", 0, 0},
        {"all operators of paths",
         "q 1 0 0 1 .5 -.5 cm 2 w 1 J 0 j 10 M 0 G .5 g 0 0 1 rg 1 2 m 1 2 3 4 5 6 c h f f* W n W* n Q", 0, 0},
        {"upright text", "BT\n/F1 8 Tf\n1 2 Td\n(A B) Tj\nET\nS", 0, 0},
        {"other text", "BT /F1 1 Tf 8 0 0 8 1 2 Tm [(ab)-20<43> -3.5 <44>] TJ ET", 0, 0},
        {"text that doesn't show", "q BT 3 Tr /F12 1 Tf 1 2 Td <> Tj ET Q", 0, 0},
        {"layers", "/OC /L3 BDC\n1 2 m S\nEMC", 0, 0},
        {"opacities", "/A128 gs f", 0, 0},
        {"many lines", "1 2 m\n-3 4 l\n123456 -78901 l\n1234567 1234567 l\n12345678901234 1 l\nS\n1 2 m\n", 0, 0},
        {"lines with decimals between others", "1 2 m\n1.5 2 l\n3 -.5 l\n1 2 l\nS\n100 200 m\n100 200 l\nS\n", 0, 0},
        {"states left open", "q q 0 G Q q", 2, 0},
        {"states closed", "Q Q q", -1, -2},
    };
    for (const auto& row : rows) {
        const auto facts = CheckDialectBody(row.body);
        ASSERT_TRUE(facts) << row.name;
        EXPECT_EQ(facts->depth, row.depth) << row.name;
        EXPECT_EQ(facts->lowest, row.lowest) << row.name;
    }
}

TEST(DialectBody, ShowsOnlyPicturesOfItsPage)
{
    const struct {
        const char *name, *body;
        std::size_t pictures;
        bool taken;
    } rows[] = {
        {"the page's picture", "q 5 0 0 5 1 2 cm\n/I1 Do\nQ", 1, true},
        {"the second of two", "/I2 Do", 2, true},
        {"none there", "/I1 Do", 0, false},
        {"one too far", "/I3 Do", 2, false},
        {"number nought", "/I0 Do", 2, false},
        {"a number with a nought before it", "/I01 Do", 2, false},
        {"a font as a picture", "/F1 Do", 2, false},
        {"a picture as a font", "BT /I1 1 Tf ET", 2, false},
        {"a number as a picture", "1 Do", 2, false},
        {"no operand", "Do", 2, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(CheckDialectBody(row.body, row.pictures).has_value(), row.taken) << row.name;
}

TEST(DialectBody, RefusesEverythingElse)
{
    const std::pair<const char*, const char*> rows[] = {
        {"an unknown operator", "1 2 moveto"},
        {"a procedure", "{1 2 m} exec"},
        {"a string outside a text", "(text) Tj"},
        {"a string with a backslash", "BT /F1 1 Tf 1 2 Td (a\\050) Tj ET"},
        {"a string in a string", "BT /F1 1 Tf 1 2 Td (a(b) Tj ET"},
        {"a string beyond ASCII", "BT /F1 1 Tf 1 2 Td (\xC3\xA4) Tj ET"},
        {"another name", "/Helvetica 1 Tf"},
        {"a name without number", "/F 1 Tf"},
        {"too few operands", "1 m"},
        {"too many operands", "1 2 3 m"},
        {"operands left over", "1 2"},
        {"an unknown sign", "1 2 m % comment"},
        {"an exponent", "1e3 2 m"},
        {"a string that doesn't end", "BT <41"},
        {"a string with another digit", "BT <4G> Tj ET"},
        {"an array in an array", "BT [[<41>]] TJ ET"},
        {"an array that doesn't end", "BT [<41>"},
        {"text without a font", "BT 1 2 Td (a) Tj ET"},
        {"text without a place", "BT /F1 1 Tf (a) Tj ET"},
        {"text placed twice", "BT /F1 1 Tf 1 2 Td 1 2 Td (a) Tj ET"},
        {"text shown twice", "BT /F1 1 Tf 1 2 Td (a) Tj (b) Tj ET"},
        {"text without a string", "BT /F1 1 Tf 1 2 Td ET"},
        {"glyphs moved by parts of another size", "BT /F1 8 Tf 1 2 Td [(a) 5 (b)] TJ ET"},
        {"a colour in a text", "BT 0 g /F1 1 Tf 1 2 Td (a) Tj ET"},
        {"hidden text without q", "BT 3 Tr /F1 1 Tf 1 2 Td (a) Tj ET"},
        {"hidden text after a pen in q", "q 1 w BT 3 Tr /F1 1 Tf 1 2 Td (a) Tj ET Q"},
        {"lines after hidden text", "q BT 3 Tr /F1 1 Tf 1 2 Td (a) Tj ET 0 0 m Q"},
        {"hidden text without Q", "q BT 3 Tr /F1 1 Tf 1 2 Td (a) Tj ET"},
        {"text in text", "BT BT ET ET"},
        {"text that doesn't end", "BT"},
        {"text that never began", "ET"},
        {"marked content of another kind", "/OD /L3 BDC EMC"},
        {"a layer by the name of a font", "/OC /F3 BDC EMC"},
        {"a font by the name of a layer", "BT /L3 1 Tf 1 2 Td (a) Tj ET"},
        {"a layer in a text", "BT /OC /L3 BDC /F1 1 Tf 1 2 Td (a) Tj ET EMC"},
        {"half an operator of layers", "/OC /L3 BD"},
        {"an opacity beyond 255", "/A256 gs"},
        {"an opacity without number", "/A gs"},
        {"a name of nothing", "/"},
        {"four operands before a line", "1 2 m\n5 6 1 2 l\n10 20 l\n10 20 l\nS\n"},
        {"one operand before a line", "1 2 m\n12345 l\n10 20 l\n10 20 l\nS\n"},
        {"a line in a text", "BT\n10 20 l\n10 20 l\n10 20 l\nET\n"},
        {"a line after a name", "/F1\n10 20 l\n10 20 l\n10 20 l\n"},
        {"a line of letters", "1 2 m\n10 2x l\n10 20 l\n10 20 l\nS\n"},
        {"a line after hidden text", "q BT 3 Tr /F1 1 Tf 1 2 Td (a) Tj ET\n100 200 m\n100 200 l\nQ"},
        {"a NUL", "1 2 m\v"},
    };
    for (const auto& [name, body] : rows)
        EXPECT_FALSE(CheckDialectBody(body)) << name;
}

TEST(DialectBody, TellsWhichLayersAndOpacitiesItNames)
{
    const auto facts = CheckDialectBody("/OC /L3 BDC /A128 gs EMC /OC /L12 BDC /A255 gs EMC");
    ASSERT_TRUE(facts);
    EXPECT_EQ(facts->layers, (std::set<std::uint32_t>{3, 12}));
    EXPECT_EQ(facts->opacities, (std::set<std::uint32_t>{128, 255}));
    EXPECT_EQ(facts->highestLayer, 1);
    const auto odd = CheckDialectBody("EMC /OC /L3 BDC /OC /L4 BDC");
    ASSERT_TRUE(odd);
    EXPECT_EQ(odd->layerDepth, 1);
    EXPECT_EQ(odd->lowestLayer, -1);
    EXPECT_EQ(odd->highestLayer, 1);
}

TEST(DialectLayers, AreReadFromTheHead)
{
    const auto layers = ReadDialectLayers("%!PS-Adobe-3.0\n%SheetmakerLayer: 3 on <57616C6C73>\n%%EndComments\n"
                                          "%SheetmakerLayer: 4 off <C3A4>\n%SheetmakerLayer: 7 unplotted <>\n");
    ASSERT_TRUE(layers);
    using State = DialectLayer::State;
    EXPECT_EQ(*layers, (std::map<std::uint32_t, DialectLayer>{
                           {3, {State::On, "Walls"}}, {4, {State::Off, "\xC3\xA4"}}, {7, {State::NotPlotted, ""}}}));
}

TEST(DialectLayers, RefuseOtherForms)
{
    for (const char* line : {"%SheetmakerLayer: x on <57>", "%SheetmakerLayer: 3 dim <57>", "%SheetmakerLayer: 3 on 57",
                             "%SheetmakerLayer: 3 on <5>", "%SheetmakerLayer: 3 on <5G>", "%SheetmakerLayer: "})
        EXPECT_FALSE(ReadDialectLayers(line)) << line;
}

TEST(DialectPage, RefusesFilesThatOnlyLookLikeIt)
{
    for (const char* file :
         {"", "%!PS-Adobe-3.0\n", "%!PS-Adobe-3.0\n%%Title: (x)\n%%EOF\n",
          "%!PS-Adobe-3.0\n%%Title: (x)\n%%BeginProlog\n/m/moveto load def\n%%EndProlog\nshowpage\n"})
        EXPECT_FALSE(ReadDialectPage(file)) << file;
}

TEST(Dialect, LeavesJobOptionsThatTurnColoursToTheInterpreter)
{
    EXPECT_TRUE(DialectRespects(""));
    EXPECT_TRUE(DialectRespects("<<\n/ColorConversionStrategy /LeaveColorUnchanged\n>> setdistillerparams\n"));
    EXPECT_FALSE(DialectRespects("<<\n/ColorConversionStrategy /Gray\n>> setdistillerparams\n"));
    EXPECT_FALSE(DialectRespects("<<\n/EmbedAllFonts false\n>> setdistillerparams\n"));
}

} // namespace
} // namespace sm::publisher
