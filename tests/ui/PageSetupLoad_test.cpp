// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PageSetupStand.h"

namespace sm {
namespace {

class PageSetupLoad : public PageSetupStand {};

const std::vector<std::string> kEveryControl = {
    "chkPageSetup",       "Label1",          "cmbPaperUnits",    "lblPaperSize",   "cmbPaperSize",    "optPortrait",
    "optLandscape",       "optDisplay",      "optExtents",       "optLayout",      "optView",         "cmbView",
    "optWindow",          "btnWindowPoints", "lblPlotStyleName", "cmbPlotStyle",   "lblScale",        "cmbScale",
    "lblCustom",          "txtScaleNumer",   "lblScaleUnits",    "txtScaleDenom",  "lblDrawingUnits", "chkScaleLine",
    "chkCenterThePlot",   "txtPlotOffsetX",  "lblXUnits",        "txtPlotOffsetY", "lblYUnits",       "chkPlotStyles",
    "chkPlotLineWeights", "chkPaperSpace",   "chkPlotHidden"};

TEST_F(PageSetupLoad, ShowsTheDefaults)
{
    ASSERT_TRUE(Fill());
    EXPECT_EQ(Shown(kEveryControl), (Texts{
                                        "chkPageSetup ticked on",
                                        "Label1 'Units:' on",
                                        "cmbPaperUnits 'Inches' on window",
                                        "lblPaperSize 'Paper Size:' on",
                                        "cmbPaperSize 'ANSI A (11.00 x 8.50 Inches)' on window",
                                        "optPortrait unticked on",
                                        "optLandscape ticked on",
                                        "optDisplay unticked on",
                                        "optExtents ticked on",
                                        "optLayout unticked on",
                                        "optView unticked off",
                                        "cmbView '(none)' off window",
                                        "optWindow unticked off",
                                        "btnWindowPoints 'Window >' on",
                                        "lblPlotStyleName 'Name:' on",
                                        "cmbPlotStyle 'None' on window",
                                        "lblScale 'Scale:' on",
                                        "cmbScale 'Scale to Fit' on window",
                                        "lblCustom 'Custom:' on",
                                        "txtScaleNumer '' off face",
                                        "lblScaleUnits 'Inches' on",
                                        "txtScaleDenom '' off face",
                                        "lblDrawingUnits 'Drawing Units' on",
                                        "chkScaleLine unticked on",
                                        "chkCenterThePlot ticked on",
                                        "txtPlotOffsetX '' off face",
                                        "lblXUnits 'Inches' on",
                                        "txtPlotOffsetY '' off face",
                                        "lblYUnits 'Inches' on",
                                        "chkPlotStyles ticked on",
                                        "chkPlotLineWeights ticked on",
                                        "chkPaperSpace ticked on",
                                        "chkPlotHidden unticked on",
                                    }));
}

TEST_F(PageSetupLoad, ShowsARecordInMillimetres)
{
    drawing->Views = {{"Plan", {}, 1, 1}, {"Section", {}, 1, 1}};
    record.CanonicalMediaName = "ISO_A4_(210.00_x_297.00_MM)";
    record.PaperUnits = 1;
    record.PlotType = 3;
    record.ViewToPlot = "Section";
    record.WinLowerLeftX = 1;
    record.WinUpperRightX = 2;
    record.WinUpperRightY = 5;
    record.UseStandardScale = 0;
    record.ScaleNumer = 25.4;
    record.ScaleDenom = 50;
    record.CenterPlot = 0;
    record.PlotOriginX = 2.54;
    record.PlotOriginY = -1;
    record.StyleSheet = "monochrome.ctb";
    record.PlotWithPlotStyles = 0;
    record.PlotHidden = 1;
    record.PlotViewportsFirst = 0;
    record.ScaleLineWeights = 1;
    ASSERT_TRUE(Fill());
    EXPECT_EQ(Shown(kEveryControl), (Texts{
                                        "chkPageSetup ticked on",
                                        "Label1 'Units:' on",
                                        "cmbPaperUnits 'Millimeters' on window",
                                        "lblPaperSize 'Paper Size:' on",
                                        "cmbPaperSize 'ISO A4 (210.00 x 297.00 MM)' on window",
                                        "optPortrait ticked on",
                                        "optLandscape unticked on",
                                        "optDisplay unticked on",
                                        "optExtents unticked on",
                                        "optLayout unticked on",
                                        "optView ticked on",
                                        "cmbView 'Section' on window",
                                        "optWindow unticked on",
                                        "btnWindowPoints 'Window >' on",
                                        "lblPlotStyleName 'Name:' on",
                                        "cmbPlotStyle 'monochrome.ctb' on window",
                                        "lblScale 'Scale:' on",
                                        "cmbScale 'Custom' on window",
                                        "lblCustom 'Custom:' on",
                                        "txtScaleNumer '25.4' on window",
                                        "lblScaleUnits 'mm' on",
                                        "txtScaleDenom '50' on window",
                                        "lblDrawingUnits 'Drawing Units' on",
                                        "chkScaleLine ticked on",
                                        "chkCenterThePlot unticked on",
                                        "txtPlotOffsetX '2.5' on window",
                                        "lblXUnits 'mm' on",
                                        "txtPlotOffsetY '-1.0' on window",
                                        "lblYUnits 'mm' on",
                                        "chkPlotStyles unticked on",
                                        "chkPlotLineWeights ticked off",
                                        "chkPaperSpace unticked on",
                                        "chkPlotHidden ticked on",
                                    }));
}

TEST_F(PageSetupLoad, WithoutTheCustomPageSetupEverythingIsOff)
{
    for (const std::int32_t other : {0, 2}) {
        selection = other;
        ASSERT_TRUE(Fill());
        for (const std::string& name : kEveryControl) {
            if (name == "chkPageSetup")
                EXPECT_EQ(Shown(user, name), "chkPageSetup unticked on");
            else
                EXPECT_FALSE(user.IsEnabled(name)) << name;
        }
        for (const char* name : {"cmbPaperUnits", "cmbPaperSize", "cmbView", "cmbPlotStyle", "cmbScale",
                                 "txtScaleNumer", "txtScaleDenom", "txtPlotOffsetX", "txtPlotOffsetY"})
            EXPECT_EQ(user.Back(name), "face") << name;
    }
}

TEST_F(PageSetupLoad, ListsEveryPaperWithItsSize)
{
    ASSERT_TRUE(Fill());
    ASSERT_EQ(user.Items("cmbPaperSize").size(), 28U);
    ASSERT_EQ(user.Rows("lstPaperSize").size(), 28U);
    EXPECT_EQ(user.Items("cmbPaperSize")[0], "ANSI A (8.50 x 11.00 Inches)");
    EXPECT_EQ(user.Rows("lstPaperSize")[0], "ANSI_A_(8.50_x_11.00_Inches) | 215.9 | 279.4");
    EXPECT_EQ(user.Items("cmbPaperSize")[27], "ISO A4 (297.00 x 210.00 MM)");
    EXPECT_EQ(user.Rows("lstPaperSize")[27], "ISO_A4_(297.00_x_210.00_MM) | 297 | 210");
    EXPECT_FALSE(user.IsVisible("lstPaperSize"));
}

TEST_F(PageSetupLoad, AnUnknownPaperShowsTheFirst)
{
    record.CanonicalMediaName = "A3";
    ASSERT_TRUE(Fill());
    EXPECT_EQ(user.Text("cmbPaperSize"), "ANSI A (8.50 x 11.00 Inches)");
    EXPECT_TRUE(user.IsTicked("optPortrait"));
}

TEST_F(PageSetupLoad, OffsetsAreShownInTheUnitChosen)
{
    const struct {
        const char* name;
        std::int32_t units;
        double stored;
        const char* shown;
        const char* label;
    } rows[] = {{"inches", 0, 25.4, "1.00", "Inches"},
                {"millimetres", 1, 25.4, "25.4", "mm"},
                {"pixels count as inches", 2, 12.7, "0.50", "Inches"}};
    record.CenterPlot = 0;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        record.PaperUnits = row.units;
        record.PlotOriginX = row.stored;
        ASSERT_TRUE(Fill());
        EXPECT_EQ(user.Text("txtPlotOffsetX"), row.shown);
        for (const char* label : {"lblXUnits", "lblYUnits", "lblScaleUnits"})
            EXPECT_EQ(user.Caption(label), row.label);
    }
}

TEST_F(PageSetupLoad, ThePlotTypeTicksOneOption)
{
    const struct {
        std::int32_t type;
        Texts ticked;
    } rows[] = {{0, {"optDisplay"}},
                {1, {"optExtents"}},
                {2, {"optLayout"}},
                {3, {"optView"}},
                {4, {"optWindow"}},
                {5, {"optLayout"}},
                {6, {}},
                {-1, {}}};
    for (const auto& row : rows) {
        record.PlotType = row.type;
        ASSERT_TRUE(Fill());
        EXPECT_EQ(user.Ticked({"optDisplay", "optExtents", "optLayout", "optView", "optWindow"}), row.ticked)
            << row.type;
    }
}

TEST_F(PageSetupLoad, TheWindowOptionNeedsAWindow)
{
    const struct {
        const char* name;
        double x1, y1, x2, y2;
        bool enabled;
    } rows[] = {{"none", 0, 0, 0, 0, false},
                {"no width", 3, 1, 3, 5, false},
                {"no height", 1, 4, 3, 4, false},
                {"a window", 1, 2, 3, 4, true}};
    for (const auto& row : rows) {
        record.WinLowerLeftX = row.x1;
        record.WinLowerLeftY = row.y1;
        record.WinUpperRightX = row.x2;
        record.WinUpperRightY = row.y2;
        ASSERT_TRUE(Fill());
        EXPECT_EQ(user.IsEnabled("optWindow"), row.enabled) << row.name;
    }
}

TEST_F(PageSetupLoad, TheStandardScaleStandsOnePlaceFurtherDown)
{
    const struct {
        std::int32_t use, scale;
        const char* shown;
    } rows[] = {
        {1, 0, "Scale to Fit"},    {1, 1, "1/128\"= 1'"}, {1, 6, "1/8\" = 1'"}, {1, 15, "1'= 1'"}, {1, 16, "1:1"},
        {1, 26, "1:100"},          {1, 27, "2:1"},        {1, 31, "100:1"},     {0, 31, "Custom"}, {1, 32, "(none)"},
        {1, 2147483647, "(none)"}, {1, -2, "(none)"},     {1, -1, "Custom"}};
    for (const auto& row : rows) {
        record.UseStandardScale = row.use;
        record.StandardScale = row.scale;
        ASSERT_TRUE(Fill());
        EXPECT_EQ(user.Text("cmbScale"), row.shown);
    }
    EXPECT_EQ(
        user.Items("cmbScale"),
        (Texts{"Custom",     "Scale to Fit", "1/128\"= 1'", "1/64\"= 1'", "1/32\"= 1'", "1/16\"= 1'", "3/32\"= 1'",
               "1/8\" = 1'", "3/16\"= 1'",   "1/4\" = 1'",  "3/8\" = 1'", "1/2\" = 1'", "3/4\" = 1'", "1\"= 1'",
               "3\"= 1'",    "6\"= 1'",      "1'= 1'",      "1:1",        "1:2",        "1:4",        "1:8",
               "1:10",       "1:16",         "1:20",        "1:30",       "1:40",       "1:50",       "1:100",
               "2:1",        "4:1",          "8:1",         "10:1",       "100:1"}));
}

TEST_F(PageSetupLoad, FillingTwiceConvertsNothing)
{
    record.UseStandardScale = 0;
    record.CenterPlot = 0;
    record.PlotOriginX = 25.4;
    for (const std::int32_t units : {1, 0, 1}) {
        record.PaperUnits = units;
        ASSERT_TRUE(Fill());
        EXPECT_EQ(user.Text("txtScaleNumer"), "1");
        EXPECT_EQ(user.Text("txtPlotOffsetX"), units == 1 ? "25.4" : "1.00");
    }
}

TEST_F(PageSetupLoad, AFailingHostIsLoggedAndFails)
{
    host.tape.FailCall("Views.Count", "Automation error");
    EXPECT_FALSE(Fill());
    EXPECT_EQ(Log(), (Lines{"RUNTIME ERROR: SetPageSetupTab -Automation error"}));
    host.tape.StopFailing();
    context.g_AcadDoc = nullptr;
    EXPECT_FALSE(Fill());
    EXPECT_EQ(Log(), (Lines{"RUNTIME ERROR: SetPageSetupTab -The drawing is not available."}));
}

} // namespace
} // namespace sm
