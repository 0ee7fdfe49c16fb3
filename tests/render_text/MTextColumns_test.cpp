// SPDX-License-Identifier: GPL-3.0-or-later
#include "TextFixture.h"
#include "drawing/entities/Texts.h"

namespace sm::render {
namespace {

using drawing::MTextData;

/// Texts 10 high in Liberation Sans.
class MTextColumnTest : public TextFixture {};

TEST_F(MTextColumnTest, ParagraphsHaveTheirOwnSpacing)
{
    struct Row {
        const char* text;
        std::vector<double> steps;
    };
    for (const Row& row : std::vector<Row>{{"\\psm2;a\\Pb\\P\\ps*;c", {100.0 / 3, 50.0 / 3}},
                                           {"\\pse3;a\\Pb", {30}},
                                           {"\\psa3;a\\Pb\\P\\H30;c", {30, 50}},
                                           {"\\pb1,a2;a\\Pb\\P\\pb0,a0;c", {50.0 / 3 + 30, 50.0 / 3 + 20}},
                                           {"\\psq;a\\Pb", {50.0 / 3}}}) {
        SCOPED_TRACE(row.text);
        const LaidText& laid = engine->Lay(drawing, MText(row.text));
        ASSERT_EQ(laid.glyphs.size(), row.steps.size() + 1);
        for (std::size_t i = 0; i < row.steps.size(); ++i) {
            EXPECT_NEAR(laid.glyphs[i].run.toPaper.f - laid.glyphs[i + 1].run.toPaper.f, row.steps[i], 1e-9);
        }
    }
}

TEST_F(MTextColumnTest, RunsOverColumns)
{
    struct Row {
        const char* name;
        std::int32_t type, count;
        bool autoHeight, reversed;
        double height;
        std::vector<double> heights;
        std::vector<Vec2> starts; ///< of the lines
    };
    const double step = 50.0 / 3;
    const Vec2 a{0, -10}, b{0, -10 - step}, c{0, -10 - 2 * step};
    const auto in = [](Vec2 place, double x) { return Vec2{place.x + x, place.y}; };
    for (const Row& row : std::vector<Row>{
             {"one", 0, 0, false, false, 30, {}, {a, b, c, {0, -10 - 3 * step}}},
             {"static", 1, 2, false, false, 30, {}, {a, b, in(a, 45), in(b, 45)}},
             {"static, too long for the last", 1, 2, false, false, 20, {}, {a, in(a, 45), in(b, 45), in(c, 45)}},
             {"automatic", 2, 2, true, false, 20, {}, {a, in(a, 45), in(a, 90), in(a, 135)}},
             {"by hand", 2, 3, false, false, 0, {20, 30, 0}, {a, in(a, 45), in(b, 45), in(a, 90)}},
             {"from the right", 1, 2, false, true, 30, {}, {in(a, 45), in(b, 45), a, b}}}) {
        SCOPED_TRACE(row.name);
        MTextData text = MText("a\\Pb\\Pc\\Pd");
        text.width = 40;
        text.columnType = row.type;
        text.columnCount = row.count;
        text.columnWidth = 40;
        text.columnGutter = 5;
        text.columnAutoHeight = row.autoHeight;
        text.columnsReversed = row.reversed;
        text.definedHeight = row.height;
        text.columnHeights = row.heights;
        const LaidText& laid = engine->Lay(drawing, text);
        ASSERT_EQ(laid.glyphs.size(), 4U);
        for (std::size_t i = 0; i < 4; ++i) {
            EXPECT_NEAR(laid.glyphs[i].run.toPaper.e, row.starts[i].x, 1e-9);
            EXPECT_NEAR(laid.glyphs[i].run.toPaper.f, row.starts[i].y, 1e-9);
        }
    }
}

TEST_F(MTextColumnTest, AColumnBreakBeginsTheNextColumn)
{
    MTextData text = MText("a\\Nb");
    text.columnType = 1;
    text.columnCount = 3;
    text.columnWidth = 40;
    text.columnGutter = 5;
    text.definedHeight = 1000;
    const LaidText& laid = engine->Lay(drawing, text);
    ASSERT_EQ(laid.glyphs.size(), 2U);
    EXPECT_NEAR(laid.glyphs[1].run.toPaper.e, 45, 1e-9);
    EXPECT_NEAR(laid.glyphs[1].run.toPaper.f, -10, 1e-9);
    ASSERT_EQ(laid.frame.size(), 4U); // all three columns
    EXPECT_NEAR(laid.frame[1].x - laid.frame[0].x, 130, 1e-9);
}

} // namespace
} // namespace sm::render
