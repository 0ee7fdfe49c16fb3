// SPDX-License-Identifier: GPL-3.0-or-later
#include "cadhost/LayoutFixture.h"

namespace sm::cadhost {
namespace {

TEST_F(HostLayoutTest, BeginsWithThePlotSettingsOfTheFile)
{
    DxfDrawing drawing;
    DxfLayout& sheet = drawing.AddSheet("Sheet 1");
    sheet.rotation = 1;
    sheet.plotType = 4;
    sheet.window = {-840, 2414.5, -420, 2711};
    sheet.origin = {3, 4};
    sheet.styleSheet = "Florida.ctb";
    sheet.viewName = "left over";
    sheet.flags = 1 | 2 | 8 | 32 | 64 | 512;
    sheet.scaleNumerator = 25.4;
    sheet.scaleDenominator = 2;
    const auto layout = OpenSheet(drawing);
    EXPECT_EQ(layout->Name(), "Sheet 1");
    EXPECT_EQ(layout->TabOrder(), 1);
    EXPECT_FALSE(layout->ModelType());
    EXPECT_EQ(layout->Block()->Name(), "*Paper_Space");
    EXPECT_EQ(layout->ConfigName(), "\\\\office\\plotter");
    EXPECT_EQ(layout->CanonicalMediaName(), "A3");
    EXPECT_EQ(layout->GetLocaleMediaName("A3"), "A3");
    EXPECT_EQ(layout->StyleSheet(), "Florida.ctb");
    EXPECT_EQ(layout->PlotRotation(), 1);
    EXPECT_EQ(layout->PlotType(), 4);
    EXPECT_EQ(layout->ViewToPlot(), "left over");
    AcadPoint low, high;
    layout->GetWindowToPlot(low, high);
    EXPECT_EQ(low, (AcadPoint{-840, 2414.5, 0}));
    EXPECT_EQ(high, (AcadPoint{-420, 2711, 0}));
    EXPECT_FALSE(layout->CenterPlot());
    EXPECT_EQ(layout->PaperUnits(), 1);
    EXPECT_FALSE(layout->UseStandardScale());
    EXPECT_EQ(layout->StandardScale(), 16);
    EXPECT_EQ(ScaleOf(*layout), "(25.4, 2)");
    EXPECT_TRUE(layout->PlotViewportBorders());
    EXPECT_TRUE(layout->ShowPlotStyles());
    EXPECT_TRUE(layout->PlotHidden());
    EXPECT_TRUE(layout->PlotWithPlotStyles());
    EXPECT_TRUE(layout->ScaleLineweights());
    EXPECT_FALSE(layout->PlotWithLineweights());
    EXPECT_TRUE(layout->PlotViewportsFirst());
    EXPECT_EQ(SizeOf(*layout), "(420, 297)");
    EXPECT_EQ(MarginsOf(*layout), "{ 5, 17, 6, 18 }");
}

TEST_F(HostLayoutTest, PutsTheCornersOfAWindowInOrder)
{
    const auto layout = OpenSheet(SheetWithLine());
    layout->SetWindowToPlot({3, 2, 0}, {1, 4, 0});
    AcadPoint low, high;
    layout->GetWindowToPlot(low, high);
    EXPECT_EQ(low, (AcadPoint{1, 2, 0}));
    EXPECT_EQ(high, (AcadPoint{3, 4, 0}));
}

TEST_F(HostLayoutTest, KeepsWhatIsWritten)
{
    const auto layout = OpenSheet(SheetWithLine());
    layout->SetPlotRotation(3);
    layout->SetPlotType(1);
    layout->SetWindowToPlot({1, 2, 0}, {3, 4, 0});
    layout->SetCenterPlot(true);
    layout->SetPlotOrigin({7, 8, 0});
    layout->SetPaperUnits(0);
    layout->SetUseStandardScale(false);
    layout->SetStandardScale(0);
    layout->SetCustomScale(1, 48);
    layout->SetPlotWithPlotStyles(false);
    layout->SetShowPlotStyles(true);
    layout->SetPlotHidden(true);
    layout->SetPlotViewportBorders(true);
    layout->SetPlotWithLineweights(false);
    layout->SetScaleLineweights(true);
    layout->SetPlotViewportsFirst(false);
    EXPECT_EQ(layout->PlotRotation(), 3);
    EXPECT_EQ(layout->PlotType(), 1);
    AcadPoint low, high;
    layout->GetWindowToPlot(low, high);
    EXPECT_EQ(low, (AcadPoint{1, 2, 0}));
    EXPECT_EQ(high, (AcadPoint{3, 4, 0}));
    EXPECT_TRUE(layout->CenterPlot());
    EXPECT_EQ(layout->PlotOrigin(), (AcadPoint{7, 8, 0}));
    EXPECT_EQ(layout->PaperUnits(), 0);
    EXPECT_FALSE(layout->UseStandardScale());
    EXPECT_EQ(layout->StandardScale(), 0);
    EXPECT_EQ(ScaleOf(*layout), "(1, 48)");
    EXPECT_FALSE(layout->PlotWithPlotStyles());
    EXPECT_TRUE(layout->ShowPlotStyles());
    EXPECT_TRUE(layout->PlotHidden());
    EXPECT_TRUE(layout->PlotViewportBorders());
    EXPECT_FALSE(layout->PlotWithLineweights());
    EXPECT_TRUE(layout->ScaleLineweights());
    EXPECT_FALSE(layout->PlotViewportsFirst());
}

TEST_F(HostLayoutTest, GivesTheOriginAlongTheDrawingsAxes)
{
    DxfDrawing drawing = SheetWithLine();
    drawing.sheets[0].origin = {3, 4};
    drawing.sheets[0].rotation = 1;
    const auto turned = OpenSheet(drawing);
    EXPECT_EQ(turned->PlotOrigin(), (AcadPoint{4, 3, 0}));
    turned->SetPlotRotation(0);
    EXPECT_EQ(turned->PlotOrigin(), (AcadPoint{4, 3, 0}));
    drawing.sheets[0].rotation = 2;
    EXPECT_EQ(OpenSheet(drawing)->PlotOrigin(), (AcadPoint{3, 4, 0}));
}

struct RefusedRow {
    const char* name;
    void (*write)(IAcadLayout&);
    const char* expected;
};
class RefusedTest : public HostLayoutTest, public ::testing::WithParamInterface<RefusedRow> {};

TEST_P(RefusedTest, IsAnErrorInWords)
{
    const auto layout = OpenSheet(SheetWithLine());
    EXPECT_EQ(ErrorOf([&] { GetParam().write(*layout); }), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Values, RefusedTest,
    ::testing::Values(
        RefusedRow{"Device", [](IAcadLayout& l) { l.SetConfigName("Nobody.pc3"); },
                   "the plot device 'Nobody.pc3' is not in the list of devices"},
        RefusedRow{"Medium", [](IAcadLayout& l) { l.SetCanonicalMediaName("A9"); },
                   "the plot device '\\\\office\\plotter' doesn't offer the medium 'A9'"},
        RefusedRow{"MediumName", [](IAcadLayout& l) { l.GetLocaleMediaName("A9"); },
                   "the plot device '\\\\office\\plotter' doesn't offer the medium 'A9'"},
        RefusedRow{"Style", [](IAcadLayout& l) { l.SetStyleSheet("none.ctb"); },
                   "the plot style table 'none.ctb' is not in the list of tables"},
        RefusedRow{"Rotation", [](IAcadLayout& l) { l.SetPlotRotation(4); }, "PlotRotation: 4 is not from 0 to 3"},
        RefusedRow{"Type", [](IAcadLayout& l) { l.SetPlotType(-1); }, "PlotType: -1 is not from 0 to 5"},
        RefusedRow{"Units", [](IAcadLayout& l) { l.SetPaperUnits(3); }, "PaperUnits: 3 is not from 0 to 2"},
        RefusedRow{"View", [](IAcadLayout& l) { l.SetViewToPlot("Plan"); },
                   "ViewToPlot: layout 'Sheet 1' has no view 'Plan'"},
        RefusedRow{"StandardScale", [](IAcadLayout& l) { l.SetStandardScale(33); },
                   "StandardScale: 33 is no scale code"},
        RefusedRow{"ZeroScale", [](IAcadLayout& l) { l.SetCustomScale(1, 0); },
                   "CustomScale: both parts of a scale are above 0"},
        RefusedRow{"Window",
                   [](IAcadLayout& l) {
                       l.SetWindowToPlot({0, 0, 0}, {INFINITY, 0, 0});
                   },
                   "WindowToPlot: not a number"},
        RefusedRow{"Origin",
                   [](IAcadLayout& l) {
                       l.SetPlotOrigin({NAN, 0, 0});
                   },
                   "PlotOrigin: not a number"}),
    [](const auto& row) { return row.param.name; });

struct ScaleRow {
    const char* name;
    int flags, standardScale;
    double numerator, denominator;
    const char* expected;
};
class ScaleInForceTest : public HostLayoutTest, public ::testing::WithParamInterface<ScaleRow> {};

TEST_P(ScaleInForceTest, IsWhatTheSheetPlotsWith)
{
    DxfDrawing drawing = SheetWithLine();
    DxfLayout& sheet = drawing.sheets[0];
    sheet.margins = {10, 10, 10, 10};
    sheet.plotType = 1;
    sheet.flags = GetParam().flags;
    sheet.standardScale = GetParam().standardScale;
    sheet.scaleNumerator = GetParam().numerator;
    sheet.scaleDenominator = GetParam().denominator;
    EXPECT_EQ(ScaleOf(*OpenSheet(drawing)), GetParam().expected);
}

// The line is 100 by 50 units; 400 by 277 mm can be printed on.
INSTANTIATE_TEST_SUITE_P(Scales, ScaleInForceTest,
                         ::testing::Values(ScaleRow{"FitForgetsTheStaleRatio", 16, 0, 1, 2.5, "(1, 0.25)"},
                                           ScaleRow{"Standard", 16, 25, 1, 7, "(1, 50)"},
                                           ScaleRow{"StandardOfFeet", 16, 8, 1, 7, "(0.25, 12)"},
                                           ScaleRow{"Custom", 0, 25, 2, 5, "(2, 5)"},
                                           ScaleRow{"ZeroParts", 0, 16, 0, 0, "(1, 1)"},
                                           ScaleRow{"NegativePart", 0, 16, 1, -4, "(1, 1)"},
                                           ScaleRow{"UnknownCode", 16, 99, 2, 5, "(2, 5)"}),
                         [](const auto& row) { return row.param.name; });

TEST_F(HostLayoutTest, FitsNothingWhereTheViewIsMissing)
{
    DxfDrawing drawing = SheetWithLine();
    drawing.sheets[0].plotType = 3;
    drawing.sheets[0].viewName = "gone";
    drawing.sheets[0].standardScale = 0;
    drawing.sheets[0].scaleDenominator = 20;
    const auto layout = OpenSheet(drawing);
    layout->SetPlotType(3); // as a page setup asks for it that is not the layout's own
    EXPECT_EQ(ScaleOf(*layout), "(1, 20)");
}

TEST_F(HostLayoutTest, SetsAViewOfItsOwnSpace)
{
    DxfDrawing drawing = SheetWithLine();
    drawing.views = ViewTags("Plan", 50, 40, 100, 80) + ViewTags("Title", 10, 10, 20, 20, Tag(70, 1));
    const auto document = Open(drawing);
    const auto sheet = document->Layouts()->Item("Sheet 1"), model = document->Layouts()->Item("Model");
    model->SetViewToPlot("PLAN");
    EXPECT_EQ(model->ViewToPlot(), "Plan");
    EXPECT_EQ(ErrorOf([&] { sheet->SetViewToPlot("Plan"); }), "ViewToPlot: layout 'Sheet 1' has no view 'Plan'");
}

} // namespace
} // namespace sm::cadhost
