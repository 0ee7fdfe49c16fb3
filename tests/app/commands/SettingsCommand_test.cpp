// SPDX-License-Identifier: GPL-3.0-or-later
// "settings": what the drawing, the settings and the user get, for each way out of the dialog.
#include "app/ScreenStand.h"

#include <gmock/gmock.h>

namespace sm::app {
namespace {

using SettingsDialog = ScreenStand;

/// Something on each tab.
void ChangeAll(FormDriver& user)
{
    user.Click("optSpeed");
    user.Tick("chkFileName", false);
    user.Tick("chkViewResults", false);
    user.Tick("chkPageSetup", true);
    user.Choose("cmbPaperSize", "ISO A4 (297.00 x 210.00 MM)");
    user.ChooseAt("cmbStampText", 2);
    user.TypeAndLeave("txtStampX", "12.5");
    user.TypeAndLeave("txtStampY", "30");
}

TEST_F(SettingsDialog, OkKeepsEverythingAndTheFormerDrawing)
{
    machine.variables["LC_ALL"] = "de_DE.UTF-8";
    toolkit.When("frmGUITap", [&](FormDriver& user) {
        ChangeAll(user);
        user.Click("btnOK");
    });
    EXPECT_EQ(Settings(), 0);
    EXPECT_EQ(Short(out.str()), "house.dxf: the settings were kept; the former file is house.dxf.bak\n");
    EXPECT_EQ(err.str(), "");
    EXPECT_EQ(Contents(drawing + ".bak"), before);
    EXPECT_NE(Contents(drawing), before);
    EXPECT_EQ(Shell({"get", "Optimization"}) + Shell({"get", "PromptForFileName"}), "1\n0\n");
    EXPECT_EQ(Shell({"stamp", drawing, "list"}),
              "stamp 2 \"FOR REVIEW\", Helvetica, 24 pt, #FF0000, left, at 12.5,30, on All Layouts\n");
    EXPECT_EQ(Files("house"), (std::vector<std::string>{"house.dxf", "house.dxf.bak"}));
}

TEST_F(SettingsDialog, SettingsThatCantBeWrittenAreToldAndTheDrawingIsKept)
{
    machine.MakeFile("home/.config", "a file where the folder should be"); // nobody gets past it, root included
    hasTerminal = false;
    toolkit.When("frmGUITap", [&](FormDriver& user) {
        ChangeAll(user);
        user.Click("btnOK");
    });
    EXPECT_EQ(Settings(), 1);
    EXPECT_EQ(Short(out.str()), "house.dxf: its own entries were kept; the former file is house.dxf.bak\n");
    const std::string reason = "the user's settings were not kept: the setting TransferTextHlinks could not be stored";
    EXPECT_THAT(Short(err.str()), testing::EndsWith("sheetmaker settings: " + reason + "\n"));
    const std::vector<Message> messages = desktop.TakeMessages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages.front().text, reason);
    EXPECT_NE(Contents(drawing), before);
}

TEST_F(SettingsDialog, CancelKeepsNothing)
{
    const std::string settings = Shell({"list"});
    toolkit.When("frmGUITap", [&](FormDriver& user) {
        ChangeAll(user);
        user.Click("btnCancel");
    });
    EXPECT_EQ(Settings(), 0);
    EXPECT_EQ(Contents(drawing), before);
    EXPECT_FALSE(HasBackup());
    EXPECT_EQ(Shell({"list"}), settings);
    EXPECT_EQ(out.str() + err.str(), "");
}

TEST_F(SettingsDialog, OkTwiceWritesOnce)
{
    toolkit.Whenever("frmGUITap", [&](FormDriver& user) { user.Click("btnOK"); });
    EXPECT_EQ(Settings(), 0);
    const std::string written = Contents(drawing);
    std::filesystem::remove(drawing + ".bak");
    out.str("");
    EXPECT_EQ(Settings(), 0);
    EXPECT_EQ(Contents(drawing), written);
    EXPECT_FALSE(HasBackup());
    EXPECT_EQ(out.str(), "");
}

TEST_F(SettingsDialog, CreatePdfConvertsAsTheStoredSettingsSay)
{
    desktop.filesChosen = {machine.In("chosen.pdf")};
    toolkit.When("frmGUITap", [&](FormDriver& user) {
        user.Tick("chkViewResults", true);
        user.Click("btnPDF");
    });
    EXPECT_EQ(Settings(), 0) << err.str();
    EXPECT_EQ(Short(out.str()), "house.dxf: the settings were kept; the former file is house.dxf.bak\n"
                                "house.dxf -> chosen.pdf, 1 page\n");
    EXPECT_EQ(Contents(machine.In("chosen.pdf")).substr(0, 5), "%PDF-");
    std::vector<std::string> calls;
    for (const std::string& call : desktop.calls)
        calls.push_back(Short(call));
    EXPECT_EQ(calls, (std::vector<std::string>{"AskSaveFile house.pdf", "OpenDocument chosen.pdf"}));
}

TEST_F(SettingsDialog, ASaveDialogThatIsCancelledIsNoFailure)
{
    toolkit.When("frmGUITap", [&](FormDriver& user) { user.Click("btnPDF"); });
    EXPECT_EQ(Settings(), 0);
    EXPECT_EQ(err.str(), "");
    EXPECT_TRUE(HasBackup());
    EXPECT_EQ(Files("house"), (std::vector<std::string>{"house.dxf", "house.dxf.bak"}));
}

TEST_F(SettingsDialog, PointsArePickedOnTheLayoutInFront)
{
    picker.points = {{100.25, 50.5}};
    toolkit.When("frmGUITap", [](FormDriver& user) {
        user.ChooseAt("cmbStampText", 1);
        user.Click("btnStampPoints");
    });
    toolkit.When("frmGUITap", [](FormDriver& user) {
        EXPECT_EQ(user.Text("cmbStampLayout") + " " + user.Text("txtStampX") + " " + user.Text("txtStampY"),
                  "A-102 Upper Floor 100.25 50.50");
        user.Tick("chkPageSetup", true);
        user.Click("btnWindowPoints");
    });
    toolkit.When("frmGUITap", [](FormDriver& user) { user.Click("btnCancel"); });
    EXPECT_EQ(Settings("a-102 upper floor"), 0);
    EXPECT_EQ(picker.calls, (std::vector<std::string>{"Enter a point: on A-102 Upper Floor",
                                                      "Enter First Corner: on A-102 Upper Floor"}));
}

TEST_F(SettingsDialog, ALayoutThatIsNotThereIsRefused)
{
    EXPECT_EQ(Settings("A-101 Ground Flor"), 2);
    EXPECT_EQ(Short(err.str()),
              "sheetmaker settings: house.dxf has no layout \"A-101 Ground Flor\"; did you mean \"A-101 Ground "
              "Floor\"?\n");
    EXPECT_TRUE(toolkit.events.empty());
}

TEST_F(SettingsDialog, StoredSignatureFieldsAreTalkedAboutFirst)
{
    Shell({"sign", drawing, "add", "Approval", "--rect", "1,2,30,40", "--layout", "A-201 Section"});
    Shell({"sign", drawing, "add", "Check", "--rect", "1,2,30,40", "--layout", "A-201 Section"});
    const std::string signedBefore = Contents(drawing);
    desktop.answers = {MessageAnswer::Cancel};
    EXPECT_EQ(Settings(), 0);
    EXPECT_EQ(Contents(drawing), signedBefore);
    const std::vector<Message> messages = desktop.TakeMessages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(
        Short(messages[0].text),
        "This drawing has 2 signature fields:\r\n    Approval (A-201 Section)\r\n    Check (A-201 Section)\r\n\r\n"
        "The settings dialog begins with an empty list in their place, and OK or Create PDF\r\nkeeps what the list "
        "then holds. The drawing as it is now stays as\r\nhouse.dxf.bak\r\n\r\n\"sheetmaker sign\" changes "
        "signature fields one by one. Show the settings dialog?");
    EXPECT_EQ(messages[0].title, "Tarnwick Sheetmaker PDF");
    EXPECT_EQ(messages[0].buttons, MessageButtons::OkCancel);
    EXPECT_EQ(messages[0].icon, MessageIcon::Exclamation);
    EXPECT_EQ(messages[0].helpContext, 440);
    EXPECT_TRUE(toolkit.events.empty());

    desktop.answers = {MessageAnswer::Ok};
    toolkit.When("frmGUITap", [](FormDriver& user) { user.Click("btnOK"); });
    EXPECT_EQ(Settings(), 0);
    EXPECT_EQ(desktop.TakeMessages().size(), 1U);
    EXPECT_EQ(Contents(drawing + ".bak"), signedBefore);
    EXPECT_EQ(Shell({"sign", drawing, "list"}), "house.dxf has no signature fields\n");
}

TEST_F(SettingsDialog, EntriesOfADrawingThatHoldsNoneAreKeptBesideItWhichIsToldFirst)
{
    machine.MakeFile("old.dxf", "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\n"
                                "LINE\n8\n0\n10\n0.0\n20\n0.0\n11\n9.0\n21\n9.0\n0\nENDSEC\n0\nEOF\n");
    drawing = machine.In("old.dxf");
    before = Contents(drawing);
    toolkit.When("frmGUITap", [&](FormDriver& user) {
        EXPECT_EQ(desktop.TakeMessages().size(), 1U) << "before anything is entered";
        ChangeAll(user);
        user.Click("btnOK");
    });
    EXPECT_EQ(Settings(""), 0) << err.str();
    EXPECT_EQ(Contents(drawing), before);
    EXPECT_EQ(Short(out.str()), "old.dxf: the settings were kept in old.dxf.sheetmaker\n");
    EXPECT_EQ(Shell({"stamp", drawing, "list"}),
              "stamp 2 \"FOR REVIEW\", Helvetica, 24 pt, #FF0000, left, at 12.5,30, on All Layouts\n");
    toolkit.When("frmGUITap", [](FormDriver& user) { user.Click("btnCancel"); });
    EXPECT_EQ(Settings(""), 0);
    EXPECT_TRUE(desktop.TakeMessages().empty()) << "told once";
    EXPECT_EQ(Files("old"), (std::vector<std::string>{"old.dxf", "old.dxf.sheetmaker"}));
}

TEST_F(SettingsDialog, ThePageSetupOfADrawingThatHoldsNoneIsToldOfFirst)
{
    drawing = machine.MakeFile("old.dxf", "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n10\n0.0\n20\n0.0\n11\n9.0\n21\n"
                                          "9.0\n0\nENDSEC\n0\nEOF\n");
    toolkit.When("frmPageSetup", [](FormDriver& user) { user.Click("btnOK"); });
    EXPECT_EQ(PageSetup(drawing), 0) << err.str();
    const std::vector<Message> messages = desktop.TakeMessages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(
        Short(messages[0].text),
        "old.dxf\r\nis of a release that can't hold stamps, attachments, signature fields and page setups.\r\nWhat "
        "you enter is kept beside it, in\r\nold.dxf.sheetmaker\r\n\r\nThe drawing itself stays as it is. Where it "
        "goes, that file goes with it.");
}

TEST_F(SettingsDialog, FilesThatCanNotBeOpenedAreTold)
{
    hasTerminal = false;
    drawing = machine.In("nothing.dxf");
    EXPECT_EQ(Settings(""), 1);
    const std::vector<Message> messages = desktop.TakeMessages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(err.str(), "sheetmaker settings: " + messages[0].text + "\n");
    EXPECT_EQ(Short(messages[0].text).substr(0, 13), "nothing.dxf: ");
    EXPECT_EQ(messages[0].helpContext, 0);
}

TEST_F(SettingsDialog, WhereErrorsGoIntoAFileNoMessageBoxWaits)
{
    hasTerminal = false;
    isLedIntoFile = true;
    drawing = machine.In("nothing.dxf");
    EXPECT_EQ(Settings(""), 1);
    EXPECT_EQ(desktop.TakeMessages().size(), 0U);
    EXPECT_EQ(Short(err.str()), "sheetmaker settings: nothing.dxf: there is no such file; check the name\n");
}

TEST_F(SettingsDialog, SomebodyElsesChangeIsNotWrittenOver)
{
    toolkit.When("frmGUITap", [&](FormDriver& user) {
        std::ofstream(drawing, std::ios::app) << "999\nby somebody else\n";
        user.Click("btnOK");
    });
    EXPECT_EQ(Settings(), 1);
    EXPECT_EQ(Contents(drawing), before + "999\nby somebody else\n");
    EXPECT_NE(err.str().find("somebody else changed the file since it was opened"), std::string::npos) << err.str();
}

TEST_F(SettingsDialog, WithoutADrawingTheUserIsAskedForOne)
{
    desktop.filesChosen = {drawing};
    toolkit.When("frmGUITap", [](FormDriver& user) { user.Click("btnCancel"); });
    EXPECT_EQ(RunSettings({}, Here(), Parts(), out, err), 0);
    ASSERT_EQ(desktop.fileDialogs.size(), 1U);
    EXPECT_EQ(desktop.fileDialogs[0].title, "Open Drawing");
    EXPECT_EQ(desktop.fileDialogs[0].filterExtension, "dxf;dwg");
    EXPECT_EQ(RunSettings({}, Here(), Parts(), out, err), 0);
    EXPECT_EQ(toolkit.events, (std::vector<std::string>{"show frmGUITap", "hide frmGUITap"}));
}

} // namespace
} // namespace sm::app
