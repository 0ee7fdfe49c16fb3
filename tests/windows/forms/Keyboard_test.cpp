// SPDX-License-Identifier: GPL-3.0-or-later
// The keyboard alone: order, mnemonics, Enter and Escape, and fields that are left.
#include "RecordingForm.h"

namespace sm::windows {
namespace {

using enum ControlKind;
using Reports = RecordingForm::Reports;

class Keyboard : public testing::Test {
protected:
    Keyboard()
    {
        form.Add(Label, "lblName", "&Name:", {5, 5, 40, 8});
        form.Add(TextBox, "txtName", "", {50, 3, 60, 12});
        form.Add(TextBox, "txtOther", "", {50, 20, 60, 12});
        form.Add(CheckBox, "chkBox", "&Box", {5, 40, 60, 10});
        form.Add(CommandButton, "btnOK", "&OK", {5, 80, 50, 14}).isDefault = true;
        form.Add(CommandButton, "btnCancel", "Canc&el", {60, 80, 50, 14}).isCancel = true;
    }
    RecordingForm form;
};

TEST_F(Keyboard, TabGoesThroughTheTableAndRound)
{
    form.controls[3].tabIndex = 20; // last of all
    form.Show([&] {
        std::string order = form.user.Focused();
        for (int i = 0; i < 5; ++i) {
            FormUser::Keys({VK_TAB});
            order += " " + form.user.Focused();
        }
        EXPECT_EQ(order, "txtName chkBox btnOK btnCancel txtOther txtName");
        FormUser::Keys({VK_SHIFT, VK_TAB});
        EXPECT_EQ(form.user.Focused(), "txtOther");
    });
}

TEST_F(Keyboard, SkipsWhatIsDisabledOrHidden)
{
    form.controls[3].enabled = false;
    form.controls[4].visible = false;
    form.Show([&] {
        FormUser::Keys({VK_TAB});
        EXPECT_EQ(form.user.Focused(), "btnOK");
    });
}

TEST_F(Keyboard, OfAGroupTheTickedOptionIsTheStop)
{
    form.Add(OptionButton, "optA", "A", {120, 5, 50, 10});
    form.Add(OptionButton, "optB", "B", {120, 20, 50, 10});
    form.Add(OptionButton, "optC", "C", {120, 35, 50, 10});
    form.Show([&] {
        form.user.Focus("btnCancel");
        form.Take();
        FormUser::Keys({VK_TAB});
        EXPECT_EQ(form.user.Focused(), "optA") << "none is ticked";
        EXPECT_EQ(form.Take(), Reports{"left btnCancel"}) << "to come there is no press";
        FormUser::Keys({VK_DOWN});
        EXPECT_EQ(form.user.Focused(), "optB");
        FormUser::Keys({VK_TAB});
        EXPECT_EQ(form.user.Focused(), "txtName");
        FormUser::Keys({VK_SHIFT, VK_TAB});
        EXPECT_EQ(form.user.Focused(), "optB");
        EXPECT_EQ(form.Take(), (Reports{"left optA", "clicked optB", "left optB", "left txtName"}));
    });
}

TEST_F(Keyboard, AMnemonicPressesItsButtonAfterTheFieldWasLeft)
{
    form.Show([&] {
        FormUser::Keys({'3'});
        FormUser::Keys({VK_MENU, 'E'});
        EXPECT_EQ(form.Take(), (Reports{"typed txtName '3' 1", "left txtName", "clicked btnCancel"}));
        FormUser::Keys({VK_MENU, 'B'});
        EXPECT_EQ(form.Take(), (Reports{"left btnCancel", "clicked chkBox"}));
        FormUser::Keys({'O'});
        EXPECT_EQ(form.Take(), (Reports{"left chkBox", "clicked btnOK"})) << "without Alt where nothing is typed";
    });
}

TEST_F(Keyboard, ALabelsMnemonicLeadsToTheFieldBesideIt)
{
    form.Show([&] {
        form.user.Focus("btnOK");
        FormUser::Keys({VK_MENU, 'N'});
        EXPECT_EQ(form.user.Focused(), "txtName");
    });
}

TEST_F(Keyboard, AMnemonicOfADisabledButtonDoesNothing)
{
    form.controls[6].enabled = false;
    form.Show([&] {
        form.Take();
        FormUser::Keys({VK_MENU, 'E'});
        EXPECT_EQ(form.Take(), Reports{});
    });
}

TEST_F(Keyboard, EnterAndEscapeAreTheFormsToUnderstand)
{
    form.Show([&] {
        for (const char* name : {"txtName", "chkBox", "btnOK"}) {
            form.user.Focus(name);
            form.Take();
            FormUser::Keys({VK_RETURN});
            FormUser::Keys({VK_ESCAPE});
            EXPECT_EQ(form.Take(), (Reports{std::string("enter in ") + name, "escape"}))
                << "no press of the toolkit's own";
        }
        EXPECT_NE(TheUiThread().Titled(L"A form"), nullptr) << "neither key closes a window by itself";
    });
}

TEST_F(Keyboard, AKeyThatIsHeldCountsOnce)
{
    form.Show([&] {
        constexpr LPARAM kHeld = (LPARAM{1} << 30) | 1;
        form.Take();
        PostMessageW(form.user.Find("txtName"), WM_KEYDOWN, VK_RETURN, kHeld);
        PostMessageW(form.user.Find("txtName"), WM_KEYDOWN, VK_ESCAPE, kHeld);
        TheUiThread().Rest();
        EXPECT_EQ(form.Take(), Reports{});
    });
}

TEST_F(Keyboard, LeavingTheWindowLeavesNoField)
{
    form.Show([&] {
        form.user.Focus("txtName");
        form.Take();
        HWND other = nullptr;
        TheUiThread().Run([&] {
            other = CreateWindowW(L"STATIC", L"other", WS_VISIBLE | WS_POPUP, 0, 0, 50, 50, nullptr, nullptr, nullptr,
                                  nullptr);
            SetForegroundWindow(other);
        });
        TheUiThread().Rest();
        EXPECT_EQ(form.user.Focused(), "(none)");
        TheUiThread().Run([&] {
            SetForegroundWindow(form.user.Window());
            DestroyWindow(other);
        });
        TheUiThread().Rest();
        EXPECT_EQ(form.user.Focused(), "txtName") << "where the keyboard was before";
        EXPECT_EQ(form.Take(), Reports{});
        FormUser::Keys({VK_TAB});
        EXPECT_EQ(form.Take(), Reports{"left txtName"});
    });
}

TEST_F(Keyboard, AFieldThatTheFormTakesAwayIsntLeft)
{
    form.Show([&] {
        form.user.Focus("txtName");
        form.Take();
        form.Change(2, [](FormControl& control) { control.enabled = false; });
        EXPECT_EQ(form.Take(), Reports{});
        EXPECT_EQ(form.user.Focused(), "txtOther");
        form.Change(3, [](FormControl& control) { control.visible = false; });
        EXPECT_EQ(form.Take(), Reports{});
        EXPECT_EQ(form.user.Focused(), "chkBox");
    });
}

} // namespace
} // namespace sm::windows
