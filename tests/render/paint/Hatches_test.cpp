// SPDX-License-Identifier: GPL-3.0-or-later
// Hatches: boundaries, islands, patterns cut to the boundary, what is too dense.
#include "render/SmallDrawing.h"

#include <gmock/gmock.h>

namespace sm::render {
namespace {

std::string Square(double low, double high, int flags)
{
    const std::string a = std::to_string(low);
    const std::string b = std::to_string(high);
    return "92 " + std::to_string(flags | 2) + " | 72 0 | 73 1 | 93 4 | 10 " + a + " | 20 " + a + " | 10 " + b +
           " | 20 " + a + " | 10 " + b + " | 20 " + b + " | 10 " + a + " | 20 " + b + " | 97 0 |";
}

std::string Hatch(int paths, const std::string& boundary, const std::string& rest, bool solid = true)
{
    return std::string("0 HATCH | 8 0 | 10 0 | 20 0 | 30 0 | 210 0 | 220 0 | 230 1 | 2 ") +
           (solid ? "SOLID | 70 1" : "LINES | 70 0") + " | 71 0 | 91 " + std::to_string(paths) + " | " + boundary +
           rest;
}

const std::string kLines = "75 0 | 76 1 | 52 0 | 41 1 | 77 0 | 78 1 | 53 0 | 43 0 | 44 0 | 45 0 | 46 2 | 79 0";
const std::string kNest = Square(0, 30, 1) + Square(5, 25, 16) + Square(10, 20, 0);

struct HatchRow {
    const char* name;
    std::string entities;
    Lines lines;
};

class HatchesTest : public testing::TestWithParam<HatchRow> {};

TEST_P(HatchesTest, DrawAsWritten)
{
    SmallDrawing drawing;
    drawing.entities = GetParam().entities;
    EXPECT_EQ(LinesOf(drawing), GetParam().lines);
}

const HatchRow kHatchRows[] = {
    {"Solid", Hatch(1, Square(0, 10, 1), "75 0 | 76 1"), {"fill 000000 evenodd box 0 0 10 10"}},
    {"IslandsByParity",
     Hatch(3, kNest, "75 0 | 76 1"),
     {"fill 000000 evenodd m 0 0 l 30 0 l 30 30 l 0 30 h m 5 5 l 25 5 l 25 25 l 5 25 h m 10 10 l 20 10 l 20 20 l 10 20 "
      "h"}},
    {"OutermostRingAlone",
     Hatch(3, kNest, "75 1 | 76 1"),
     {"fill 000000 evenodd m 0 0 l 30 0 l 30 30 l 0 30 h m 5 5 l 25 5 l 25 25 l 5 25 h"}},
    {"WholeAreaWithoutIslands", Hatch(3, kNest, "75 2 | 76 1"), {"fill 000000 evenodd box 0 0 30 30"}},
    {"TextsStayFree", // the second box stands across the boundary and in an island of whole areas
     Hatch(3, Square(0, 30, 1) + Square(5, 10, 8) + Square(20, 40, 8), "75 2 | 76 1"),
     {"clip evenodd m -1 -1 l 31 -1 l 31 31 l -1 31 h m 5 5 l 10 5 l 10 10 l 5 10 h m 20 20 l 40 20 l 40 40 l 20 40 h",
      "fill 000000 evenodd box 0 0 30 30", "pop"}},
    {"TextsThatOverlap",
     Hatch(3, Square(0, 30, 1) + Square(5, 10, 8) + Square(9, 15, 8), "75 0 | 76 1"),
     {"clip evenodd m -1 -1 l 31 -1 l 31 31 l -1 31 h m 5 5 l 10 5 l 10 10 l 5 10 h",
      "clip evenodd m -1 -1 l 31 -1 l 31 31 l -1 31 h m 9 9 l 15 9 l 15 15 l 9 15 h",
      "fill 000000 evenodd box 0 0 30 30", "pop", "pop"}},
    {"EdgesAgainstTheDirection", // the second edge runs backwards
     Hatch(1,
           "92 1 | 93 3 | 72 1 | 10 0 | 20 0 | 11 10 | 21 0 | 72 1 | 10 10 | 20 10 | 11 10 | 21 0 | 72 1 | 10 10 | 20 "
           "10 |"
           "11 0 | 21 0 | 97 0 |",
           "75 0 | 76 1"),
     {"fill 000000 evenodd m 0 0 l 10 0 l 10 10 l 0 0 h"}},
    {"ArcEdgeClockwise", // from (0, 10) clockwise over (10, 0)... to (0, -10), closed by a line
     Hatch(1,
           "92 1 | 93 2 | 72 2 | 10 50 | 20 50 | 40 10 | 50 270 | 51 450 | 73 0 | 72 1 | 10 50 | 20 40 | 11 50 | 21 60 "
           "| 97 0 |",
           "75 0 | 76 1"),
     {"fill 000000 evenodd m 50 60 c 55.523 60 60 55.523 60 50 c 60 44.477 55.523 40 50 40 l 50 60 h"}},
    {"LinesTwoApart", // a corner on a line counts once, so that the upper edge has none
     Hatch(1, Square(1, 5, 1), kLines, false),
     {"stroke 000000 0.25 butt m 1 2 l 5 2 m 1 4 l 5 4"}},
    {"LinesRoundAnIsland",
     Hatch(2, Square(1, 9, 1) + Square(3, 5, 16), kLines, false),
     {"stroke 000000 0.25 butt m 1 2 l 9 2 m 1 4 l 3 4 m 5 4 l 9 4 m 1 6 l 9 6 m 1 8 l 9 8"}},
    {"DashesFromTheBasePoint", // dash 1, gap 1, the next line shifted by half a unit
     Hatch(1, Square(1, 4.5, 1),
           "75 0 | 76 1 | 52 0 | 41 1 | 77 0 | 78 1 | 53 0 | 43 0 | 44 0 | 45 0.5 | 46 2 | 79 2 | 49 1 | 49 -1", false),
     {"stroke 000000 0.25 butt m 1 2 l 1.5 2 m 2.5 2 l 3.5 2 m 1 4 l 2 4 m 3 4 l 4 4"}},
    {"DotsAreRound", // a dash 1, a gap 1, a dot, a gap 1, a dash as short as the pen is wide, a gap 1
     Hatch(1, Square(1, 9, 1),
           "75 0 | 76 1 | 52 0 | 41 1 | 77 0 | 78 1 | 53 0 | 43 0 | 44 0 | 45 0 | 46 5 | 79 6 | 49 1 | 49 -1 | 49 0 | "
           "49 -1 | 49 0.125 | 49 -1",
           false),
     {"stroke 000000 0.25 m 2 5 l 2.02 5 m 3 5 l 3.125 5 m 6.125 5 l 6.145 5 m 7.125 5 l 7.25 5",
      "stroke 000000 0.25 butt m 4.125 5 l 5.125 5 m 8.25 5 l 9 5"}},
    {"BasePointTooFarOff", // a spacing more changes nothing there
     Hatch(1, Square(1, 4.5, 1), "75 0 | 76 1 | 52 0 | 41 1 | 77 0 | 78 1 | 53 0 | 43 0 | 44 1e17 | 45 0 | 46 2 | 79 0",
           false),
     {"stroke 000000 0.25 butt m 1 2.75 l 4.5 2.75"}},
    {"LinesThatSlideTooFar",
     Hatch(1, Square(1, 4.5, 1),
           "75 0 | 76 1 | 52 0 | 41 1 | 77 0 | 78 1 | 53 0 | 43 0 | 44 0 | 45 1e15 | 46 2 | 79 2 | 49 1 | 49 -1",
           false),
     {"stroke 000000 0.25 butt m 2 2 l 3 2 m 4 2 l 4.5 2 m 2 4 l 3 4 m 4 4 l 4.5 4"}},
};

INSTANTIATE_TEST_SUITE_P(Entities, HatchesTest, testing::ValuesIn(kHatchRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct HatchReportRow {
    const char* name;
    std::string entities;
    const char* counts;
    Lines remarks;
};

class HatchReportsTest : public testing::TestWithParam<HatchReportRow> {};

TEST_P(HatchReportsTest, SayWhatIsDifferent)
{
    SmallDrawing drawing;
    drawing.entities = GetParam().entities;
    const Drawn drawn = Render(drawing);
    EXPECT_EQ(drawn.counts, GetParam().counts);
    EXPECT_EQ(drawn.remarks, GetParam().remarks);
}

const HatchReportRow kHatchReportRows[] = {
    {"WithoutBoundary", Hatch(0, "", "75 0 | 76 1"), "not drawn 1", {"a hatch without a boundary left out 1"}},
    {"TooDense",
     Hatch(1, Square(0, 50, 1),
           "75 0 | 76 1 | 52 0 | 41 1 | 77 0 | 78 1 | 53 0 | 43 0 | 44 0 | 45 0 | 46 0.000001 | 79 0", false),
     "drawn 1",
     {"a hatch pattern too dense for paper thinned out 1"}},
    {"TooFarOff",
     Hatch(1, Square(1, 4.5, 1), "75 0 | 76 1 | 52 0 | 41 1 | 77 0 | 78 1 | 53 0 | 43 1e17 | 44 0 | 45 0 | 46 2 | 79 0",
           false),
     "drawn 1",
     {"a hatch pattern that begins too far off begins in its area 1"}},
};

INSTANTIATE_TEST_SUITE_P(Entities, HatchReportsTest, testing::ValuesIn(kHatchReportRows),
                         [](const auto& row) { return std::string(row.param.name); });

/// 40 x 10, two colours so close that there are four bands.
std::string Gradient(const std::string& name, const std::string& more = "460 0 | 461 0")
{
    return Hatch(1,
                 "92 3 | 72 0 | 73 1 | 93 4 | 10 10 | 20 10 | 10 50 | 20 10 | 10 50 | 20 20 | 10 10 | 20 20 | 97 0 |",
                 "75 0 | 76 1 | 98 0 | 450 1 | 451 0 | 452 0 | 462 1 |" + more +
                     "| 453 2 | 463 0 | 63 5 | 421 0 | 463 1 | 63 2 | 421 197379 | 470 " + name);
}

const HatchRow kGradientRows[] = {
    {"Linear",
     Gradient("LINEAR"),
     {"fill 000000 evenodd box 10 10 50 20", "clip evenodd box 10 10 50 20", "fill 010101 nonzero box 20 10 50 20",
      "fill 020202 nonzero box 30 10 50 20", "fill 030303 nonzero box 40 10 50 20", "pop"}},
    {"LinearUpwards",
     Gradient("LINEAR", "460 1.5707963267948966 | 461 0"),
     {"fill 000000 evenodd box 10 10 50 20", "clip evenodd box 10 10 50 20",
      "fill 010101 nonzero m 50 12.5 l 50 20 l 10 20 l 10 12.5 h",
      "fill 020202 nonzero m 50 15 l 50 20 l 10 20 l 10 15 h",
      "fill 030303 nonzero m 50 17.5 l 50 20 l 10 20 l 10 17.5 h", "pop"}},
    {"LinearThatIsSeenThrough", // each band for itself
     "0 HATCH | 440 33554559 |" + Gradient("LINEAR").substr(9),
     {"clip evenodd box 10 10 50 20",
      "fill 000000 evenodd m 10 10 l 50 10 l 50 20 l 10 20 h m 20 10 l 50 10 l 50 20 l 20 20 h",
      "fill 010101 evenodd m 20 10 l 50 10 l 50 20 l 20 20 h m 30 10 l 50 10 l 50 20 l 30 20 h",
      "fill 020202 evenodd m 30 10 l 50 10 l 50 20 l 30 20 h m 40 10 l 50 10 l 50 20 l 40 20 h",
      "fill 030303 evenodd box 40 10 50 20", "pop"}},
    {"Cylinder",
     Gradient("CYLINDER"),
     {"fill 000000 evenodd box 10 10 50 20", "clip evenodd box 10 10 50 20",
      "fill 010101 nonzero m 15 10 l 45 10 l 45 20 l 15 20 h", "fill 020202 nonzero box 20 10 40 20",
      "fill 030303 nonzero box 25 10 35 20", "pop"}},
    {"InverseCylinder",
     Gradient("INVCYLINDER"),
     {"fill 030303 evenodd box 10 10 50 20", "clip evenodd box 10 10 50 20",
      "fill 020202 nonzero m 15 10 l 45 10 l 45 20 l 15 20 h", "fill 010101 nonzero box 20 10 40 20",
      "fill 000000 nonzero box 25 10 35 20", "pop"}},
};

INSTANTIATE_TEST_SUITE_P(Gradients, HatchesTest, testing::ValuesIn(kGradientRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(HatchSourcesTest, StandInForAPathWithoutEdges)
{
    SmallDrawing drawing;
    drawing.layers = "0 LAYER | 2 Off | 70 0 | 62 -1 | 6 Continuous";
    drawing.entities =
        "0 LINE | 5 E1 | 8 Off | 10 0 | 20 0 | 11 10 | 21 0 | 0 LINE | 5 E2 | 8 Off | 10 10 | 20 10 | 11 10 | "
        "21 0 | 0 LINE | 5 E3 | 8 Off | 10 10 | 20 10 | 11 0 | 21 0 |" +
        Hatch(1, "92 1 | 93 0 | 97 3 | 330 E1 | 330 E2 | 330 E3 |", "75 0 | 76 1");
    EXPECT_EQ(LinesOf(drawing), Lines{"fill 000000 evenodd m 0 0 l 10 0 l 10 10 l 0 0 h"});
}

TEST(DenseHatchTest, LengthensDashesAndKeepsTheirShare)
{
    // Dash 0.01, gap 0.03: five times longer is 0.1 on average.
    SmallDrawing drawing;
    drawing.entities = Hatch(
        1, Square(0, 0.5, 1),
        "75 0 | 76 1 | 52 0 | 41 1 | 77 0 | 78 1 | 53 0 | 43 0 | 44 0.25 | 45 0 | 46 1 | 79 2 | 49 0.01 | 49 -0.03",
        false);
    EXPECT_EQ(LinesOf(drawing),
              Lines{"stroke 000000 0.05 butt m 0 0.25 l 0.05 0.25 m 0.2 0.25 l 0.25 0.25 m 0.4 0.25 l "
                    "0.45 0.25"});
}

TEST(DenseHatchTest, KeepsLinesATenthOfAMillimetreApart)
{
    SmallDrawing drawing;
    drawing.entities =
        Hatch(1, Square(0, 1, 1),
              "75 0 | 76 1 | 52 0 | 41 1 | 77 0 | 78 1 | 53 0 | 43 0 | 44 0 | 45 0 | 46 0.025 | 79 0", false);
    EXPECT_EQ(
        LinesOf(drawing),
        Lines{"stroke 000000 0.05 butt m 0 0 l 1 0 m 0 0.1 l 1 0.1 m 0 0.2 l 1 0.2 m 0 0.3 l 1 0.3 m 0 0.4 l 1 0.4 m 0 "
              "0.5 l 1 0.5 m 0 0.6 l 1 0.6 m 0 0.7 l 1 0.7 m 0 0.8 l 1 0.8 m 0 0.9 l 1 0.9"});
}

} // namespace
} // namespace sm::render
