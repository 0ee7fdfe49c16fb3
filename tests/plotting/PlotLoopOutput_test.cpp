// SPDX-License-Identifier: GPL-3.0-or-later
// The plot, the page in the publishing document and its annotations.
#include "plotting/PlotLoopHouse.h"

namespace sm {
namespace {

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
    EXPECT_EQ(windows.calls, (Lines{"PickJobOptions [Graphics [600 dpi], Proof]",
                                    "PickJobOptions [Graphics [600 dpi], Proof]", "RunProgress"}));
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
    PutMarks(ground, 1);
    PutSetting("TransferDrawingHlinks", "0");
    PutSetting("TransferBlockHlinks", "1");
    PutSetting("TransferAttributes", "1");
    drawing->Blocks.push_back({"TITLE", {}});
    ground->Block.Entities.push_back({"AcDbBlockReference",
                                      {1, 2, 0},
                                      {3, 4, 0},
                                      {{"https://block.example", ""}},
                                      BlockReferenceFacts{"TITLE", {}, {{"DWG-NO", "7"}, {"REV", "A"}}, {}}});
    EXPECT_EQ(Plot(kTrue), 0);
    EXPECT_EQ(windows.calls, Lines{});
    EXPECT_EQ(observer.events.back(), "sheet ends Ground 0 marks 3");
    EXPECT_EQ(Plot(kFalse), 0);
    EXPECT_EQ(windows.calls, Lines{"RunProgress"});
    EXPECT_EQ(library.tape.CallsOf("PubDoc.AddLinkMark").size(), 2U);
    EXPECT_EQ(library.tape.CallsOf("PubDoc.AddPropertyMark"),
              (Lines{"PubDoc.AddPropertyMark 0 | TITLE_1/DWG-NO | 7", "PubDoc.AddPropertyMark 0 | TITLE_1/REV | A",
                     "PubDoc.AddPropertyMark 0 | TITLE_2/DWG-NO | 7", "PubDoc.AddPropertyMark 0 | TITLE_2/REV | A"}));
    EXPECT_EQ(observer.annotationsLost, Lines{});
    (void)Log();
}

TEST_F(PlotLoopTest, AFailingAnnotationPassDoesNotUndoTheSheet)
{
    PutMarks(ground, 2);
    library.tape.FailCall("PubDoc.AddLinkMark", "Queue full", -1, 1);
    EXPECT_EQ(Plot(kTrue), 0);
    EXPECT_EQ(Milestones(),
              (Lines{"USE NATIVE PAGE SETUP FOR GROUND", "ADDPDFMARK RUNTIME ERROR: Queue full", "RESET PAGE SETUP"}));
    EXPECT_EQ(observer.annotationsLost, Lines{"Queue full"});
    EXPECT_EQ(observer.events.back(), "sheet ends Ground 0 marks 1");
    ExpectLayoutRestored();
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
    PutMarks(ground, 2);
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
