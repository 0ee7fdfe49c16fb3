// SPDX-License-Identifier: GPL-3.0-or-later
// Views, and points as text.
#include "scene/PointText.h"
#include "scene/ViewMap.h"

#include <gmock/gmock.h>

namespace sm::scene {
namespace {

TEST(ViewMap, FitShowsTheWholeBoxInTheMiddle)
{
    ViewMap map{{}, 1, 1000, 500};
    map.Fit({{0, 0}, {200, 50}});
    EXPECT_EQ(map.center, (Vec2{100, 25}));
    EXPECT_DOUBLE_EQ(map.scale, 1000 * 0.94 / 200);
    EXPECT_EQ(map.ToPixel({100, 25}), (Vec2{500, 250}));
    EXPECT_GT(map.ToPixel({100, 0}).y, 250) << "y runs up";
    map.Fit({{5, 5}, {5, 5}});
    EXPECT_EQ(map.scale, 1) << "a point has no size to go by";
    const ViewMap before = map;
    map.Fit({});
    EXPECT_EQ(map, before);
}

TEST(ViewMap, ZoomingKeepsThePlaceUnderTheCursor)
{
    const Box2 home{{0, 0}, {100, 100}};
    ViewMap map{{}, 1, 800, 600};
    map.Fit(home);
    const Vec2 pixel{123, 456};
    const Vec2 place = map.ToScene(pixel);
    for (const double factor : {1.25, 3.0, 0.1, 7.0}) {
        map.ZoomAbout(pixel, factor, home);
        EXPECT_NEAR(map.ToScene(pixel).x, place.x, 1e-9);
        EXPECT_NEAR(map.ToScene(pixel).y, place.y, 1e-9);
    }
}

TEST(ViewMap, ZoomingHasBounds)
{
    const Box2 home{{0, 0}, {100, 100}};
    ViewMap map{{}, 1, 800, 600};
    map.Fit(home);
    const double whole = map.scale;
    map.ZoomAbout({0, 0}, 1e-9, home);
    EXPECT_DOUBLE_EQ(map.scale, whole * 0.02);
    map.ZoomAbout({0, 0}, 1e12, home);
    EXPECT_DOUBLE_EQ(map.scale, whole * 200000);
}

TEST(ViewMap, PixelsAndSceneAreInverse)
{
    const ViewMap map = ViewMap{{7, -3}, 2.5, 801, 599}.Enlarged(2);
    EXPECT_EQ(map.width, 1602);
    EXPECT_DOUBLE_EQ(map.scale, 5);
    const Vec2 back = map.ToPixel(map.ToScene({33, 44}));
    EXPECT_NEAR(back.x, 33, 1e-9);
    EXPECT_NEAR(back.y, 44, 1e-9);
    EXPECT_NEAR(map.Visible().Width(), 1602 / 5.0, 1e-9);
}

TEST(PointText, ShowsTheDecimalsAskedFor)
{
    EXPECT_EQ(PointText({12.3456789, -0.5}, 4), "12.3457, -0.5000");
    EXPECT_EQ(PointText({1e6, -0.0004}, 2), "1000000.00, 0.00");
    EXPECT_EQ(PointText({2.5, 3}, 0), "2, 3");
}

struct TypedPoint {
    const char* text;
    std::optional<Vec2> first, point;
};

TEST(PointText, ReadsWhatIsTyped)
{
    const TypedPoint rows[] = {
        {"1,2", {}, Vec2{1, 2}},
        {"  -1.5 , +2e2 ", {}, Vec2{-1.5, 200}},
        {"@3,-4", Vec2{10, 10}, Vec2{13, 6}},
        {"@3,-4", {}, {}},
        {"1,2", Vec2{10, 10}, Vec2{1, 2}},
        {"", {}, {}},
        {"1", {}, {}},
        {"1,", {}, {}},
        {",1", {}, {}},
        {"1,2,3", {}, {}},
        {"1;2", {}, {}},
        {"a,b", {}, {}},
        {"1,2x", {}, {}},
        {"nan,inf", {}, {}},
        {"+-1,2", {}, {}},
        {"1e999,2", {}, {}},
    };
    for (const TypedPoint& row : rows)
        EXPECT_EQ(ParsePoint(row.text, row.first), row.point) << row.text;
}

} // namespace
} // namespace sm::scene
