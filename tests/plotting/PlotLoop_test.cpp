// SPDX-License-Identifier: GPL-3.0-or-later
// Which layout is plotted with which record, and what ends the call before the plot.
#include "plotting/PlotLoopHouse.h"

#include <algorithm>

namespace sm {
namespace {

TEST_F(PlotLoopTest, AConvertedSheetIsZero)
{
    EXPECT_EQ(Plot(kFalse), 0);
    EXPECT_EQ(Milestones(), (Lines{"USE NATIVE PAGE SETUP FOR GROUND", "RESET PAGE SETUP"}));
    EXPECT_EQ(PubDocCalls(),
              (Lines{"PubDoc.NewPsFileName",
                     "PubDoc.AddPsFile C:\\Temp\\sheet1.ps | 1190.5511811023623 | 841.8897637795276 | 1200 | 1 | ",
                     "PubDoc.PendingMarkCount"}));
    EXPECT_EQ(host.tape.CallsOf("Plot."), (Lines{"Plot.SetQuietErrorMode 1", "Plot.PlotToFile C:\\Temp\\sheet1.ps"}));
    ExpectLayoutRestored();
}

TEST_F(PlotLoopTest, ALetterSheetIs792By612Points)
{
    ground->PaperWidth = 279.4;
    ground->PaperHeight = 215.9;
    EXPECT_EQ(Plot(), 0);
    EXPECT_EQ(library.tape.CallsOf("PubDoc.AddPsFile"),
              (Lines{"PubDoc.AddPsFile C:\\Temp\\sheet1.ps | 792 | 612 | 1200 | 1 | "}));
    (void)Log();
}

TEST_F(PlotLoopTest, WithoutADriverNothingIsTouched)
{
    UseDriver("");
    EXPECT_EQ(Plot(kTrue), -11);
    EXPECT_EQ(Log(), (Lines{"  OK: Plotter Already Reset", "ERROR: PlotLayoutToPubDoc -11"}));
    EXPECT_EQ(PubDocCalls(), Lines{});
    EXPECT_EQ(host.tape.CallsOf("Layout"), Lines{});
}

TEST_F(PlotLoopTest, TheMarkersStandForTheActiveLayout)
{
    for (const char* name : {"*current tab*", "*CURRENT TAB*", "*Current Tab*"}) {
        drawing->ActiveLayout = upper;
        EXPECT_EQ(Plot(kTrue, 0, name), 0);
        EXPECT_EQ(Milestones().front(), "USE NATIVE PAGE SETUP FOR UPPER");
        EXPECT_EQ(drawing->ActiveLayout, upper);
    }
    EXPECT_EQ(host.tape.CallsOf("Document.SetActive"), Lines{});
}

TEST_F(PlotLoopTest, TheLastActiveLayoutTabLeavesTheModelTab)
{
    drawing->ActiveLayout = model;
    drawing->LastActivePaperSheet = upper;
    EXPECT_EQ(Plot(kTrue, 0, "*Last Active Layout Tab*"), 0);
    EXPECT_EQ(host.tape.CallsOf("Document.SetActiveSpace"), (Lines{"Document.SetActiveSpace 0"}));
    EXPECT_EQ(Milestones().front(), "USE NATIVE PAGE SETUP FOR UPPER");
}

TEST_F(PlotLoopTest, TheNamesThatStandForALayoutFoldInEveryLocale)
{
    locale.turkish = true;
    drawing->LastActivePaperSheet = upper;
    for (const char* name : {"*LAST ACTIVE LAYOUT TAB*", "*last active layout tab*"}) {
        drawing->ActiveLayout = model;
        EXPECT_EQ(Plot(kTrue, 0, name), 0) << name;
        EXPECT_EQ(drawing->ActiveLayout, upper) << name;
    }
    (void)Log();
}

TEST_F(PlotLoopTest, ALayoutThatIsNotThereIsRefused)
{
    for (const char* call : {"Document.Layouts", "Layouts.Item"}) {
        host.tape.StopFailing();
        host.tape.AnswerNothing(call);
        EXPECT_EQ(Plot(kTrue), -13) << call;
    }
    EXPECT_EQ(Log().back(), "ERROR: PlotLayoutToPubDoc -13");
}

TEST_F(PlotLoopTest, AnUnknownLayoutIsRefusedInSilence)
{
    for (const char* name : {"Roof", ""}) {
        EXPECT_EQ(Plot(kFalse, 0, name), -13);
        EXPECT_EQ(Log(), (Lines{"  OK: Plotter Already Reset", "ERROR: PlotLayoutToPubDoc -13"}));
    }
    EXPECT_EQ(drawing->ActiveLayout, ground);
    EXPECT_EQ(PubDocCalls(), Lines{});
}

TEST_F(PlotLoopTest, ALayoutThatCannotBeMadeActiveIsNotPlotted)
{
    host.tape.FailCall("Document.SetActiveLayout", "command in progress");
    EXPECT_EQ(Plot(kFalse, 0, "Upper"), -13);
    EXPECT_EQ(Milestones(), (Lines{"ERROR: PlotLayoutToPubDoc -13"}));
}

TEST_F(PlotLoopTest, ThePlottedLayoutStaysActive)
{
    EXPECT_EQ(Plot(kTrue, 0, "upper"), 0);
    EXPECT_EQ(drawing->ActiveLayout, upper);
    EXPECT_EQ(Milestones().front(), "USE NATIVE PAGE SETUP FOR UPPER");
}

TEST_F(PlotLoopTest, AnUnreadableLayoutEndsANativePlot)
{
    host.tape.FailCall("Layout.ConfigName", "not initialised");
    EXPECT_EQ(Plot(kTrue, 0), -5);
    EXPECT_EQ(Log(), (Lines{"  OK: Plotter Already Reset", "ERROR: PlotLayoutToPubDoc -5"}));
}

TEST_F(PlotLoopTest, AnUnreadableLayoutWithoutCustomRecordIsMinusFive)
{
    host.tape.FailCall("Layout.ConfigName", "not initialised");
    EXPECT_EQ(Plot(kTrue, 1), -5);
    EXPECT_EQ(Milestones(), (Lines{"ERROR: PlotLayoutToPubDoc -5"}));
}

TEST_F(PlotLoopTest, AnUnknownSourceNeedsTheLayoutsSettings)
{
    EXPECT_EQ(Plot(kTrue, 9), 0);
    EXPECT_EQ(Milestones().front(), "USE  PAGE SETUP FOR GROUND");
    host.tape.FailCall("Layout.ConfigName", "not initialised");
    EXPECT_EQ(Plot(kTrue, 9), -5);
    EXPECT_EQ(Milestones(), (Lines{"ERROR: PlotLayoutToPubDoc -5"}));
}

TEST_F(PlotLoopTest, ACustomRecordIsPlottedAndTheLayoutPutBack)
{
    StoreCustomSetup();
    EXPECT_EQ(Plot(kTrue, 1), 0);
    EXPECT_EQ(Milestones().front(), "USE CUSTOM PAGE SETUP FOR GROUND");
    EXPECT_EQ(host.tape.CallsOf("Layout(Ground).SetCanonicalMediaName"),
              (Lines{"Layout(Ground).SetCanonicalMediaName ISO_A4_(210.00_x_297.00_MM)",
                     "Layout(Ground).SetCanonicalMediaName A3"}));
    ExpectLayoutRestored();
}

TEST_F(PlotLoopTest, ACustomRecordStandsInForAnUnreadableLayout)
{
    StoreCustomSetup();
    host.tape.FailCall("Layout.ConfigName", "not initialised");
    EXPECT_EQ(Plot(kTrue, 1), 0);
    // The record's own plotter isn't in the list, so the restore ends at the medium that "None" doesn't offer.
    EXPECT_EQ(host.tape.CallsOf("Layout(Ground).SetConfigName"),
              (Lines{"Layout(Ground).SetConfigName Tarnwick PS8 HighRes.pc3", "Layout(Ground).SetConfigName None"}));
    (void)Log();
}

TEST_F(PlotLoopTest, WithoutACustomRecordTheLayoutsOwnSettingsArePlotted)
{
    const struct {
        const char* name;
        AcadXData data;
    } rows[] = {
        {"none", {}},
        {"wrong length", {{1001, 1000}, {std::string("TWSI_Plots"), std::string("ISO_A4_(210.00_x_297.00_MM)")}}}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        drawing->XData.clear();
        if (!row.data.codes.empty())
            drawing->XData["TWSI_Plots"] = row.data;
        EXPECT_EQ(Plot(kTrue, 1), 0);
        EXPECT_EQ(Milestones().front(), "USE CUSTOM PAGE SETUP FOR GROUND");
        EXPECT_EQ(host.tape.CallsOf("Layout(Ground).SetCanonicalMediaName").front(),
                  "Layout(Ground).SetCanonicalMediaName ISO_A3_(420.00_x_297.00_MM)");
        host.tape.calls.clear();
    }
}

TEST_F(PlotLoopTest, TheGlobalRecordHasItsDefaults)
{
    EXPECT_EQ(Plot(kTrue, 2), 0);
    const Lines lines = Log();
    EXPECT_EQ(lines.front(), "USE GLOBAL PAGE SETUP FOR GROUND");
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "  CanonicalMediaName: ANSI_A_(11.00_x_8.50_Inches)"), 1);
    ExpectLayoutRestored();
}

