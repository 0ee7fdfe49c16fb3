// SPDX-License-Identifier: GPL-3.0-or-later
#include "TextFixture.h"
#include "drawing/entities/Texts.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace sm::render {
namespace {

using drawing::TextData;

/// A drawing with a stroke style and a TrueType style.
class TextTest : public TextFixture {
protected:
    static TextData Text(const std::string& text, std::uint32_t style)
    {
        TextData data;
        data.text = text;
        data.style = style;
        data.height = 10;
        return data;
    }
    /// All texts of a result, in order.
    static std::vector<std::string> Texts(const LaidText& laid)
    {
        std::vector<std::string> texts;
        for (const GlyphPart& part : laid.glyphs) {
            texts.push_back(part.run.text);
        }
        return texts;
    }
};

constexpr std::uint32_t kStroke = 0, kOutline = 1;

Box2 BoxOfGlyphs(const LaidText& laid)
{
    Box2 box;
    Path path;
    for (const GlyphPart& part : laid.glyphs) {
        for (std::size_t i = 0; i < part.run.glyphs.size(); ++i) {
            part.run.font->Outline(part.run.glyphs[i], path);
            for (const Vec2 point : path.points) {
                box.Add(part.run.toPaper.Apply(point + part.run.positions[i]));
            }
        }
    }
    return box;
}

TEST_F(TextTest, CapitalsAreAsHighAsTheTextSays)
{
    for (const std::uint32_t style : {kStroke, kOutline}) {
        const Box2 box = BoxOfGlyphs(engine->Lay(drawing, Text("HEH", style)));
        EXPECT_NEAR(box.min.y, 0, 0.01);
        EXPECT_NEAR(box.max.y, 10, 0.01);
        EXPECT_GT(box.Width(), 20);
    }
}

TEST_F(TextTest, BigFontCharactersFillTheHeightFromTheBaseLine)
{
    const Box2 box = BoxOfGlyphs(engine->Lay(drawing, Text("国", kStroke)));
    EXPECT_NEAR(box.min.y, 0, 0.01);
    EXPECT_NEAR(box.max.y, 10, 0.01);
    const Box2 outline = BoxOfGlyphs(engine->Lay(drawing, Text("国", kOutline)));
    EXPECT_LT(outline.min.y, -0.5); // in a text of an outline font it stands as its font has it
}

TEST_F(TextTest, AlignmentPutsTheBoxAtThePoint)
{
    struct Row {
        const char* name;
        int horizontal, vertical;
        double left, base; ///< of the box: 0 its width or height to the left or below, see below
    };
    // "HH" in Liberation Sans: advance 2 x 1479, capitals 1409 of 2048 units: 10 high, 20.9936 wide. Descent 434.
    const double width = 2 * 1479.0 / 1409 * 10, descent = 434.0 / 1409 * 10;
    for (const Row& row : std::vector<Row>{{"left", 0, 0, 0, 0},
                                           {"center", 1, 0, -width / 2, 0},
                                           {"right", 2, 0, -width, 0},
                                           {"middle", 4, 0, -width / 2, -5},
                                           {"bottom left", 0, 1, 0, descent},
                                           {"middle left", 0, 2, 0, -5},
                                           {"top left", 0, 3, 0, -10},
                                           {"bottom center", 1, 1, -width / 2, descent},
                                           {"middle center", 1, 2, -width / 2, -5},
                                           {"top center", 1, 3, -width / 2, -10},
                                           {"bottom right", 2, 1, -width, descent},
                                           {"middle right", 2, 2, -width, -5},
                                           {"top right", 2, 3, -width, -10}}) {
        SCOPED_TRACE(row.name);
        TextData text = Text("HH", kOutline);
        text.horizontal = row.horizontal;
        text.vertical = row.vertical;
        text.insertion = {-77, -77, 3};
        text.alignment = {100, 50, 3};
        text.hasAlignment = row.horizontal != 0 || row.vertical != 0;
        const Vec2 base = text.hasAlignment ? Vec2{100, 50} : Vec2{-77, -77};
        const LaidText& laid = engine->Lay(drawing, text);
        ASSERT_EQ(laid.glyphs.size(), 1U);
        EXPECT_NEAR(laid.glyphs[0].run.toPaper.e, base.x + row.left, 1e-9);
        EXPECT_NEAR(laid.glyphs[0].run.toPaper.f, base.y + row.base, 1e-9);
        EXPECT_EQ(laid.elevation, 3);
        ASSERT_EQ(laid.outline.size(), 4U);
        EXPECT_NEAR(laid.outline[0].x, base.x + row.left, 1e-9);
        EXPECT_NEAR(laid.outline[0].y, base.y + row.base - descent, 1e-9);
        EXPECT_NEAR(laid.outline[2].x, base.x + row.left + width, 1e-9);
        EXPECT_NEAR(laid.outline[2].y, base.y + row.base + 10, 1e-9);
    }
}

TEST_F(TextTest, MiddleCountsDescenders)
{
    TextData text = Text("Hg", kStroke);
    text.horizontal = 4;
    text.hasAlignment = true;
    const Box2 box = BoxOfGlyphs(engine->Lay(drawing, text));
    EXPECT_NEAR(box.max.y + box.min.y, 0, 0.01);
    EXPECT_LT(box.min.y, -6);
}

TEST_F(TextTest, AlignedTextSpansItsPointsInProportion)
{
    TextData text = Text("HH", kOutline);
    text.horizontal = 3;
    text.hasAlignment = true;
    text.insertion = {10, 10, 0};
    text.alignment = {10, 10 + 2 * 1479.0 / 1409 * 20, 0}; // twice the width, straight up
    const TextRun& run = engine->Lay(drawing, text).glyphs.at(0).run;
    const Vec2 end = run.toPaper.Apply({run.advance, 0});
    EXPECT_NEAR(end.x, 10, 1e-9);
    EXPECT_NEAR(end.y, text.alignment.y, 1e-9);
    EXPECT_NEAR(run.toPaper.ApplyVector({0, 1409.0 / 2048}).x, -20, 1e-9);
}

TEST_F(TextTest, FittedTextKeepsItsHeight)
{
    TextData text = Text("HH", kOutline);
    text.horizontal = 5;
    text.hasAlignment = true;
    text.alignment = {2 * 1479.0 / 1409 * 5, 0, 0}; // half the width
    const TextRun& run = engine->Lay(drawing, text).glyphs.at(0).run;
    EXPECT_NEAR(run.toPaper.ApplyVector({0, 1409.0 / 2048}).y, 10, 1e-9);
    EXPECT_NEAR(run.toPaper.Apply({run.advance, 0}).x, text.alignment.x, 1e-9);
}

TEST_F(TextTest, TurnsShearsWidensAndMirrors)
{
    const double em = 10 * 2048.0 / 1409;
    struct Row {
        const char* name;
        double rotation, widthFactor, oblique;
        bool backward, upsideDown;
        Matrix2 map;
    };
    for (const Row& row :
         std::vector<Row>{{"plain", 0, 1, 0, false, false, {em, 0, 0, em, 1, 2}},
                          {"quarter turn", 90, 1, 0, false, false, {0, em, -em, 0, 1, 2}},
                          {"wide", 0, 2, 0, false, false, {2 * em, 0, 0, em, 1, 2}},
                          {"oblique", 0, 1, 45, false, false, {em, 0, em, em, 1, 2}},
                          {"backward", 0, 1, 0, true, false, {-em, 0, 0, em, 1, 2}},
                          {"upside down", 0, 1, 0, false, true, {em, 0, 0, -em, 1, 2}},
                          {"backward, turned", 90, 0.5, 0, true, false, {0, -0.5 * em, -em, 0, 1, 2}}}) {
        SCOPED_TRACE(row.name);
        TextData text = Text("H", kOutline);
        text.insertion = {1, 2, 0};
        text.rotation = row.rotation;
        text.widthFactor = row.widthFactor;
        text.oblique = row.oblique;
        text.backward = row.backward;
        text.upsideDown = row.upsideDown;
        const Matrix2 map = engine->Lay(drawing, text).glyphs.at(0).run.toPaper;
        EXPECT_NEAR(map.a, row.map.a, 1e-9);
        EXPECT_NEAR(map.b, row.map.b, 1e-9);
        EXPECT_NEAR(map.c, row.map.c, 1e-9);
        EXPECT_NEAR(map.d, row.map.d, 1e-9);
        EXPECT_NEAR(map.e, row.map.e, 1e-9);
        EXPECT_NEAR(map.f, row.map.f, 1e-9);
    }
}

TEST_F(TextTest, DecodesTheCodes)
{
    struct Row {
        const char* text;
        std::vector<std::string> shown;
        std::size_t rules;
    };
    for (const Row& row : std::vector<Row>{{"%%c20 %%p0.5 45%%d", {"Ø20 ±0.5 45°"}, 0},
                                           {"%%C %%P %%D", {"Ø ± °"}, 0},
                                           {"100%%%", {"100%"}, 0},
                                           {"%%065%%127", {"A°"}, 0},
                                           {"a%%ub%%uc", {"a", "b", "c"}, 1},
                                           {"%%o%%uab", {"ab"}, 2},
                                           {"%%kab%%k", {"ab"}, 1},
                                           {"\\U+041F\\U+0440", {"Пр"}, 0},
                                           {"50% %x %%", {"50% %x %%"}, 0},
                                           {"a^Ib^ c", {"a    b^c"}, 0},
                                           {"", {}, 0},
                                           {"%%u%%u", {}, 0}}) {
        SCOPED_TRACE(row.text);
        const LaidText& laid = engine->Lay(drawing, Text(row.text, kOutline));
        EXPECT_EQ(Texts(laid), row.shown);
        EXPECT_EQ(laid.rules.size(), row.rules);
        EXPECT_EQ(laid.outline.size(), row.shown.empty() ? 0U : 4U);
    }
}

TEST_F(TextTest, StrokesAreGlyphsOfAStrokedFont)
{
    const LaidText& laid = engine->Lay(drawing, Text("1 Ab", kStroke));
    ASSERT_EQ(laid.glyphs.size(), 1U);
    const TextRun& run = laid.glyphs[0].run;
    EXPECT_EQ(run.text, "1 Ab");
    EXPECT_FALSE(run.invisible);
    ASSERT_NE(run.font, nullptr);
    EXPECT_TRUE(run.font->IsStroked());
    EXPECT_EQ(run.font->Name(), "romans");
    EXPECT_EQ(run.glyphs, (std::vector<std::uint32_t>{'1', ' ', 'A', 'b'}));
    EXPECT_EQ(run.clusters, (std::vector<std::uint32_t>{0, 1, 2, 3}));
    Path path;
    run.font->Outline('A', path);
    EXPECT_FALSE(path.Empty());
    EXPECT_EQ(std::count(path.verbs.begin(), path.verbs.end(), Verb::Close), 0);
    for (std::size_t i = 0; i + 1 < run.positions.size(); ++i) { // glyphs stand behind each other
        EXPECT_NEAR(run.positions[i + 1].x - run.positions[i].x, run.font->Advance(run.glyphs[i]) / 10000.0, 1e-4);
    }
    // The box ends with the last letter, the text with the gap behind it (as fonts.map says).
    EXPECT_NEAR(run.toPaper.Apply({run.advance, 0}).x, laid.outline[1].x + 10 * 0.286, 1e-9);
}

TEST_F(TextTest, EveryCharacterIsDrawnBySomeFont)
{
    struct Row {
        const char* name;
        const char* text;
    };
    for (const Row& row : std::vector<Row>{{"Latin", "Größe"},
                                           {"Cyrillic", "Чертёж"},
                                           {"Chinese", "图纸"},
                                           {"Japanese", "カタ"},
                                           {"Korean", "한국"},
                                           {"Greek", "Ωμ"},
                                           {"symbols", "⌀≤"}}) {
        for (const std::uint32_t style : {kStroke, kOutline}) {
            SCOPED_TRACE(row.name);
            const LaidText& laid = engine->Lay(drawing, Text(row.text, style));
            std::string all;
            for (const std::string& text : Texts(laid)) {
                all += text;
            }
            EXPECT_EQ(all, row.text);
            for (const GlyphPart& part : laid.glyphs) {
                for (const std::uint32_t glyph : part.run.glyphs) {
                    EXPECT_NE(glyph, 0U);
                }
            }
        }
    }
}

TEST_F(TextTest, ACharacterThatNoFontHasIsABox)
{
    const LaidText& laid = engine->Lay(drawing, Text("\xF3\xB0\x80\x80", kOutline)); // private use
    ASSERT_EQ(laid.glyphs.size(), 1U);
    const TextRun& run = laid.glyphs[0].run;
    EXPECT_EQ(run.text, "\xF3\xB0\x80\x80");
    ASSERT_EQ(run.glyphs.size(), 1U);
    EXPECT_TRUE(run.font->IsStroked());
    Path path;
    run.font->Outline(run.glyphs[0], path);
    EXPECT_EQ(path.points.size(), 5U);
    EXPECT_TRUE(laid.glyphs[0].missing);
    EXPECT_FALSE(engine->Lay(drawing, Text("a", kStroke)).glyphs[0].missing);
}

TEST_F(TextTest, JoinsArabicAndReadsItFromTheRight)
{
    const LaidText& laid = engine->Lay(drawing, Text("سلام", kOutline));
    ASSERT_EQ(laid.glyphs.size(), 1U);
    const TextRun& run = laid.glyphs[0].run;
    EXPECT_EQ(run.text, "سلام");
    EXPECT_LT(run.glyphs.size(), 5U);
    EXPECT_GT(run.clusters.front(), run.clusters.back()); // the last letter stands leftmost
}

TEST_F(TextTest, StrokesEndAtTheirAlignmentPoint)
{
    for (const int horizontal : {2, 3, 5}) { // right, aligned, fit
        TextData text = Text("HIH", kStroke);
        text.horizontal = horizontal;
        text.hasAlignment = true;
        text.insertion = {0, 0, 0};
        text.alignment = {100, 0, 0};
        EXPECT_NEAR(BoxOfGlyphs(engine->Lay(drawing, text)).max.x, 100, 1e-9) << horizontal;
    }
}

TEST_F(TextTest, VerticalStyleRunsDown)
{
    drawing.styles[kStroke].vertical = true;
    const LaidText& laid = engine->Lay(drawing, Text("HI", kStroke));
    ASSERT_EQ(laid.glyphs.size(), 2U);
    const Box2 box = BoxOfGlyphs(laid);
    EXPECT_NEAR(box.max.y, 0, 1e-9);
    EXPECT_NEAR(box.min.y, -25, 1e-9);
}

TEST_F(TextTest, ListsWhatStandsForWhat)
{
    drawing::TextStyle arial, odd;
    arial.name = "Arial";
    arial.fontFile = "arial.ttf";
    odd.name = "Odd";
    odd.fontFile = "C:\\Fonts\\Strange.shx";
    drawing.styles.push_back(arial);
    drawing.styles.push_back(odd);
    engine->Lay(drawing, Text("a", kStroke));
    engine->Lay(drawing, Text("a", kOutline));
    engine->Lay(drawing, Text("a", 2));
    engine->Lay(drawing, Text("a", 3));
    engine->Lay(drawing, Text("b", 3));
    for (std::uint32_t i = 4; i < 9; ++i) {
        drawing.styles.push_back(arial);
        drawing.styles.back().name = "Arial" + std::to_string(i);
        engine->Lay(drawing, Text("a", i));
    }
    EXPECT_EQ(engine->Substitutions(),
              (std::vector<std::string>{
                  "romans.shx drawn with romans.lff (style Standard)",
                  "arial.ttf drawn with LiberationSans (style Arial, style Arial4, style Arial5 and 3 more)",
                  "Strange.shx drawn with standard.lff (style Odd)"}));
}

TEST_F(TextTest, NamesMayHaveUnderscoresForBlanks)
{
    const char* names[] = {"Century_Gothic.ttf", "Times_New_Roman", "gothicb.ttf", "No_Such_Font.ttf"};
    drawing.styles.clear();
    for (std::uint32_t i = 0; i < std::size(names); ++i) {
        drawing.styles.emplace_back().name = std::string(1, static_cast<char>('A' + i));
        drawing.styles.back().fontFile = names[i];
        engine->Lay(drawing, Text("a", i));
    }
    EXPECT_EQ(engine->Substitutions(),
              (std::vector<std::string>{"Century_Gothic.ttf drawn with URWGothic-Book (style A)",
                                        "Times_New_Roman drawn with LiberationSerif (style B)",
                                        "gothicb.ttf drawn with URWGothic-Demi (style C)",
                                        "No_Such_Font.ttf drawn with DejaVuSans (style D)"}));
}

TEST_F(TextTest, WorksWithoutAnyTable)
{
    const auto bare = TextEngine::Create({"", ""});
    const LaidText& laid = bare->Lay(drawing, Text("Ab", kOutline));
    EXPECT_EQ(laid.glyphs.size(), 1U);
}

TEST_F(TextTest, WhatIsPreparedServesForkedProcesses)
{
    TextEngine::Prepare();
    const pid_t child = fork();
    if (child == 0) {
        const auto own = TextEngine::Create({SM_SOURCE_DIR "/share/sheetmaker-pdf", ""});
        const bool outlines = own->Lay(drawing, Text("Ab", kOutline)).glyphs.at(0).run.font->Name() == "LiberationSans";
        const bool strokes = own->Lay(drawing, Text("Ab", kStroke)).glyphs.at(0).run.font->Name() == "romans";
        const bool others = own->Lay(drawing, Text("图", kOutline)).glyphs.at(0).run.glyphs.at(0) != 0;
        _exit(outlines && strokes && others ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
}

TEST_F(TextTest, NumbersOutOfRangeDoNoHarm)
{
    TextData text = Text("H", kOutline);
    text.height = std::nan("");
    text.rotation = std::numeric_limits<double>::infinity();
    text.oblique = 90;
    text.widthFactor = -1;
    text.style = 99;
    const LaidText& laid = engine->Lay(drawing, text);
    EXPECT_EQ(laid.glyphs.size(), 1U);
    EXPECT_TRUE(std::isfinite(laid.outline.at(2).x));
}

} // namespace
} // namespace sm::render
