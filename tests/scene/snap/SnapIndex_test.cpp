// SPDX-License-Identifier: GPL-3.0-or-later
// Where the cursor is drawn to.
#include "scene/Pieces.h"
#include "scene/SnapIndex.h"

#include <gmock/gmock.h>
#include <optional>

namespace sm::scene {
namespace {

constexpr double kPi = 3.14159265358979323846;

Path ArcPath(Vec2 center, double radius, double start, double sweep)
{
    Path path;
    render::AppendArc(path, {center, {radius, 0}, {0, radius}, start, sweep}, render::Join::Move);
    return path;
}

Path CirclePath(Vec2 center, double radius)
{
    Path path;
    render::AppendEllipse(path, center, {radius, 0}, {0, radius});
    return path;
}

SnapIndex IndexOf(const std::vector<Path>& paths)
{
    SnapShapes shapes;
    for (const Path& path : paths)
        shapes.Add(path, true, true, 0);
    return {std::move(shapes), {Box2{}}};
}

/// "End point 1.00,2.00" or "nothing".
std::string Found(const SnapIndex& index, Vec2 at, double reach = 1)
{
    const auto snap = index.Find(at, reach);
    if (!snap)
        return "nothing";
    char text[80];
    const auto cents = [](double value) { return static_cast<double>(std::lround(value * 100)) / 100; };
    std::snprintf(text, sizeof text, "%s %.2f,%.2f", SnapName(snap->kind), cents(snap->point.x), cents(snap->point.y));
    return text;
}

TEST(SnapIndex, ALineHasEndsAndAMiddle)
{
    const SnapIndex index = IndexOf({LineOf({0, 0}, {10, 4})});
    EXPECT_EQ(Found(index, {0.5, -0.5}), "End point 0.00,0.00");
    EXPECT_EQ(Found(index, {10.2, 4.1}), "End point 10.00,4.00");
    EXPECT_EQ(Found(index, {5.3, 2}), "Middle point 5.00,2.00");
    EXPECT_EQ(Found(index, {2.5, 1}), "nothing");
    EXPECT_EQ(Found(index, {3, 1.2}, 3), "Middle point 5.00,2.00");
}

TEST(SnapIndex, APolylineHasThemAtEachOfItsParts)
{
    Path path;
    path.MoveTo({0, 0});
    path.LineTo({10, 0});
    path.LineTo({10, 8});
    path.Close();
    const SnapIndex index = IndexOf({path});
    EXPECT_EQ(Found(index, {10.1, -0.1}), "End point 10.00,0.00");
    EXPECT_EQ(Found(index, {5, 0.2}), "Middle point 5.00,0.00");
    EXPECT_EQ(Found(index, {10, 4.2}), "Middle point 10.00,4.00");
    EXPECT_EQ(Found(index, {5.2, 4.1}), "Middle point 5.00,4.00") << "the closing line";
}

TEST(SnapIndex, ALongPolylineKeepsAllItsCorners)
{
    Path path;
    path.MoveTo({0, 0});
    for (int i = 1; i <= 100; ++i)
        path.LineTo({i * 10.0, i % 2 * 5.0});
    const SnapIndex index = IndexOf({path});
    for (int i = 0; i <= 100; ++i)
        ASSERT_TRUE(index.Find({i * 10.0, i % 2 * 5.0}, 0.1).has_value()) << i;
    EXPECT_EQ(Found(index, {325, 2.5}), "Middle point 325.00,2.50");
}

TEST(SnapIndex, ACircleHasACentreAndNeitherEndsNorAMiddle)
{
    const SnapIndex index = IndexOf({CirclePath({5, 6}, 3)});
    EXPECT_EQ(Found(index, {5.5, 6}), "Centre point 5.00,6.00");
    EXPECT_EQ(Found(index, {8.2, 6}), "Centre point 5.00,6.00") << "from its rim, quadrants are no ends";
    EXPECT_EQ(Found(index, {5 + 3 * std::cos(1), 6 + 3 * std::sin(1)}), "Centre point 5.00,6.00");
    EXPECT_EQ(Found(index, {6.5, 6}), "nothing");
}

TEST(SnapIndex, AnArcHasEndsAMiddleAndACentre)
{
    const SnapIndex index = IndexOf({ArcPath({0, 0}, 10, 0, 1.5 * kPi)});
    EXPECT_EQ(Found(index, {10, 0.3}), "End point 10.00,0.00");
    EXPECT_EQ(Found(index, {0.3, -10}), "End point 0.00,-10.00");
    EXPECT_EQ(Found(index, {-7, 7}), "Middle point -7.07,7.07");
    EXPECT_EQ(Found(index, {0, 0.5}), "Centre point 0.00,0.00");
    EXPECT_EQ(Found(index, {0, 10.3}), "Centre point 0.00,0.00") << "where its parts join there is no end";
    EXPECT_EQ(Found(index, {7.07, -7.07}), "nothing") << "the part of the circle that isn't there";
}

TEST(SnapIndex, AnArcRunningBackwardsIsFoundAsWell)
{
    const SnapIndex index = IndexOf({ArcPath({0, 0}, 10, 0, -kPi / 2)});
    EXPECT_EQ(Found(index, {7, -7}), "Middle point 7.07,-7.07");
    EXPECT_EQ(Found(index, {0, -10}), "End point 0.00,-10.00");
}

TEST(SnapIndex, AnEllipseHasACentreAndItsMiddleInParameter)
{
    Path path;
    render::AppendArc(path, {{1, 2}, {8, 0}, {0, 3}, 0, kPi}, render::Join::Move);
    const SnapIndex index = IndexOf({path});
    EXPECT_EQ(Found(index, {1, 2.2}), "Centre point 1.00,2.00");
    EXPECT_EQ(Found(index, {1, 5.1}), "Middle point 1.00,5.00");
    EXPECT_EQ(Found(index, {9, 2}), "End point 9.00,2.00");
}

TEST(SnapIndex, ABulgeOfAPolylineIsAnArcBetweenItsCorners)
{
    Path path;
    path.MoveTo({0, 0});
    path.LineTo({10, 0});
    render::AppendArc(path, render::BulgeArc({10, 0}, {10, 10}, 1), render::Join::Continue);
    path.LineTo({0, 10});
    const SnapIndex index = IndexOf({path});
    EXPECT_EQ(Found(index, {10, 0.2}), "End point 10.00,0.00");
    EXPECT_EQ(Found(index, {15, 5.1}), "Middle point 15.00,5.00");
    EXPECT_EQ(Found(index, {10, 5}), "Centre point 10.00,5.00");
    EXPECT_EQ(Found(index, {5, 10}), "Middle point 5.00,10.00");
}

TEST(SnapIndex, AnotherCurveHasEndsAlone)
{
    Path path;
    path.MoveTo({0, 0});
    path.CubicTo({0, 10}, {20, 10}, {20, 30});
    path.CubicTo({20, 50}, {30, 50}, {40, 50});
    const SnapIndex index = IndexOf({path});
    EXPECT_EQ(Found(index, {0, 0}), "End point 0.00,0.00");
    EXPECT_EQ(Found(index, {40, 50}), "End point 40.00,50.00");
    EXPECT_EQ(Found(index, {20, 30}), "nothing");
}

struct CrossingCase {
    const char* name;
    std::vector<Path> paths;
    Vec2 at;
    const char* found;
};

TEST(SnapIndex, LinesAndArcsCross)
{
    const CrossingCase cases[] = {
        {"lines", {LineOf({0, 0}, {10, 10}), LineOf({0, 8}, {10, -2})}, {4.2, 4}, "Intersection 4.00,4.00"},
        {"a line and a circle",
         {LineOf({-20, 6}, {30, 6}), CirclePath({0, 0}, 10)},
         {8.1, 6.1},
         "Intersection 8.00,6.00"},
        {"circles", {CirclePath({-3, 0}, 5), CirclePath({3, 0}, 5)}, {0.2, 4.1}, "Intersection 0.00,4.00"},
        {"lines that don't reach",
         {LineOf({0, 0}, {3.5, 3.5}), LineOf({0, 8}, {9, -1})},
         {4.2, 4.2},
         "Middle point 4.50,3.50"},
        {"parallels", {LineOf({0, 0}, {10, 0}), LineOf({2, 0.1}, {22, 0.1})}, {8, 0}, "nothing"},
        {"one circle inside the other",
         {CirclePath({0, 0}, 5), CirclePath({0, 0}, 5.5)},
         {5.2, 0},
         "Centre point 0.00,0.00"},
        {"an arc that ends before", {ArcPath({0, 0}, 10, 0, 0.3), LineOf({-20, 6}, {30, 6})}, {8, 6.1}, "nothing"},
        {"an end where lines meet",
         {LineOf({0, 0}, {4, 4}), LineOf({4, 4}, {9, -1})},
         {4.1, 4.2},
         "End point 4.00,4.00"},
    };
    for (const CrossingCase& row : cases)
        EXPECT_EQ(Found(IndexOf(row.paths), row.at), row.found) << row.name;
}

TEST(SnapIndex, TheNearestOneWins)
{
    const SnapIndex index = IndexOf({LineOf({0, 0}, {4, 0}), LineOf({0.6, 0.5}, {0.6, 9})});
    EXPECT_EQ(Found(index, {0.2, 0.1}, 2), "End point 0.00,0.00");
    EXPECT_EQ(Found(index, {0.5, 0.4}, 2), "End point 0.60,0.50");
    EXPECT_EQ(Found(index, {1.9, 0.4}, 2), "Middle point 2.00,0.00");
}

TEST(SnapIndex, WhatAClipHidesDrawsNothing)
{
    SnapShapes shapes;
    shapes.Add(LineOf({0, 0}, {20, 0}), true, true, 1);
    const SnapIndex index(std::move(shapes), {Box2{}, Box2{{-1, -1}, {12, 1}}});
    EXPECT_EQ(Found(index, {0, 0}), "End point 0.00,0.00");
    EXPECT_EQ(Found(index, {10, 0}), "Middle point 10.00,0.00");
    EXPECT_EQ(Found(index, {20, 0}), "nothing");
}

TEST(SnapIndex, AnEndlessLineCrossesAndHasNoEnds)
{
    SnapShapes shapes;
    shapes.Add(LineOf({-100, 5}, {100, 5}), true, false, 0);
    shapes.Add(LineOf({3, 0}, {3, 20}), true, true, 0);
    const SnapIndex index(std::move(shapes), {Box2{}});
    EXPECT_EQ(Found(index, {-100, 5}), "nothing");
    EXPECT_EQ(Found(index, {0, 5}), "nothing");
    EXPECT_EQ(Found(index, {3.2, 5.2}), "Intersection 3.00,5.00");
}

TEST(SnapIndex, FarFromTheOriginPointsStayExact)
{
    const SnapIndex index = IndexOf({LineOf({123456789.125, 987654321.5}, {123456799.125, 987654321.5})});
    const auto snap = index.Find({123456789.2, 987654321.4}, 1);
    ASSERT_TRUE(snap.has_value());
    EXPECT_EQ(snap->point, (Vec2{123456789.125, 987654321.5}));
}

TEST(BoxTree, FindsExactlyWhatOverlaps)
{
    std::vector<Box2> boxes;
    for (int i = 0; i < 1000; ++i) {
        const double x = i * 37 % 101;
        const double y = i * 53 % 97;
        boxes.push_back({{x, y}, {x + i % 7, y + i % 5}});
    }
    boxes.push_back({}); // an empty one
    const BoxTree tree(boxes);
    for (int i = 0; i < 50; ++i) {
        const Box2 window{{i * 2.0, i * 1.5}, {i * 2.0 + 3, i * 1.5 + 4}};
        std::vector<std::uint32_t> expected, found;
        for (std::uint32_t k = 0; k < 1000; ++k) {
            const Box2& box = boxes[k];
            if (box.min.x <= window.max.x && box.max.x >= window.min.x && box.min.y <= window.max.y &&
                box.max.y >= window.min.y)
                expected.push_back(k);
        }
        tree.Search(window, [&](std::uint32_t k) {
            found.push_back(k);
            return true;
        });
        EXPECT_THAT(found, ::testing::UnorderedElementsAreArray(expected)) << i;
    }
    int count = 0;
    tree.Search({{0, 0}, {100, 100}}, [&](std::uint32_t) { return ++count < 5; });
    EXPECT_EQ(count, 5) << "the search ends when it is told to";
    BoxTree{}.Search({{0, 0}, {1, 1}}, [](std::uint32_t) -> bool { throw std::runtime_error("nothing to find"); });
}

TEST(SnapShapes, ArcsAreToldFromOtherCurves)
{
    for (const double sweep : {0.2, 0.8, 1.5}) {
        const Path path = ArcPath({3, -4}, 7, 0.5, sweep);
        ASSERT_EQ(path.points.size(), 4U);
        const auto arc = ArcOf(path.points[0], path.points[1], path.points[2], path.points[3]);
        ASSERT_TRUE(arc.has_value()) << sweep;
        EXPECT_NEAR(arc->center.x, 3, 1e-6) << sweep;
        EXPECT_NEAR(arc->center.y, -4, 1e-6) << sweep;
        EXPECT_NEAR(arc->sweep, sweep, 1e-6);
    }
    EXPECT_FALSE(ArcOf({0, 0}, {1, 0}, {2, 0}, {3, 0})) << "a straight one";
    EXPECT_FALSE(ArcOf({0, 0}, {0, 1}, {2, 2}, {3, 0})) << "a lopsided one";
    EXPECT_FALSE(ArcOf({0, 0}, {0, 0}, {0, 0}, {0, 0}));
}

} // namespace
} // namespace sm::scene
