// SPDX-License-Identifier: GPL-3.0-or-later
#include "TextFixture.h"
#include "drawing/entities/Texts.h"

namespace sm::render {
namespace {

using drawing::MTextData;

/// Texts 10 high in Liberation Sans.
class MTextTest : public TextFixture {
protected:
    /// The lines of a text from top to bottom, parts of one height joined by "|".
    std::vector<std::string> Lines(const MTextData& text)
    {
        std::vector<std::string> lines;
        double y = 0;
        for (const GlyphPart& part : engine->Lay(drawing, text).glyphs) {
            const double base = part.run.toPaper.f;
            if (lines.empty() || std::fabs(base - y) > 1e-6) {
                lines.push_back(part.run.text);
            } else {
                lines.back() += "|" + part.run.text;
            }
            y = base;
        }
        return lines;
    }
};

TEST_F(MTextTest, ReadsItsFormattingAsPlainText)
{
    struct Row {
        const char* text;
        std::vector<std::string> lines;
    };
    for (const Row& row : std::vector<Row>{{"one\\Ptwo", {"one", "two"}},
                                           {"one^Jtwo", {"one", "two"}},
                                           {"one\ntwo", {"one", "two"}},
                                           {"a\\~b",
                                            {"a\xC2\xA0"
                                             "b"}},
                                           {"\\{a\\} \\\\ b", {"{a} \\ b"}},
                                           {"{\\C1;red} blue", {"red| blue"}},
                                           {"\\A1;plain", {"plain"}},
                                           {"{\\fTimes New Roman|b1|i0|c0|p18;bold} not", {"bold| not"}},
                                           {"%%c20 %%d %%p", {"Ø20 ° ±"}},
                                           {"\\U+041F\\U+0440", {"Пр"}},
                                           {"\\H2x;big", {"big"}},
                                           {"\\pi-2,l2,t4;item", {"item"}},
                                           {"a^ b", {"a^b"}},
                                           {"ends with \\", {"ends with \\"}},
                                           {"open {\\L", {"open"}},
                                           {"}} closed", {" closed"}},
                                           {"unended \\C1", {"unended |1"}},
                                           {"", {}}}) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(Lines(MText(row.text)), row.lines);
    }
}

TEST_F(MTextTest, BreaksLinesAtBlanks)
{
    MTextData text = MText("the quick brown fox");
    text.width = 65;
    EXPECT_EQ(Lines(text), (std::vector<std::string>{"the quick", "brown fox"}));
    text.width = 20;
    EXPECT_EQ(Lines(text), (std::vector<std::string>{"the", "quick", "brown", "fox"}));
    text.width = 0;
    EXPECT_EQ(Lines(text), (std::vector<std::string>{"the quick brown fox"}));
    text.text = "图纸标题中文";
    text.width = 45;
    EXPECT_EQ(Lines(text), (std::vector<std::string>{"图纸标", "题中文"}));
    text.text = "a {\\C1;b}c {\\C2;d}"; // a word of two looks stays together
    text.width = 15;
    EXPECT_EQ(Lines(text), (std::vector<std::string>{"a", "b|c", "d"}));
}

TEST_F(MTextTest, LinesStandFiveThirdsOfTheHeightApart)
{
    struct Row {
        const char* name;
        const char* text;
        double factor;
        int style;
        std::vector<double> baselines;
    };
    for (const Row& row : std::vector<Row>{{"plain", "a\\Pb\\Pc", 1, 1, {-10, -10 - 50.0 / 3, -10 - 100.0 / 3}},
                                           {"wide", "a\\Pb", 1.5, 1, {-10, -35}},
                                           {"a higher line", "a\\P\\H20;b", 1, 1, {-10, -10 - 100.0 / 3}},
                                           {"exact", "a\\P\\H20;b", 1, 2, {-10, -10 - 50.0 / 3}},
                                           {"an empty paragraph", "a\\P\\Pb", 1, 1, {-10, -10 - 100.0 / 3}},
                                           {"unusable factor", "a\\Pb", 0, 1, {-10, -10 - 50.0 / 3}}}) {
        SCOPED_TRACE(row.name);
        MTextData text = MText(row.text);
        text.lineSpacing = row.factor;
        text.lineSpacingStyle = row.style;
        std::vector<double> baselines;
        for (const GlyphPart& part : engine->Lay(drawing, text).glyphs) {
            baselines.push_back(part.run.toPaper.f);
        }
        ASSERT_EQ(baselines.size(), row.baselines.size());
        for (std::size_t i = 0; i < baselines.size(); ++i) {
            EXPECT_NEAR(baselines[i], row.baselines[i], 1e-9);
        }
    }
}

TEST_F(MTextTest, AttachmentPutsTheBoxAtThePoint)
{
    // "HH" and "H" in Liberation Sans 10 high: 20.9936 and 10.4968 wide; two lines are 26.6667 high.
    const double two = 2 * 1479.0 / 1409 * 10, one = two / 2, high = 10 + 50.0 / 3;
    struct Row {
        int attachment;
        Vec2 first, second; ///< base line starts
    };
    for (const Row& row : std::vector<Row>{{1, {0, -10}, {0, -high}},
                                           {2, {-two / 2, -10}, {-one / 2, -high}},
                                           {3, {-two, -10}, {-one, -high}},
                                           {4, {0, high / 2 - 10}, {0, -high / 2}},
                                           {5, {-two / 2, high / 2 - 10}, {-one / 2, -high / 2}},
                                           {6, {-two, high / 2 - 10}, {-one, -high / 2}},
                                           {7, {0, high - 10}, {0, 0}},
                                           {8, {-two / 2, high - 10}, {-one / 2, 0}},
                                           {9, {-two, high - 10}, {-one, 0}}}) {
        SCOPED_TRACE(row.attachment);
        for (const double width : {0.0, 100.0}) { // the width doesn't move the text
            MTextData text = MText("HH\\PH");
            text.attachment = row.attachment;
            text.insertion = {5, 6, 7};
            text.width = width;
            const LaidText& laid = engine->Lay(drawing, text);
            ASSERT_EQ(laid.glyphs.size(), 2U);
            EXPECT_NEAR(laid.glyphs[0].run.toPaper.e, 5 + row.first.x, 1e-9);
            EXPECT_NEAR(laid.glyphs[0].run.toPaper.f, 6 + row.first.y, 1e-9);
            EXPECT_NEAR(laid.glyphs[1].run.toPaper.e, 5 + row.second.x, 1e-9);
            EXPECT_NEAR(laid.glyphs[1].run.toPaper.f, 6 + row.second.y, 1e-9);
            EXPECT_EQ(laid.elevation, 7);
            ASSERT_EQ(laid.outline.size(), 4U);
            EXPECT_NEAR(laid.outline[1].x - laid.outline[0].x, two, 1e-9);
        }
    }
}

TEST_F(MTextTest, TurnsByAngleOrDirection)
{
    MTextData text = MText("H");
    text.rotation = 90;
    Matrix2 map = engine->Lay(drawing, text).glyphs.at(0).run.toPaper;
    EXPECT_NEAR(map.e, 10, 1e-9);
    EXPECT_NEAR(map.f, 0, 1e-9);
    text.hasDirection = true; // which counts more than the angle
    text.direction = {0, -1, 0};
    map = engine->Lay(drawing, text).glyphs.at(0).run.toPaper;
    EXPECT_NEAR(map.e, -10, 1e-9);
    EXPECT_NEAR(map.f, 0, 1e-9);
}

TEST_F(MTextTest, GivesItsPlaceInThePlaneOfItsExtrusion)
{
    MTextData text = MText("H");
    text.extrusion = {0, 0, -1}; // its x axis points the other way
    text.insertion = {5, 6, 7};
    text.hasDirection = true;
    text.direction = {1, 0, 0};
    const LaidText& laid = engine->Lay(drawing, text);
    EXPECT_NEAR(laid.glyphs.at(0).run.toPaper.e, -5, 1e-9);
    EXPECT_NEAR(laid.glyphs.at(0).run.toPaper.f, 6 + 10, 1e-9);
    EXPECT_LT(laid.glyphs.at(0).run.toPaper.a, 0);
    EXPECT_NEAR(laid.elevation, -7, 1e-9);
}

TEST_F(MTextTest, FollowsCodesOfLook)
{
    const double em = 10 * 2048.0 / 1409;
    struct Row {
        const char* text;
        double a, c, d;
    };
    for (const Row& row : std::vector<Row>{{"H", em, 0, em},
                                           {"\\H5;H", em / 2, 0, em / 2},
                                           {"\\H.5x;H", em / 2, 0, em / 2},
                                           {"\\H5x;\\H.1x;H", em / 2, 0, em / 2},
                                           {"\\W2;H", 2 * em, 0, em},
                                           {"\\Q45;H", em, em, em},
                                           {"{\\H5;}H", em, 0, em},
                                           {"\\H0;H", em, 0, em},
                                           {"\\H-3;H", em, 0, em}}) {
        SCOPED_TRACE(row.text);
        const Matrix2 map = engine->Lay(drawing, MText(row.text)).glyphs.at(0).run.toPaper;
        EXPECT_NEAR(map.a, row.a, 1e-9);
        EXPECT_NEAR(map.c, row.c, 1e-9);
        EXPECT_NEAR(map.d, row.d, 1e-9);
    }
}

TEST_F(MTextTest, GivesColorsOnlyWhereTheTextSetsThem)
{
    const LaidText& laid = engine->Lay(drawing, MText("a{\\C1;b\\c255;c}d"));
    ASSERT_EQ(laid.glyphs.size(), 4U);
    EXPECT_FALSE(laid.glyphs[0].color);
    EXPECT_EQ(laid.glyphs[1].color->index, 1);
    EXPECT_FALSE(laid.glyphs[1].color->trueColor);
    EXPECT_EQ(laid.glyphs[2].color->trueColor, 0xFF0000U); // the lowest byte is red
    EXPECT_FALSE(laid.glyphs[3].color);
}

TEST_F(MTextTest, DrawsLinesAtTheText)
{
    EXPECT_EQ(engine->Lay(drawing, MText("\\Lunder\\l \\Oover\\o \\Kthrough\\k")).rules.size(), 3U);
}

TEST_F(MTextTest, StacksFractions)
{
    struct Row {
        const char* text;
        std::vector<std::string> parts;
        std::size_t rules;
    };
    for (const Row& row : std::vector<Row>{{"1\\S3/4;\"", {"1", "3", "4", "\""}, 1},
                                           {"\\S+0.1^-0.2;", {"+0.1", "-0.2"}, 0},
                                           {"\\S1#2;", {"1", "2"}, 1},
                                           {"\\Sup^;", {"up"}, 0},
                                           {"\\Splain;", {"plain"}, 0}}) {
        SCOPED_TRACE(row.text);
        const LaidText& laid = engine->Lay(drawing, MText(row.text));
        std::vector<std::string> parts;
        for (const GlyphPart& part : laid.glyphs) {
            parts.push_back(part.run.text);
        }
        EXPECT_EQ(parts, row.parts);
        EXPECT_EQ(laid.rules.size(), row.rules);
    }
}

TEST_F(MTextTest, PutsFractionsAndLowLettersWhereTheLineAlignmentSays)
{
    struct Row {
        const char* text;
        std::vector<double> baselines; ///< from the line's own base line
        double top;                    ///< of the line over it
    };
    for (const Row& row : std::vector<Row>{{"H\\S3/4;", {0, 14, 0}, 24}, // two letters and a gap of 4
                                           {"\\A1;H\\S3/4;", {0, 7, -7}, 17},
                                           {"\\A2;H\\S3/4;", {0, 0, -14}, 10},
                                           {"\\A1;H{\\H0.5x;\\S3/4;}", {0, 6, -1}, 11},
                                           {"\\A1;H{\\H0.5x;\\S3^4;}", {0, 6, -1}, 11},
                                           {"\\A1;H{\\H0.5x;\\S3#4;}", {0, 4.5, 0.5}, 10},
                                           {"H\\H0.4x;h", {0, 0}, 10},
                                           {"\\A1;H\\H0.4x;h", {0, 3}, 10},
                                           {"\\A2;H\\H0.4x;h", {0, 6}, 10}}) {
        SCOPED_TRACE(row.text);
        const LaidText& laid = engine->Lay(drawing, MText(row.text));
        ASSERT_EQ(laid.glyphs.size(), row.baselines.size());
        for (std::size_t i = 0; i < row.baselines.size(); ++i) {
            EXPECT_NEAR(laid.glyphs[i].run.toPaper.f, row.baselines[i] - row.top, 1e-9);
        }
    }
}

TEST_F(MTextTest, LinesBelowAHighFractionGiveItRoom)
{
    const LaidText& laid = engine->Lay(drawing, MText("\\A1;a\\P\\S1/2;\\Pb"));
    ASSERT_EQ(laid.glyphs.size(), 4U);
    // Lines 50/3 apart, and the fraction reaches 7 over its capitals and 7 below them.
    EXPECT_NEAR(laid.glyphs[2].run.toPaper.f, -10 - 50.0 / 3 - 7 - 7, 1e-9);
    EXPECT_NEAR(laid.glyphs[3].run.toPaper.f, -10 - 100.0 / 3 - 14, 1e-9);
}

TEST_F(MTextTest, SetsTabsAndIndents)
{
    const auto starts = [&](const char* text, double width) {
        MTextData data = MText(text);
        data.width = width;
        std::vector<double> xs;
        for (const GlyphPart& part : engine->Lay(drawing, data).glyphs) {
            xs.push_back(std::round(part.run.toPaper.e * 1000) / 1000);
        }
        return xs;
    };
    EXPECT_EQ(starts("a^Ib", 0), (std::vector<double>{0, 40}));
    EXPECT_EQ(starts("\\pxt3,6;a\tb\tc", 0), (std::vector<double>{0, 30, 60}));
    EXPECT_EQ(starts("\\pxi-2,l3;aaa bbb ccc", 70), (std::vector<double>{10, 30}));
    EXPECT_EQ(starts("\\pqr;H", 100), (std::vector<double>{89.503}));
    EXPECT_EQ(starts("\\pxqc;H", 100), (std::vector<double>{44.752}));
    EXPECT_EQ(starts("\\pxi-3,l4t4;H^IH HHHHHHHHHH", 100), (std::vector<double>{10, 40, 40}));
    EXPECT_EQ(starts("\\pxi3;a\\P\\pi*;b", 0), (std::vector<double>{30, 0}));
    EXPECT_EQ(starts("\\pxtr10;a\tH", 0), (std::vector<double>{0, 89.503}));
    EXPECT_EQ(starts("\\pxtc10;a\tH", 0), (std::vector<double>{0, 94.752}));
    EXPECT_EQ(starts("\\pxt2,d10;a\tb\tH.5", 0), (std::vector<double>{0, 20, 89.503}));
    EXPECT_EQ(starts("\\pi31.5;H", 75), (std::vector<double>{31.5})); // drawing units
    EXPECT_EQ(starts("\\pl20,t30;a\tb", 0), (std::vector<double>{20, 30}));
    EXPECT_EQ(starts("\\pi-20,l20,t90;a\tb\tc", 0), (std::vector<double>{0, 20, 90})); // the indent is a stop
    EXPECT_EQ(starts("\\pi-60,l60;a\tb", 0), (std::vector<double>{0, 60}));
    EXPECT_EQ(starts("\\pxl5;a\\P\\pl0,i0;b", 0), (std::vector<double>{50, 0}));
    EXPECT_EQ(starts("\\pxl2,r3,qr;H", 100), (std::vector<double>{59.503}));
}

TEST_F(MTextTest, JustifiedLinesFillTheWidth)
{
    MTextData text = MText("\\pqj;HH HH HH");
    text.width = 60;
    const LaidText& laid = engine->Lay(drawing, text);
    ASSERT_GE(laid.glyphs.size(), 3U);
    const TextRun& second = laid.glyphs[1].run;
    EXPECT_NEAR(second.toPaper.Apply({second.advance, 0}).x, 60, 1e-6);
}

TEST_F(MTextTest, SurvivesDeepAndBrokenFormatting)
{
    const LaidText& deep = engine->Lay(drawing, MText(std::string(100000, '{') + "a" + std::string(100000, '}')));
    EXPECT_EQ(deep.glyphs.size(), 1U);
    MTextData text = MText("\\H1e300;\\W1e300;\\Q1e300;\\T-5;\\C999999;\\S/;\\S^;\\pi1e300,q;\\f;\\F|;x");
    text.lineSpacing = std::nan("");
    text.width = 1e-300;
    text.attachment = -4;
    EXPECT_NO_THROW(engine->Lay(drawing, text));
}

} // namespace
} // namespace sm::render
