// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/SettingsStand.h"

namespace sm {
namespace {

class AttachTab : public SettingsForms {
protected:
    bool Set() { return SetAttachTab(gui, attach, keg); }
    bool Save() { return SaveAttachTab(gui, keg); }
};

const char* const kInvalid = "Please enter a valid Filename, Layout Tab and Icon Location.";

TEST_F(AttachTab, ListsTheAttachmentsOfTheDrawing)
{
    Entry().Attachments = {{"C:\\Docs\\a.txt", 1.239, 2, "Ground"}, {"plain.pdf", 0, -1, "Gone"}};
    ASSERT_TRUE(Set());
    EXPECT_EQ(user.Rows("lstAttach"),
              (Texts{"a.txt | C:\\Docs\\a.txt | 1.24 | 2.00 | Ground", "plain.pdf | plain.pdf | 0.00 | -1.00 | Gone"}));
    EXPECT_FALSE(user.IsEnabled("btnAttachModify"));
    EXPECT_FALSE(user.IsEnabled("btnAttachDelete"));
    ASSERT_TRUE(Save());
    EXPECT_EQ(Entry().Attachments,
              (std::vector<AttachmentEntry>{{"C:\\Docs\\a.txt", 1.24, 2, "Ground"}, {"plain.pdf", 0, -1, "Gone"}}));
}

TEST_F(AttachTab, AddAppendsARow)
{
    ASSERT_TRUE(Set());
    toolkit.When("frmAttach", [](FormDriver& it) {
        EXPECT_EQ(it.Title(), "File Attachment");
        EXPECT_EQ(it.Text("txtAttachFile"), "");
        EXPECT_EQ(it.Text("txtAttachX"), "0.00");
        EXPECT_EQ(it.Text("txtAttachY"), "0.00");
        EXPECT_EQ(it.Items("cmbAttachLayout"), (Texts{"Model", "Ground", "Upper"}));
        EXPECT_EQ(it.Text("cmbAttachLayout"), "Ground") << "the current layout";
        it.Type("txtAttachFile", "C:\\Docs\\a.txt");
        it.Type("txtAttachX", "3");
        it.TypeAndLeave("txtAttachY", "4.129");
        EXPECT_EQ(it.Text("txtAttachY"), "4.13");
        it.Choose("cmbAttachLayout", "Upper");
        it.Click("btnOK");
    });
    user.Click("btnAttachAdd");
    EXPECT_EQ(user.Rows("lstAttach"), (Texts{"a.txt | C:\\Docs\\a.txt | 3.00 | 4.13 | Upper"}));
    EXPECT_TRUE(user.IsEnabled("btnAttachModify"));
    EXPECT_TRUE(user.IsEnabled("btnAttachDelete"));
    EXPECT_EQ(gui.Action, 0);
}

TEST_F(AttachTab, ModifyAndADoubleClickEditTheRow)
{
    Entry().Attachments = {{"a.txt", 1, 2, "Ground"}, {"C:\\b.txt", 3, 4, "Upper"}};
    ASSERT_TRUE(Set());
    toolkit.When("frmAttach", [](FormDriver& it) {
        EXPECT_EQ(it.Text("txtAttachFile"), "C:\\b.txt");
        EXPECT_EQ(it.Text("cmbAttachLayout"), "Upper");
        EXPECT_EQ(it.Text("txtAttachX"), "3.00");
        EXPECT_EQ(it.Text("txtAttachY"), "4.00");
        for (const char* box : {"txtAttachX", "txtAttachY"}) {
            it.Type(box, "7");
            EXPECT_TRUE(it.Enter(box));
            EXPECT_EQ(it.Text(box), "7.00");
            it.Leave(box);
        }
        it.Click("btnOK");
    });
    user.ChooseAt("lstAttach", 1);
    user.Click("btnAttachModify");
    EXPECT_EQ(user.Rows("lstAttach"),
              (Texts{"a.txt | a.txt | 1.00 | 2.00 | Ground", "b.txt | C:\\b.txt | 7.00 | 7.00 | Upper"}));
    toolkit.When("frmAttach", [](FormDriver& it) {
        EXPECT_EQ(it.Text("txtAttachFile"), "a.txt");
        it.Choose("cmbAttachLayout", "Model");
        it.Click("btnOK");
    });
    user.DoubleClick("lstAttach", 0);
    EXPECT_EQ(user.Rows("lstAttach")[0], "a.txt | a.txt | 1.00 | 2.00 | Model");
}

TEST_F(AttachTab, ARowOfAVanishedLayoutAsksForAnother)
{
    Entry().Attachments = {{"a.txt", 1, 2, "Gone"}};
    ASSERT_TRUE(Set());
    toolkit.When("frmAttach", [](FormDriver& it) {
        EXPECT_EQ(it.Text("cmbAttachLayout"), "(none)");
        it.Click("btnOK");
        EXPECT_TRUE(it.IsReachable("btnOK"));
        it.Click("btnCancel");
    });
    user.DoubleClick("lstAttach", 0);
    EXPECT_EQ(Messages(),
              (std::vector<Message>{ProductMessage(kInvalid, MessageButtons::Ok, MessageIcon::Critical, 420)}));
}

TEST_F(AttachTab, EveryFieldMustBeFilled)
{
    ASSERT_TRUE(Set());
    for (const char* empty : {"txtAttachFile", "txtAttachX", "txtAttachY", "cmbAttachLayout"}) {
        SCOPED_TRACE(empty);
        toolkit.When("frmAttach", [&](FormDriver& it) {
            it.Type("txtAttachFile", "a.txt");
            if (it.Control(empty).kind == ControlKind::TextBox)
                it.Type(empty, "");
            else
                it.ChooseAt(empty, -1);
            it.Click("btnOK");
            EXPECT_EQ(it.Text("txtAttachFile"), std::string(empty) == "txtAttachFile" ? "" : "a.txt");
            it.Close();
        });
        user.Click("btnAttachAdd");
        EXPECT_EQ(Messages(),
                  (std::vector<Message>{ProductMessage(kInvalid, MessageButtons::Ok, MessageIcon::Critical, 420)}));
    }
    EXPECT_EQ(user.Rows("lstAttach"), Texts{});
}

TEST_F(AttachTab, BrowseStartsInTheFoldersOfTheFileAndTakesTheChoice)
{
    files.AddFolder("C:\\Docs");
    desktop.filesChosen = {"C:\\Docs\\new.pdf"};
    ASSERT_TRUE(Set());
    toolkit.When("frmAttach", [](FormDriver& it) {
        it.Type("txtAttachFile", "C:\\Docs\\old.txt");
        it.Click("btnAttachBrowse");
        EXPECT_EQ(it.Text("txtAttachFile"), "C:\\Docs\\new.pdf");
        it.Type("txtAttachFile", "D:\\Nowhere\\x.txt");
        it.Click("btnAttachBrowse"); // cancelled
        EXPECT_EQ(it.Text("txtAttachFile"), "D:\\Nowhere\\x.txt");
        it.Type("txtAttachFile", "");
        it.Click("btnAttachBrowse");
        it.Click("btnHelp");
        it.Click("btnCancel");
    });
    user.Click("btnAttachAdd");
    EXPECT_EQ(desktop.calls, (Texts{"AskOpenFile C:\\Docs\\*.*", "AskOpenFile ", "AskOpenFile ",
                                    "ShowHelp C:\\Program Files\\Tarnwick\\acadsmpdf.hlp 420"}));
    ASSERT_EQ(desktop.fileDialogs.size(), 3U);
    EXPECT_EQ(desktop.fileDialogs[0].filterName, "All Files (*.*)");
    EXPECT_EQ(desktop.fileDialogs[0].filterExtension, "*");
}

TEST_F(AttachTab, DeleteRemovesTheRowAndChoosesTheNext)
{
    Entry().Attachments = {{"a", 0, 0, "Ground"}, {"b", 0, 0, "Ground"}, {"c", 0, 0, "Ground"}};
    ASSERT_TRUE(Set());
    user.ChooseAt("lstAttach", 1);
    user.Click("btnAttachDelete");
    EXPECT_EQ(user.Rows("lstAttach"), (Texts{"a | a | 0.00 | 0.00 | Ground", "c | c | 0.00 | 0.00 | Ground"}));
    EXPECT_EQ(user.Control("lstAttach").selection, 1);
    user.Click("btnAttachDelete");
    user.Click("btnAttachDelete");
    EXPECT_EQ(user.Rows("lstAttach"), Texts{});
    EXPECT_FALSE(user.IsEnabled("btnAttachDelete"));
    EXPECT_FALSE(user.IsEnabled("btnAttachModify"));
    ASSERT_TRUE(Save());
    EXPECT_TRUE(Entry().Attachments.empty());
}

TEST_F(AttachTab, ThePickButtonClosesBothDialogs)
{
    ASSERT_TRUE(Set());
    toolkit.When("frmGUITap", [&](FormDriver& it) { it.Click("btnAttachAdd"); });
    toolkit.When("frmAttach", [](FormDriver& it) {
        it.Type("txtAttachFile", "kept.txt");
        it.Click("btnAttachPoints");
    });
    EXPECT_TRUE(gui.ShowModal());
    EXPECT_EQ(gui.Action, 4);
    EXPECT_EQ(toolkit.events, (Texts{"show frmGUITap", "show frmAttach", "hide frmAttach", "hide frmGUITap"}));
    EXPECT_EQ(attach.Text("txtAttachFile"), "kept.txt");
}

TEST_F(AttachTab, FailuresAreLogged)
{
    host.tape.FailCall("Layout.Name", "Automation error");
    EXPECT_FALSE(Set());
    EXPECT_EQ(Log(), (Lines{"RUNTIME ERROR: SetAttachTab -Automation error"}));
    keg.Layouts.clear();
    EXPECT_FALSE(Save());
    EXPECT_EQ(Log(), (Lines{"RUNTIME ERROR: SaveAttachTab -The drawing's settings hold no layout."}));
}

} // namespace
} // namespace sm
