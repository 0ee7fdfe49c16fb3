// SPDX-License-Identifier: GPL-3.0-or-later
// The settings dialog's own buttons, and its General Settings tab.
#include "ui/SettingsStand.h"

namespace sm {
namespace {

class SettingsDialog : public SettingsForms {
protected:
    bool Set() { return SetConversionSettingsTab(gui, keg); }
    bool Save() { return SaveConversionSettingsTab(gui, keg); }
};

const char* const kReminder =
    "To properly transfer block attributes to PDF file properties, the block names and attribute\r\ntag strings must "
    "only contain letters and numbers. All punctuation characters will be \r\nconverted to the '-' character and "
    "trailing punctuation will be removed.\r\n\r\nWould you like to be reminded of this in the future?";

TEST_F(SettingsDialog, ItsLoadSetsTitleListsHelpFileAndLogo)
{
    EXPECT_EQ(user.Title(), "Tarnwick Sheetmaker PDF");
    EXPECT_EQ(user.Items("cmbStampFont").size(), 14U);
    EXPECT_EQ(session.helpFile, "C:\\Program Files\\Tarnwick\\acadsmpdf.hlp");
    const ControlPlace box = user.Control("picTarnwick").place, logo = user.Control("imgLogo").place;
    EXPECT_EQ(2 * logo.top + logo.height, box.height);
}

TEST_F(SettingsDialog, EachClosingButtonTellsWhy)
{
    const struct {
        const char* name;
        std::function<void(FormDriver&)> leave;
        std::int32_t action;
    } rows[] = {{"cancel", [](FormDriver& it) { it.Click("btnCancel"); }, 0},
                {"close box", [](FormDriver& it) { it.Close(); }, 0},
                {"escape", [](FormDriver& it) { it.Escape(); }, 0},
                {"ok", [](FormDriver& it) { it.Click("btnOK"); }, 1},
                {"enter", [](FormDriver& it) { it.Enter("chkFileName"); }, 1},
                {"window", [](FormDriver& it) { it.Click("btnWindowPoints"); }, 2},
                {"stamp", [](FormDriver& it) { it.Click("btnStampPoints"); }, 3},
                {"create", [](FormDriver& it) { it.Click("btnPDF"); }, 6}};
    for (const auto& row : rows) {
        gui.Action = -1;
        toolkit.When("frmGUITap", row.leave);
        EXPECT_TRUE(gui.ShowModal());
        EXPECT_EQ(gui.Action, row.action) << row.name;
    }
}

TEST_F(SettingsDialog, HelpOpensTheHelpFileInForce)
{
    user.Click("btnHelp");
    registry.Put(RegistryRoot::LocalMachine, kUserKey, "HelpFile", "D:\\Help\\other.hlp");
    user.Tick("chkTransferAttributes", true);
    user.Click("btnHelp");
    EXPECT_EQ(desktop.calls,
              (Texts{"ShowHelp C:\\Program Files\\Tarnwick\\acadsmpdf.hlp 0", "ShowHelp D:\\Help\\other.hlp 0"}))
        << "from a message on it is the installed one";
    EXPECT_EQ(Messages().size(), 1U);
}

TEST_F(SettingsDialog, TheLogoOpensTheMakersSite)
{
    user.Click("imgLogo");
    EXPECT_EQ(desktop.calls, (Texts{"OpenDocument https://www.tarnwick.example/"}));
}

TEST_F(SettingsDialog, TickingTheAttributesRemindsOfPunctuation)
{
    user.Tick("chkTransferAttributes", true);
    EXPECT_EQ(Messages(),
              (std::vector<Message>{ProductMessage(kReminder, MessageButtons::YesNo, MessageIcon::Question, 410)}));
    EXPECT_EQ(Setting("BlockAttribRemindAgain"), "(absent)") << "Yes changes nothing";
    user.Tick("chkTransferAttributes", false);
    EXPECT_EQ(Messages(), std::vector<Message>{});
    desktop.answers = {MessageAnswer::No};
    user.Tick("chkTransferAttributes", true);
    EXPECT_EQ(Messages().size(), 1U);
    EXPECT_EQ(Setting("BlockAttribRemindAgain"), "0");
    user.Tick("chkTransferAttributes", false);
    user.Tick("chkTransferAttributes", true);
    EXPECT_EQ(Messages(), std::vector<Message>{}) << "never again after No";
}

TEST_F(SettingsDialog, ALoadedTickRemindsOfNothing)
{
    keg.General.Transfer.TransferAttributes = kTrue;
    ASSERT_TRUE(Set());
    EXPECT_TRUE(user.IsTicked("chkTransferAttributes"));
    EXPECT_EQ(Messages(), std::vector<Message>{});
}

TEST_F(SettingsDialog, ShowsTheConversionSettings)
{
    keg.General = {{kTrue, kFalse, kTrue, kFalse, kTrue}, true, false, true, 1, 1, "Proof"};
    ASSERT_TRUE(Set());
    const Texts boxes = {"optAllLayouts",   "optCurrentTab",  "chkFileName",    "chkDeletePs",
                         "chkViewResults",  "optSpeed",       "optQuality",     "chkHlinkText",
                         "chkHlinkDrawing", "chkHlinkBlocks", "chkHlinkVPorts", "chkTransferAttributes"};
    EXPECT_EQ(user.Ticked(boxes), (Texts{"optAllLayouts", "chkFileName", "chkViewResults", "optSpeed", "chkHlinkText",
                                         "chkHlinkBlocks", "chkTransferAttributes"}));
    EXPECT_EQ(user.Items("cmbJobOpts"), (Texts{"Graphics [600 dpi]", "Proof"}));
    EXPECT_EQ(user.Text("cmbJobOpts"), "Proof");
    keg.General = {{kFalse, kTrue, kFalse, kTrue, kFalse}, false, true, false, 0, 0, "Graphics [600 dpi]"};
    ASSERT_TRUE(Set());
    EXPECT_EQ(user.Ticked(boxes),
              (Texts{"optCurrentTab", "chkDeletePs", "optQuality", "chkHlinkDrawing", "chkHlinkVPorts"}));
    EXPECT_EQ(user.Text("cmbJobOpts"), "Graphics [600 dpi]");
}

TEST_F(SettingsDialog, SavesEachControlInItsPlace)
{
    ASSERT_TRUE(Set());
    using Read = std::function<std::int32_t(const GeneralSettings&)>;
    const struct {
        const char* box;
        Read value;
    } rows[] = {
        {"chkFileName", [](const GeneralSettings& s) { return s.PromptForFileName; }},
        {"chkDeletePs", [](const GeneralSettings& s) { return s.DeletePs; }},
        {"chkViewResults", [](const GeneralSettings& s) { return s.OpenInViewer; }},
        {"chkHlinkText", [](const GeneralSettings& s) { return s.Transfer.TransferTextHlinks == kTrue; }},
        {"chkHlinkDrawing", [](const GeneralSettings& s) { return s.Transfer.TransferDrawingHlinks == kTrue; }},
        {"chkHlinkBlocks", [](const GeneralSettings& s) { return s.Transfer.TransferBlockHlinks == kTrue; }},
        {"chkHlinkVPorts", [](const GeneralSettings& s) { return s.Transfer.TransferVPortHlinks == kTrue; }},
        {"chkTransferAttributes", [](const GeneralSettings& s) { return s.Transfer.TransferAttributes == kTrue; }},
        {"optAllLayouts", [](const GeneralSettings& s) { return s.WhatToPlot; }},
        {"optSpeed", [](const GeneralSettings& s) { return s.Optimization; }}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.box);
        for (const bool ticked : {true, false, true}) {
            const bool isOption = user.Control(row.box).kind == ControlKind::OptionButton;
            if (isOption && !ticked)
                user.Click(std::string(row.box) == "optSpeed" ? "optQuality" : "optCurrentTab");
            else
                user.Tick(row.box, ticked);
            ASSERT_TRUE(Save());
            EXPECT_EQ(row.value(keg.General), ticked ? 1 : 0);
        }
    }
    (void)Messages();
    user.Choose("cmbJobOpts", "Proof");
    ASSERT_TRUE(Save());
    EXPECT_EQ(keg.General.JobOptionsFile, "Proof");
}

TEST_F(SettingsDialog, JobOptionsThatAreNotThereAreKept)
{
    keg.General.JobOptionsFile = "Vanished";
    ASSERT_TRUE(Set());
    EXPECT_EQ(user.Text("cmbJobOpts"), "(none)");
    ASSERT_TRUE(Save());
    EXPECT_EQ(keg.General.JobOptionsFile, "Vanished");
}

TEST_F(SettingsDialog, AMissingControlFailsTheTab)
{
    Form broken(session, {ControlRow(ControlKind::FormWindow, "frmBroken", "", {})});
    EXPECT_FALSE(SetConversionSettingsTab(broken, keg));
    EXPECT_FALSE(SaveConversionSettingsTab(broken, keg));
    EXPECT_EQ(Log(), (Lines{"RUNTIME ERROR: SetConversionSettingsTab -There is no control 'optCurrentTab'.",
                            "RUNTIME ERROR: SaveConversionSettingsTab -There is no control 'optAllLayouts'."}));
}

TEST_F(SettingsDialog, ItsPublicRoutinesReachTheControls)
{
    gui.cmbPaperUnits_click();
    gui.PDFPageSetupOff();
    EXPECT_FALSE(user.IsEnabled("cmbPaperSize"));
    gui.PDFPageSetupOn();
    EXPECT_TRUE(user.IsEnabled("cmbPaperSize"));
}

} // namespace
} // namespace sm
