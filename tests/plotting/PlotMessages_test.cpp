// SPDX-License-Identifier: GPL-3.0-or-later
// Every message of the plot loop in full, and where silence keeps it back.
#include "doubles/TestHouse.h"
#include "plotting/mdlAcadPrinting.h"

namespace sm {
namespace {

class PlotMessages : public TestHouse {
protected:
    PlotMessages()
    {
        BeginCall();
        pubDoc = library.CreatePubDoc();
        library.tape.calls.clear();
    }
    std::int32_t Plot(VariantBool silent = kFalse, std::int32_t source = 0)
    {
        const std::int32_t status = PlotLayoutToPubDoc(context, *pubDoc, "Ground", silent, source, 1200, "Proof");
        (void)Log();
        return status;
    }
    void ExpectMessage(const std::string& text, MessageButtons buttons, MessageIcon icon, std::int32_t helpContext)
    {
        EXPECT_EQ(Messages(), (std::vector<Message>{ProductMessage(text, buttons, icon, helpContext)}));
    }
    std::shared_ptr<IPubDoc> pubDoc;
};

TEST_F(PlotMessages, DriverMissing)
{
    UseDriver("");
    EXPECT_EQ(Plot(kTrue), -11);
    EXPECT_FALSE(desktop.HasUnreadMessages());
    EXPECT_EQ(Plot(kFalse), -11);
    ExpectMessage(
        "The Postscript HDI driver (ps6.hdi, ps7.hdi or ps8.hdi) is required to make PDF files.  It could not "
        "be located \r\nin your current AutoCAD Drivers folder. You may need to reinstall AutoCAD or redefine "
        "your AutoCAD Drivers\r\nfolder to point a directory containing one of these files.",
        MessageButtons::Ok, MessageIcon::Exclamation, 110);
}

TEST_F(PlotMessages, PageSetupNotInitialized)
{
    host.tape.FailCall("Layout.ConfigName", "not initialised");
    EXPECT_EQ(Plot(kTrue), -5);
    EXPECT_FALSE(desktop.HasUnreadMessages());
    const char* const text = "Before converting to PDF you must initialize the Page Setup for each Model or Layout Tab "
                             "to be converted. \r\nDo this using the AutoCAD /File/Page_Setup/ menu item.";
    EXPECT_EQ(Plot(kFalse), -5);
    ExpectMessage(text, MessageButtons::Ok, MessageIcon::Exclamation, 190);
    EXPECT_EQ(Plot(kFalse, 1), -5);
    ExpectMessage(text, MessageButtons::Ok, MessageIcon::Exclamation, 190);
}

TEST_F(PlotMessages, PlotterFolderNotSet)
{
    files.Remove(kPc3Folder);
    EXPECT_EQ(Plot(kTrue), -7);
    EXPECT_FALSE(desktop.HasUnreadMessages());
    EXPECT_EQ(Plot(kFalse), -7);
    ExpectMessage(
        "There was an error setting the printer for the PDF conversion.  The Sheetmaker PDF install folder "
        "could not be located.\r\nPlease reinstall the software or see trouble shooting in the Help files for "
        "more information.",
        MessageButtons::Ok, MessageIcon::Critical, 230);
}

TEST_F(PlotMessages, ViewNotFoundEvenInSilence)
{
    for (const VariantBool silent : {kFalse, kTrue}) {
        ground->PlotType = 3;
        ground->ViewToPlot = "Stairs";
        EXPECT_EQ(Plot(silent), -10);
        ExpectMessage("The selected view to plot could not be found. PDF conversion was canceled.", MessageButtons::Ok,
                      MessageIcon::Exclamation, 290);
    }
}

TEST_F(PlotMessages, ViewNotOnLayoutEvenInSilence)
{
    drawing->Views = {{"Stairs", {}, 1, 1}};
    host.tape.FailCall("Layout.SetViewToPlot", "Invalid input");
    for (const VariantBool silent : {kFalse, kTrue}) {
        ground->PlotType = 3;
        ground->ViewToPlot = "Stairs";
        EXPECT_EQ(Plot(silent), -10);
        ExpectMessage("The selected plot view was not defined on the layout to be converted. PDF conversion was "
                      "canceled.",
                      MessageButtons::Ok, MessageIcon::Exclamation, 300);
    }
}

TEST_F(PlotMessages, MediaNotFoundEvenInSilence)
{
    host.facts.MediaOf["Tarnwick PS8 HighRes.pc3"].clear();
    for (const VariantBool silent : {kFalse, kTrue}) {
        EXPECT_EQ(Plot(silent), -9);
        ExpectMessage(
            "The Media Name selected could not be found on the HDI Postscript printer PC3 file.\r\nPlease see "
            "the Help file for more information.",
            MessageButtons::Ok, MessageIcon::Critical, 220);
    }
}

TEST_F(PlotMessages, Pc3NotFound)
{
    host.tape.FailCall("Layout.GetPlotDeviceNames", "no list");
    EXPECT_EQ(Plot(kTrue), -8);
    EXPECT_FALSE(desktop.HasUnreadMessages());
    EXPECT_EQ(Plot(kFalse), -8);
    ExpectMessage("The PDF plotter configuration file could not be found.  Please reinstall the software to fix this "
                  "problem.",
                  MessageButtons::Ok, MessageIcon::Critical, 150);
}

TEST_F(PlotMessages, RefusedPostScriptFileOffersTheLog)
{
    for (const MessageAnswer answer : {MessageAnswer::Cancel, MessageAnswer::Ok}) {
        library.addPsFileCodes = {-2};
        desktop.answers = {answer};
        EXPECT_EQ(Plot(kFalse), -12);
        ExpectMessage("An unknown error occurred during Sheetmaker PDF execution. It is suggested that you send an "
                      "email\r\nto Tarnwick Technical Support at support@tarnwick.example and attach the Log File that "
                      "was created. \r\n\r\nWould you like to view the log file now?",
                      MessageButtons::OkCancel, MessageIcon::Critical, 170);
        EXPECT_EQ(library.tape.CallsOf("Log.ShowLogFile").size(), answer == MessageAnswer::Ok ? 1U : 0U);
    }
}

TEST_F(PlotMessages, DisplayWithoutAnnotations)
{
    const struct {
        MessageAnswer answer;
        std::int32_t status;
    } rows[] = {{MessageAnswer::Yes, 1}, {MessageAnswer::No, -1}};
    PutMarks(ground, 1);
    for (const auto& row : rows) {
        ground->PlotType = 0;
        desktop.answers = {row.answer};
        EXPECT_EQ(Plot(kFalse), row.status);
        ExpectMessage("Due to certain limitations, the PDF Annotations (i.e text stamps, \r\nhyperlinks, file "
                      "attachments, and digital signature fields) cannot be \r\nadded using the Display plot type. "
                      "Please choose Layout, Extents, View or Window.\r\n\r\nWould you like to continue to make a PDF "
                      "file without Annotations?",
                      MessageButtons::YesNo, MessageIcon::Exclamation, 279);
    }
    EXPECT_EQ(library.tape.CallsOf("PubDoc.DiscardPendingMarks").size(), 2U);
}

TEST_F(PlotMessages, PlotterFolderNotReset)
{
    host.facts.RefusedPlotterFolders = {kUsersPlotters, "C:\\Acad\\Plotters"};
    for (const VariantBool silent : {kTrue, kFalse}) {
        host.facts.PrinterConfigPath = kUsersPlotters;
        host.facts.Devices.insert(host.facts.Devices.end(), "Tarnwick PS8 HighRes.pc3");
        EXPECT_EQ(Plot(silent), 0);
        EXPECT_EQ(desktop.HasUnreadMessages(), silent == kFalse);
    }
    ExpectMessage("Your plotter folder was changed during the PDF creation process and there was an error trying to "
                  "reset it.\r\nIt was instead changed to: C:\\Program Files\\Tarnwick\\PC3",
                  MessageButtons::Ok, MessageIcon::Exclamation, 240);
}

TEST_F(PlotMessages, OriginalPlotterMissingIsToldUntilTheUserHasEnough)
{
    const char* const text = "The original plotter or PC3 file for this layout doesn't exists. You will be forced to "
                             "\r\nreset your page setup manually using the AutoCAD /File/Page_Setup/ menu item.\r\n\r\n"
                             "Would you like to be notified next time this occurrs?";
    const struct {
        const char* name;
        VariantBool silent;
        const char* stored;
        MessageAnswer answer;
        bool shown;
        const char* storedAfter;
    } rows[] = {
        {"again", kFalse, "", MessageAnswer::Yes, true, "0"},
        {"silent", kTrue, "0", MessageAnswer::Yes, false, "0"},
        {"enough", kFalse, "0", MessageAnswer::No, true, "1"},
        {"had enough", kFalse, "1", MessageAnswer::Yes, false, "1"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        PutSetting("NoShowAcad2000PlotterMsg", row.stored);
        ground->ConfigName = "thrown away.pc3";
        desktop.answers = {row.answer};
        EXPECT_EQ(Plot(row.silent), 0);
        if (row.shown)
            ExpectMessage(text, MessageButtons::YesNo, MessageIcon::Exclamation, 180);
        EXPECT_FALSE(desktop.HasUnreadMessages());
        EXPECT_EQ(Setting("NoShowAcad2000PlotterMsg"), row.storedAfter);
    }
}

} // namespace
} // namespace sm
