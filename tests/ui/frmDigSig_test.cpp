// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/SettingsStand.h"

namespace sm {
namespace {

class DigSigTab : public SettingsForms {
protected:
    bool Set() { return SetDigSigTab(gui, digSig, keg); }
    bool Save() { return SaveDigSigTab(gui, keg); }
    static void Fill(FormDriver& it, const std::string& name, const Texts& corners)
    {
        it.Type("txtDigSigName", name);
        std::size_t i = 0;
        for (const char* box : {"txtDigSigX1", "txtDigSigY1", "txtDigSigX2", "txtDigSigY2"})
            it.TypeAndLeave(box, corners[i++]);
    }
};

const char* const kTaken = "This digital signature box already exists, please enter a unique Name to continue.";
const char* const kInvalidField = "You must enter a valid Name, Layout Tab and Rectangle.";

TEST_F(DigSigTab, ListsAndSavesFields)
{
    Entry().SignatureFields = {{"Client", "signs here", 1, 2, 3.456, 4, "Ground"}};
    ASSERT_TRUE(Set());
    EXPECT_EQ(user.Rows("lstDigSig"), (Texts{"Client | signs here | 1.00 | 2.00 | 3.46 | 4.00 | Ground"}));
    ASSERT_TRUE(Save());
    EXPECT_EQ(Entry().SignatureFields,
              (std::vector<SignatureFieldEntry>{{"Client", "signs here", 1, 2, 3.46, 4, "Ground"}}));
}

TEST_F(DigSigTab, AddAppendsAndChoosesTheRow)
{
    ASSERT_TRUE(Set());
    toolkit.When("frmDigSig", [](FormDriver& it) {
        EXPECT_EQ(it.Title(), "Digital Signature Field");
        for (const char* box : {"txtDigSigX1", "txtDigSigY1", "txtDigSigX2", "txtDigSigY2"})
            EXPECT_EQ(it.Text(box), "0.00");
        EXPECT_EQ(it.Text("txtDigSigName"), "");
        EXPECT_EQ(it.Text("txtDigSigDesc"), "");
        EXPECT_EQ(it.Text("cmbDigSigLayout"), "Ground");
        Fill(it, "Client", {"1", "2", "3", "4"});
        it.Type("txtDigSigDesc", "signs here");
        for (const char* box : {"txtDigSigX1", "txtDigSigY1", "txtDigSigX2", "txtDigSigY2"})
            EXPECT_TRUE(it.Enter(box));
        it.Click("btnOK");
    });
    user.Click("btnDigSigAdd");
    EXPECT_EQ(user.Rows("lstDigSig"), (Texts{"Client | signs here | 1.00 | 2.00 | 3.00 | 4.00 | Ground"}));
    EXPECT_EQ(user.Control("lstDigSig").selection, 0);
    EXPECT_TRUE(user.IsEnabled("btnDigSigModify"));
    EXPECT_TRUE(user.IsEnabled("btnDigSigDelete"));
}

TEST_F(DigSigTab, ANameIsTakenOnce)
{
    Entry().SignatureFields = {{"Client", "", 0, 0, 1, 1, "Ground"}, {"Owner", "", 0, 0, 1, 1, "Ground"}};
    ASSERT_TRUE(Set());
    const auto refused = [&](const std::function<void()>& open, const char* name) {
        toolkit.When("frmDigSig", [&](FormDriver& it) {
            it.Type("txtDigSigName", name);
            it.Click("btnOK");
            it.Click("btnCancel");
        });
        open();
        EXPECT_EQ(Messages(),
                  (std::vector<Message>{ProductMessage(kTaken, MessageButtons::Ok, MessageIcon::Critical, 430)}));
    };
    refused([&] { user.Click("btnDigSigAdd"); }, "Owner");
    user.ChooseAt("lstDigSig", 0);
    refused([&] { user.Click("btnDigSigAdd"); }, "Client"); // a new row has no name of its own
    refused([&] { user.Click("btnDigSigModify"); }, "Owner");
    EXPECT_EQ(user.Rows("lstDigSig")[0], "Client |  | 0.00 | 0.00 | 1.00 | 1.00 | Ground");
}

TEST_F(DigSigTab, ItsOwnNameIsNotTaken)
{
    Entry().SignatureFields = {{"Client", "", 0, 0, 1, 1, "Ground"}, {"Owner", "by hand", 0, 0, 1, 1, "Ground"}};
    ASSERT_TRUE(Set());
    toolkit.When("frmDigSig", [](FormDriver& it) {
        EXPECT_EQ(it.Text("txtDigSigDesc"), "by hand");
        Fill(it, "Owner", {"5", "5", "6", "6"});
        it.Click("btnOK");
    });
    user.DoubleClick("lstDigSig", 1);
    EXPECT_EQ(user.Rows("lstDigSig")[1], "Owner | by hand | 5.00 | 5.00 | 6.00 | 6.00 | Ground");
    toolkit.When("frmDigSig", [](FormDriver& it) {
        it.Type("txtDigSigName", "owner");
        it.Click("btnOK");
    });
    user.ChooseAt("lstDigSig", 0);
    user.Click("btnDigSigModify");
    EXPECT_EQ(user.Rows("lstDigSig")[0], "owner |  | 0.00 | 0.00 | 1.00 | 1.00 | Ground")
        << "names differ by letter case";
}

TEST_F(DigSigTab, NameLayoutAndRectangleMustBeValid)
{
    const struct {
        const char* name;
        const char* fieldName;
        Texts corners;
        bool layout;
    } rows[] = {{"no name", "", {"0", "0", "1", "1"}, true},
                {"no layout", "Client", {"0", "0", "1", "1"}, false},
                {"no width", "Client", {"2", "0", "2", "1"}, true},
                {"no height", "Client", {"0", "3", "1", "3"}, true},
                {"no width once formatted", "Client", {"2.001", "0", "2.002", "1"}, true},
                {"not numbers", "Client", {"a", "b", "c", "d"}, true}};
    ASSERT_TRUE(Set());
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        toolkit.When("frmDigSig", [&](FormDriver& it) {
            Fill(it, row.fieldName, row.corners);
            if (!row.layout)
                it.ChooseAt("cmbDigSigLayout", -1);
            it.Click("btnOK");
            EXPECT_EQ(it.Text("txtDigSigName"), row.fieldName);
            it.Close();
        });
        user.Click("btnDigSigAdd");
        EXPECT_EQ(Messages(), (std::vector<Message>{
                                  ProductMessage(kInvalidField, MessageButtons::Ok, MessageIcon::Critical, 440)}));
    }
    EXPECT_EQ(user.Rows("lstDigSig"), Texts{});
}

TEST_F(DigSigTab, ATakenNameIsToldBeforeAnInvalidRectangle)
{
    Entry().SignatureFields = {{"Client", "", 0, 0, 1, 1, "Ground"}};
    ASSERT_TRUE(Set());
    toolkit.When("frmDigSig", [](FormDriver& it) {
        it.Type("txtDigSigName", "Client");
        it.Click("btnOK");
        it.Type("txtDigSigName", "Other");
        it.Click("btnOK");
        it.Click("btnHelp");
        it.Click("btnCancel");
    });
    user.Click("btnDigSigAdd");
    const auto messages = Messages();
    ASSERT_EQ(messages.size(), 2U);
    EXPECT_EQ(messages[0].text, kTaken);
    EXPECT_EQ(messages[1].text, kInvalidField);
    EXPECT_EQ(desktop.calls, (Texts{"ShowHelp C:\\Program Files\\Tarnwick\\acadsmpdf.hlp 440"}));
}

TEST_F(DigSigTab, DeleteRemovesTheRow)
{
    Entry().SignatureFields = {{"Client", "", 0, 0, 1, 1, "Ground"}};
    ASSERT_TRUE(Set());
    user.ChooseAt("lstDigSig", 0);
    user.Click("btnDigSigDelete");
    EXPECT_EQ(user.Rows("lstDigSig"), Texts{});
    EXPECT_FALSE(user.IsEnabled("btnDigSigModify"));
    EXPECT_FALSE(user.IsEnabled("btnDigSigDelete"));
}

TEST_F(DigSigTab, ThePickButtonClosesBothDialogs)
{
    ASSERT_TRUE(Set());
    toolkit.When("frmGUITap", [&](FormDriver& it) { it.Click("btnDigSigAdd"); });
    toolkit.When("frmDigSig", [](FormDriver& it) {
        EXPECT_EQ(it.Caption("btnDigSigPoints"), "Get Rect >");
        it.Click("btnDigSigPoints");
    });
    EXPECT_TRUE(gui.ShowModal());
    EXPECT_EQ(gui.Action, 5);
    EXPECT_EQ(toolkit.events, (Texts{"show frmGUITap", "show frmDigSig", "hide frmDigSig", "hide frmGUITap"}));
}

TEST_F(DigSigTab, FailuresAreLogged)
{
    host.tape.FailCall("Layout.TabOrder", "Automation error");
    EXPECT_FALSE(Set());
    EXPECT_EQ(Log(), (Lines{"RUNTIME ERROR: SetDigSigTab -Automation error"}));
    keg.Layouts.clear();
    EXPECT_FALSE(Save());
    EXPECT_EQ(Log(), (Lines{"RUNTIME ERROR: SaveDigSigTab -The drawing's settings hold no layout."}));
}

} // namespace
} // namespace sm
