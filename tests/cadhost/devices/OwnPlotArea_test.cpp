// SPDX-License-Identifier: GPL-3.0-or-later
// Plot areas that a layout's own settings leave open: views that aren't there, windows in two forms.
#include "cadhost/LayoutFixture.h"

#include <map>

namespace sm::cadhost {
namespace {

class OwnPlotAreaTest : public HostLayoutTest {
protected:
    /// Plots the layout with the suite's plotter and gives the remarks.
    std::vector<std::string> RemarksOf(const DxfDrawing& drawing, const std::string& layoutName)
    {
        const auto document = Open(drawing);
        layout = document->Layouts()->Item(layoutName);
        document->SetActiveLayout(layout);
        host->Application()->Preferences()->SetPrinterConfigPath(kShare + "/PC3");
        layout->RefreshPlotDeviceInfo();
        layout->SetConfigName("Tarnwick PS8 HighRes.pc3");
        EXPECT_TRUE(document->Plot()->PlotToFile((folder / "page.ps").string())) << host->Report(document).plotFailure;
        std::vector<std::string> remarks;
        for (const auto& [remark, count] : host->Report(document).remarks)
            remarks.push_back(remark);
        return remarks;
    }
    std::shared_ptr<IAcadLayout> layout;
};

struct ViewRow {
    const char* name;
    const char* wanted;
    std::string views;
    int plotType, standardScale;
    const char* plotted;
    std::vector<std::string> remarks;
};
class ViewToPlotTest : public OwnPlotAreaTest, public ::testing::WithParamInterface<ViewRow> {};

TEST_P(ViewToPlotTest, IsOneThatIsThere)
{
    DxfDrawing drawing = SheetWithLine();
    drawing.sheets[0].plotType = 3;
    drawing.sheets[0].viewName = GetParam().wanted;
    drawing.sheets[0].standardScale = GetParam().standardScale;
    drawing.views = GetParam().views;
    EXPECT_EQ(RemarksOf(drawing, "Sheet 1"), GetParam().remarks);
    EXPECT_EQ(layout->PlotType(), GetParam().plotType);
    EXPECT_EQ(layout->ViewToPlot(), GetParam().plotted);
}

const std::string kPaper = Tag(70, 1);
const std::string kTitle = ViewTags("Title", 60, 30, 120, 60, kPaper);
const std::string kWall = ViewTags("Wall", 0, 0, 5000, 3000, kPaper); // larger than the sheet of 420 x 297
const std::string kPlan = ViewTags("Plan", 60, 30, 120, 60);          // of the model

INSTANTIATE_TEST_SUITE_P(
    Views, ViewToPlotTest,
    ::testing::Values(
        ViewRow{"There", "TITLE", kTitle + kWall, 3, 16, "TITLE", {}},
        ViewRow{"NamelessTakesTheOneThatFits",
                "",
                kTitle + kWall + kPlan,
                3,
                16,
                "Title",
                {"layout \"Sheet 1\" names no view to plot; its view \"Title\" is plotted"}},
        ViewRow{"GoneTakesTheOneThatFits",
                "Attic",
                kTitle,
                3,
                16,
                "Title",
                {"layout \"Sheet 1\" plots the view \"Attic\", which is not in the drawing; its view \"Title\" is "
                 "plotted"}},
        ViewRow{"FitsAtTheScaleOfThePlot",
                "",
                ViewTags("Double", 0, 0, 800, 590, kPaper),
                3,
                17,
                "Double",
                {"layout \"Sheet 1\" names no view to plot; its view \"Double\" is plotted"}},
        ViewRow{"TooLargeAtTheScaleOfThePlot",
                "",
                ViewTags("Double", 0, 0, 800, 590, kPaper),
                1,
                16,
                "",
                {"layout \"Sheet 1\" names no view to plot; its extents are plotted"}},
        ViewRow{"TwoThatFit",
                "",
                kTitle + ViewTags("Key", 0, 0, 50, 50, kPaper),
                1,
                16,
                "",
                {"layout \"Sheet 1\" names no view to plot; its extents are plotted"}},
        ViewRow{"ViewsOfTheModelDontCount",
                "Plan",
                kPlan,
                1,
                16,
                "Plan",
                {"layout \"Sheet 1\" plots the view \"Plan\", which is not in the drawing; its extents are plotted"}}),
    [](const auto& row) { return row.param.name; });

TEST_F(OwnPlotAreaTest, AnotherPageSetupTellsNothingOfTheView)
{
    DxfDrawing drawing = SheetWithLine();
    drawing.sheets[0].plotType = 3;
    const auto document = Open(drawing);
    layout = document->Layouts()->Item("Sheet 1");
    document->SetActiveLayout(layout);
    host->Application()->Preferences()->SetPrinterConfigPath(kShare + "/PC3");
    layout->SetConfigName("Tarnwick PS8 HighRes.pc3");
    layout->SetPlotType(5);
    EXPECT_TRUE(document->Plot()->PlotToFile((folder / "page.ps").string()));
    EXPECT_TRUE(host->Report(document).remarks.empty());
}

struct WindowRow {
    const char* name;
    std::array<double, 4> window;
    double x, y; ///< where the drawing lies
    AcadPoint low, high;
    std::vector<std::string> remarks;
};
class ModelWindowTest : public OwnPlotAreaTest, public ::testing::WithParamInterface<WindowRow> {};

std::string PlanAround(double x, double y)
{
    return Tag(0, "VPORT") + Tag(2, "*Active") + Tag(70, 0) + Tag(10, 0) + Tag(20, 0) + Tag(11, 1) + Tag(21, 1) +
           Tag(12, 0) + Tag(22, 0) + Tag(16, 0) + Tag(26, 0) + Tag(36, 1) + Tag(17, x) + Tag(27, y) + Tag(37, 0) +
           Tag(40, 10) + Tag(41, 1);
}

TEST_P(ModelWindowTest, IsTakenInTheFormThatMeetsTheDrawing)
{
    const WindowRow& row = GetParam();
    DxfDrawing drawing;
    drawing.viewport = PlanAround(1000, 2000);
    drawing.model.plotType = 4;
    drawing.model.window = row.window;
    drawing.model.entities = LineTags(row.x, row.y, row.x + 10, row.y + 10);
    EXPECT_EQ(RemarksOf(drawing, "Model"), row.remarks);
    AcadPoint low, high;
    layout->GetWindowToPlot(low, high);
    EXPECT_EQ(low, row.low);
    EXPECT_EQ(high, row.high);
}

const std::string kTakenRelative =
    "layout \"Model\": nothing lies in its plot window as world coordinates, so it is taken "
    "relative to the view's target";

INSTANTIATE_TEST_SUITE_P(
    Windows, ModelWindowTest,
    ::testing::Values(
        WindowRow{"World", {0, 0, 20, 20}, 5, 5, {0, 0, 0}, {20, 20, 0}, {}},
        WindowRow{"Relative", {0, 0, 20, 20}, 1005, 2005, {1000, 2000, 0}, {1020, 2020, 0}, {kTakenRelative}},
        WindowRow{"InvertedToo", {20, 20, 0, 0}, 1005, 2005, {1020, 2020, 0}, {1000, 2000, 0}, {kTakenRelative}},
        WindowRow{"Neither",
                  {0, 0, 20, 20},
                  500,
                  500,
                  {0, 0, 0},
                  {20, 20, 0},
                  {"layout \"Model\" is blank: all that it holds lies outside of the plotted area"}}),
    [](const auto& row) { return row.param.name; });

} // namespace
} // namespace sm::cadhost
