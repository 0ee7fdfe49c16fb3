// Line types: where each dash begins and ends.
#include "SmallDrawing.h"

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
    "50 0 | 44 0 | 45 0";

constexpr const char* kLayers = "0 LAYER | 2 Dashes | 70 0 | 62 7 | 6 DASHED";

struct Row {
    const char* name;
    const char* header;
    const char* entities;
    Lines lines;
};

class LinetypesTest : public testing::TestWithParam<Row> {};

TEST_P(LinetypesTest, CutsDashes)
{
    SmallDrawing drawing;
    drawing.header = GetParam().header;
    drawing.linetypes = kLinetypes;
    drawing.layers = kLayers;
    drawing.entities = GetParam().entities;
    EXPECT_EQ(LinesOf(drawing), GetParam().lines);
}

const Row kRows[] = {
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
    {"SymbolsLeaveTheirGap", // (12 - 9 + 5) / 2 = 4
     "",
     "0 LINE | 8 0 | 6 GAS | 10 0 | 20 0 | 11 12 | 21 0",
     {"stroke 000000 0.25 m 0 0 l 4 0 m 8 0 l 12 0"}},
};

INSTANTIATE_TEST_SUITE_P(Entities, LinetypesTest, testing::ValuesIn(kRows),
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

TEST(LinetypeSymbolsTest, AreReported)
{
    SmallDrawing drawing;
    drawing.linetypes = kLinetypes;
    drawing.entities = "0 LINE | 8 0 | 6 GAS | 10 0 | 20 0 | 11 12 | 21 0";
    EXPECT_EQ(Render(drawing).remarks, Lines{"letters and shapes of a line type left out 1"});
}

} // namespace
} // namespace sm::render
