// SPDX-License-Identifier: GPL-3.0-or-later
// Line types: where each dash begins and ends.
#include "render/SmallDrawing.h"

#include <gmock/gmock.h>

namespace sm::render {
namespace {

// Period 5: dash 3, gap 2. DASHDOT period 8: dash 4, gap 2, dot, gap 2.
constexpr const char* kLinetypes =
    "0 LTYPE | 2 DASHED | 70 0 | 3 d | 72 65 | 73 2 | 40 5 | 49 3 | 74 0 | 49 -2 | 74 0 |"
    "0 LTYPE | 2 DASHDOT | 70 0 | 3 d | 72 65 | 73 4 | 40 8 | 49 4 | 74 0 | 49 -2 | 74 0 | 49 0 | 74 0 | 49 -2 | 74 0 |"
    "0 LTYPE | 2 DOTS | 70 0 | 3 d | 72 65 | 73 2 | 40 5 | 49 0 | 74 0 | 49 -5 | 74 0 |"
    "0 LTYPE | 2 FINE | 70 0 | 3 d | 72 65 | 73 2 | 40 0.1 | 49 0.05 | 74 0 | 49 -0.05 | 74 0 |"
    "0 LTYPE | 2 GAS | 70 0 | 3 d | 72 65 | 73 3 | 40 9 | 49 5 | 74 0 | 49 -2 | 74 2 | 75 0 | 340 0 | 46 1 | 50 0 | 44 "
    "0 |"
    "45 0 | 9 GAS | 49 -2 | 74 0 |"
    "0 LTYPE | 2 BATTING | 70 0 | 3 d | 72 65 | 73 2 | 40 10 | 49 0.01 | 74 0 | 49 -9.99 | 74 4 | 75 132 | 340 0 | 46 "
    "1 |"
    "50 0 | 44 0 | 45 0 |"
    "0 LTYPE | 2 UPRIGHT | 70 0 | 3 d | 72 65 | 73 3 | 40 9 | 49 5 | 74 0 | 49 -2 | 74 3 | 75 0 | 340 0 | 46 1 | 50 0 "
    "| 44 -1 | 45 -0.5 | 9 GAS | 49 -2 | 74 0 |"
    "0 LTYPE | 2 TURNED | 70 0 | 3 d | 72 65 | 73 3 | 40 9 | 49 5 | 74 0 | 49 -2 | 74 2 | 75 0 | 340 0 | 46 1 | 50 90 "
    "| 44 0 | 45 0 | 9 GAS | 49 -2 | 74 0 |"
    "0 LTYPE | 2 FENCE | 70 0 | 3 d | 72 65 | 73 3 | 40 9 | 49 5 | 74 0 | 49 -2 | 74 4 | 75 132 | 340 51 | 46 1 | 50 0 "
    "| 44 -2 | 45 0 | 49 -2 | 74 0 |"
    "0 LTYPE | 2 TRACKS | 70 0 | 3 d | 72 65 | 73 2 | 40 4 | 49 2 | 74 4 | 75 130 | 340 51 | 46 0.5 | 50 0 | 44 0 | 45 "
    "0 | 49 2 | 74 0";

constexpr const char* kStyles = "0 STYLE | 5 51 | 2 | 70 1 | 40 0 | 41 1 | 50 0 | 3 ltypeshp.shx";

constexpr const char* kLayers = "0 LAYER | 2 Dashes | 70 0 | 62 7 | 6 DASHED";

struct PatternRow {
    const char* name;
    const char* header;
    const char* entities;
    Lines lines;
};

class LinetypesTest : public testing::TestWithParam<PatternRow> {};

TEST_P(LinetypesTest, CutsDashes)
{
    SmallDrawing drawing;
    drawing.header = GetParam().header;
    drawing.linetypes = kLinetypes;
    drawing.layers = kLayers;
    drawing.styles = kStyles;
    drawing.entities = GetParam().entities;
    EXPECT_EQ(LinesOf(drawing), GetParam().lines);
}

const PatternRow kPatternRows[] = {
    {"BeginsAndEndsWithADash", // two periods in 13: (13 - 10 + 3) / 2 = 3 at both ends
     "",
     "0 LINE | 8 0 | 6 DASHED | 10 0 | 20 0 | 11 13 | 21 0",
     {"stroke 000000 0.25 m 0 0 l 3 0 m 5 0 l 8 0 m 10 0 l 13 0"}},
    {"RestIsSharedByBothEnds", // (11 - 10 + 3) / 2 = 2
     "",
     "0 LINE | 8 0 | 6 DASHED | 10 0 | 20 0 | 11 11 | 21 0",
     {"stroke 000000 0.25 m 0 0 l 2 0 m 4 0 l 7 0 m 9 0 l 11 0"}},
    {"ShorterThanAPeriodIsWhole",
     "",
     "0 LINE | 8 0 | 6 DASHED | 10 0 | 20 0 | 11 4.9 | 21 0",
     {"stroke 000000 0.25 m 0 0 l 4.9 0"}},
    {"ByLayer", "", "0 LINE | 8 Dashes | 10 0 | 20 0 | 11 8 | 21 0", {"stroke 000000 0.25 m 0 0 l 3 0 m 5 0 l 8 0"}},
    {"GlobalAndOwnScaleMultiply", // period 5 * 2 * 0.75 = 7.5, dash 4.5: (12 - 7.5 + 4.5) / 2 = 4.5
     "9 $LTSCALE | 40 2",
     "0 LINE | 8 0 | 6 DASHED | 48 0.75 | 10 0 | 20 0 | 11 12 | 21 0",
     {"stroke 000000 0.25 m 0 0 l 4.5 0 m 7.5 0 l 12 0"}},
    {"DotsAreTinyStrokes", // (12 - 8 + 4) / 2 = 4, the dot at 6
     "",
     "0 LINE | 8 0 | 6 DASHDOT | 10 0 | 20 0 | 11 12 | 21 0",
     {"stroke 000000 0.25 m 0 0 l 4 0 m 5.99 0 l 6.01 0 m 8 0 l 12 0"}},
    {"DotsAlone", // (12 - 10) / 2 = 1
     "",
     "0 LINE | 8 0 | 6 DOTS | 10 0 | 20 0 | 11 12 | 21 0",
     {"stroke 000000 0.25 m 0.99 0 l 1.01 0 m 5.99 0 l 6.01 0 m 10.99 0 l 11.01 0"}},
    {"TooFineIsContinuous",
     "",
     "0 LINE | 8 0 | 6 FINE | 10 0 | 20 0 | 11 12 | 21 0",
     {"stroke 000000 0.25 m 0 0 l 12 0"}},
    {"EachSegmentForItself",
     "",
     "0 LWPOLYLINE | 8 0 | 6 DASHED | 90 3 | 70 0 | 10 0 | 20 0 | 10 8 | 20 0 | 10 8 | 20 8",
     {"stroke 000000 0.25 m 0 0 l 3 0 m 5 0 l 8 0 l 8 3 m 8 5 l 8 8"}},
    {"RunsOnOverVertices", // 16 long, three periods: (16 - 15 + 3) / 2 = 2
     "",
     "0 LWPOLYLINE | 8 0 | 6 DASHED | 90 3 | 70 128 | 10 0 | 20 0 | 10 8 | 20 0 | 10 8 | 20 8",
     {"stroke 000000 0.25 m 0 0 l 2 0 m 4 0 l 7 0 m 8 1 l 8 4 m 8 6 l 8 8"}},
    {"ClosingSegmentToo",
     "",
     "0 LWPOLYLINE | 8 0 | 6 DASHED | 90 3 | 70 1 | 10 0 | 20 0 | 10 8 | 20 0 | 10 8 | 20 4",
     {"stroke 000000 0.25 m 0 0 l 3 0 m 5 0 l 8 0 l 8 4 l 4.894 2.447 m 3.106 1.553 l 0 0"}},
    {"FarLineIsCutWhereItShows", // 1000004 long: ends (4 + 3) / 2 = 3.5; the next dash ends at -1.5, off the page
     "",
     "0 LINE | 8 0 | 6 DASHED | 10 -1000000 | 20 0 | 11 4 | 21 0",
     {"stroke 000000 0.25 m 0.5 0 l 4 0"}},
    {"SymbolsAloneLeaveALine",
     "",
     "0 LINE | 8 0 | 6 BATTING | 10 0 | 20 0 | 11 30 | 21 0",
     {"stroke 000000 0.25 m 0 0 l 30 0"}},
    {"TextStandsBehindItsGap", // (12 - 9 + 5) / 2 = 4, the text 2 further on
     "",
     "0 LINE | 8 0 | 6 GAS | 10 0 | 20 0 | 11 12 | 21 0",
     {"stroke 000000 0.25 m 0 0 l 4 0 m 8 0 l 12 0", "text 000000 [1 0 0 1 6 0] GAS"}},
    {"TextFollowsTheLine",
     "",
     "0 LINE | 8 0 | 6 GAS | 10 20 | 20 0 | 11 20 | 21 12",
     {"stroke 000000 0.25 m 20 0 l 20 4 m 20 8 l 20 12", "text 000000 [0 1 -1 0 20 6] GAS"}},
    {"TextGrowsWithTheScale", // period 18, dash 10: (24 - 18 + 10) / 2 = 8, the text 4 further on
     "",
     "0 LINE | 8 0 | 6 GAS | 48 2 | 10 0 | 20 0 | 11 24 | 21 0",
     {"stroke 000000 0.25 m 0 0 l 8 0 m 16 0 l 24 0", "text 000000 [2 0 0 2 12 0] GAS"}},
    {"AbsoluteRotationAndOffset", // the offset runs along the line, the text stands upright
     "",
     "0 LINE | 8 0 | 6 UPRIGHT | 10 20 | 20 0 | 11 20 | 21 12",
     {"stroke 000000 0.25 m 20 0 l 20 4 m 20 8 l 20 12", "text 000000 [1 0 0 1 20.5 5] GAS"}},
    {"RotationOfItsOwn",
     "",
     "0 LINE | 8 0 | 6 TURNED | 10 0 | 20 0 | 11 12 | 21 0",
     {"stroke 000000 0.25 m 0 0 l 4 0 m 8 0 l 12 0", "text 000000 [0 1 -1 0 6 0] GAS"}},
    {"CommonShapeWithoutItsFile",
     "",
     "0 LINE | 8 0 | 6 FENCE | 10 0 | 20 10 | 11 14 | 21 10",
     {"stroke 000000 0.25 m 0 10 l 5 10 m 9 10 l 14 10", "stroke 000000 0.25 box 5 9 7 11"}},
    {"ShapesOnEachSegment", // sleepers every 4; the first dash is cut to its half
     "",
     "0 LWPOLYLINE | 8 0 | 6 TRACKS | 90 3 | 70 0 | 10 10 | 20 10 | 10 18 | 20 10 | 10 18 | 20 14",
     {"stroke 000000 0.25 m 10 10 l 11 10 l 13 10 l 15 10 l 17 10 l 18 10 l 18 11 l 18 13 l 18 14",
      "stroke 000000 0.25 m 11 9.5 l 11 10.5 m 15 9.5 l 15 10.5 m 18.5 11 l 17.5 11"}},
};

INSTANTIATE_TEST_SUITE_P(Entities, LinetypesTest, testing::ValuesIn(kPatternRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(LinetypesOnCurvesTest, FollowTheArc)
{
    // A quarter of 10 pi / 2 = 15.708, three periods: ends (15.708 - 15 + 3) / 2 = 1.854 mm or 10.62 degrees.
    SmallDrawing drawing;
    drawing.linetypes = kLinetypes;
    drawing.entities = "0 ARC | 8 0 | 6 DASHED | 10 0 | 20 0 | 40 10 | 50 0 | 51 90";
    const auto lines = LinesOf(drawing);
    ASSERT_EQ(lines.size(), 1U);
    std::vector<double> angles;
    std::istringstream words(lines.front());
    std::string word;
    std::vector<double> numbers;
    while (words >> word) {
        const bool verb = word == "m" || word == "c";
        if (word == "m") {
            numbers.clear();
        }
        if (verb || word == "stroke") {
            continue;
        }
        numbers.push_back(std::stod(word));
        if (numbers.size() == 2 || numbers.size() == 8) {
            angles.push_back(std::atan2(numbers[numbers.size() - 1], numbers[numbers.size() - 2]) * 180 / 3.14159265);
        }
    }
    const std::vector<double> expected{0, 10.62, 22.08, 39.27, 50.73, 67.92, 79.38, 90};
    ASSERT_GE(angles.size(), expected.size());
    angles.erase(angles.begin(), angles.end() - static_cast<std::ptrdiff_t>(expected.size()));
    EXPECT_THAT(angles, testing::Pointwise(testing::DoubleNear(0.02), expected));
}

TEST(LinetypeSymbolsTest, AreReportedWithoutTheirFile)
{
    SmallDrawing drawing;
    drawing.linetypes = kLinetypes;
    drawing.entities = "0 LINE | 8 0 | 6 BATTING | 10 0 | 20 0 | 11 30 | 21 0";
    EXPECT_EQ(Render(drawing).remarks, Lines{"letters and shapes of a line type left out 1"});
}

} // namespace
} // namespace sm::render
