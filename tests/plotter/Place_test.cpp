#include "FakeDrawing.h"

#include "plotter/Placement.h"

#include <gtest/gtest.h>

namespace sm::plotter {
namespace {

using drawing::Box2;
using drawing::PlotSettings;
using drawing::Vec2;

constexpr int kCentered = 4, kStandard = 16;
constexpr int kDisplay = 0, kExtents = 1, kLimits = 2, kView = 3, kWindow = 4, kLayout = 5;

Box2 BoxOf(double x0, double y0, double x1, double y1)
{
    Box2 box;
    box.Add(Vec2{x0, y0});
    box.Add(Vec2{x1, y1});
    return box;
}

/// A4 upright, margins 5 left, 10 bottom, 15 right, 20 top: the printable area is 190 x 267.
PlotSettings A4(int plotType, int flags)
{
    PlotSettings s;
    s.paperWidth = 210;
    s.paperHeight = 297;
    s.marginLeft = 5;
    s.marginBottom = 10;
    s.marginRight = 15;
    s.marginTop = 20;
    s.paperUnits = 1;
    s.plotType = plotType;
    s.flags = flags;
    return s;
}

struct Row {
    const char* name;
    PlotSettings settings;
    bool model;
    Box2 extents;
    double scale;  ///< numerator / denominator in force
    Vec2 from, to; ///< a point of the drawing and where it lands, mm
    Vec2 xAxis;    ///< a step of 1 along the drawing's x on the sheet, mm
    Box2 clip;
};

PlotSettings With(PlotSettings s, auto change)
{
    change(s);
    return s;
}

const Box2 kPrintable = BoxOf(5, 10, 195, 277);

std::vector<Row> Rows()
{
    const Box2 ext = BoxOf(100, 200, 138, 253.4); // 38 x 53.4: five times fills the printable area
    const auto standard = [](int type, int code, int more = 0) {
        return With(A4(type, kStandard | more), [&](PlotSettings& s) { s.standardScale = code; });
    };
    return {
        {"layout at 1:1", standard(kLayout, 16), false, {}, 1, {0, 0}, {5, 10}, {1, 0}, kPrintable},
        {"layout at 1:2", standard(kLayout, 17), false, {}, 0.5, {100, 100}, {55, 60}, {0.5, 0}, kPrintable},
        {"layout to fit is 1:1", standard(kLayout, 0), false, {}, 1, {7, 8}, {12, 18}, {1, 0}, kPrintable},
        {"layout is never centred",
         standard(kLayout, 16, kCentered),
         false,
         {},
         1,
         {0, 0},
         {5, 10},
         {1, 0},
         kPrintable},
        {"layout with an origin",
         With(standard(kLayout, 16),
              [](auto& s) {
                  s.origin = {3, -4};
              }),
         false,
         {},
         1,
         {0, 0},
         {8, 6},
         {1, 0},
         kPrintable},
        {"layout in inches",
         With(standard(kLayout, 16), [](auto& s) { s.paperUnits = 0; }),
         false,
         {},
         1,
         {1, 2},
         {30.4, 60.8},
         {25.4, 0},
         kPrintable},
        {"layout turned once",
         With(standard(kLayout, 16), [](auto& s) { s.rotation = 1; }),
         false,
         {},
         1,
         {0, 0},
         {5, 277},
         {0, -1},
         kPrintable},
        {"layout turned twice",
         With(standard(kLayout, 16), [](auto& s) { s.rotation = 2; }),
         false,
         {},
         1,
         {0, 0},
         {195, 277},
         {-1, 0},
         kPrintable},
        {"layout turned three times",
         With(standard(kLayout, 16), [](auto& s) { s.rotation = 3; }),
         false,
         {},
         1,
         {0, 0},
         {195, 10},
         {0, 1},
         kPrintable},
        {"origin of a turned layout lies along the sheet's axes",
         With(standard(kLayout, 16),
              [](auto& s) {
                  s.rotation = 1;
                  s.origin = {3, 40};
              }),
         false,
         {},
         1,
         {0, 0},
         {8, 237},
         {0, -1},
         kPrintable},
        {"extents to fit", standard(kExtents, 0), false, ext, 5, {100, 200}, {5, 10}, {5, 0}, kPrintable},
        {"extents to fit, turned",
         With(standard(kExtents, 0, kCentered), [](auto& s) { s.rotation = 3; }),
         false,
         BoxOf(0, 0, 534, 190),
         0.5,
         {0, 0},
         {147.5, 10},
         {0, 0.5},
         kPrintable},
        {"extents 1:1 centred",
         standard(kExtents, 16, kCentered),
         true,
         ext,
         1,
         {119, 226.7},
         {100, 143.5},
         {1, 0},
         kPrintable},
        {"extents with an origin",
         With(standard(kExtents, 16),
              [](auto& s) {
                  s.origin = {10, 20};
              }),
         true,
         ext,
         1,
         {100, 200},
         {15, 30},
         {1, 0},
         kPrintable},
        {"extents without anything", standard(kExtents, 0), true, {}, 1, {0, 0}, {100, 143.5}, {1, 0}, kPrintable},
        {"a point fits at 1:1 round its middle",
         standard(kExtents, 0),
         true,
         BoxOf(7, 7, 7, 7),
         1,
         {7, 7},
         {100, 143.5},
         {1, 0},
         kPrintable},
        {"a level line fits by its length",
         standard(kExtents, 0),
         true,
         BoxOf(0, 7, 380, 7),
         0.5,
         {190, 7},
         {100, 143.5},
         {0.5, 0},
         kPrintable},
        {"custom scale",
         With(A4(kExtents, 0),
              [](auto& s) {
                  s.scaleNumerator = 1000;
                  s.scaleDenominator = 100;
              }),
         true,
         BoxOf(0, 0, 1, 1),
         10,
         {1, 1},
         {15, 20},
         {10, 0},
         kPrintable},
        {"a stale custom scale is not used for fit",
         With(standard(kExtents, 0),
              [](auto& s) {
                  s.scaleNumerator = 1;
                  s.scaleDenominator = 77;
              }),
         false,
         ext,
         5,
         {100, 200},
         {5, 10},
         {5, 0},
         kPrintable},
        {"unusable custom scale fits",
         With(A4(kExtents, 0), [](auto& s) { s.scaleDenominator = 0; }),
         false,
         ext,
         5,
         {100, 200},
         {5, 10},
         {5, 0},
         kPrintable},
        {"unknown standard scale uses the custom one",
         With(standard(kExtents, 99), [](auto& s) { s.scaleNumerator = 2; }),
         false,
         ext,
         2,
         {100, 200},
         {5, 10},
         {2, 0},
         kPrintable},
        {"window clips",
         With(standard(kWindow, 16), [](auto& s) { s.window = BoxOf(10, 20, 60, 50); }),
         true,
         {},
         1,
         {10, 20},
         {5, 10},
         {1, 0},
         BoxOf(5, 10, 55, 40)},
        {"inverted window",
         With(standard(kWindow, 17, kCentered),
              [](auto& s) {
                  s.window = {{60, 50}, {10, 20}};
              }),
         true,
         {},
         0.5,
         {35, 35},
         {100, 143.5},
         {0.5, 0},
         BoxOf(87.5, 136, 112.5, 151)},
        {"turned window clips on the sheet",
         With(standard(kWindow, 16),
              [](auto& s) {
                  s.window = BoxOf(0, 0, 50, 30);
                  s.rotation = 1;
              }),
         true,
         {},
         1,
         {50, 30},
         {35, 227},
         {0, -1},
         BoxOf(5, 227, 35, 277)},
        {"window larger than the sheet",
         With(standard(kWindow, 16), [](auto& s) { s.window = BoxOf(0, 0, 999, 999); }),
         false,
         {},
         1,
         {0, 0},
         {5, 10},
         {1, 0},
         kPrintable},
        {"limits of the model", standard(kLimits, 16), true, {}, 1, {-1, -2}, {5, 10}, {1, 0}, BoxOf(5, 10, 18, 21)},
        {"model display", standard(kDisplay, 0), true, {}, 9.5, {40, 48.5}, {5, 10}, {9.5, 0}, BoxOf(5, 10, 195, 38.5)},
        {"named view",
         With(standard(kView, 26), [](auto& s) { s.viewName = "DETAIL"; }),
         true,
         {},
         0.01,
         {1000, 2000},
         {10, 15},
         {0.01, 0},
         BoxOf(5, 10, 15, 20)},
        {"layout type on the model tab plots the limits",
         standard(kLayout, 16),
         true,
         {},
         1,
         {-1, -2},
         {5, 10},
         {1, 0},
         BoxOf(5, 10, 18, 21)},
        {"paper display without a sheet view",
         standard(kDisplay, 0),
         false,
         ext,
         5,
         {100, 200},
         {5, 10},
         {5, 0},
         kPrintable},
        {"margins that leave nothing count as none",
         With(standard(kLayout, 16), [](auto& s) { s.marginLeft = 200; }),
         false,
         {},
         1,
         {0, 0},
         {0, 0},
         {1, 0},
         BoxOf(0, 0, 210, 297)},
        {"pixels count as millimetres",
         With(standard(kLayout, 16), [](auto& s) { s.paperUnits = 2; }),
         false,
         {},
         1,
         {1, 1},
         {6, 11},
         {1, 0},
         kPrintable},
    };
}

class PlaceTest : public testing::Test {
protected:
    PlaceTest()
    {
        drawing.points = {{"$LIMMIN", {-1, -2, 0}}, {"$LIMMAX", {12, 9, 0}}};
        drawing.active = drawing::ModelView{{50, 50}, 3, 20.0 / 3, {0, 0, 1}, {}, 0};
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
    for (const Row& row : Rows()) {
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
