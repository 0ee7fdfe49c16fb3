// SPDX-License-Identifier: GPL-3.0-or-later
// Splines: exact curves where the degree allows, fine lines else; points; leaders; text.
#include "render/SmallDrawing.h"

#include "geometry/Nurbs.h"

#include <gmock/gmock.h>

namespace sm::render {
namespace {

struct SplineRow {
    const char* name;
    const char* entities;
    Lines lines;
    const char* header = "";
};

class SplinesTest : public testing::TestWithParam<SplineRow> {};

TEST_P(SplinesTest, DrawAsWritten)
{
    SmallDrawing drawing;
    drawing.header = GetParam().header;
    drawing.entities = GetParam().entities;
    EXPECT_EQ(LinesOf(drawing), GetParam().lines);
}

const SplineRow kSplineRows[] = {
    {"CubicOfOneSpan",
     "0 SPLINE | 8 0 | 70 8 | 71 3 | 72 8 | 73 4 | 74 0 | 40 0 | 40 0 | 40 0 | 40 0 | 40 1 | 40 1 | 40 1 | 40 1 |"
     "10 0 | 20 0 | 10 1 | 20 2 | 10 3 | 20 2 | 10 4 | 20 0",
     {"stroke 000000 0.25 m 0 0 c 1 2 3 2 4 0"}},
    {"CubicOfTwoSpans", // a knot in the middle splits the curve exactly
     "0 SPLINE | 8 0 | 70 8 | 71 3 | 72 9 | 73 5 | 74 0 | 40 0 | 40 0 | 40 0 | 40 0 | 40 1 | 40 2 | 40 2 | 40 2 | 40 2 "
     "|"
     "10 0 | 20 0 | 10 2 | 20 0 | 10 4 | 20 4 | 10 6 | 20 0 | 10 8 | 20 0",
     {"stroke 000000 0.25 m 0 0 c 2 0 3 2 4 2 c 5 2 6 0 8 0"}},
    {"Quadratic",
     "0 SPLINE | 8 0 | 70 8 | 71 2 | 72 6 | 73 3 | 74 0 | 40 0 | 40 0 | 40 0 | 40 1 | 40 1 | 40 1 |"
     "10 0 | 20 0 | 10 3 | 20 3 | 10 6 | 20 0",
     {"stroke 000000 0.25 m 0 0 c 2 2 4 2 6 0"}},
    {"KnotsThatDoNotFitAreReplaced",
     "0 SPLINE | 8 0 | 70 8 | 71 3 | 72 2 | 73 4 | 74 0 | 40 0 | 40 5 |"
     "10 0 | 20 0 | 10 1 | 20 2 | 10 3 | 20 2 | 10 4 | 20 0",
     {"stroke 000000 0.25 m 0 0 c 1 2 3 2 4 0"}},
    {"FitPointsInALine",
     "0 SPLINE | 8 0 | 70 8 | 71 3 | 72 0 | 73 0 | 74 3 | 11 0 | 21 0 | 11 3 | 21 0 | 11 9 | 21 0",
     {"stroke 000000 0.25 m 0 0 c 1 0 2 0 3 0 c 5 0 7 0 9 0"}},
    {"Nothing", "0 SPLINE | 8 0 | 70 8 | 71 3 | 72 0 | 73 0 | 74 0", {}},
    {"PointAsDot", "0 POINT | 8 0 | 10 5 | 20 5", {"stroke 000000 0.25 m 5 5 l 5.02 5"}},
    {"PointAsCrossInACircle",
     "0 POINT | 8 0 | 10 50 | 20 50",
     {"stroke 000000 0.25 m 40 40 l 60 60 m 40 60 l 60 40 m 55 50 c 55 52.761 52.761 55 50 55 c 47.239 55 45 52.761 45 "
      "50 c "
      "45 47.239 47.239 45 50 45 c 52.761 45 55 47.239 55 50 h"},
     "9 $PDMODE | 70 35 | 9 $PDSIZE | 40 10"},
    {"PointThatShowsNothing", "0 POINT | 8 0 | 10 50 | 20 50", {}, "9 $PDMODE | 70 1"},
    {"Leader",
     "0 LEADER | 8 0 | 71 1 | 72 0 | 76 2 | 10 0 | 20 0 | 10 20 | 20 0",
     {"fill 000000 nonzero m 0 0 l 3 0.5 l 3 -0.5 h", "stroke 000000 0.25 m 3 0 l 20 0"},
     "9 $DIMASZ | 40 3 | 9 $DIMSCALE | 40 1"},
    {"Text", "0 TEXT | 8 0 | 62 1 | 10 5 | 20 6 | 40 2.5 | 1 Room 12", {"text FF0000 [2.5 0 0 2.5 5 6] Room 12"}},
    {"TextSeenFromBelow",
     "0 TEXT | 8 0 | 10 -50 | 20 6 | 40 2 | 1 abc | 210 0 | 220 0 | 230 -1",
     {"text 000000 [-2 0 0 2 50 6] abc"}},
    {"TextOffThePage", "0 TEXT | 8 0 | 10 500 | 20 6 | 40 2 | 1 abc", {}},
};

INSTANTIATE_TEST_SUITE_P(Entities, SplinesTest, testing::ValuesIn(kSplineRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(NurbsTest, AWeightedQuarterIsACircle)
{
    const std::vector<Vec2> points{{10, 0}, {10, 10}, {0, 10}};
    const std::vector<double> knots{0, 0, 0, 1, 1, 1};
    const std::vector<double> weights{1, std::sqrt(0.5), 1};
    Path path;
    ASSERT_TRUE(AppendNurbs(path, {2, points, knots, weights}));
    EXPECT_GT(path.points.size(), 8U);
    for (const Vec2 p : path.points) {
        EXPECT_NEAR(std::hypot(p.x, p.y), 10, 1e-9);
    }
}

TEST(NurbsTest, RefusesWhatIsNoCurve)
{
    const std::vector<Vec2> points{{0, 0}, {1, 1}};
    Path path;
    EXPECT_FALSE(AppendNurbs(path, {3, points, {}, {}}));
    EXPECT_FALSE(AppendNurbs(path, {0, points, {}, {}}));
    EXPECT_FALSE(AppendNurbs(path, {1000000, points, {}, {}}));
    EXPECT_TRUE(path.Empty());
}

TEST(FitCurveTest, ClosesSmoothly)
{
    // Through the corners of a square the closed curve is symmetric, so that at each corner it runs along the
    // diagonal's right angle.
    const std::vector<Vec2> points{{10, 0}, {0, 10}, {-10, 0}, {0, -10}};
    Path path;
    ASSERT_TRUE(AppendFitCurve(path, points, {}, true));
    ASSERT_EQ(path.points.size(), 13U);
    EXPECT_NEAR(path.points[1].x, 10, 1e-4);
    EXPECT_GT(path.points[1].y, 4);
    EXPECT_NEAR(path.points[11].x, 10, 1e-4);
    EXPECT_NEAR(path.points[11].y, -path.points[1].y, 1e-4);
}

} // namespace
} // namespace sm::render