TEST_F(PlotLoopTest, WithoutThePlotterFolderThePlotEnds)
{
    files.Remove(kPc3Folder);
    EXPECT_EQ(Plot(kTrue), -7);
    EXPECT_EQ(Log(), (Lines{"USE NATIVE PAGE SETUP FOR GROUND", "  Original Profile Name: Unnamed Profile",
                            "  Original PrinterConfigPath: C:\\Users\\me\\Plotters",
                            "  Set PrinterConfigPath To: C:\\Program Files\\Tarnwick\\PC3",
                            "  ERROR: Plotter Folder does not exist.",
                            "  Reset PrinterConfigPath To: C:\\Users\\me\\Plotters", "ERROR: PlotLayoutToPubDoc -7"}));
}

TEST_F(PlotLoopTest, AnUnmatchedSheetIsPickedEvenInSilence)
{
    ground->PaperWidth = 1000;
    ground->PaperHeight = 500;
    windows.pageSizesPicked = {26, std::nullopt};
    EXPECT_EQ(Plot(kTrue), 0);
    EXPECT_EQ(host.tape.CallsOf("Layout(Ground).SetCanonicalMediaName").front(),
              "Layout(Ground).SetCanonicalMediaName ISO_A4_(210.00_x_297.00_MM)");
    EXPECT_EQ(desktop.beeps, 1);
    ground->PaperWidth = 1000;
    ground->PaperHeight = 500;
    EXPECT_EQ(Plot(kTrue), -1);
    EXPECT_EQ(windows.calls.size(), 2U);
    EXPECT_EQ(Milestones(), (Lines{"USE NATIVE PAGE SETUP FOR GROUND", "RESET PAGE SETUP",
                                   "USE NATIVE PAGE SETUP FOR GROUND", "RESET PAGE SETUP"}));
    ExpectLayoutRestored();
}

