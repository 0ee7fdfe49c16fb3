// SPDX-License-Identifier: GPL-3.0-or-later
// Viewports: place, scale, twist, views from the side, frozen layers, clips, line types; which of them is the sheet.
#include "render/SmallDrawing.h"

#include <gmock/gmock.h>

namespace sm::render {
namespace {

// In R12 the sheet's entities carry group 67, and R13 and later files hold them in *Paper_Space or ENTITIES.
constexpr const char* kModel = "0 LINE | 8 0 | 10 100 | 20 100 | 11 110 | 21 100 |"
                               "0 LINE | 8 Walls | 10 100 | 20 100 | 11 100 | 21 110 |";
constexpr const char* kSheet =
    "0 VIEWPORT | 8 0 | 67 1 | 10 50 | 20 50 | 40 100 | 41 100 | 68 1 | 69 1 | 12 50 | 22 50 | 45 100 |";

struct ViewportRow {
    const char* name;
    std::string entities;
    Lines lines;
    bool psltscale = true;
    bool borders = false;
    bool viewportsFirst = true;
};

SmallDrawing DrawingOf(const ViewportRow& row)
{
    SmallDrawing drawing;
    drawing.header = row.psltscale ? "9 $PSLTSCALE | 70 1" : "9 $PSLTSCALE | 70 0";
    drawing.linetypes = "0 LTYPE | 2 DASHED | 70 0 | 3 d | 72 65 | 73 2 | 40 5 | 49 3 | 74 0 | 49 -2 | 74 0";
    drawing.layers = "0 LAYER | 5 A1 | 2 Walls | 70 0 | 62 1 | 6 Continuous | 0 LAYER | 5 A2 | 2 Screen | 70 0 | 62 1 "
                     "| 6 Continuous | 290 0";
    drawing.entities = row.entities;
    return drawing;
}

class ViewportsTest : public testing::TestWithParam<ViewportRow> {};

TEST_P(ViewportsTest, ShowTheModel)
{
    SmallScene look;
    look.paper = true;
    look.viewportBorders = GetParam().borders;
    look.viewportsFirst = GetParam().viewportsFirst;
    EXPECT_EQ(LinesOf(DrawingOf(GetParam()), look), GetParam().lines);
}

std::string Viewport(const std::string& more, const std::string& view = "12 105 | 22 105 | 45 20")
{
    return std::string(kModel) + kSheet + "0 VIEWPORT | 8 0 | 67 1 | 10 50 | 20 50 | 40 60 | 41 40 | 68 2 | 69 2 |" +
           view + "|" + more;
}

const ViewportRow kViewportRows[] = {
    {"ScaleAndPlace",
     Viewport(""),
     {"clip box 20 30 80 70", "stroke 000000 0.25 m 40 40 l 60 40", "stroke FF0000 0.25 m 40 40 l 40 60", "pop"}},
    {"Twist", // turned by a quarter, the model's x axis points up; the view's centre is turned already
     Viewport("51 90", "12 -105 | 22 105 | 45 20"),
     {"clip box 20 30 80 70", "stroke 000000 0.25 m 60 40 l 60 60", "stroke FF0000 0.25 m 60 40 l 40 40", "pop"}},
    {"TargetMovesTheView",
     Viewport("17 100 | 27 100 | 37 0", "12 5 | 22 5 | 45 20"),
     {"clip box 20 30 80 70", "stroke 000000 0.25 m 40 40 l 60 40", "stroke FF0000 0.25 m 40 40 l 40 60", "pop"}},
    {"FromTheFront", // y goes away from the eye
     Viewport("16 0 | 26 -1 | 36 0", "12 105 | 22 0 | 45 20"),
     {"clip box 20 30 80 70", "stroke 000000 0.25 m 40 50 l 60 50", "stroke FF0000 0.25 m 40 50 l 40 50", "pop"}},
    {"LayerFrozenHereAlone", Viewport("331 A1"), {"clip box 20 30 80 70", "stroke 000000 0.25 m 40 40 l 60 40", "pop"}},
    {"Off", Viewport("90 131072"), {}},
    {"OnALayerThatIsNotPlotted",
     std::string(kModel) + kSheet +
         "0 VIEWPORT | 8 Screen | 67 1 | 10 50 | 20 50 | 40 60 | 41 40 | 68 2 | 69 2 | 12 105 | 22 105 | 45 20",
     {"clip box 20 30 80 70", "stroke 000000 0.25 m 40 40 l 60 40", "stroke FF0000 0.25 m 40 40 l 40 60", "pop"},
     true,
     true},
    {"Border",
     Viewport(""),
     {"clip box 20 30 80 70", "stroke 000000 0.25 m 40 40 l 60 40", "stroke FF0000 0.25 m 40 40 l 40 60", "pop",
      "stroke 000000 0.25 box 20 30 80 70"},
     true,
     true},
    {"ClippedByACircle",
     Viewport("340 C1 | 90 65536 | 0 CIRCLE | 5 C1 | 8 Screen | 67 1 | 10 50 | 20 50 | 40 10"),
     {"clip m 60 50 c 60 55.523 55.523 60 50 60 c 44.477 60 40 55.523 40 50 c 40 44.477 44.477 40 50 40 c 55.523 40 60 "
      "44.477 60 50 h",
      "stroke 000000 0.25 m 40 40 l 60 40", "stroke FF0000 0.25 m 40 40 l 40 60", "pop"}},
    {"ClippedByAPolyline",
     Viewport("340 C1 | 0 LWPOLYLINE | 5 C1 | 8 Screen | 67 1 | 90 3 | 70 1 | 10 30 | 20 30 | 10 70 | 20 30 | 10 70 | "
              "20 60"),
     {"clip m 30 30 l 70 30 l 70 60 h", "stroke 000000 0.25 m 40 40 l 60 40", "stroke FF0000 0.25 m 40 40 l 40 60",
      "pop"}},
    {"SheetWithoutIdsIsTheFirst",
     std::string(kModel) +
         "0 VIEWPORT | 8 0 | 67 1 | 10 50 | 20 50 | 40 100 | 41 100 | 68 0 | 69 0 | 12 50 | 22 50 | 45 100 |"
         "0 VIEWPORT | 8 0 | 67 1 | 10 50 | 20 50 | 40 60 | 41 40 | 68 0 | 69 0 | 12 105 | 22 105 | 45 20",
     {"clip box 20 30 80 70", "stroke 000000 0.25 m 40 40 l 60 40", "stroke FF0000 0.25 m 40 40 l 40 60", "pop"}},
    {"SheetOfMinusOneIsTheFirst",
     std::string(kModel) +
         "0 VIEWPORT | 8 0 | 67 1 | 10 50 | 20 50 | 40 100 | 41 100 | 68 0 | 69 -1 | 12 50 | 22 50 | 45 100 |"
         "0 VIEWPORT | 8 0 | 67 1 | 10 50 | 20 50 | 40 60 | 41 40 | 68 0 | 69 -1 | 12 105 | 22 105 | 45 20",
     {"clip box 20 30 80 70", "stroke 000000 0.25 m 40 40 l 60 40", "stroke FF0000 0.25 m 40 40 l 40 60", "pop"}},
    {"SheetBehindTheOthers",
     std::string(kModel) +
         "0 VIEWPORT | 8 0 | 67 1 | 10 50 | 20 50 | 40 60 | 41 40 | 68 2 | 69 2 | 12 105 | 22 105 | 45 20 |" + kSheet,
     {"clip box 20 30 80 70", "stroke 000000 0.25 m 40 40 l 60 40", "stroke FF0000 0.25 m 40 40 l 40 60", "pop"}},
    {"SheetFirst",
     Viewport("0 LINE | 8 0 | 67 1 | 10 1 | 20 1 | 11 2 | 21 1"),
     {"stroke 000000 0.25 m 1 1 l 2 1", "clip box 20 30 80 70", "stroke 000000 0.25 m 40 40 l 60 40",
      "stroke FF0000 0.25 m 40 40 l 40 60", "pop"},
     true,
     false,
     false},
    {"DashesOnPaperScale", // PSLTSCALE 1: 20 mm of paper, periods of 5 mm: (20 - 20 + 3) / 2 = 1.5
     std::string("0 LINE | 8 0 | 6 DASHED | 10 100 | 20 100 | 11 110 | 21 100 |") + kSheet +
         "0 VIEWPORT | 8 0 | 67 1 | 10 50 | 20 50 | 40 60 | 41 40 | 68 2 | 69 2 | 12 105 | 22 105 | 45 20",
     {"clip box 20 30 80 70",
      "stroke 000000 0.25 m 40 40 l 41.5 40 m 43.5 40 l 46.5 40 m 48.5 40 l 51.5 40 m 53.5 40 l 56.5 40 m 58.5 40 l 60 "
      "40",
      "pop"}},
    {"DashesOnModelScale", // PSLTSCALE 0: 10 units of model, periods of 5 units, twice as large on paper
     std::string("0 LINE | 8 0 | 6 DASHED | 10 100 | 20 100 | 11 110 | 21 100 |") + kSheet +
         "0 VIEWPORT | 8 0 | 67 1 | 10 50 | 20 50 | 40 60 | 41 40 | 68 2 | 69 2 | 12 105 | 22 105 | 45 20",
     {"clip box 20 30 80 70", "stroke 000000 0.25 m 40 40 l 43 40 m 47 40 l 53 40 m 57 40 l 60 40", "pop"},
     false},
};

INSTANTIATE_TEST_SUITE_P(Sheets, ViewportsTest, testing::ValuesIn(kViewportRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ViewportReportsTest, CountEachEntityOnceByItsBestOutcome)
{
    const ViewportRow row{
        "",
        Viewport(
            "331 A1 | 0 VIEWPORT | 8 0 | 67 1 | 10 50 | 20 50 | 40 60 | 41 40 | 68 3 | 69 3 | 12 900 | 22 900 | 45 20"),
        {}};
    SmallScene look;
    look.paper = true;
    // One line drawn, one frozen in one viewport and off the other; sheet hidden, one viewport drawn, one empty.
    EXPECT_EQ(Render(DrawingOf(row), look).counts, "drawn 2 off page 2 hidden 1");
}

TEST(ViewMatrixTest, LooksAlongTheDirection)
{
    const Matrix3 isometric = ViewMatrix({1, -1, 1}, {10, 20, 30}, 0);
    const Vec3 target = isometric.Apply({10, 20, 30});
    EXPECT_NEAR(target.x, 0, 1e-12);
    EXPECT_NEAR(target.y, 0, 1e-12);
    const Vec3 up = isometric.ApplyVector({0, 0, 1});
    EXPECT_NEAR(up.x, 0, 1e-12);
    EXPECT_NEAR(up.y, std::sqrt(2.0 / 3), 1e-12);
    const Vec3 right = isometric.ApplyVector({1, 1, 0});
    EXPECT_NEAR(right.x, std::sqrt(2.0), 1e-12);
    EXPECT_NEAR(right.y, 0, 1e-12);
}

} // namespace
} // namespace sm::render
