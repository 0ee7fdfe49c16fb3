// SPDX-License-Identifier: GPL-3.0-or-later
// What the user's choices in the page setup controls lead to.
#include "ui/PageSetupStand.h"

namespace sm {
namespace {

class PageSetupRules : public PageSetupStand {};

TEST_F(PageSetupRules, TickingTheSwitchTurnsTheControlsOn)
{
    selection = 0;
    ASSERT_TRUE(Fill());
    user.Tick("chkPageSetup", true);
    EXPECT_EQ(Shown({"cmbPaperSize", "optView", "cmbView", "optWindow", "cmbScale", "txtScaleNumer", "txtPlotOffsetX",
                     "chkPlotLineWeights"}),
              (Texts{"cmbPaperSize 'ANSI A (11.00 x 8.50 Inches)' on window", "optView unticked off",
                     "cmbView '(none)' off window", "optWindow unticked off", "cmbScale 'Scale to Fit' on window",
                     "txtScaleNumer '' off face", "txtPlotOffsetX '' off face", "chkPlotLineWeights ticked on"}));
}

TEST_F(PageSetupRules, UntickingTheSwitchAsksForTheStoredRecordAndTurnsTheControlsOff)
{
    ASSERT_TRUE(Fill());
    user.Choose("cmbPaperSize", "ISO A0 (841.00 x 1189.00 MM)");
    user.Click("optDisplay");
    int asked = 0;
    gui.OnPageSetupSwitchedOff = [&] {
        ++asked;
        selection = SelectionOf(false, selection);
        Fill();
    };
    user.Tick("chkPageSetup", false);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(selection, 0);
    EXPECT_EQ(Shown({"cmbPaperSize", "optDisplay", "optExtents", "txtScaleDenom", "btnWindowPoints"}),
              (Texts{"cmbPaperSize 'ANSI A (11.00 x 8.50 Inches)' off face", "optDisplay unticked off",
                     "optExtents ticked off", "txtScaleDenom '' off face", "btnWindowPoints 'Window >' off"}));
    gui.OnPageSetupSwitchedOff = nullptr;
    user.Tick("chkPageSetup", true);
    user.Tick("chkPageSetup", false);
    EXPECT_FALSE(user.IsEnabled("cmbPaperSize"));
}

TEST_F(PageSetupRules, OnlyTheCustomSelectionIsTakenAway)
{
    const struct {
        bool custom;
        std::int32_t before, after;
    } rows[] = {{true, 0, 1}, {true, 1, 1}, {true, 2, 1}, {false, 0, 0}, {false, 1, 0}, {false, 2, 2}, {false, 7, 7}};
    for (const auto& row : rows)
        EXPECT_EQ(SelectionOf(row.custom, row.before), row.after) << row.before;
}

TEST_F(PageSetupRules, LayoutIsNeverCentred)
{
    record.PlotOriginX = 25.4;
    record.PlotOriginY = 50.8;
    ASSERT_TRUE(Fill());
    user.Click("optLayout");
    EXPECT_EQ(
        Shown({"chkCenterThePlot", "txtPlotOffsetX", "txtPlotOffsetY"}),
        (Texts{"chkCenterThePlot unticked off", "txtPlotOffsetX '1.00' on window", "txtPlotOffsetY '2.00' on window"}));
    user.TypeAndLeave("txtPlotOffsetX", "7");
    for (const char* option : {"optDisplay", "optExtents"}) {
        user.Click("optLayout");
        EXPECT_EQ(user.Text("txtPlotOffsetX"), "7.00") << "what was typed stays";
        user.Click(option);
        EXPECT_EQ(Shown({"chkCenterThePlot"}), (Texts{"chkCenterThePlot unticked on"})) << option;
    }
}

TEST_F(PageSetupRules, EveryOtherPlotAreaMayBeCentred)
{
    drawing->Views = {{"Plan", {}, 1, 1}};
    record.PlotType = 5;
    record.WinUpperRightX = record.WinUpperRightY = 3;
    for (const char* option : {"optDisplay", "optExtents", "optView", "optWindow"}) {
        ASSERT_TRUE(Fill());
        EXPECT_FALSE(user.IsEnabled("chkCenterThePlot"));
        user.Click(option);
        EXPECT_TRUE(user.IsEnabled("chkCenterThePlot")) << option;
        EXPECT_EQ(user.Ticked({"optDisplay", "optExtents", "optLayout", "optView", "optWindow"}), (Texts{option}));
    }
}

TEST_F(PageSetupRules, CenteringKeepsTheOffsets)
{
    record.CenterPlot = 0;
    ASSERT_TRUE(Fill());
    user.TypeAndLeave("txtPlotOffsetX", "1.5");
    user.TypeAndLeave("txtPlotOffsetY", "-2");
    user.Tick("chkCenterThePlot", true);
    EXPECT_EQ(Shown({"txtPlotOffsetX", "txtPlotOffsetY"}),
              (Texts{"txtPlotOffsetX '' off face", "txtPlotOffsetY '' off face"}));
    EXPECT_EQ(gui.PageSetup().PlotOffsetX, 1.5);
    EXPECT_EQ(gui.PageSetup().PlotOffsetY, -2);
    gui.PDFPageSetupOn();
    EXPECT_EQ(gui.PageSetup().PlotOffsetX, 1.5) << "blank boxes don't overwrite what is kept";
    user.Tick("chkCenterThePlot", false);
    EXPECT_EQ(Shown({"txtPlotOffsetX", "txtPlotOffsetY"}),
              (Texts{"txtPlotOffsetX '1.50' on window", "txtPlotOffsetY '-2.00' on window"}));
}

TEST_F(PageSetupRules, KeptOffsetsFollowTheUnitsWhileCentred)
{
    record.PlotOriginX = 25.4;
    ASSERT_TRUE(Fill());
    user.Choose("cmbPaperUnits", "Millimeters");
    EXPECT_EQ(user.Text("txtPlotOffsetX"), "");
    user.Tick("chkCenterThePlot", false);
    EXPECT_EQ(user.Text("txtPlotOffsetX"), "25.4");
    user.Tick("chkCenterThePlot", true);
    user.Choose("cmbPaperUnits", "Inches");
    user.Tick("chkCenterThePlot", false);
    EXPECT_EQ(user.Text("txtPlotOffsetX"), "1.00");
}

TEST_F(PageSetupRules, AStandardScaleBlanksTheCustomOne)
{
    record.UseStandardScale = 0;
    record.CenterPlot = 0;
    record.ScaleNumer = 0.5;
    record.ScaleDenom = 48;
    ASSERT_TRUE(Fill());
    EXPECT_EQ(Shown({"txtScaleNumer", "txtScaleDenom"}),
              (Texts{"txtScaleNumer '0.5' on window", "txtScaleDenom '48' on window"}));
    user.Type("txtPlotOffsetX", "1.234");
    user.Type("txtPlotOffsetY", "");
    user.Choose("cmbScale", "1:2");
    EXPECT_EQ(Shown({"txtScaleNumer", "txtScaleDenom", "txtPlotOffsetX", "txtPlotOffsetY"}),
              (Texts{"txtScaleNumer '' off face", "txtScaleDenom '' off face", "txtPlotOffsetX '1.23' on window",
                     "txtPlotOffsetY '' on window"}));
}

TEST_F(PageSetupRules, CustomShowsWhatWasLoadedNotWhatWasTyped)
{
    record.UseStandardScale = 0;
    record.ScaleNumer = 2;
    record.ScaleDenom = 3;
    ASSERT_TRUE(Fill());
    user.TypeAndLeave("txtScaleNumer", "9");
    user.TypeAndLeave("txtScaleDenom", "8");
    user.Choose("cmbScale", "100:1");
    user.Choose("cmbPaperUnits", "Millimeters");
    user.Choose("cmbScale", "Custom");
    EXPECT_EQ(Shown({"txtScaleNumer", "txtScaleDenom"}),
              (Texts{"txtScaleNumer '50.8' on window", "txtScaleDenom '3' on window"}))
        << "the numerator is a length on paper, the denominator isn't";
}

TEST_F(PageSetupRules, UnitsThereAndBackGiveTheFormerOffsets)
{
    record.CenterPlot = 0;
    record.UseStandardScale = 0;
    ASSERT_TRUE(Fill());
    user.TypeAndLeave("txtPlotOffsetX", "1.25");
    user.TypeAndLeave("txtPlotOffsetY", "-0.33");
    user.Choose("cmbPaperUnits", "Millimeters");
    EXPECT_EQ(
        Shown({"txtScaleNumer", "txtPlotOffsetX", "txtPlotOffsetY", "lblXUnits", "lblYUnits", "lblScaleUnits"}),
        (Texts{"txtScaleNumer '25.4' on window", "txtPlotOffsetX '31.75' on window",
               "txtPlotOffsetY '-8.382' on window", "lblXUnits 'mm' on", "lblYUnits 'mm' on", "lblScaleUnits 'mm' on"}))
        << "converted texts are formatted at the next change of focus only";
    user.Choose("cmbPaperUnits", "Millimeters");
    EXPECT_EQ(user.Text("txtPlotOffsetX"), "31.75") << "nothing to convert";
    user.Choose("cmbPaperUnits", "Inches");
    EXPECT_EQ(Shown({"txtScaleNumer", "txtScaleDenom", "txtPlotOffsetX", "txtPlotOffsetY", "lblXUnits"}),
              (Texts{"txtScaleNumer '1' on window", "txtScaleDenom '1' on window", "txtPlotOffsetX '1.25' on window",
                     "txtPlotOffsetY '-0.33' on window", "lblXUnits 'Inches' on"}));
}

TEST_F(PageSetupRules, EmptyBoxesStayEmptyWhenTheUnitsChange)
{
    record.CenterPlot = 0;
    ASSERT_TRUE(Fill());
    user.Type("txtPlotOffsetX", "");
    user.Choose("cmbPaperUnits", "Millimeters");
    EXPECT_EQ(user.Text("txtPlotOffsetX"), "");
    EXPECT_EQ(user.Text("txtScaleNumer"), "");
}

TEST_F(PageSetupRules, NumbersAreFormattedOnLeavingAndOnEnter)
{
    record.CenterPlot = 0;
    record.UseStandardScale = 0;
    ASSERT_TRUE(Fill());
    for (const char* box : {"txtScaleNumer", "txtScaleDenom", "txtPlotOffsetX", "txtPlotOffsetY"}) {
        user.TypeAndLeave(box, "1.236");
        EXPECT_EQ(user.Text(box), "1.24") << box;
        user.Type(box, "x");
        EXPECT_TRUE(user.Enter(box));
        EXPECT_EQ(user.Text(box), "0.00") << box;
    }
}

TEST_F(PageSetupRules, NoPlotStyleClearsPlottingWithStyles)
{
    ASSERT_TRUE(Fill());
    user.Choose("cmbPlotStyle", "Florida.ctb");
    EXPECT_EQ(Shown({"chkPlotStyles", "chkPlotLineWeights"}),
              (Texts{"chkPlotStyles ticked on", "chkPlotLineWeights ticked on"}));
    user.Choose("cmbPlotStyle", "None");
    EXPECT_EQ(Shown({"chkPlotStyles", "chkPlotLineWeights"}),
              (Texts{"chkPlotStyles unticked on", "chkPlotLineWeights ticked off"}));
    user.Tick("chkPlotStyles", true);
    EXPECT_EQ(Shown({"chkPlotStyles", "chkPlotLineWeights"}),
              (Texts{"chkPlotStyles ticked on", "chkPlotLineWeights ticked on"}));
    user.Tick("chkPlotStyles", false);
    EXPECT_FALSE(user.IsEnabled("chkPlotLineWeights"));
}

TEST_F(PageSetupRules, TheOrientationFollowsThePaper)
{
    ASSERT_TRUE(Fill());
    user.Choose("cmbPaperSize", "ISO A0 (841.00 x 1189.00 MM)");
    EXPECT_EQ(user.Ticked({"optPortrait", "optLandscape"}), (Texts{"optPortrait"}));
    user.Choose("cmbPaperSize", "ISO A0 (1189.00 x 841.00 MM)");
    EXPECT_EQ(user.Ticked({"optPortrait", "optLandscape"}), (Texts{"optLandscape"}));
}

TEST_F(PageSetupRules, ThePaperFollowsTheOrientation)
{
    ASSERT_TRUE(Fill());
    for (std::size_t row = 0; row < 28; row += 2) {
        const Texts pair = {user.Items("cmbPaperSize")[row], user.Items("cmbPaperSize")[row + 1]};
        user.Choose("cmbPaperSize", pair[0]);
        const bool portraitFirst = user.IsTicked("optPortrait");
        user.Click(portraitFirst ? "optPortrait" : "optLandscape");
        EXPECT_EQ(user.Text("cmbPaperSize"), pair[0]);
        user.Click(portraitFirst ? "optLandscape" : "optPortrait");
        EXPECT_EQ(user.Text("cmbPaperSize"), pair[1]);
        user.Click(portraitFirst ? "optPortrait" : "optLandscape");
        EXPECT_EQ(user.Text("cmbPaperSize"), pair[0]);
    }
}

TEST_F(PageSetupRules, APaperWithoutATurnedTwinStays)
{
    papers = {{"Wide", "WIDE", 300, 100}, {"Square", "SQUARE", 100, 100}, {"Tall", "TALL", 100, 200}};
    ASSERT_TRUE(Fill());
    for (const char* paper : {"Wide", "Tall"}) {
        user.Choose("cmbPaperSize", paper);
        const Texts before = user.Ticked({"optPortrait", "optLandscape"});
        user.Click(before.front() == "optPortrait" ? "optLandscape" : "optPortrait");
        EXPECT_EQ(user.Text("cmbPaperSize"), paper);
        EXPECT_EQ(user.Ticked({"optPortrait", "optLandscape"}), before);
    }
    user.Choose("cmbPaperSize", "Square");
    EXPECT_TRUE(user.IsTicked("optPortrait"));
    user.Click("optLandscape");
    EXPECT_EQ(user.Text("cmbPaperSize"), "Square");
}

TEST_F(PageSetupRules, APickedWindowIsChosenWithItsOption)
{
    record.PlotType = 5;
    ASSERT_TRUE(Fill());
    gui.PageSetup().ChoosePlotWindow();
    EXPECT_EQ(Shown({"optLayout", "optWindow", "chkCenterThePlot"}),
              (Texts{"optLayout unticked on", "optWindow ticked on", "chkCenterThePlot unticked on"}));
}

} // namespace
} // namespace sm