TEST_F(PlotLoopTest, ThePlotConfigurationsStatusDecides)
{
    const struct {
        const char* name;
        const char* failing;
        std::int32_t status;
    } rows[] = {{"plotter", "Layout.SetConfigName", -8}, {"unexpected", "Layout.SetPlotHidden", -2}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        host.tape.StopFailing();
        host.tape.FailCall(row.failing, "Invalid input", 1);
        EXPECT_EQ(Plot(kTrue), row.status);
        EXPECT_EQ(Log().back(), "  Reset PrinterConfigPath To: C:\\Users\\me\\Plotters");
        ExpectLayoutRestored();
    }
}

TEST_F(PlotLoopTest, ACancelledStylePickerCancelsThePlotAndAFailingOneIsMinusTwo)
{
    ground->StyleSheet = "gone.ctb";
    windows.stylesPicked = {std::nullopt, 0, -1, 0};
    EXPECT_EQ(Plot(kFalse), -1);
    ground->StyleSheet = "gone.ctb";
    EXPECT_EQ(Plot(kFalse), -2);
    EXPECT_EQ(Milestones().size(), 4U);
}

TEST_F(PlotLoopTest, AMissingStyleInSilenceGoesOn)
{
    ground->StyleSheet = "gone.ctb";
    EXPECT_EQ(Plot(kTrue), 0);
    (void)Log();
}

} // namespace
} // namespace sm
