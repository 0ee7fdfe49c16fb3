// SPDX-License-Identifier: GPL-3.0-or-later
// Lines, circles, arcs, ellipses: what is drawn for each, and where.
#include "render/SmallDrawing.h"

#include <gmock/gmock.h>

namespace sm::render {
namespace {

struct CurveRow {
    const char* name;
    const char* entities;
    Lines lines;
};

class CurvesTest : public testing::TestWithParam<CurveRow> {};

TEST_P(CurvesTest, DrawsAsWritten)
{
    SmallDrawing drawing;
    drawing.entities = GetParam().entities;
    EXPECT_EQ(LinesOf(drawing), GetParam().lines);
}

const CurveRow kCurveRows[] = {
    {"Line", "0 LINE | 8 0 | 10 1 | 20 2 | 11 30 | 21 4.5", {"stroke 000000 0.25 m 1 2 l 30 4.5"}},
    {"Circle",
     "0 CIRCLE | 8 0 | 10 50 | 20 50 | 40 10",
     {"stroke 000000 0.25 m 60 50 c 60 55.523 55.523 60 50 60 c 44.477 60 40 55.523 40 50 c 40 44.477 44.477 40 50 40 "
      "c 55.523 40 60 44.477 60 50 h"}},
    {"ArcQuarter",
     "0 ARC | 8 0 | 10 50 | 20 50 | 40 10 | 50 0 | 51 90",
     {"stroke 000000 0.25 m 60 50 c 60 55.523 55.523 60 50 60"}},
    {"ArcOverZero",
     "0 ARC | 8 0 | 10 50 | 20 50 | 40 10 | 50 270 | 51 0",
     {"stroke 000000 0.25 m 50 40 c 55.523 40 60 44.477 60 50"}},
    {"ArcSeenFromBelow", // the OCS of (0, 0, -1) has its x axis to the left
     "0 ARC | 8 0 | 10 -50 | 20 50 | 40 10 | 50 0 | 51 90 | 210 0 | 220 0 | 230 -1",
     {"stroke 000000 0.25 m 40 50 c 40 55.523 44.477 60 50 60"}},
    {"EllipseWhole",
     "0 ELLIPSE | 8 0 | 10 50 | 20 50 | 11 20 | 21 0 | 40 0.5 | 41 0 | 42 6.283185307179586",
     {"stroke 000000 0.25 m 70 50 c 70 55.523 61.046 60 50 60 c 38.954 60 30 55.523 30 50 c 30 44.477 38.954 40 50 40 "
      "c 61.046 40 70 44.477 70 50 h"}},
    {"EllipsePart",
     "0 ELLIPSE | 8 0 | 10 50 | 20 50 | 11 20 | 21 0 | 40 0.5 | 41 0 | 42 1.5707963267948966",
     {"stroke 000000 0.25 m 70 50 c 70 55.523 61.046 60 50 60"}},
    {"CircleOnEdgeIsALine",
     "0 CIRCLE | 8 0 | 10 -50 | 20 0 | 30 50 | 40 10 | 210 0 | 220 1 | 230 0",
     {"stroke 000000 0.25 m 40 50 c 40 50 44.477 50 50 50 c 55.523 50 60 50 60 50 c 60 50 55.523 50 50 50 c "
      "44.477 50 40 50 40 50 h"}},
    {"XLineAcrossThePage", "0 XLINE | 8 0 | 10 50 | 20 50 | 11 1 | 21 0", {"stroke 000000 0.25 m -1 50 l 101 50"}},
    {"RayOneWay", "0 RAY | 8 0 | 10 50 | 20 50 | 11 0 | 21 1", {"stroke 000000 0.25 m 50 50 l 50 101"}},
    {"LineThatReachesFarIsCut",
     "0 LINE | 8 0 | 10 -1000000 | 20 50 | 11 1000000 | 21 50",
     {"stroke 000000 0.25 m -1.25 50 l 101.25 50"}},
    {"Solid",
     "0 SOLID | 8 0 | 10 0 | 20 0 | 11 10 | 21 0 | 12 0 | 22 5 | 13 10 | 23 5",
     {"fill 000000 nonzero box 0 0 10 5"}},
    {"SolidThatReachesFarIsCut",
     "0 SOLID | 8 0 | 10 0 | 20 40 | 11 1000000 | 21 40 | 12 0 | 22 50 | 13 1000000 | 23 50",
     {"fill 000000 nonzero box 0 40 101 50"}},
    {"PolylineOfOnePointShowsNothing", "0 LWPOLYLINE | 8 0 | 90 1 | 70 0 | 10 1 | 20 1", {}},
    {"SolidTriangle",
     "0 SOLID | 8 0 | 10 0 | 20 0 | 11 10 | 21 0 | 12 5 | 22 5 | 13 5 | 23 5",
     {"fill 000000 nonzero m 0 0 l 10 0 l 5 5 l 5 5 h"}},
    {"FaceWithAHiddenEdge",
     "0 3DFACE | 8 0 | 10 0 | 20 0 | 11 10 | 21 0 | 12 10 | 22 5 | 13 0 | 23 5 | 70 2",
     {"stroke 000000 0.25 m 0 0 l 10 0 m 10 5 l 0 5 m 0 5 l 0 0"}},
};

INSTANTIATE_TEST_SUITE_P(Entities, CurvesTest, testing::ValuesIn(kCurveRows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace sm::render
