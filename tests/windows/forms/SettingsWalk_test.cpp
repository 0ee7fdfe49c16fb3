// SPDX-License-Identifier: GPL-3.0-or-later
// Walks through the settings dialog over the scripted host, by messages from another thread.
#include "FormWalk.h"

#include <commctrl.h>

namespace sm::windows {
namespace {

class SettingsWalk : public FormWalk {
protected:
    /// Shows the settings dialog and plays its user.
    std::int32_t Walk(const std::function<void(const FormUser&)>& user)
    {
        std::int32_t result = -1;
        WhileUserPlays([&] { user(toolkit.UserOf("frmGUITap")); }, [&] { result = windows->ShowConversionSettings(); });
        return result;
    }
    void ExpectShown() { EXPECT_EQ(Log(), Lines{"SHOW CONVERSION SETTINGS FORM"}); }
};

constexpr int kPageSetup = 1, kStamp = 2, kAttach = 3, kDigSig = 4;

TEST_F(SettingsWalk, OkSavesWhatWasChangedOnEveryTab)
{
    EXPECT_EQ(Walk([&](const FormUser& it) {
                  EXPECT_EQ(it.Ask("optCurrentTab", BM_GETCHECK), BST_CHECKED);
                  Tick(it, "chkFileName", false);
                  it.Click("optAllLayouts");
                  it.TurnTo("tabPDFMaker", kPageSetup);
                  EXPECT_FALSE(it.IsEnabled("cmbPaperSize"));
                  Tick(it, "chkPageSetup", true);
                  EXPECT_TRUE(it.IsEnabled("cmbPaperSize"));
                  ChooseText(it, "cmbPaperSize", "ISO A3 (420.00 x 297.00 MM)");
                  EXPECT_EQ(it.Ask("optLandscape", BM_GETCHECK), BST_CHECKED);
                  it.TurnTo("tabPDFMaker", kStamp);
                  it.Choose("cmbStampText", 2);
                  it.TypeAndLeave("txtStampX", "12.5");
                  EXPECT_EQ(it.Text("txtStampX"), "12.50");
                  it.TurnTo("tabPDFMaker", kAttach);
                  it.Click("btnAttachAdd");
                  const FormUser attach = toolkit.UserOf("frmAttach");
                  attach.Type("txtAttachFile", "C:\\Docs\\a.txt");
                  attach.Click("btnOK");
                  EXPECT_EQ(RowsOf(it, "lstAttach"), Texts{"a.txt | C:\\Docs\\a.txt | 0.00 | 0.00 | Ground"});
                  it.TurnTo("tabPDFMaker", kDigSig);
                  it.Click("btnDigSigAdd");
                  const FormUser digSig = toolkit.UserOf("frmDigSig");
                  digSig.Type("txtDigSigName", "Client");
                  digSig.TypeAndLeave("txtDigSigX2", "5");
                  digSig.TypeAndLeave("txtDigSigY2", "6");
                  digSig.Click("btnOK");
                  it.Click("btnOK");
              }),
              0);
    EXPECT_EQ(Setting("PromptForFileName"), "0");
    EXPECT_EQ(Setting("WhatToPlot"), "1");
    EXPECT_EQ(Setting("JobOptionsFile"), "Graphics [600 dpi]");
    EXPECT_EQ(Record("PltSel"), (Texts{"TWSI_PltSel", "1"}));
    EXPECT_EQ(Record("Plots")[2], "ISO_A3_(420.00_x_297.00_MM)");
    EXPECT_EQ(Record("Stamp"), (Texts{"TWSI_Stamp", "2", "Helvetica", "24", "0", "12.5", "0", "255", "All Layouts"}));
    EXPECT_EQ(Record("Attachs"), (Texts{"TWSI_Attachs", "a.txt", "C:\\Docs\\a.txt", "0", "0", "Ground"}));
    EXPECT_EQ(Record("DigSigs"), (Texts{"TWSI_DigSigs", "Client", "", "0", "0", "5", "6", "Ground"}));
    ExpectShown();
}

TEST_F(SettingsWalk, EveryWayOutButOkSavesNothing)
{
    const std::function<void(const FormUser&)> ways[] = {[](const FormUser& it) { it.Click("btnCancel"); },
                                                         [](const FormUser&) { FormUser::Keys({VK_ESCAPE}); },
                                                         [](const FormUser&) {
                                                             FormUser::Keys({VK_MENU, 'E'});
                                                         },
                                                         [](const FormUser& it) { it.Close(); }};
    for (const auto& leave : ways) {
        EXPECT_EQ(Walk([&](const FormUser& it) {
                      Tick(it, "chkFileName", false);
                      leave(it);
                  }),
                  0);
        EXPECT_EQ(Setting("PromptForFileName"), "(absent)");
        EXPECT_TRUE(drawing->XData.empty());
        ExpectShown();
    }
}

TEST_F(SettingsWalk, CreatePdfSavesAndAsksForTheConversion)
{
    EXPECT_EQ(Walk([](const FormUser& it) { it.Click("btnPDF"); }), 1);
    EXPECT_EQ(Record("PltSel"), (Texts{"TWSI_PltSel", "0"}));
    ExpectShown();
}

TEST_F(SettingsWalk, APickHidesTheDialogAndKeepsWhatWasEntered)
{
    drawing->PointsPicked = {{1.239, -2, 7}};
    EXPECT_EQ(Walk([&](const FormUser& it) {
                  Tick(it, "chkFileName", false);
                  it.TurnTo("tabPDFMaker", kStamp);
                  it.Choose("cmbStampText", 1);
                  it.Click("btnStampPoints");
                  const HWND again = it.Window();
                  EXPECT_TRUE(IsWindowVisible(again));
                  TheUiThread().Rest();
                  EXPECT_EQ(it.Text("txtStampX"), "1.24");
                  EXPECT_EQ(it.Text("txtStampY"), "-2.00");
                  EXPECT_EQ(it.Ask("tabPDFMaker", TCM_GETCURSEL), kStamp);
                  EXPECT_EQ(it.Focused(), "btnStampPoints") << "where the keyboard was";
                  EXPECT_EQ(it.Ask("chkFileName", BM_GETCHECK), BST_UNCHECKED);
                  it.Click("btnOK");
              }),
              0);
    EXPECT_EQ(host.tape.CallsOf("Utility."), Lines{"Utility.GetPoint Enter a point: "});
    EXPECT_EQ(Setting("PromptForFileName"), "0");
    ExpectShown();
}

TEST_F(SettingsWalk, APickFromARowsDialogBringsBothBack)
{
    drawing->PointsPicked = {{3, 4, 0}};
    EXPECT_EQ(Walk([&](const FormUser& it) {
                  it.TurnTo("tabPDFMaker", kAttach);
                  it.Click("btnAttachAdd");
                  const FormUser attach = toolkit.UserOf("frmAttach");
                  attach.Type("txtAttachFile", "C:\\b.txt");
                  attach.Click("btnAttachPoints");
                  TheUiThread().Rest();
                  EXPECT_EQ(attach.Text("txtAttachX"), "3.00");
                  EXPECT_EQ(attach.Text("txtAttachFile"), "C:\\b.txt");
                  EXPECT_FALSE(IsWindowEnabled(it.Window())) << "it waits below the row's dialog";
                  attach.Click("btnOK");
                  EXPECT_TRUE(IsWindowEnabled(it.Window()));
                  EXPECT_EQ(RowsOf(it, "lstAttach"), Texts{"b.txt | C:\\b.txt | 3.00 | 4.00 | Ground"});
                  it.Click("btnCancel");
              }),
              0);
    ExpectShown();
}

TEST_F(SettingsWalk, ButtonsBesideTheTabsDoWhatTheySay)
{
    desktop.answers = {MessageAnswer::No};
    EXPECT_EQ(Walk([&](const FormUser& it) {
                  Tick(it, "chkTransferAttributes", true);
                  it.Press("imgLogo", 20, 20);
                  it.Click("btnHelp");
                  it.Click("btnCancel");
              }),
              0);
    EXPECT_EQ(Messages().size(), 1U);
    EXPECT_EQ(desktop.calls,
              (Texts{"OpenDocument https://www.tarnwick.example/", std::string("ShowHelp ") + kHelpFile + " 0"}));
    EXPECT_EQ(Setting("BlockAttribRemindAgain"), "0");
    ExpectShown();
}

} // namespace
} // namespace sm::windows
