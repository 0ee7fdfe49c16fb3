// SPDX-License-Identifier: GPL-3.0-or-later
// Lines outside of any drawing.
#include "TextFixture.h"

namespace sm::render {
namespace {

class PlainLineTest : public TextFixture {};

TEST_F(PlainLineTest, LinesHaveTheirFontsOwnWidths)
{
    const struct {
        const char* line;
        LineLook look;
        const char* font;
        double units; ///< of 2048 in the em
    } rows[] = {
        {"MM", {"Arial", false, false}, "LiberationSans", 2 * 1706},
        {"MM", {"Arial", true, false}, "LiberationSans-Bold", 2 * 1706},
        {"i.", {"Times New Roman", false, true}, "LiberationSerif-Italic", 569 + 512},
        {"%%c", {"Courier New", false, false}, "LiberationMono", 3 * 1229},
        {"Ж", {"Arial", false, false}, "LiberationSans", 1891},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        const LaidText& laid = engine->Lay(row.line, row.look);
        ASSERT_EQ(laid.glyphs.size(), 1U);
        EXPECT_EQ(laid.glyphs[0].run.font->Name(), row.font);
        EXPECT_EQ(laid.glyphs[0].run.text, row.line);
        EXPECT_FALSE(laid.glyphs[0].missing);
        EXPECT_NEAR(laid.outline[1].x, row.units / 2048, 1e-9);
        EXPECT_NEAR(laid.glyphs[0].run.toPaper.a, 1, 1e-9);
        EXPECT_NEAR(laid.glyphs[0].run.toPaper.d, 1, 1e-9);
    }
}

TEST_F(PlainLineTest, NothingIsLaidOfNothing)
{
    const LaidText& laid = engine->Lay("", LineLook{"Arial", false, false});
    EXPECT_TRUE(laid.glyphs.empty());
    EXPECT_EQ(laid.outline[1].x, 0);
}

TEST_F(PlainLineTest, CharactersThatNoFontHasAreTold)
{
    std::vector<std::string> told;
    for (const GlyphPart& part : engine->Lay("A\U0001FBFF\U0001FBFF", LineLook{"Arial", false, false}).glyphs) {
        TellMissing(part, [&](const std::string& remark) { told.push_back(remark); });
    }
    EXPECT_EQ(told, (std::vector<std::string>{"no font has these characters, drawn as boxes: other characters",
                                              "no font has these characters, drawn as boxes: other characters"}));
}

} // namespace
} // namespace sm::render
