// SPDX-License-Identifier: GPL-3.0-or-later
#include "plotter/FakeDrawing.h"
#include "plotter/PlotRows.h"

#include "plotter/Placement.h"

#include <gtest/gtest.h>

namespace sm::plotter {
namespace {

class PlaceTest : public testing::Test {
protected:
    PlaceTest()
    {
        drawing.points = {{"$LIMMIN", {-1, -2, 0}}, {"$LIMMAX", {12, 9, 0}}};
        drawing.active = drawing::ModelView{{50, 50}, 3, 20.0 / 3, {0, 0, 1}, {}, 0, {}};
        drawing::NamedView view;
        view.name = "Detail";
        view.center = {1000, 2000};
        view.width = 1000;
        view.height = 1000;
        drawing.views = {view};
    }
    FakeDrawing drawing;
};

void ExpectNear(const Box2& is, const Box2& shall)
{
    EXPECT_NEAR(is.min.x, shall.min.x, 1e-9);
    EXPECT_NEAR(is.min.y, shall.min.y, 1e-9);
    EXPECT_NEAR(is.max.x, shall.max.x, 1e-9);
    EXPECT_NEAR(is.max.y, shall.max.y, 1e-9);
}

TEST_F(PlaceTest, PutsEachPlotAreaOnTheSheet)
{
    for (const PlotRow& row : PlotRows()) {
        SCOPED_TRACE(row.name);
        drawing::Layout layout;
        layout.name = "A";
        layout.isModel = row.model;
        int asked = 0;
        const Placement p = Place(drawing, layout, row.settings, [&](const render::Matrix3&) {
            ++asked;
            return row.extents;
        });
        EXPECT_EQ(p.sheetWidth, 210);
        EXPECT_EQ(p.sheetHeight, 297);
        EXPECT_NEAR(p.scaleNumerator / p.scaleDenominator, row.scale, 1e-12);
        const Vec2 to = p.toPaper.Apply(row.from);
        EXPECT_NEAR(to.x, row.to.x, 1e-9);
        EXPECT_NEAR(to.y, row.to.y, 1e-9);
        const Vec2 axis = p.toPaper.ApplyVector({1, 0});
        EXPECT_NEAR(axis.x, row.xAxis.x, 1e-12);
        EXPECT_NEAR(axis.y, row.xAxis.y, 1e-12);
        EXPECT_GT(p.toPaper.Determinant(), 0);
        ExpectNear(p.clip, row.clip);
        const bool needsExtents =
            row.settings.plotType == kExtents || (row.settings.plotType == kDisplay && !row.model);
        EXPECT_EQ(asked, needsExtents ? 1 : 0);
    }
}

TEST_F(PlaceTest, TakesWindowsInWorldCoordinates)
{
    drawing.active = drawing::ModelView{{50, 50}, 3, 1, {0, 0, 1}, {300, 400, 0}, 0, {}};
    PlotSettings s = A4(kWindow, kStandard);
    s.standardScale = 16;
    s.window = BoxOf(10, 20, 60, 50);
    drawing::Layout layout;
    layout.isModel = true;
    const Placement p = Place(drawing, layout, s, [](auto&) { return Box2{}; });
    const Vec3 seen = p.view.Apply({10, 20, 0});
    const Vec2 to = p.toPaper.Apply({seen.x, seen.y});
    EXPECT_NEAR(to.x, 5, 1e-9);
    EXPECT_NEAR(to.y, 10, 1e-9);
}

TEST_F(PlaceTest, FitsGiveTheRatioInPaperUnits)
{
    PlotSettings s = A4(kExtents, kStandard);
    s.paperUnits = 0;
    const Placement p = Place(drawing, drawing::Layout{}, s, [](auto&) { return BoxOf(0, 0, 1900, 10); });
    EXPECT_EQ(p.scaleNumerator, 1);
    EXPECT_NEAR(p.scaleDenominator, 254, 1e-9); // 190 mm for 1900 units: 1 inch for 254
}

TEST_F(PlaceTest, NamesAViewThatIsNotThere)
{
    PlotSettings s = A4(kView, kStandard);
    s.viewName = "Attic";
    drawing::Layout layout;
    layout.name = "Ground floor";
    layout.isModel = true;
    try {
        Place(drawing, layout, s, [](auto&) { return Box2{}; });
        FAIL() << "placed";
    } catch (const PlotError& error) {
        EXPECT_STREQ(error.what(), "The layout \"Ground floor\" plots the view \"Attic\", which is not in the drawing. "
                                   "Choose another plot area.");
    }
}

TEST_F(PlaceTest, ViewsOfTheOtherSpaceDontCount)
{
    PlotSettings s = A4(kView, kStandard);
    s.viewName = "Detail";
    EXPECT_THROW(Place(drawing, drawing::Layout{}, s, [](auto&) { return Box2{}; }), PlotError);
}

TEST_F(PlaceTest, GivesALayoutWithoutPaperASheet)
{
    struct Sheet {
        const char* name;
        int measurement;
        Box2 extents;
        double width, height;
    };
    for (const Sheet& row : std::vector<Sheet>{{"metric, upright", 1, BoxOf(0, 0, 5, 9), 210, 297},
                                               {"metric, lying", 1, BoxOf(0, 0, 9, 5), 297, 210},
                                               {"inches, upright", 0, BoxOf(0, 0, 5, 9), 215.9, 279.4},
                                               {"inches, lying", 0, BoxOf(0, 0, 9, 5), 279.4, 215.9},
                                               {"nothing drawn", 1, {}, 210, 297}}) {
        SCOPED_TRACE(row.name);
        drawing.integers["$MEASUREMENT"] = row.measurement;
        PlotSettings s;
        s.plotType = kExtents;
        s.flags = kStandard;
        const Placement p = Place(drawing, drawing::Layout{}, s, [&](auto&) { return row.extents; });
        EXPECT_EQ(p.sheetWidth, row.width);
        EXPECT_EQ(p.sheetHeight, row.height);
    }
}

TEST_F(PlaceTest, AWindowOfARealSheetStandsWhereTheFileSays)
{
    // A3 turned by 270 degrees, window 420 x 297 at 1:1 centred; the file holds the offset it was plotted with,
    // -3.159078955650557 and -3.095831274986267.
    PlotSettings s;
    s.paperWidth = 297.0318298339844;
    s.paperHeight = 420.1583251953125;
    s.marginLeft = s.marginBottom = 3.174999952316284;
    s.marginRight = s.marginTop = 3.17498779296875;
    s.window = BoxOf(-840, 2414.324335775074, -420, 2711.324335775074);
    s.flags = 676;
    s.paperUnits = 1;
    s.rotation = 3;
    s.plotType = kWindow;
    s.standardScale = 16;
    const Placement p = Place(drawing, drawing::Layout{}, s, [](auto&) { return Box2{}; });
    const Vec2 corner = p.toPaper.Apply({-840, 2414.324335775074});
    EXPECT_NEAR(corner.x, 297.0318298339844 - 3.17498779296875 + 3.159078955650557, 1e-6);
    EXPECT_NEAR(corner.y, 3.174999952316284 - 3.095831274986267, 1e-6);
}

TEST(StandardScale, FollowsTheHostsCodes)
{
    struct Scale {
        int code;
        double numerator, denominator;
    };
    for (const Scale& row : std::vector<Scale>{
             {0, 1, 1},      {1, 0.0078125, 12}, {2, 0.015625, 12}, {3, 0.03125, 12}, {4, 0.0625, 12}, {5, 0.09375, 12},
             {6, 0.125, 12}, {7, 0.1875, 12},    {8, 0.25, 12},     {9, 0.375, 12},   {10, 0.5, 12},   {11, 0.75, 12},
             {12, 1, 12},    {13, 3, 12},        {14, 6, 12},       {15, 12, 12},     {16, 1, 1},      {17, 1, 2},
             {18, 1, 4},     {19, 1, 8},         {20, 1, 10},       {21, 1, 16},      {22, 1, 20},     {23, 1, 30},
             {24, 1, 40},    {25, 1, 50},        {26, 1, 100},      {27, 2, 1},       {28, 4, 1},      {29, 8, 1},
             {30, 10, 1},    {31, 100, 1},       {32, 1000, 1}}) {
        const StandardScaleValue* scale = FindStandardScale(row.code);
        ASSERT_NE(scale, nullptr) << row.code;
        EXPECT_EQ(scale->numerator, row.numerator) << row.code;
        EXPECT_EQ(scale->denominator, row.denominator) << row.code;
    }
    EXPECT_EQ(FindStandardScale(33), nullptr);
    EXPECT_EQ(FindStandardScale(-1), nullptr);
}

} // namespace
} // namespace sm::plotter
