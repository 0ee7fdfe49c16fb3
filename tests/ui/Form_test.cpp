// SPDX-License-Identifier: GPL-3.0-or-later
// The form model by itself, on forms made up for it.
#include "ui/form/Form.h"

#include "ports/HostError.h"
#include "ui/UiStand.h"

namespace sm {
namespace {

using enum ControlKind;

FormTable SmallForm()
{
    return {ControlRow(FormWindow, "frmSmall", "Small", {0, 0, 100, 100}),
            ControlRow(TabStrip, "tabMain", "", {}),
            ControlRow(TabPage, "pagFirst", "First", {}, "tabMain"),
            ControlRow(TabPage, "pagSecond", "Second", {}, "tabMain"),
            ControlRow(Frame, "fmeChoice", "Choice", {}, "pagFirst"),
            ControlRow(OptionButton, "optA", "A", {}, "fmeChoice").Ticked(),
            ControlRow(OptionButton, "optB", "B", {}, "fmeChoice"),
            ControlRow(OptionButton, "optOther", "Other", {}, "pagFirst").Ticked(),
            ControlRow(CheckBox, "chkOn", "On", {}, "pagSecond"),
            ControlRow(TextBox, "txtName", "", {}).Text("here"),
            ControlRow(ComboBox, "cmbList", "", {}).Items({"one", "two"}).Selected(1),
            ControlRow(ListView, "lstRows", "", {}).Columns({{"Title", 40}, {"X", 20}}),
            ControlRow(CommandButton, "btnOK", "OK", {}).Default(),
            ControlRow(CommandButton, "btnCancel", "Cancel", {}).Cancel(),
            ControlRow(CommandButton, "btnHidden", "Hidden", {}).Hidden()};
}

class SmallFormStand : public UiStand {
protected:
    SmallFormStand()
    {
        for (const char* name : {"optA", "optB", "chkOn", "txtName", "cmbList", "lstRows", "btnOK", "btnCancel"}) {
            form.On(name, FormEvent::Click, [this, name] { heard.push_back(std::string(name) + " click"); });
            form.On(name, FormEvent::Change, [this, name] { heard.push_back(std::string(name) + " change"); });
            form.On(name, FormEvent::LostFocus, [this, name] { heard.push_back(std::string(name) + " left"); });
            form.On(name, FormEvent::DoubleClick, [this, name] { heard.push_back(std::string(name) + " double"); });
        }
    }
    Texts Heard() { return std::exchange(heard, {}); }
    std::size_t At(const std::string& name)
    {
        for (std::size_t i = 0; i < form.Controls().size(); ++i)
            if (form.Controls()[i].name == name)
                return i;
        return 0;
    }
    Texts heard;
    Form form{session, SmallForm()};
    FormDriver user{form};
};

TEST_F(SmallFormStand, StartsAsItsTableSays)
{
    EXPECT_EQ(form.Name(), "frmSmall");
    EXPECT_EQ(user.Text("txtName"), "here");
    EXPECT_EQ(user.Text("cmbList"), "two");
    EXPECT_EQ(user.Ticked({"optA", "optB", "optOther", "chkOn"}), (Texts{"optA", "optOther"}));
    EXPECT_EQ(user.Back("txtName"), "window");
    EXPECT_EQ(user.Back("btnOK"), "face");
    EXPECT_EQ(user.Control("optA").parent, At("fmeChoice"));
    EXPECT_EQ(user.Control("btnOK").parent, 0U);
    EXPECT_EQ(user.Control("tabMain").tabIndex, 0);
    EXPECT_EQ(user.Control("optA").tabIndex, 1);
    EXPECT_EQ(user.Control("fmeChoice").tabIndex, -1);
    EXPECT_EQ(user.Control("btnHidden").tabIndex, -1);
    EXPECT_EQ(user.Control("tabMain").selection, 0);
}

TEST_F(SmallFormStand, UsersChoicesRunHandlersAndCodeDoesNot)
{
    form.SetTicked("chkOn", true);
    form.Select("cmbList", 0);
    form.SetText("txtName", "by code");
    EXPECT_EQ(Heard(), Texts{});
    user.Tick("chkOn", false);
    user.Choose("cmbList", "two");
    user.Type("txtName", "by hand");
    user.Leave("txtName");
    EXPECT_EQ(Heard(), (Texts{"chkOn click", "cmbList click", "txtName change", "txtName left"}));
    EXPECT_EQ(user.Text("txtName"), "by hand");
}

TEST_F(SmallFormStand, OneOptionOfAGroupIsTicked)
{
    user.Click("optB");
    EXPECT_EQ(user.Ticked({"optA", "optB", "optOther"}), (Texts{"optB", "optOther"}));
    user.Click("optB");
    EXPECT_EQ(user.Ticked({"optA", "optB"}), (Texts{"optB"}));
    form.SetTicked("optA", true);
    EXPECT_EQ(user.Ticked({"optA", "optB"}), (Texts{"optA"}));
    form.SetTicked("optA", false);
    EXPECT_EQ(user.Ticked({"optA", "optB"}), Texts{});
}

TEST_F(SmallFormStand, WhatCannotBeReachedIsLeftAlone)
{
    form.SetEnabled("chkOn", false);
    form.UserClicked(At("chkOn"));
    form.SetEnabled("pagFirst", false);
    form.UserClicked(At("optB"));
    form.SetVisible("txtName", false);
    form.UserTyped(At("txtName"), "unseen", 0);
    form.UserLeft(At("txtName"));
    form.UserMovedCaret(At("txtName"), 2);
    form.UserSelected(999, 0);
    form.UserClicked(999);
    EXPECT_FALSE(form.UserPressedEnter(999) && heard.empty());
    EXPECT_EQ(Heard(), (Texts{"btnOK click"})) << "Enter presses the default button wherever it comes from";
    EXPECT_EQ(user.Text("txtName"), "here");
    EXPECT_EQ(user.Ticked({"chkOn", "optB"}), Texts{});
}

TEST_F(SmallFormStand, EnterAndEscapePressTheirButtons)
{
    EXPECT_TRUE(user.Enter("txtName"));
    EXPECT_TRUE(user.Enter("btnCancel"));
    EXPECT_TRUE(user.Escape());
    form.SetEnabled("btnOK", false);
    form.SetVisible("btnCancel", false);
    EXPECT_FALSE(user.Enter("txtName"));
    EXPECT_FALSE(user.Escape());
    EXPECT_EQ(Heard(), (Texts{"btnOK click", "btnCancel click", "btnCancel click"}));
}

TEST_F(SmallFormStand, TheCloseBoxIsCancelOrElseHides)
{
    toolkit.When("frmSmall", [](FormDriver& shown) { shown.Close(); });
    form.On("btnCancel", FormEvent::Click, [this] {
        heard.push_back("cancelled");
        form.Hide();
    });
    EXPECT_TRUE(form.ShowModal());
    EXPECT_EQ(Heard(), (Texts{"cancelled"}));

    form.SetEnabled("btnCancel", false);
    toolkit.When("frmSmall", [](FormDriver& shown) { shown.Close(); });
    EXPECT_TRUE(form.ShowModal());
    EXPECT_EQ(Heard(), Texts{});
    EXPECT_EQ(toolkit.events, (Texts{"show frmSmall", "hide frmSmall", "show frmSmall", "hide frmSmall"}));
}

TEST_F(SmallFormStand, ListsChooseWhatTheyHave)
{
    form.Select("cmbList", 2);
    EXPECT_EQ(user.Text("cmbList"), "(none)");
    EXPECT_FALSE(form.SelectText("cmbList", "three"));
    EXPECT_TRUE(form.SelectText("cmbList", "one"));
    EXPECT_EQ(form.Text("cmbList"), "one");
    form.ReplaceItem("cmbList", 0, "uno");
    form.ReplaceItem("cmbList", 7, "lost");
    form.AddItem("cmbList", "three");
    EXPECT_EQ(user.Items("cmbList"), (Texts{"uno", "two", "three"}));
    EXPECT_EQ(user.Text("cmbList"), "uno");
    form.SetItems("cmbList", {"x"});
    EXPECT_EQ(form.Selection("cmbList"), kNothingSelected);
}

TEST_F(SmallFormStand, RowsComeAndGo)
{
    form.SetRows("lstRows", {{"a", {"1"}}, {"b", {"2"}}});
    EXPECT_EQ(form.SelectedRow("lstRows"), nullptr);
    user.DoubleClick("lstRows", 1);
    EXPECT_EQ(Heard(), (Texts{"lstRows click", "lstRows double"}));
    EXPECT_EQ(form.SelectedRow("lstRows")->text, "b");
    form.ReplaceRow("lstRows", 1, {"c", {"3"}});
    form.ReplaceRow("lstRows", 9, {"lost", {}});
    form.AddRow("lstRows", {"d", {}});
    EXPECT_EQ(user.Rows("lstRows"), (Texts{"a | 1", "c | 3", "d"}));
    form.RemoveRow("lstRows", 5);
    form.RemoveRow("lstRows", 0);
    EXPECT_EQ(user.Rows("lstRows"), (Texts{"c | 3", "d"}));
    EXPECT_EQ(form.SelectedRow("lstRows"), nullptr);
}

TEST_F(SmallFormStand, TabPagesComeForward)
{
    user.ChooseAt("tabMain", 1);
    EXPECT_EQ(user.Control("tabMain").selection, 1);
    user.ChooseAt("tabMain", 2);
    user.ChooseAt("tabMain", -1);
    EXPECT_EQ(user.Control("tabMain").selection, 1);
}

TEST_F(SmallFormStand, TheCaretStaysOnCharacters)
{
    form.UserTyped(At("txtName"), "\xC3\xA4x", 1); // inside the first letter
    EXPECT_EQ(user.Control("txtName").caret, 0U);
    form.UserMovedCaret(At("txtName"), 2);
    EXPECT_EQ(user.Control("txtName").caret, 2U);
    form.UserMovedCaret(At("txtName"), 99);
    EXPECT_EQ(user.Control("txtName").caret, 3U);
    form.SetText("txtName", "ab", 99);
    EXPECT_EQ(user.Control("txtName").caret, 2U);
}

TEST_F(SmallFormStand, AFailingHandlerIsToldToTheObserverAlone)
{
    form.On("btnOK", FormEvent::Click, [] { throw HostError("no such drawing"); });
    EXPECT_NO_THROW(user.Click("btnOK"));
    EXPECT_EQ(observer.carriedPast, (Texts{"btnOK: no such drawing"}));
}

TEST_F(SmallFormStand, AMissingControlIsAnError)
{
    const auto description = [&](const std::function<void()>& call) {
        try {
            call();
        } catch (const HostError& error) {
            return error.Description();
        }
        return std::string("no error");
    };
    EXPECT_EQ(description([&] { form.SetText("txtNone", ""); }), "There is no control 'txtNone'.");
    EXPECT_EQ(description([&] { (void)form.IsTicked("chkNone"); }), "There is no control 'chkNone'.");
    EXPECT_FALSE(form.Has("txtNone"));
    EXPECT_TRUE(form.Has("txtName"));
}

TEST_F(SmallFormStand, WithoutAScreenNothingIsShown)
{
    toolkit.hasScreen = false;
    int loads = 0;
    form.On("frmSmall", FormEvent::Load, [&] { ++loads; });
    EXPECT_FALSE(form.ShowModal());
    EXPECT_FALSE(form.ShowModal());
    form.Hide();
    form.PumpEvents();
    EXPECT_EQ(loads, 1);
    EXPECT_EQ(toolkit.events, Texts{});
}

} // namespace
} // namespace sm
