// SPDX-License-Identifier: GPL-3.0-or-later
// The show routine: load, the loop, save.
#include "plugin/cPlugin.h"
#include "ui/FormWindows.h"
#include "ui/ShowStand.h"

namespace sm {
namespace {

TEST_F(ShowSettings, OkSavesEveryTabAndConvertsNothing)
{
    toolkit.When("frmAttach", [](FormDriver& it) {
        it.Type("txtAttachFile", "C:\\Docs\\a.txt");
        it.Click("btnOK");
    });
    toolkit.When("frmDigSig", [](FormDriver& it) {
        it.Type("txtDigSigName", "Client");
        it.TypeAndLeave("txtDigSigX2", "5");
        it.TypeAndLeave("txtDigSigY2", "6");
        it.Click("btnOK");
    });
    toolkit.When("frmGUITap", [](FormDriver& it) {
        it.Tick("chkFileName", false);
        it.Click("optAllLayouts");
        it.ChooseAt("tabPDFMaker", 1);
        it.Tick("chkPageSetup", true);
        it.Choose("cmbPaperSize", "ISO A3 (420.00 x 297.00 MM)");
        it.ChooseAt("cmbStampText", 2);
        it.TypeAndLeave("txtStampX", "12.5");
        it.Click("btnAttachAdd");
        it.Click("btnDigSigAdd");
        it.Click("btnOK");
    });
    EXPECT_EQ(Show(), 0);
    EXPECT_EQ(Setting("PromptForFileName"), "0");
    EXPECT_EQ(Setting("WhatToPlot"), "1");
    EXPECT_EQ(Setting("JobOptionsFile"), "Graphics [600 dpi]");
    EXPECT_EQ(Setting("Stamp1"), "DRAFT PRINT");
    EXPECT_EQ(Record("PltSel"), (Texts{"TWSI_PltSel", "1"}));
    EXPECT_EQ(Record("Plots"), (Texts{"TWSI_Plots",
                                      "",
                                      "ISO_A3_(420.00_x_297.00_MM)",
                                      "420",
                                      "297",
                                      "0",
                                      "1",
                                      "1",
                                      "0",
                                      "0",
                                      "1",
                                      "0",
                                      "0",
                                      "0",
                                      "0",
                                      "1",
                                      "",
                                      "1",
                                      "0",
                                      "1",
                                      "1",
                                      "0",
                                      "0",
                                      "0",
                                      "0",
                                      "0",
                                      "0",
                                      ""}));
    EXPECT_EQ(Record("Stamp"), (Texts{"TWSI_Stamp", "2", "Helvetica", "24", "0", "12.5", "0", "255", "All Layouts"}));
    EXPECT_EQ(Record("Attachs"), (Texts{"TWSI_Attachs", "a.txt", "C:\\Docs\\a.txt", "0", "0", "Ground"}));
    EXPECT_EQ(Record("DigSigs"), (Texts{"TWSI_DigSigs", "Client", "", "0", "0", "5", "6", "Ground"}));
    ExpectLog();
    EXPECT_EQ(toolkit.events, (Texts{"show frmGUITap", "show frmAttach", "hide frmAttach", "show frmDigSig",
                                     "hide frmDigSig", "hide frmGUITap"}));
}

TEST_F(ShowSettings, CreatePdfSavesAndAsksForTheConversion)
{
    toolkit.When("frmGUITap", [](FormDriver& it) { it.Click("btnPDF"); });
    EXPECT_EQ(Show(), 1);
    EXPECT_EQ(Record("PltSel"), (Texts{"TWSI_PltSel", "0"}));
    ExpectLog();
}

TEST_F(ShowSettings, CancelSavesNothing)
{
    const std::function<void(FormDriver&)> ways[] = {[](FormDriver& it) { it.Click("btnCancel"); },
                                                     [](FormDriver& it) { EXPECT_TRUE(it.Escape()); },
                                                     [](FormDriver& it) { it.Close(); }};
    for (const auto& leave : ways) {
        toolkit.When("frmGUITap", [&](FormDriver& it) {
            it.Tick("chkFileName", false);
            leave(it);
        });
        EXPECT_EQ(Show(), 0);
        ExpectNothingStored();
        ExpectLog();
    }
}

TEST_F(ShowSettings, TheTabsShowWhatTheDrawingHolds)
{
    Store("PltSel", {"1"});
    Store("Stamp", {"3", "Courier", "12", "1", "5.5", "6", "16711680", "Upper"});
    Store("Attachs", {"a.txt", "C:\\a.txt", "1", "2", "Ground"});
    Store("DigSigs", {"Client", "", "0", "0", "1", "1", "Ground"});
    toolkit.When("frmGUITap", [](FormDriver& it) {
        EXPECT_TRUE(it.IsTicked("chkPageSetup"));
        EXPECT_EQ(it.Text("cmbPaperSize"), "ANSI A (11.00 x 8.50 Inches)") << "without a record: the defaults";
        EXPECT_EQ(it.Text("cmbStampText"), "DO NOT BUILD TO PRINT");
        EXPECT_EQ(it.Back("btnStampColor"), "#0000ff");
        EXPECT_EQ(it.Rows("lstAttach"), (Texts{"a.txt | C:\\a.txt | 1.00 | 2.00 | Ground"}));
        EXPECT_EQ(it.Rows("lstDigSig"), Texts{}) << "stored signature fields are left out";
        it.Click("btnCancel");
    });
    EXPECT_EQ(Show(), 0);
    ExpectLog();
}

TEST_F(ShowSettings, UntickingTheCustomPageSetupPutsItsRecordBack)
{
    Store("PltSel", {"1"});
    toolkit.When("frmGUITap", [](FormDriver& it) {
        it.Choose("cmbPaperSize", "ISO A3 (420.00 x 297.00 MM)");
        it.Tick("chkPageSetup", false);
        EXPECT_EQ(it.Text("cmbPaperSize"), "ANSI A (11.00 x 8.50 Inches)");
        EXPECT_FALSE(it.IsEnabled("cmbPaperSize"));
        it.Click("btnOK");
    });
    EXPECT_EQ(Show(), 0);
    EXPECT_EQ(Record("PltSel"), (Texts{"TWSI_PltSel", "0"}));
    EXPECT_EQ(Record("Plots")[2], "ANSI_A_(11.00_x_8.50_Inches)");
    ExpectLog();
}

TEST_F(ShowSettings, TheGlobalSelectionSurvivesATickTakenBack)
{
    Store("PltSel", {"2"});
    toolkit.When("frmGUITap", [](FormDriver& it) {
        EXPECT_FALSE(it.IsTicked("chkPageSetup"));
        it.Tick("chkPageSetup", true);
        it.Tick("chkPageSetup", false);
        it.Click("btnOK");
    });
    EXPECT_EQ(Show(), 0);
    EXPECT_EQ(Record("PltSel"), (Texts{"TWSI_PltSel", "2"}));
    toolkit.When("frmGUITap", [](FormDriver& it) {
        it.Tick("chkPageSetup", true);
        it.Click("btnOK");
    });
    EXPECT_EQ(Show(), 0);
    EXPECT_EQ(Record("PltSel"), (Texts{"TWSI_PltSel", "1"}));
    EXPECT_EQ(Log().size(), 2U);
}

/// The plug-in object with forms for windows, wired as a program wires it: the forms know the context by reference,
/// which is made after them.
struct WiredPlugIn {
    WiredPlugIn(HouseParts& house, IFormToolkit& toolkit)
        : forms(CreateFormWindows(context, toolkit)), surroundings{house.failingRegistry, house.failingFiles,
                                                                   house.desktop,         *forms,
                                                                   house.library,         house.locale,
                                                                   house.clock,           house.component,
                                                                   house.observer},
          context{surroundings, nullptr, nullptr, nullptr}, plugin(context)
    {
        plugin.Initialize(house.host.Application());
    }
    std::unique_ptr<IWindows> forms;
    Surroundings surroundings;
    CallContext context;
    cPlugin plugin;
};

TEST_F(ShowSettings, CreatePdfConvertsAtOnceThroughThePlugIn)
{
    WiredPlugIn wired(*this, toolkit);
    toolkit.When("frmGUITap", [](FormDriver& it) {
        it.Tick("chkFileName", false);
        it.Tick("chkViewResults", false);
        it.Click("optSpeed");
        it.Click("btnPDF");
    });
    EXPECT_EQ(wired.plugin.ShowSettings(5, 0, 0), kFalse);
    EXPECT_EQ(library.tape.CallsOf("PubDoc.SaveToPdf"), (Lines{"PubDoc.SaveToPdf C:\\Jobs\\Plan.pdf | 5 | 0 | 1 | 0"}));
    const Lines log = Log();
    ASSERT_GT(log.size(), 2U);
    EXPECT_EQ(log.front(), "SHOW CONVERSION SETTINGS FORM");
    EXPECT_EQ(log[1], "PLUGIN STARTING PDF FILE: C:\\Jobs\\Plan.pdf");
    EXPECT_EQ(log.back(), "PDF FILE SAVED");
}

TEST_F(ShowSettings, CancelConvertsNothingThroughThePlugIn)
{
    WiredPlugIn wired(*this, toolkit);
    toolkit.When("frmGUITap", [](FormDriver& it) { it.Click("btnCancel"); });
    EXPECT_EQ(wired.plugin.ShowSettings(5, 0, 0), kFalse);
    EXPECT_EQ(library.tape.CallsOf("PubDoc."), Lines{});
    EXPECT_EQ(wired.context.g_AcadDoc, nullptr);
    ExpectLog();
}

} // namespace
} // namespace sm
