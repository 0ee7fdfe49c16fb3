// Status codes, exits and order of the plot of one layout.
#include "doubles/TestHouse.h"
#include "plotting/mdlAcadPrinting.h"

#include <algorithm>

namespace sm {
namespace {

class PlotLoopTest : public TestHouse {
protected:
    PlotLoopTest()
    {
        BeginCall();
        pubDoc = library.CreatePubDoc();
        library.tape.calls.clear();
    }
    std::int32_t Plot(VariantBool silent = kTrue, std::int32_t source = 0, const std::string& layout = "Ground",
                      const std::string& jobOptions = "")
    {
        return PlotLayoutToPubDoc(context, *pubDoc, layout, silent, source, 1200, jobOptions);
    }
    /// The log without the trace of the plot configuration and the plotter folder.
    Lines Milestones()
    {
        Lines lines;
        for (const std::string& line : Log()) {
            if (line.front() != ' ')
                lines.push_back(line);
        }
        return lines;
    }
    [[nodiscard]] Lines PubDocCalls() const { return library.tape.CallsOf("PubDoc."); }
    /// Put back on the normal exit only.
    void ExpectLayoutRestored()
    {
        EXPECT_EQ(ground->ConfigName, "\\\\server\\plotter");
        EXPECT_EQ(ground->CanonicalMediaName, "A3");
        EXPECT_EQ(host.facts.PrinterConfigPath, kUsersPlotters);
        EXPECT_EQ(PendingFolder(), "");
    }
    /// A "Plots" record of 27 values with an ISO A4 sheet.
    void StoreCustomSetup()
    {
        AcadXData data{{1001}, {std::string("TWSI_Plots")}};
        for (const char* text : {"",    "ISO_A4_(210.00_x_297.00_MM)",
                                 "210", "297",
                                 "0",   "1",
                                 "1",   "0",
                                 "0",   "1",
                                 "0",   "1",
                                 "1",   "1",
                                 "1",   "",
                                 "1",   "0",
                                 "1",   "1",
                                 "0",   "0",
                                 "0",   "0",
                                 "0",   "0",
                                 ""}) {
            data.codes.push_back(1000);
            data.values.emplace_back(std::string(text));
        }
        drawing->XData["TWSI_Plots"] = data;
    }
    std::shared_ptr<IPubDoc> pubDoc;
};

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

TEST_F(PlotLoopTest, AFailedPlotIsMinusOneAndPutsEverythingBack)
{
    const struct {
        const char* name;
        const char* failing;
    } rows[] = {{"refused", nullptr},
                {"plot raises", "Plot.PlotToFile"},
                {"quiet mode raises", "Plot.SetQuietErrorMode"},
                {"no plot object", "Document.Plot"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        host.tape.StopFailing();
        drawing->PlotResult = row.failing != nullptr;
        if (row.failing != nullptr)
            host.tape.FailCall(row.failing, "no printer");
        EXPECT_EQ(Plot(kFalse), -1);
        EXPECT_EQ(Milestones(), (Lines{"USE NATIVE PAGE SETUP FOR GROUND", "RESET PAGE SETUP"}));
        ExpectLayoutRestored();
    }
    EXPECT_EQ(library.tape.CallsOf("PubDoc.AddPsFile"), Lines{});
}

TEST_F(PlotLoopTest, WithoutAFileNameNothingIsPlotted)
{
    library.tape.FailCall("PubDoc.NewPsFileName", "no folder");
    EXPECT_EQ(Plot(kFalse), -1);
    EXPECT_EQ(host.tape.CallsOf("Plot."), Lines{});
    (void)Log();
}

TEST_F(PlotLoopTest, ASheetOfUnreadableSizeTakesTheMatchedMedium)
{
    host.tape.FailCall("Layout.GetPaperSize", "busy", 1, 2); // after the record and the media step
    EXPECT_EQ(Plot(kTrue, 2), 0);
    (void)Log();
    EXPECT_EQ(library.tape.CallsOf("PubDoc.AddPsFile"),
              (Lines{"PubDoc.AddPsFile C:\\Temp\\sheet1.ps | 792 | 612 | 1200 | 1 | "}));
}

TEST_F(PlotLoopTest, JobOptionsAreGivenByPath)
{
    EXPECT_EQ(Plot(kTrue, 0, "Ground", "Proof"), 0);
    EXPECT_EQ(library.tape.CallsOf("PubDoc.AddPsFile").front(),
              "PubDoc.AddPsFile C:\\Temp\\sheet1.ps | 1190.5511811023623 | 841.8897637795276 | 1200 | 1 | "
              "C:\\Program Files\\Tarnwick\\Settings\\Proof.joboptions");
    (void)Log();
}

TEST_F(PlotLoopTest, UnusableJobOptionsArePickedUntilTheyServe)
{
    library.addPsFileCodes = {-4, -4, 0};
    windows.jobOptionsPicked = {1, 0};
    EXPECT_EQ(Plot(kFalse, 0, "Ground", "gone"), 0);
    const Lines calls = library.tape.CallsOf("PubDoc.AddPsFile");
    ASSERT_EQ(calls.size(), 3U);
    EXPECT_NE(calls[0].find("\\Settings\\gone.joboptions"), std::string::npos);
    EXPECT_NE(calls[1].find("\\Settings\\Proof.joboptions"), std::string::npos);
    EXPECT_NE(calls[2].find("\\Settings\\Graphics [600 dpi].joboptions"), std::string::npos);
    EXPECT_EQ(windows.calls,
              (Lines{"PickJobOptions [Graphics [600 dpi], Proof]", "PickJobOptions [Graphics [600 dpi], Proof]"}));
    EXPECT_EQ(Setting("JobOptionsFile"), "Graphics [600 dpi]");
    (void)Log();
}

TEST_F(PlotLoopTest, EachChoiceOfJobOptionsIsStored)
{
    library.addPsFileCodes = {-4, -4};
    windows.jobOptionsPicked = {1, std::nullopt};
    EXPECT_EQ(Plot(kFalse, 0, "Ground", "gone"), -1);
    EXPECT_EQ(Setting("JobOptionsFile"), "Proof");
    EXPECT_EQ(Milestones(), (Lines{"USE NATIVE PAGE SETUP FOR GROUND", "RESET PAGE SETUP"}));
    ExpectLayoutRestored();
}

TEST_F(PlotLoopTest, ARefusedFileEndsASilentPlotAtOnce)
{
    for (const std::int32_t code : {-4, -9, 3}) {
        library.addPsFileCodes = {code};
        EXPECT_EQ(Plot(kTrue), -12);
        EXPECT_EQ(Milestones(), (Lines{"USE NATIVE PAGE SETUP FOR GROUND",
                                       "ERROR: FAILED TO ADD PS TO PUB DOC = " + std::to_string(code),
                                       "ERROR: PlotLayoutToPubDoc -12"}));
        EXPECT_EQ(host.facts.PrinterConfigPath, kUsersPlotters);
        EXPECT_EQ(ground->ConfigName, "Tarnwick PS8 HighRes.pc3") << "the short exit leaves the layout configured";
        ground->ConfigName = "\\\\server\\plotter";
    }
    EXPECT_EQ(windows.calls, Lines{});
}

TEST_F(PlotLoopTest, AnAddThatNeverAnswersIsARefusal)
{
    library.tape.FailCall("PubDoc.AddPsFile", "server gone");
    EXPECT_EQ(Plot(kTrue), -12);
    EXPECT_EQ(Milestones()[1], "ERROR: FAILED TO ADD PS TO PUB DOC = -1");
}

TEST_F(PlotLoopTest, AnnotationsGetTheSwitchesAndTheSilence)
{
    PutSetting("TransferBlockHlinks", "1");
    PutSetting("TransferAttributes", "1");
    annotations.marksToQueue = 3;
    annotations.result = false; // its failure doesn't undo the sheet
    EXPECT_EQ(Plot(kTrue), 0);
    EXPECT_EQ(Plot(kFalse), 0);
    ASSERT_EQ(annotations.passes.size(), 2U);
    EXPECT_EQ(annotations.passes[0].transfer, (TransferFlags{kFalse, kFalse, kTrue, kFalse, kTrue}));
    EXPECT_TRUE(annotations.passes[0].quiet);
    EXPECT_FALSE(annotations.passes[1].quiet);
    EXPECT_EQ(observer.events.back(), "sheet ends Ground 0 marks 3");
    (void)Log();
}

TEST_F(PlotLoopTest, ADisplayPlotWithoutMarksAsksNothing)
{
    ground->PlotType = 0;
    EXPECT_EQ(Plot(kFalse), 0);
    EXPECT_EQ(library.tape.CallsOf("PubDoc.DiscardPendingMarks"), Lines{});
    (void)Log();
}

TEST_F(PlotLoopTest, ADisplayPlotInSilenceDropsItsMarks)
{
    ground->PlotType = 0;
    annotations.marksToQueue = 2;
    EXPECT_EQ(Plot(kTrue), 1);
    EXPECT_EQ(library.tape.CallsOf("PubDoc.DiscardPendingMarks").size(), 1U);
    EXPECT_EQ(observer.events.back(), "sheet ends Ground 1 marks 0");
    ExpectLayoutRestored();
    (void)Log();
}

TEST_F(PlotLoopTest, ABrokenLogDoesNotStopThePlot)
{
    library.tape.FailCall("Log.WriteLogLine", "disk full");
    EXPECT_EQ(Plot(kFalse), 0);
    ExpectLayoutRestored();
}

} // namespace
} // namespace sm
