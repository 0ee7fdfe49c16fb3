// SPDX-License-Identifier: GPL-3.0-or-later
#include "plugin/ConvertToPdfDriver.h"

#include "doubles/TestHouse.h"

namespace sm {
namespace {

class ConversionDriver : public TestHouse {
protected:
    struct Options {
        std::int32_t whatToPlot = 0;
        VariantBool prompt = kFalse, openInViewer = kFalse, deletePs = kFalse;
        std::int32_t optimization = 0;
        std::string jobOptionsFile;
    };
    void Convert(const Options& options)
    {
        BeginCall();
        ConvertToPdfDriver(context, 5, options.whatToPlot, options.prompt, options.openInViewer, options.deletePs,
                           options.optimization, options.jobOptionsFile);
    }
    void Convert() { Convert(Options{}); }
    /// The milestones alone: lines from the first column.
    Lines Milestones() { return MilestonesOf(Log()); }
    [[nodiscard]] Lines Calls(const std::string& operation) const
    {
        return library.tape.CallsOf("PubDoc." + operation);
    }
    /// A third sheet.
    void AddRoof()
    {
        LayoutFacts roof = *upper;
        roof.Name = "Roof";
        roof.TabOrder = 3;
        drawing->AddLayout(roof);
    }
};

const char* const kUnknownError =
    "An unknown error occurred during Sheetmaker PDF execution. It is suggested that you send an email\r\nto Tarnwick "
    "Technical Support at support@tarnwick.example and attach the Log File that was created. \r\n\r\nWould you like to "
    "view the log file now?";

TEST_F(ConversionDriver, ASavedDrawingGoesBesideItselfWithoutADialog)
{
    Convert();
    EXPECT_EQ(Calls("PromptForPdfName"), Lines{});
    EXPECT_EQ(Calls("SaveToPdf"), (Lines{"PubDoc.SaveToPdf C:\\Jobs\\Plan.pdf | 5 | 0 | 0 | 0"}));
    EXPECT_EQ(Milestones(), (Lines{"PLUGIN STARTING PDF FILE: C:\\Jobs\\Plan.pdf", "USE NATIVE PAGE SETUP FOR GROUND",
                                   "RESET PAGE SETUP", "PDF FILE SAVED"}));
}

TEST_F(ConversionDriver, ANeverSavedDrawingAlwaysPromptsWithItsBaseName)
{
    drawing->Name = "Drawing1.dwg";
    drawing->FullName = "";
    for (const VariantBool prompt : {kFalse, kTrue}) {
        library.tape.calls.clear();
        Options options;
        options.prompt = prompt;
        Convert(options);
        EXPECT_EQ(Calls("PromptForPdfName"), (Lines{"PubDoc.PromptForPdfName Drawing1 | 4711 | AutoCAD"}));
        EXPECT_EQ(Calls("SaveToPdf"), (Lines{"PubDoc.SaveToPdf C:\\Out\\Chosen.pdf | 5 | 0 | 0 | 0"}));
    }
    (void)Log();
}

TEST_F(ConversionDriver, APromptOffersTheDrawingsFullPath)
{
    Options options;
    options.prompt = kTrue;
    Convert(options);
    EXPECT_EQ(Calls("PromptForPdfName"), (Lines{"PubDoc.PromptForPdfName C:\\Jobs\\Plan.dwg | 4711 | AutoCAD"}));
    EXPECT_EQ(Milestones().front(), "PLUGIN STARTING PDF FILE: C:\\Out\\Chosen.pdf");
}

TEST_F(ConversionDriver, ADotInAFolderNameCutsThePath)
{
    drawing->FullName = "C:\\Rev.B\\Plan";
    Convert();
    EXPECT_EQ(Calls("SaveToPdf"), (Lines{"PubDoc.SaveToPdf C:\\Rev.pdf | 5 | 0 | 0 | 0"}));
    (void)Log();
}

TEST_F(ConversionDriver, ACancelledDialogEndsInSilence)
{
    library.pdfNameChosen = "";
    Options options;
    options.prompt = kTrue;
    Convert(options);
    EXPECT_EQ(Log(), Lines{});
    EXPECT_EQ(library.tape.calls,
              (Lines{"Library.CreatePubDoc", "PubDoc.PromptForPdfName C:\\Jobs\\Plan.dwg | 4711 | AutoCAD"}));
    EXPECT_EQ(host.tape.CallsOf("Plot"), Lines{});
    EXPECT_EQ(library.documentsAlive, 0);
}

TEST_F(ConversionDriver, OptimizationChoosesTheResolution)
{
    const struct {
        std::int32_t optimization;
        const char* resolution;
        const char* pc3;
    } rows[] = {{0, "1200", "HighRes"}, {1, "600", "MidRes"}, {7, "600", "MidRes"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.optimization);
        Options options;
        options.optimization = row.optimization;
        Convert(options);
        EXPECT_EQ(Calls("AddPsFile"), (Lines{"PubDoc.AddPsFile C:\\Temp\\sheet1.ps | 1190.5511811023623 | "
                                             "841.8897637795276 | " +
                                             std::string(row.resolution) + " | 1 | "}));
        EXPECT_EQ(host.tape.CallsOf("Layout(Ground).SetConfigName").front(),
                  "Layout(Ground).SetConfigName Tarnwick PS8 " + std::string(row.pc3) + ".pc3");
        host.tape.calls.clear();
        (void)Log();
    }
}

TEST_F(ConversionDriver, AnyWhatToPlotButZeroMeansAllPaperLayouts)
{
    const struct {
        std::int32_t whatToPlot;
        std::size_t sheets;
    } rows[] = {{0, 1}, {1, 2}, {2, 2}, {-1, 2}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.whatToPlot);
        Options options;
        options.whatToPlot = row.whatToPlot;
        Convert(options);
        EXPECT_EQ(Calls("AddPsFile").size(), row.sheets);
        (void)Log();
    }
}

TEST_F(ConversionDriver, TheStoredPageSetupSourceIsUsed)
{
    drawing->XData["TWSI_PltSel"] = {{1001, 1000}, {std::string("TWSI_PltSel"), std::string("2")}};
    Convert();
    EXPECT_EQ(Milestones()[1], "USE GLOBAL PAGE SETUP FOR GROUND");
}

TEST_F(ConversionDriver, DocumentInformationComesBeforeTheSave)
{
    drawing->Name = "House.final.dwg";
    Options options;
    options.openInViewer = kTrue;
    options.deletePs = kTrue;
    Convert(options);
    const Lines calls = Calls("S");
    EXPECT_EQ(calls, (Lines{"PubDoc.SetDocSummary House.final | R. Draughtsman | 2026-03-14 15:09:26 | "
                            "2026-03-14 15:09:26",
                            "PubDoc.SetDocInfo Creator | Tarnwick Sheetmaker PDF 3.0",
                            "PubDoc.SaveToPdf C:\\Jobs\\Plan.pdf | 5 | 1 | 1 | 0"}));
    (void)Log();
}

TEST_F(ConversionDriver, AFailingDocSummaryDoesNotStopTheSave)
{
    library.tape.FailCall("PubDoc.SetDocSummary", "no dates");
    library.tape.FailCall("PubDoc.SetDocInfo", "no keys");
    Convert();
    EXPECT_EQ(Calls("SaveToPdf").size(), 1U);
    EXPECT_EQ(Milestones().back(), "PDF FILE SAVED");
    EXPECT_EQ(observer.carriedPast, (Lines{"ConvertToPdfDriver: no dates", "ConvertToPdfDriver: no keys"}));
}

TEST_F(ConversionDriver, ASaveWithoutReaderIsASaveAndSaysSo)
{
    library.saveStatus = -12;
    Convert();
    const Lines lines = Milestones();
    EXPECT_EQ(Lines(lines.end() - 2, lines.end()), (Lines{"PDF FILE SAVED", "ERROR: READER NOT INSTALLED"}));
    EXPECT_EQ(Messages(),
              (std::vector<Message>{ProductMessage("Could not open PDF file because the PDF Reader is not installed.",
                                                   MessageButtons::Ok, MessageIcon::Exclamation, 120)}));
    EXPECT_EQ(library.tape.CallsOf("Log.ShowLogFile"), Lines{}) << "the log isn't offered";
}

TEST_F(ConversionDriver, AFailedSaveNamesItsStatusAndOffersTheLog)
{
    library.saveStatus = -3;
    library.lastErrorText = "disk full";
    Convert();
    EXPECT_EQ(Milestones().back(), "ERROR SAVING PDF FILE: -3, disk full");
    EXPECT_EQ(Messages(), (std::vector<Message>{
                              ProductMessage(kUnknownError, MessageButtons::OkCancel, MessageIcon::Critical, 170)}));
    EXPECT_EQ(library.tape.CallsOf("Log.ShowLogFile"), Lines{});
}

TEST_F(ConversionDriver, TheLogIsShownWhenTheUserWantsIt)
{
    library.saveStatus = -3;
    desktop.answers = {MessageAnswer::Ok};
    Convert();
    EXPECT_EQ(Messages().size(), 1U);
    EXPECT_EQ(library.tape.CallsOf("Log.ShowLogFile"), (Lines{"Log.ShowLogFile SmPdfAcad.log"}));
    EXPECT_EQ(Milestones().back(), "ERROR SAVING PDF FILE: -3, ");
}

TEST_F(ConversionDriver, ASaveThatNeverAnswersIsNoSave)
{
    library.tape.FailCall("PubDoc.SaveToPdf", "server gone");
    Convert();
    EXPECT_EQ(Milestones().back(), "ERROR SAVING PDF FILE: -1, server gone");
    EXPECT_EQ(Messages().size(), 1U);
}

TEST_F(ConversionDriver, APositiveStatusIsASave)
{
    library.saveStatus = 4;
    Convert();
    EXPECT_EQ(Milestones().back(), "PDF FILE SAVED");
}

TEST_F(ConversionDriver, AFailureOnTheSecondOfThreeSheetsLeavesItActiveAndSavesNothing)
{
    AddRoof();
    drawing->PlotResults = {true, false};
    Options options;
    options.whatToPlot = 1;
    Convert(options);
    EXPECT_EQ(drawing->ActiveLayout, upper);
    EXPECT_EQ(Calls("AddPsFile").size(), 1U);
    EXPECT_EQ(Calls("SaveToPdf"), Lines{});
    EXPECT_EQ(Calls("SetDoc"), Lines{});
    EXPECT_EQ(library.documentsAlive, 0);
    EXPECT_EQ(Milestones(), (Lines{"PLUGIN STARTING PDF FILE: C:\\Jobs\\Plan.pdf", "USE NATIVE PAGE SETUP FOR GROUND",
                                   "RESET PAGE SETUP", "USE NATIVE PAGE SETUP FOR UPPER", "RESET PAGE SETUP"}));
    EXPECT_EQ(observer.events.back(), "saved C:\\Jobs\\Plan.pdf | -1 | A sheet could not be converted.");
}

TEST_F(ConversionDriver, TheActiveLayoutIsPutBackOnlyWhenItChanged)
{
    Convert();
    EXPECT_EQ(host.tape.CallsOf("Document.SetActiveLayout"), (Lines{"Document.SetActiveLayout Ground"}))
        << "set by the plot alone";
    Options options;
    options.whatToPlot = 1;
    host.tape.calls.clear();
    Convert(options);
    EXPECT_EQ(host.tape.CallsOf("Document.SetActiveLayout"),
              (Lines{"Document.SetActiveLayout Ground", "Document.SetActiveLayout Upper",
                     "Document.SetActiveLayout Ground"}));
    (void)Log();
}

TEST_F(ConversionDriver, AllLayoutsOfAModelOnlyDrawingSavesWithoutAPage)
{
    drawing->Layouts = {model};
    drawing->ActiveLayout = model;
    Options options;
    options.whatToPlot = 1;
    Convert(options);
    EXPECT_EQ(library.tape.calls[1], "Log.WriteLogLine PLUGIN STARTING PDF FILE: C:\\Jobs\\Plan.pdf");
    EXPECT_EQ(Calls("AddPsFile"), Lines{});
    EXPECT_EQ(Calls("SaveToPdf").size(), 1U);
    EXPECT_EQ(Log(), (Lines{"PLUGIN STARTING PDF FILE: C:\\Jobs\\Plan.pdf", "PDF FILE SAVED"}));
}

TEST_F(ConversionDriver, AGapInTheTabOrderEndsTheRun)
{
    upper->TabOrder = 1; // the later layout takes the place, position 2 stays empty
    Options options;
    options.whatToPlot = 1;
    Convert(options);
    EXPECT_EQ(Calls("SaveToPdf"), Lines{});
    EXPECT_EQ(Milestones(), (Lines{"PLUGIN STARTING PDF FILE: C:\\Jobs\\Plan.pdf", "USE NATIVE PAGE SETUP FOR UPPER",
                                   "RESET PAGE SETUP", "ERROR: PlotLayoutToPubDoc -13"}));
}

TEST_F(ConversionDriver, WithoutAPublishingLibraryNothingIsDone)
{
    library.tape.FailCall("Library.CreatePubDoc", "class not registered");
    Convert();
    EXPECT_EQ(Log(), Lines{});
    EXPECT_EQ(host.tape.calls, Lines{});
    EXPECT_EQ(observer.events, (Lines{"saved  | -1 | The publishing library is not available."}));
}

TEST_F(ConversionDriver, APromptWithoutAWindowHandleIsStillShown)
{
    host.tape.FailCall("Document.HWND", "no window");
    Options options;
    options.prompt = kTrue;
    Convert(options);
    EXPECT_EQ(Calls("PromptForPdfName"), (Lines{"PubDoc.PromptForPdfName C:\\Jobs\\Plan.dwg | 0 | AutoCAD"}));
    (void)Log();
}

TEST_F(ConversionDriver, AFailingPromptCountsAsCancelled)
{
    library.tape.FailCall("PubDoc.PromptForPdfName", "no dialog");
    Options options;
    options.prompt = kTrue;
    Convert(options);
    EXPECT_EQ(Calls("SaveToPdf"), Lines{});
    EXPECT_EQ(Log(), Lines{});
}

} // namespace
} // namespace sm
