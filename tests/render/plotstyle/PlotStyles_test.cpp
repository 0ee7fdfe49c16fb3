// SPDX-License-Identifier: GPL-3.0-or-later
// What plot styles make of colours, widths, line types, ends, joins and fills.
#include "render/SmallDrawing.h"

#include "render/PlotStyleTable.h"

#include <gmock/gmock.h>

namespace sm::render {
namespace {

constexpr const char* kLineweights = "custom_lineweight_table{\n 0=0.0\n 1=0.05\n 2=0.5\n 3=1.25\n}\n";

/// A table by colour whose colour 1 has these properties, separated by blanks.
PlotStyleTable ColorTable(const std::string& properties, const std::string& head = "")
{
    std::string text = "PIAFILEVERSION_2.0,CTBVER1\r\n" + head + "plot_style{\n 0{\n  name=\"Color_1\n";
    std::istringstream words(properties);
    for (std::string word; words >> word;)
        text += "  " + word + "\n";
    return ParsePlotStyleTable(text + " }\n}\n" + kLineweights, "small.ctb");
}

struct PlotStyleRow {
    const char* name;
    const char* properties;
    const char* entity;
    Lines lines;
};

class PlotStylesTest : public testing::TestWithParam<PlotStyleRow> {};

TEST_P(PlotStylesTest, DrawTheColourIndex)
{
    const PlotStyleTable table = ColorTable(GetParam().properties);
    SmallDrawing drawing;
    drawing.layers = "0 LAYER | 2 Red | 70 0 | 62 1 | 6 Continuous | 370 35";
    drawing.linetypes = "0 LTYPE | 2 DASHED | 70 0 | 3 d | 72 65 | 73 2 | 40 5 | 49 3 | 74 0 | 49 -2 | 74 0";
    drawing.blocks = "0 BLOCK | 8 0 | 2 B | 70 0 | 10 0 | 20 0 | 3 B | 0 LINE | 8 0 | 62 0 | 10 0 | 11 1 |"
                     "0 ENDBLK | 8 0";
    drawing.entities = GetParam().entity;
    SmallScene look;
    look.plotStyles = &table;
    EXPECT_EQ(LinesOf(drawing, look), GetParam().lines);
}

constexpr const char* kStyledLine = "0 LINE | 8 0 | 62 1 | 10 1 | 11 2";
constexpr const char* kStyledSquare = "0 SOLID | 8 0 | 62 1 | 10 0 | 20 0 | 11 4 | 21 0 | 12 0 | 22 2 | 13 4 | 23 2";

const PlotStyleRow kPlotStyleRows[] = {
    {"Nothing", "", kStyledLine, {"stroke FF0000 0.25 m 1 0 l 2 0"}},
    {"ObjectColor", "color=-1006632961 mode_color=-1006632961", kStyledLine, {"stroke FF0000 0.25 m 1 0 l 2 0"}},
    {"ObjectColorOfOldTables", "color=-1", kStyledLine, {"stroke FF0000 0.25 m 1 0 l 2 0"}},
    {"Color", "color=-1040180122", kStyledLine, {"stroke 001C66 0.25 m 1 0 l 2 0"}},
    {"ExactColor", "color=-1006665984 mode_color=-1024751852", kStyledLine, {"stroke EB8714 0.25 m 1 0 l 2 0"}},
    {"Gray", "color_policy=2", kStyledLine, {"stroke 4C4C4C 0.25 m 1 0 l 2 0"}},
    {"DitherIsNothing", "color_policy=1", kStyledLine, {"stroke FF0000 0.25 m 1 0 l 2 0"}},
    {"Screening", "screen=40", kStyledLine, {"stroke FF9999 0.25 m 1 0 l 2 0"}},
    {"NoInk", "screen=0", kStyledLine, {"stroke FFFFFF 0.25 m 1 0 l 2 0"}},
    {"GrayColorScreened",
     "color=-1023475712 color_policy=3 screen=50", // C2FF0000
     kStyledLine,
     {"stroke A5A5A5 0.25 m 1 0 l 2 0"}},
    {"Lineweight", "lineweight=3", kStyledLine, {"stroke FF0000 1.25 m 1 0 l 2 0"}},
    {"LineweightOffTheTable", "lineweight=4", kStyledLine, {"stroke FF0000 0.25 m 1 0 l 2 0"}},
    {"ButtAndMiter", "end_style=0 join_style=0", kStyledLine, {"stroke FF0000 0.25 butt miter m 1 0 l 2 0"}},
    {"SquareAndBevel", "end_style=1 join_style=1", kStyledLine, {"stroke FF0000 0.25 square bevel m 1 0 l 2 0"}},
    {"RoundAndRound", "end_style=2 join_style=2", kStyledLine, {"stroke FF0000 0.25 m 1 0 l 2 0"}},
    {"ObjectEnds", "end_style=4 join_style=5", kStyledLine, {"stroke FF0000 0.25 m 1 0 l 2 0"}},
    {"Linetype", // ISO dash: 12 and 3 half millimetres
     "linetype=17",
     "0 LINE | 8 0 | 62 1 | 10 0 | 11 21",
     {"stroke FF0000 0.25 m 0 0 l 6 0 m 7.5 0 l 13.5 0 m 15 0 l 21 0"}},
    {"LinetypeOfAnotherSize",
     "linetype=17 linepattern_size=1",
     "0 LINE | 8 0 | 62 1 | 10 0 | 11 27",
     {"stroke FF0000 0.25 m 0 0 l 12 0 m 15 0 l 27 0"}},
    {"LinetypeThatIsNotAdapted",
     "linetype=17 adaptive_linetype=FALSE",
     "0 LINE | 8 0 | 62 1 | 10 0 | 11 10",
     {"stroke FF0000 0.25 m 0 0 l 6 0 m 7.5 0 l 10 0"}},
    {"SolidInPlaceOfTheObjects",
     "linetype=0",
     "0 LINE | 8 0 | 62 1 | 6 DASHED | 10 0 | 11 13",
     {"stroke FF0000 0.25 m 0 0 l 13 0"}},
    {"ObjectLinetype",
     "linetype=31",
     "0 LINE | 8 0 | 62 1 | 6 DASHED | 10 0 | 11 13",
     {"stroke FF0000 0.25 m 0 0 l 3 0 m 5 0 l 8 0 m 10 0 l 13 0"}},
    {"ByLayer", "color=-1023410176", "0 LINE | 8 Red | 10 1 | 11 2", {"stroke 000000 0.35 m 1 0 l 2 0"}},
    {"ByBlockGoesFirst",
     "color=-1023410176",
     "0 INSERT | 8 0 | 62 1 | 2 B | 10 5 | 20 5",
     {"stroke 000000 0.25 m 5 5 l 6 5"}},
    {"OtherColorsStay", "color=-1023410176", "0 LINE | 8 0 | 62 3 | 10 1 | 11 2", {"stroke 00FF00 0.25 m 1 0 l 2 0"}},
    {"TrueColorsStay",
     "color=-1023410176 lineweight=3",
     "0 LINE | 8 0 | 62 1 | 420 16711680 | 10 1 | 11 2",
     {"stroke FF0000 0.25 m 1 0 l 2 0"}},
    {"TransparencyStays",
     "color=-1023410176",
     "0 LINE | 8 0 | 62 1 | 440 33554559 | 10 1 | 11 2",
     {"stroke 000000~128 0.25 m 1 0 l 2 0"}},
    {"SolidFill", "fill_style=64", kStyledSquare, {"fill FF0000 nonzero box 0 0 4 2"}},
    {"HorizontalBars",
     "fill_style=68",
     kStyledSquare,
     {"clip box 0 0 4 2", "stroke FF0000 0.5 butt miter m -0.5 0 l 4.5 0 m -0.5 1 l 4.5 1 m -0.5 2 l 4.5 2", "pop"}},
    {"VerticalBars",
     "fill_style=72",
     "0 SOLID | 8 0 | 62 1 | 10 0 | 20 0 | 11 1 | 21 0 | 12 0 | 22 2 | 13 1 | 23 2",
     {"clip box 0 0 1 2", "stroke FF0000 0.5 butt miter m 0 -0.5 l 0 2.5 m 1 -0.5 l 1 2.5", "pop"}},
};

INSTANTIATE_TEST_SUITE_P(Properties, PlotStylesTest, testing::ValuesIn(kPlotStyleRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(PlotStyles, LineweightsOfTheTableHoldWithoutThoseOfTheObjects)
{
    const PlotStyleTable table = ColorTable("lineweight=2");
    SmallDrawing drawing;
    drawing.entities = "0 LINE | 8 0 | 62 1 | 10 1 | 11 2 | 0 LINE | 8 0 | 62 2 | 370 50 | 10 1 | 11 2";
    SmallScene look;
    look.plotStyles = &table;
    look.lineweights = false;
    look.lineweightScale = 0.5;
    EXPECT_EQ(LinesOf(drawing, look), (Lines{"stroke FF0000 0.25 m 1 0 l 2 0", "stroke FFFF00 0 m 1 0 l 2 0"}));
}

TEST(PlotStyles, OwnLinetypesAreScaledByTheTableAndThoseOfIsoAreNot)
{
    const char* head = "scale_factor=2.0\napply_factor=TRUE\n";
    SmallDrawing drawing;
    drawing.entities = "0 LINE | 8 0 | 62 1 | 10 0 | 11 20";
    const PlotStyleTable dashed = ColorTable("linetype=1", head), iso = ColorTable("linetype=17", head);
    SmallScene look;
    look.plotStyles = &dashed; // dash 8, gap 4
    EXPECT_EQ(LinesOf(drawing, look), Lines{"stroke FF0000 0.25 m 0 0 l 8 0 m 12 0 l 20 0"});
    look.plotStyles = &iso; // two periods in 20: (20 - 15 + 6) / 2 = 5.5 at both ends
    EXPECT_EQ(LinesOf(drawing, look), Lines{"stroke FF0000 0.25 m 0 0 l 5.5 0 m 7 0 l 13 0 m 14.5 0 l 20 0"});
}

constexpr const char* kPlaceholders =
    "0 DICTIONARY | 5 C | 3 ACAD_PLOTSTYLENAME | 350 E |"
    "0 ACDBDICTIONARYWDFLT | 5 E | 3 Normal | 350 F | 3 Thick | 350 A1 | 3 Lost | 350 A2 | 340 F |"
    "0 ACDBPLACEHOLDER | 5 F | 0 ACDBPLACEHOLDER | 5 A1 | 0 ACDBPLACEHOLDER | 5 A2";

PlotStyleTable NamedTable()
{
    return ParsePlotStyleTable(
        "PIAFILEVERSION_2.0,STBVER1\r\nplot_style{\n"
        " 0{\n  name=\"Normal\n }\n 1{\n  name=\"THICK\n  color=-1023410176\n  lineweight=3\n }\n"
        "}\n" +
            std::string(kLineweights),
        "small.stb");
}

TEST(NamedPlotStyles, ComeFromTheEntityItsLayerOrItsInsert)
{
    SmallDrawing drawing;
    drawing.header = "9 $PSTYLEMODE | 290 0 |";
    drawing.objects = kPlaceholders;
    drawing.layers = "0 LAYER | 2 Thick | 70 0 | 62 1 | 6 Continuous | 390 A1 |"
                     "0 LAYER | 2 Plain | 70 0 | 62 2 | 6 Continuous | 390 F";
    drawing.blocks = "0 BLOCK | 8 0 | 2 B | 70 0 | 10 0 | 20 0 | 3 B | 0 LINE | 8 Plain | 380 1 | 10 0 | 11 1 |"
                     "0 ENDBLK | 8 0";
    drawing.entities = "0 LINE | 8 Thick | 10 1 | 11 2 |"
                       "0 LINE | 8 Thick | 390 F | 10 2 | 11 3 |"
                       "0 LINE | 8 Plain | 380 3 | 390 A1 | 10 3 | 11 4 |"
                       "0 LINE | 8 Thick | 380 2 | 10 4 | 11 5 |"
                       "0 LINE | 8 Thick | 420 255 | 10 5 | 11 6 |"
                       "0 INSERT | 8 Thick | 2 B | 10 6 | 20 0";
    const PlotStyleTable table = NamedTable();
    SmallScene look;
    look.plotStyles = &table;
    EXPECT_EQ(LinesOf(drawing, look), (Lines{"stroke 000000 1.25 m 1 0 l 2 0", "stroke FF0000 0.25 m 2 0 l 3 0",
                                             "stroke 000000 1.25 m 3 0 l 4 0", "stroke FF0000 0.25 m 4 0 l 5 0",
                                             "stroke 000000 1.25 m 5 0 l 6 0", "stroke 000000 1.25 m 6 0 l 7 0"}));
    EXPECT_EQ(Render(drawing, look).remarks,
              Lines{"plot style \"Lost\" is not in the plot style table, its objects plotted like \"Normal\" 1"});
}

TEST(NamedPlotStyles, MeanNothingInDrawingsWithStylesByColour)
{
    SmallDrawing drawing;
    drawing.objects = kPlaceholders;
    drawing.entities = "0 LINE | 8 0 | 62 1 | 390 A1 | 10 1 | 11 2";
    const PlotStyleTable table = NamedTable();
    SmallScene look;
    look.plotStyles = &table;
    EXPECT_EQ(LinesOf(drawing, look), Lines{"stroke FF0000 0.25 m 1 0 l 2 0"});
}

TEST(PlotStyles, DiamondsAreDrawnRoundAndTold)
{
    SmallDrawing drawing;
    drawing.entities = kStyledLine;
    const PlotStyleTable table = ColorTable("end_style=3 join_style=3");
    SmallScene look;
    look.plotStyles = &table;
    EXPECT_EQ(LinesOf(drawing, look), Lines{"stroke FF0000 0.25 m 1 0 l 2 0"});
    EXPECT_EQ(Render(drawing, look).remarks, Lines{"diamond ends and joins of a plot style table drawn round 1"});
}

} // namespace
} // namespace sm::render
