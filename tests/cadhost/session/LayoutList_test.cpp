// SPDX-License-Identifier: GPL-3.0-or-later
#include "cadhost/HostFixture.h"
#include "session/LayoutList.h"

namespace sm::cadhost {
namespace {

struct AreaRow {
    const char* name;
    std::int32_t type;
    const char* expected;
};
class PlotAreaTextTest : public ::testing::TestWithParam<AreaRow> {};

TEST_P(PlotAreaTextTest, SaysWhatIsPlotted)
{
    drawing::PlotSettings settings;
    settings.plotType = GetParam().type;
    settings.viewName = "Plan";
    settings.window = {{-1.5, 0}, {420, 297.123456789}};
    EXPECT_EQ(PlotAreaText(settings), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Types, PlotAreaTextTest,
                         ::testing::Values(AreaRow{"Display", 0, "display"}, AreaRow{"Extents", 1, "extents"},
                                           AreaRow{"Limits", 2, "limits"}, AreaRow{"View", 3, "view 'Plan'"},
                                           AreaRow{"Window", 4, "window -1.5,0 to 420,297.12346"},
                                           AreaRow{"Layout", 5, "layout"}),
                         [](const auto& row) { return row.param.name; });

struct RatioRow {
    const char* name;
    PlotScale scale;
    bool fit;
    const char* expected;
};
class ScaleTextTest : public ::testing::TestWithParam<RatioRow> {};

TEST_P(ScaleTextTest, IsARatioWithOne)
{
    EXPECT_EQ(ScaleText(GetParam().scale, GetParam().fit), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Ratios, ScaleTextTest,
    ::testing::Values(RatioRow{"Same", {1, 1}, false, "1:1"}, RatioRow{"Smaller", {1, 50}, false, "1:50"},
                      RatioRow{"Larger", {25.4, 1}, false, "25.4:1"}, RatioRow{"Feet", {0.25, 12}, false, "1:48"},
                      RatioRow{"Fit", {1, 48.2}, true, "fit (1:48.2)"}, RatioRow{"Endless", {1, 3}, false, "1:3"},
                      RatioRow{"Rounded", {1, 2.0151234}, true, "fit (1:2.0151)"}),
    [](const auto& row) { return row.param.name; });

class LayoutListTest : public HostTest {};

TEST_F(LayoutListTest, TellsWhatEachLayoutHolds)
{
    DxfDrawing drawing;
    const auto viewport = [](int id) {
        return Tag(0, "VIEWPORT") + Tag(8, "0") + Tag(67, 1) + Tag(10, 5) + Tag(20, 5) + Tag(40, 10) + Tag(41, 10) +
               Tag(68, 1) + Tag(69, id);
    };
    DxfLayout& sheet = drawing.AddSheet("Ground");
    sheet.rotation = 1;
    sheet.paperWidth = 297;
    sheet.paperHeight = 420;
    sheet.styleSheet = "Florida.ctb";
    sheet.entities = viewport(1) + viewport(2) + LineTags(0, 0, 100, 50, Tag(67, 1));
    drawing.AddSheet("Roof").entities = viewport(0) + viewport(0);
    drawing.AddSheet("Cellar").entities = viewport(3) + viewport(4);
    drawing.AddSheet("Empty");
    drawing.AddSheet("Attic").entities = viewport(-1) + viewport(-1) + viewport(-1);
    drawing.model.entities = LineTags(0, 0, 1, 1);
    drawing.active = 1;
    const auto list = host->Layouts(Open(drawing));
    ASSERT_EQ(list.size(), 6U);
    EXPECT_EQ(list[0].name, "Model");
    EXPECT_TRUE(list[0].isModel);
    EXPECT_EQ(list[0].entities, 1U);
    EXPECT_EQ(list[0].configName, "None");
    EXPECT_EQ(list[0].plotArea, "display");
    EXPECT_EQ(list[1].name, "Ground");
    EXPECT_TRUE(list[1].active);
    EXPECT_EQ(list[1].tabOrder, 1);
    EXPECT_EQ(list[1].mediaName, "A3");
    EXPECT_EQ(list[1].configName, "\\\\office\\plotter");
    EXPECT_EQ(list[1].styleSheet, "Florida.ctb");
    EXPECT_EQ(list[1].plotArea, "layout");
    EXPECT_EQ(list[1].scale, "1:1");
    EXPECT_EQ(list[1].paperWidth, 420);
    EXPECT_EQ(list[1].paperHeight, 297);
    EXPECT_EQ(list[1].entities, 2U);
    EXPECT_EQ(list[1].viewports, 1U);
    EXPECT_EQ(list[2].viewports, 1U) << "a sheet that isn't open keeps no ids, and its first viewport is the sheet";
    EXPECT_EQ(list[2].entities, 1U);
    EXPECT_FALSE(list[2].active);
    EXPECT_EQ(list[3].viewports, 2U);
    EXPECT_EQ(list[4].entities, 0U);
    EXPECT_EQ(list[5].viewports, 2U) << "-1 is no id either";
}

TEST_F(LayoutListTest, OutlinesLayoutsAsTheDrawingHasThem)
{
    const std::string line = LineTags(0, 0, 1, 1, Tag(67, 1));
    const auto viewport = [](int id) {
        return Tag(0, "VIEWPORT") + Tag(8, "0") + Tag(67, 1) + Tag(10, 5) + Tag(20, 5) + Tag(40, 10) + Tag(41, 10) +
               Tag(68, 1) + Tag(69, id);
    };
    DxfDrawing drawing;
    DxfLayout& paperless = drawing.AddSheet("Paperless");
    paperless.paperWidth = 0;
    paperless.entities = viewport(1) + line;
    DxfLayout& display = drawing.AddSheet("Display");
    display.plotType = 0;
    display.entities = viewport(1);
    drawing.AddSheet("Second").entities = viewport(2);
    drawing.AddSheet("Line").entities = line;
    drawing.model.entities = LineTags(0, 0, 1, 1);
    const std::vector<LayoutOutline> expected{{"Model", true, true, true, true},
                                              {"Paperless", false, true, false, false},
                                              {"Display", false, false, true, true},
                                              {"Second", false, true, true, false},
                                              {"Line", false, true, true, false}};
    EXPECT_EQ(host->Outlines(Open(drawing)), expected);
}

} // namespace
} // namespace sm::cadhost
