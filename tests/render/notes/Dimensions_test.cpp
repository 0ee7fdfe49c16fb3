// SPDX-License-Identifier: GPL-3.0-or-later
// Dimensions without a picture block: lines, arrows and texts from their measurements and their style.
#include "render/SmallDrawing.h"

#include <gmock/gmock.h>

namespace sm::render {
namespace {

struct DimensionRow {
    const char* name;
    std::string entities;
    Lines lines;
};

/// Style A: letters and arrows 2 high, all gaps 1, one decimal, text in the line; T ticks; U texts above, level off.
SmallDrawing WithDimensionStyles(const std::string& entities)
{
    const std::string common = "| 41 2 | 42 1 | 44 1 | 140 2 | 147 1 | 141 1 | 271 1 | 73 0 | 74 0";
    SmallDrawing drawing;
    drawing.layers = "0 DIMSTYLE | 105 D1 | 2 A" + common +
                     "| 0 DIMSTYLE | 105 D2 | 2 T | 142 1 | 46 2 | 176 1 | 177 "
                     "3 | 178 5" +
                     common + "| 0 DIMSTYLE | 105 D3 | 2 U | 77 1 | 3 <> mm | 278 44 | 78 8" + common +
                     "| 0 DIMSTYLE | 105 D4 | 2 L" + common + "| 74 1 | 77 1" + "| 0 DIMSTYLE | 105 D5 | 2 B" + common +
                     "| 172 1";
    drawing.blocks = "0 BLOCK | 8 0 | 2 *D1 | 70 1 | 10 0 | 20 0 | 0 ENDBLK";
    drawing.entities = entities;
    return drawing;
}

class DimensionsTest : public testing::TestWithParam<DimensionRow> {};

TEST_P(DimensionsTest, DrawAsMeasured)
{
    EXPECT_EQ(LinesOf(WithDimensionStyles(GetParam().entities)), GetParam().lines);
}

const DimensionRow kDimensionRows[] = {
    {"LinearInTheLine",
     "0 DIMENSION | 8 0 | 3 A | 70 32 | 2 *D1 | 10 50 | 20 30 | 11 30 | 21 30 | 13 10 | 23 10 | 14 50 | 24 10 | 50 0",
     {"stroke 000000 0.25 m 10 11 l 10 31", "stroke 000000 0.25 m 50 11 l 50 31",
      "fill 000000 nonzero m 10 30 l 12 30.333 l 12 29.667 h", "fill 000000 nonzero m 50 30 l 48 29.667 l 48 30.333 h",
      "stroke 000000 0.25 m 12 30 l 26.6 30", "stroke 000000 0.25 m 33.4 30 l 48 30",
      "text 000000 [2 0 0 2 30 30] 40.0"}},
    {"VerticalWithTicksAndColours",
     "0 DIMENSION | 8 0 | 3 T | 70 0 | 10 30 | 20 50 | 11 30 | 21 30 | 13 10 | 23 10 | 14 10 | 24 50 | 50 90 | 1 H",
     {"stroke 00FF00 0.25 m 11 10 l 31 10", "stroke 00FF00 0.25 m 11 50 l 31 50", "stroke FF0000 0.25 m 29 11 l 31 9",
      "stroke FF0000 0.25 m 31 49 l 29 51", "stroke FF0000 0.25 m 30 8 l 30 28.4",
      "stroke FF0000 0.25 m 30 31.6 l 30 52", "text 0000FF [0 2 -2 0 30 30] H"}},
    {"AlignedWithTheTextAbove",
     "0 DIMENSION | 8 0 | 3 U | 70 1 | 10 40 | 20 55 | 13 10 | 23 10 | 14 40 | 24 50 | 1 L=<>",
     {"stroke 000000 0.25 m 9.2 10.6 l 6.8 12.4", "stroke 000000 0.25 m 39.2 50.6 l 36.8 52.4",
      "fill 000000 nonzero m 7.6 11.8 l 8.533 13.6 l 9.067 13.2 h",
      "fill 000000 nonzero m 37.6 51.8 l 36.667 50 l 36.133 50.4 h", "stroke 000000 0.25 m 8.8 13.4 l 36.4 50.2",
      "text 000000 [1.2 1.6 -1.6 1.2 21 33] L=50 mm"}},
    {"ArrowsOutsideWhereThereIsNoRoom",
     "0 DIMENSION | 8 0 | 3 A | 70 0 | 10 14 | 20 30 | 11 30 | 21 30 | 13 10 | 23 10 | 14 14 | 24 10 | 50 0",
     {"stroke 000000 0.25 m 10 11 l 10 31", "stroke 000000 0.25 m 14 11 l 14 31",
      "fill 000000 nonzero m 10 30 l 8 29.667 l 8 30.333 h", "fill 000000 nonzero m 14 30 l 16 30.333 l 16 29.667 h",
      "stroke 000000 0.25 m 8 30 l 6 30", "stroke 000000 0.25 m 16 30 l 18 30", "text 000000 [2 0 0 2 30 30] 4.0"}},
    {"LineBetweenArrowsOutside",
     "0 DIMENSION | 8 0 | 3 B | 70 0 | 10 14 | 20 30 | 11 30 | 21 30 | 13 10 | 23 10 | 14 14 | 24 10 | 50 0",
     {"stroke 000000 0.25 m 10 11 l 10 31", "stroke 000000 0.25 m 14 11 l 14 31",
      "fill 000000 nonzero m 10 30 l 8 29.667 l 8 30.333 h", "fill 000000 nonzero m 14 30 l 16 30.333 l 16 29.667 h",
      "stroke 000000 0.25 m 10 30 l 14 30", "stroke 000000 0.25 m 8 30 l 6 30", "stroke 000000 0.25 m 16 30 l 18 30",
      "text 000000 [2 0 0 2 30 30] 4.0"}},
    {"RadiusInside",
     "0 DIMENSION | 8 0 | 3 A | 70 4 | 10 50 | 20 50 | 15 80 | 25 50 | 11 65 | 21 50",
     {"fill 000000 nonzero m 80 50 l 78 49.667 l 78 50.333 h", "stroke 000000 0.25 m 78 50 l 69 50",
      "stroke 000000 0.25 m 61 50 l 50 50", "text 000000 [2 0 0 2 65 50] R30.0"}},
    {"DiameterOutside",
     "0 DIMENSION | 8 0 | 3 U | 70 3 | 10 40 | 20 50 | 15 60 | 25 50 | 11 75 | 21 50",
     {"fill 000000 nonzero m 60 50 l 62 50.333 l 62 49.667 h", "stroke 000000 0.25 m 62 50 l 78 50",
      "stroke 000000 0.25 m 49 50 l 51 50", "stroke 000000 0.25 m 50 49 l 50 51", "text 000000 [2 0 0 2 75 50] 20 mm"}},
    {"DiameterOutsideWithItsLine",
     "0 DIMENSION | 8 0 | 3 B | 70 3 | 10 40 | 20 50 | 15 60 | 25 50 | 11 75 | 21 50 | 1 20",
     {"fill 000000 nonzero m 60 50 l 62 50.333 l 62 49.667 h", "stroke 000000 0.25 m 62 50 l 72.8 50",
      "stroke 000000 0.25 m 60 50 l 40 50", "text 000000 [2 0 0 2 75 50] 20"}},
    {"RadiusOutsideWithItsLine",
     "0 DIMENSION | 8 0 | 3 B | 70 4 | 10 50 | 20 50 | 15 60 | 25 50 | 11 75 | 21 50 | 1 9",
     {"fill 000000 nonzero m 60 50 l 62 50.333 l 62 49.667 h", "stroke 000000 0.25 m 62 50 l 73.4 50",
      "stroke 000000 0.25 m 60 50 l 50 50", "text 000000 [2 0 0 2 75 50] 9"}},
    {"SmallAngleWithItsLine",
     "0 DIMENSION | 8 0 | 3 B | 70 5 | 15 10 | 25 10 | 13 30 | 23 10 | 14 30 | 24 11 | 10 30.5 | 20 10.5 | 11 40 | 21 "
     "10 | 1 a",
     {"fill 000000 nonzero m 30.506 10 l 30.742 7.986 l 30.076 8.019 h",
      "fill 000000 nonzero m 30.481 11.024 l 29.952 12.981 l 30.615 13.047 h",
      "stroke 000000 0.25 m 30.506 10 c 30.506 10.342 30.498 10.683 30.481 11.024",
      "stroke 000000 0.25 m 30.117 6.025 c 30.246 6.679 30.344 7.34 30.409 8.003",
      "stroke 000000 0.25 m 30.283 13.013 c 30.185 13.673 30.055 14.327 29.894 14.974",
      "text 000000 [0.05 -1.999 1.999 0.05 40 10] a"}},
    {"AngleBetweenTwoLines",
     "0 DIMENSION | 8 0 | 3 A | 70 2 | 13 10 | 23 10 | 14 20 | 24 10 | 15 10 | 25 10 | 10 10 | 20 20 | 16 38.284 | 26 "
     "38.284 | 11 38.284 | 21 38.284",
     {"stroke 000000 0.25 m 21 10 l 51 10", "stroke 000000 0.25 m 10 21 l 10 51",
      "fill 000000 nonzero m 50 10 l 49.616 11.991 l 50.283 12.008 h",
      "fill 000000 nonzero m 10 50 l 12.008 50.283 l 11.991 49.616 h",
      "stroke 000000 0.25 m 49.95 11.999 c 49.523 20.532 46.375 28.705 40.966 35.319",
      "stroke 000000 0.25 m 35.319 40.966 c 28.705 46.375 20.532 49.523 11.999 49.95",
      "text 000000 [1.414 -1.414 1.414 1.414 38.284 38.284] 90%%d"}},
    {"AngleByThreePoints",
     "0 DIMENSION | 8 0 | 3 A | 70 5 | 15 10 | 25 10 | 13 60 | 23 10 | 14 10 | 24 60 | 10 38.284 | 20 38.284 | 1 <>",
     {"fill 000000 nonzero m 50 10 l 49.616 11.991 l 50.283 12.008 h",
      "fill 000000 nonzero m 10 50 l 12.008 50.283 l 11.991 49.616 h",
      "stroke 000000 0.25 m 49.95 11.999 c 49.523 20.532 46.375 28.705 40.966 35.319",
      "stroke 000000 0.25 m 35.319 40.966 c 28.705 46.375 20.532 49.523 11.999 49.95",
      "text 000000 [1.414 -1.414 1.414 1.414 38.284 38.284] 90%%d"}},
    {"OrdinateOfX",
     "0 DIMENSION | 8 0 | 3 A | 70 70 | 10 0 | 20 0 | 13 40 | 23 10 | 14 45 | 24 50 | 11 45 | 21 54",
     {"stroke 000000 0.25 m 40 11 l 40 42 l 45 46 l 45 50", "text 000000 [0 2 -2 0 45 54] 40.0"}},
    {"RadiusWithALevelTextOutside",
     "0 DIMENSION | 8 0 | 3 L | 70 4 | 10 50 | 20 50 | 15 53 | 25 54 | 11 70 | 21 70",
     {"fill 000000 nonzero m 53 54 l 53.933 55.8 l 54.467 55.4 h", "stroke 000000 0.25 m 54.2 55.6 l 66.6 68",
      "stroke 000000 0.25 m 66.6 68 l 73.4 68", "stroke 000000 0.25 m 49 50 l 51 50",
      "stroke 000000 0.25 m 50 49 l 50 51", "text 000000 [2 0 0 2 70 70] R5.0"}},
    {"ArcLength",
     "0 ARC_DIMENSION | 8 0 | 3 A | 70 8 | 15 10 | 25 10 | 13 60 | 23 10 | 14 10 | 24 60 | 10 52.426 | 20 52.426 | 1 "
     "<>",
     {"stroke 000000 0.25 m 61 10 l 70.999 10", "stroke 000000 0.25 m 10 61 l 10 70.999",
      "fill 000000 nonzero m 69.999 10 l 69.633 11.994 l 70.299 12.005 h",
      "fill 000000 nonzero m 10 69.999 l 12.005 70.299 l 11.994 69.633 h",
      "stroke 000000 0.25 m 69.966 12 c 69.518 25.424 64.579 38.31 55.939 48.594",
      "stroke 000000 0.25 m 48.594 55.939 c 38.31 64.579 25.424 69.518 12 69.966",
      "text 000000 [1.414 -1.414 1.414 1.414 52.426 52.426] ⌒78.5"}},
    {"SeenFromBelow",
     "0 DIMENSION | 8 0 | 3 A | 70 0 | 10 50 | 20 30 | 11 -30 | 21 30 | 13 10 | 23 10 | 14 50 | 24 10 | 50 0 | 210 0 | "
     "220 0 | 230 -1",
     {"stroke 000000 0.25 m 10 11 l 10 31", "stroke 000000 0.25 m 50 11 l 50 31",
      "fill 000000 nonzero m 10 30 l 12 29.667 l 12 30.333 h", "fill 000000 nonzero m 50 30 l 48 30.333 l 48 29.667 h",
      "stroke 000000 0.25 m 12 30 l 26.6 30", "stroke 000000 0.25 m 33.4 30 l 48 30",
      "text 000000 [-2 0 0 2 30 30] 40.0"}},
};

INSTANTIATE_TEST_SUITE_P(Forms, DimensionsTest, testing::ValuesIn(kDimensionRows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace sm::render
