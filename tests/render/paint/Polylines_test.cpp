// SPDX-License-Identifier: GPL-3.0-or-later
// Polylines: bulges, widths, closing, meshes.
#include "render/SmallDrawing.h"

#include <gmock/gmock.h>

namespace sm::render {
namespace {

struct PolylineRow {
    const char* name;
    const char* entities;
    Lines lines;
};

class PolylinesTest : public testing::TestWithParam<PolylineRow> {};

TEST_P(PolylinesTest, DrawsAsWritten)
{
    SmallDrawing drawing;
    drawing.entities = GetParam().entities;
    EXPECT_EQ(LinesOf(drawing), GetParam().lines);
}

const PolylineRow kPolylineRows[] = {
    {"Open",
     "0 LWPOLYLINE | 8 0 | 90 3 | 70 0 | 10 1 | 20 1 | 10 5 | 20 1 | 10 5 | 20 4",
     {"stroke 000000 0.25 m 1 1 l 5 1 l 5 4"}},
    {"Closed",
     "0 LWPOLYLINE | 8 0 | 90 3 | 70 1 | 10 1 | 20 1 | 10 5 | 20 1 | 10 5 | 20 4",
     {"stroke 000000 0.25 m 1 1 l 5 1 l 5 4 h"}},
    {"HalfCircleByBulge", // bulge 1: counter-clockwise, so below a chord to the right
     "0 LWPOLYLINE | 8 0 | 90 2 | 70 0 | 10 40 | 20 50 | 42 1 | 10 60 | 20 50",
     {"stroke 000000 0.25 m 40 50 c 40 44.477 44.477 40 50 40 c 55.523 40 60 44.477 60 50"}},
    {"ClockwiseBulge",
     "0 LWPOLYLINE | 8 0 | 90 2 | 70 0 | 10 40 | 20 50 | 42 -1 | 10 60 | 20 50",
     {"stroke 000000 0.25 m 40 50 c 40 55.523 44.477 60 50 60 c 55.523 60 60 55.523 60 50"}},
    {"ClosedByABulge",
     "0 LWPOLYLINE | 8 0 | 90 2 | 70 1 | 10 40 | 20 50 | 10 60 | 20 50 | 42 1",
     {"stroke 000000 0.25 m 40 50 l 60 50 c 60 55.523 55.523 60 50 60 c 44.477 60 40 55.523 40 50 h"}},
    {"SeenFromBelow",
     "0 LWPOLYLINE | 8 0 | 90 2 | 70 0 | 10 -10 | 20 5 | 10 -20 | 20 5 | 210 0 | 220 0 | 230 -1",
     {"stroke 000000 0.25 m 10 5 l 20 5"}},
    {"ConstantWidth",
     "0 LWPOLYLINE | 8 0 | 90 2 | 70 0 | 43 2 | 10 10 | 20 50 | 10 30 | 20 50",
     {"stroke 000000 2 butt miter m 10 50 l 30 50"}},
    {"TaperedArrow",
     "0 LWPOLYLINE | 8 0 | 90 2 | 70 0 | 10 10 | 20 50 | 40 4 | 41 0 | 10 20 | 20 50",
     {"fill 000000 nonzero m 10 48 l 20 50 l 20 50 l 10 52 h"}},
    {"WideBesideThin",
     "0 LWPOLYLINE | 8 0 | 90 3 | 70 0 | 10 10 | 20 50 | 40 2 | 41 2 | 10 20 | 20 50 | 40 0 | 41 0 | 10 20 | 20 60",
     {"fill 000000 nonzero box 10 49 20 51", "stroke 000000 0.25 m 20 50 l 20 60"}},
    {"CornerOfTaperedSegmentsIsFilled",
     "0 LWPOLYLINE | 8 0 | 90 3 | 70 0 | 10 10 | 20 50 | 40 2 | 41 2 | 10 20 | 20 50 | 40 2 | 41 4 | 10 20 | 20 60",
     {"fill 000000 nonzero m 10 49 l 20 49 l 20 51 l 10 51 h m 20 50 l 20 49 l 21 49 l 21 50 h m 21 50 l 22 60 l 18 60 "
      "l 19 50 h"}},
    {"OldPolyline",
     "0 POLYLINE | 8 0 | 66 1 | 70 0 | 10 0 | 20 0 | 30 0 | 0 VERTEX | 8 0 | 10 1 | 20 1 | 0 VERTEX | 8 0 | 10 4 | 20 "
     "5 |"
     "0 SEQEND",
     {"stroke 000000 0.25 m 1 1 l 4 5"}},
    {"OldPolylineInSpace",
     "0 POLYLINE | 8 0 | 66 1 | 70 9 | 10 0 | 20 0 | 30 0 | 0 VERTEX | 8 0 | 10 1 | 20 1 | 30 7 | 70 32 |"
     "0 VERTEX | 8 0 | 10 4 | 20 5 | 30 9 | 70 32 | 0 VERTEX | 8 0 | 10 4 | 20 8 | 30 9 | 70 32 | 0 SEQEND",
     {"stroke 000000 0.25 m 1 1 l 4 5 l 4 8 h"}},
    {"FramePointsOfAFittedCurveAreLeftOut",
     "0 POLYLINE | 8 0 | 66 1 | 70 4 | 10 0 | 20 0 | 0 VERTEX | 8 0 | 10 1 | 20 1 | 70 16 |"
     "0 VERTEX | 8 0 | 10 2 | 20 2 | 70 8 | 0 VERTEX | 8 0 | 10 3 | 20 2 | 70 8 | 0 SEQEND",
     {"stroke 000000 0.25 m 2 2 l 3 2"}},
    {"MeshAsRowsAndColumns",
     "0 POLYLINE | 8 0 | 66 1 | 70 16 | 71 2 | 72 2 | 10 0 | 20 0 | 0 VERTEX | 8 0 | 10 0 | 20 0 | 70 64 |"
     "0 VERTEX | 8 0 | 10 5 | 20 0 | 70 64 | 0 VERTEX | 8 0 | 10 0 | 20 5 | 70 64 | 0 VERTEX | 8 0 | 10 5 | 20 5 | 70 "
     "64 |"
     "0 SEQEND",
     {"stroke 000000 0.25 m 0 0 l 5 0 m 0 5 l 5 5 m 0 0 l 0 5 m 5 0 l 5 5"}},
    {"SmoothedMeshHoldsMoreRows", // 3 rows of 2; what it was made of is left out
     "0 POLYLINE | 8 0 | 66 1 | 70 20 | 71 2 | 72 2 | 73 3 | 74 2 | 75 6 | 10 0 | 20 0 |0 VERTEX | 8 0 | 10 1 | 20 1 | "
     "70 80 |0 VERTEX | 8 0 | 10 2 | 20 1 | 70 80 |0 VERTEX | 8 0 | 10 1 | 20 2 | 70 80 |0 VERTEX | 8 0 | 10 2 | 20 2 "
     "| 70 80 |0 VERTEX | 8 0 | 10 0 | 20 0 | 70 72 |0 VERTEX | 8 0 | 10 5 | 20 0 | 70 72 |0 VERTEX | 8 0 | 10 0 | 20 "
     "5 | 70 72 |0 VERTEX | 8 0 | 10 5 | 20 5 | 70 72 |0 VERTEX | 8 0 | 10 0 | 20 9 | 70 72 |0 VERTEX | 8 0 | 10 5 | "
     "20 9 | 70 72 | 0 SEQEND",
     {"stroke 000000 0.25 m 0 0 l 5 0 m 0 5 l 5 5 m 0 9 l 5 9 m 0 0 l 0 5 l 0 9 m 5 0 l 5 5 l 5 9"}},
    {"PolyfaceWithAHiddenEdge",
     "0 POLYLINE | 8 0 | 66 1 | 70 64 | 71 3 | 72 1 | 10 0 | 20 0 | 0 VERTEX | 8 0 | 10 0 | 20 0 | 70 192 |"
     "0 VERTEX | 8 0 | 10 5 | 20 0 | 70 192 | 0 VERTEX | 8 0 | 10 5 | 20 5 | 70 192 |"
     "0 VERTEX | 8 0 | 10 0 | 20 0 | 70 128 | 71 1 | 72 -2 | 73 3 | 0 SEQEND",
     {"stroke 000000 0.25 m 0 0 l 5 0 m 5 5 l 0 0"}},
};

INSTANTIATE_TEST_SUITE_P(Entities, PolylinesTest, testing::ValuesIn(kPolylineRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(PolylinesInBlocksTest, AWidthUnderAStretchedInsertIsAnOutline)
{
    SmallDrawing drawing;
    drawing.blocks = "0 BLOCK | 8 0 | 2 B | 70 0 | 10 0 | 20 0 | 3 B | 0 LWPOLYLINE | 8 0 | 90 2 | 70 0 | 43 2 | 10 0 |"
                     "20 2 | 10 10 | 20 2 | 0 ENDBLK | 8 0";
    drawing.entities = "0 INSERT | 8 0 | 2 B | 10 0 | 20 0 | 41 1 | 42 3";
    EXPECT_EQ(LinesOf(drawing), Lines{"fill 000000 nonzero box 0 3 10 9"});
}

} // namespace
} // namespace sm::render
