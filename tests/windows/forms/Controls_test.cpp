// SPDX-License-Identifier: GPL-3.0-or-later
// Each kind of control but the lists, both ways: what the form says is shown, what the user does is reported.
#include "RecordingForm.h"

#include <commctrl.h>

namespace sm::windows {
namespace {

using enum ControlKind;
using Reports = RecordingForm::Reports;

constexpr int kAtBox = 6; ///< pixels, where a check box has its box

TEST(TextBoxes, ReportWhatIsTypedAndWhereTheCaretIs)
{
    RecordingForm form;
    form.Add(TextBox, "box", "", {10, 10, 100, 12}).text = "ab";
    form.Show([&] {
        EXPECT_EQ(form.user.Text("box"), "ab");
        form.user.Focus("box");
        form.user.Ask("box", EM_SETSEL, 1, 1);
        form.user.Ask("box", WM_CHAR, 0xE9);
        FormUser::Keys({VK_END});
        FormUser::Keys({VK_BACK});
        EXPECT_EQ(form.Take(), (Reports{"caret box 1",
                                        "typed box 'a\xC3\xA9"
                                        "b' 3",
                                        "caret box 4", "typed box 'a\xC3\xA9' 3"}));
        form.user.Type("box", "anew");
        EXPECT_EQ(form.controls[1].text, "anew");
    });
}

TEST(TextBoxes, ShowTextAndCaretOfTheForm)
{
    RecordingForm form;
    form.Add(TextBox, "box", "", {10, 10, 100, 12});
    form.Show([&] {
        form.user.Focus("box");
        form.Take();
        form.Change(1, [](FormControl& box) {
            box.text = "\xC3\xA9[User]!";
            box.caret = 8;
        });
        EXPECT_EQ(form.user.Text("box"), "\xC3\xA9[User]!");
        EXPECT_EQ(form.user.Ask("box", EM_GETSEL), MAKELONG(7, 7));
        EXPECT_EQ(form.Take(), Reports{}) << "what the form does isn't told to it";
        form.user.Ask("box", WM_CHAR, 'x');
        EXPECT_EQ(form.Take(), Reports{"typed box '\xC3\xA9[User]x!' 9"});
    });
}

TEST(TextBoxes, ShowWhatTheFormHoldsWhenItRefuses)
{
    RecordingForm form;
    form.Add(TextBox, "box", "", {10, 10, 100, 12}).text = "kept";
    form.refuses = true;
    form.Show([&] {
        form.user.Type("box", "other");
        EXPECT_EQ(form.user.Text("box"), "kept");
    });
}

TEST(TextBoxes, TellWhenAProgramThatPlaysTheUserLeavesThem)
{
    RecordingForm form;
    form.Add(TextBox, "box", "", {10, 10, 100, 12});
    form.Show([&] {
        form.user.TypeAndLeave("box", "3");
        EXPECT_EQ(form.Take().back(), "left box");
    });
}

/// The colour behind the control's text, as its window asks for it.
COLORREF BackOf(const RecordingForm& form, const std::string& name, UINT message = WM_CTLCOLOREDIT)
{
    const HWND window = form.user.Find(name);
    COLORREF color = 0;
    TheUiThread().Run([&] {
        const HDC canvas = GetDC(window);
        SendMessageW(GetParent(window), message, reinterpret_cast<WPARAM>(canvas), reinterpret_cast<LPARAM>(window));
        color = GetBkColor(canvas);
        ReleaseDC(window, canvas);
    });
    return color;
}

TEST(TextBoxes, ShowTheBackgroundTheyAreGiven)
{
    RecordingForm form;
    form.Add(TextBox, "box", "", {10, 10, 100, 12});
    form.Show([&] {
        EXPECT_EQ(BackOf(form, "box"), GetSysColor(COLOR_WINDOW));
        form.Change(1, [](FormControl& box) { box.backColor = {ColorRole::ButtonFace, 0}; });
        EXPECT_EQ(BackOf(form, "box"), GetSysColor(COLOR_BTNFACE));
        form.Change(1, [](FormControl& box) { box.backColor = {ColorRole::Explicit, 0x102030}; });
        EXPECT_EQ(BackOf(form, "box"), RGB(0x30, 0x20, 0x10)) << "red lies in the low byte";
    });
}

TEST(CheckBoxes, ChangeOverWhenTheFormAgrees)
{
    RecordingForm form;
    form.Add(CheckBox, "box", "Tick", {10, 10, 100, 10});
    form.Show([&] {
        const auto isTicked = [&] { return form.user.Ask("box", BM_GETCHECK) == BST_CHECKED; };
        form.user.Press("box", kAtBox, kAtBox);
        EXPECT_TRUE(isTicked());
        FormUser::Keys({VK_SPACE});
        EXPECT_FALSE(isTicked());
        form.user.Click("box");
        EXPECT_TRUE(isTicked());
        EXPECT_EQ(form.Take(), (Reports{"clicked box", "clicked box", "clicked box"}));
        form.refuses = true;
        form.user.Press("box", kAtBox, kAtBox);
        EXPECT_TRUE(isTicked()) << "the window shows what the form holds";
        form.Take();
        form.Change(1, [](FormControl& control) { control.value = 0; });
        EXPECT_FALSE(isTicked());
        EXPECT_EQ(form.Take(), Reports{});
    });
}

TEST(Options, AreOneGroupForEachParent)
{
    RecordingForm form;
    form.Add(Frame, "left", "Left", {5, 5, 90, 90});
    form.Add(OptionButton, "a", "A", {6, 12, 60, 10}, 1).value = 1;
    form.Add(OptionButton, "b", "B", {6, 26, 60, 10}, 1);
    form.Add(Frame, "right", "Right", {100, 5, 90, 90});
    form.Add(OptionButton, "c", "C", {6, 12, 60, 10}, 4);
    form.Add(OptionButton, "d", "D", {6, 26, 60, 10}, 4).value = 1;
    const auto ticked = [&] {
        std::string names;
        for (const char* name : {"a", "b", "c", "d"})
            names += form.user.Ask(name, BM_GETCHECK) == BST_CHECKED ? name : "";
        return names;
    };
    form.Show([&] {
        EXPECT_EQ(ticked(), "ad");
        form.user.Press("b", kAtBox, kAtBox);
        EXPECT_EQ(ticked(), "bd");
        FormUser::Keys({VK_UP});
        EXPECT_EQ(ticked(), "ad") << "arrows move inside the group";
        EXPECT_EQ(form.Take(), (Reports{"left a", "clicked b", "left b", "clicked a"}));
        form.Change(2, [](FormControl& option) { option.value = 0; });
        EXPECT_EQ(ticked(), "d") << "a group without a choice";
        EXPECT_EQ(form.Take(), Reports{});
        form.refuses = true;
        form.user.Click("b");
        EXPECT_EQ(ticked(), "d");
        EXPECT_EQ(form.Take(), (Reports{"left a", "clicked b"}));
    });
}

TEST(Buttons, ReportOncePerPress)
{
    RecordingForm form;
    form.Add(TextBox, "box", "", {10, 50, 60, 12});
    form.Add(CommandButton, "ok", "&OK", {10, 10, 60, 14});
    form.Add(ColorButton, "color", "", {80, 10, 60, 14}).backColor = {ColorRole::Explicit, 0x0000FF};
    form.Add(Toolbar, "bar", "", {10, 30, 100, 16});
    form.Add(ToolButton, "user", "User", {0, 1, 40, 14}, 4);
    form.Add(ToolButton, "file", "File", {40, 1, 40, 14}, 4);
    form.Show([&] {
        form.user.Focus("box");
        form.Take();
        form.user.PressTool("file");
        EXPECT_EQ(form.Take(), Reports{"clicked file"});
        EXPECT_EQ(form.user.Focused(), "box") << "what is typed goes on after the insertion";
        form.user.Press("ok", 10, 10);
        form.user.Press("color", 10, 10);
        form.user.Press("color", 10, 10);
        FormUser::Keys({VK_SPACE});
        EXPECT_EQ(form.Take(),
                  (Reports{"left box", "clicked ok", "left ok", "clicked color", "clicked color", "clicked color"}));
    });
}

TEST(Buttons, OfAToolbarAreOneStopWithArrows)
{
    RecordingForm form;
    form.Add(TextBox, "box", "", {10, 50, 60, 12});
    form.Add(Toolbar, "bar", "", {10, 30, 150, 16});
    form.Add(ToolButton, "user", "User", {0, 1, 40, 14}, 2);
    form.Add(ToolButton, "file", "File", {40, 1, 40, 14}, 2).enabled = false;
    form.Add(ToolButton, "path", "Path", {80, 1, 40, 14}, 2);
    form.Show([&] {
        FormUser::Keys({VK_TAB});
        EXPECT_EQ(form.user.Focused(), "bar");
        form.Take();
        FormUser::Keys({VK_SPACE});
        FormUser::Keys({VK_RIGHT});
        FormUser::Keys({VK_RETURN});
        EXPECT_EQ(form.Take(), (Reports{"clicked user", "clicked path"})) << "past the one that can't be pressed";
        form.user.PressTool("file");
        EXPECT_EQ(form.Take(), Reports{});
        form.Change(4, [](FormControl& control) { control.enabled = true; });
        form.user.PressTool("file");
        EXPECT_EQ(form.Take(), Reports{"clicked file"});
    });
}

TEST(Images, ArePressedWhereSomethingHappens)
{
    RecordingForm form;
    form.Add(CommandButton, "ok", "OK", {10, 70, 60, 14});
    form.Add(Picture, "box", "", {10, 10, 100, 50});
    form.Add(Image, "logo", "", {5, 5, 90, 40}, 2).picture = "logo";
    form.Add(Image, "sign", "", {120, 10, 21, 20}).picture = "warning";
    form.clickable = 3;
    form.Show([&] {
        form.user.Press("logo", 20, 20);
        form.user.Focus("ok");
        form.Take();
        FormUser::Keys({VK_TAB});
        EXPECT_EQ(form.user.Focused(), "logo") << "the keyboard gets there, too";
        FormUser::Keys({VK_SPACE});
        form.user.Press("sign", 5, 5);
        EXPECT_EQ(form.Take(), (Reports{"left ok", "clicked logo"}));
        EXPECT_EQ(form.user.Text("sign"), "Warning");
    });
}

TEST(Tabs, ShowThePageInFront)
{
    RecordingForm form;
    form.Add(TabStrip, "tabs", "", {5, 5, 190, 90}).selection = 0;
    form.Add(TabPage, "one", "One", {0, 0, 182, 70}, 1);
    form.Add(TabPage, "two", "Two", {0, 0, 182, 70}, 1);
    form.Add(TextBox, "first", "", {10, 10, 60, 12}, 2);
    form.Add(TextBox, "second", "", {10, 10, 60, 12}, 3);
    form.Show([&] {
        EXPECT_TRUE(form.user.IsSeen("first"));
        EXPECT_FALSE(form.user.IsSeen("second"));
        form.user.Focus("first");
        form.Take();
        RECT tab = {};
        form.user.Ask("tabs", TCM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&tab));
        form.user.Press("tabs", (tab.left + tab.right) / 2, (tab.top + tab.bottom) / 2);
        EXPECT_TRUE(form.user.IsSeen("second"));
        EXPECT_FALSE(form.user.IsSeen("first"));
        EXPECT_EQ(form.Take(), (Reports{"left first", "selected tabs 1"}));
        FormUser::Keys({VK_CONTROL, VK_TAB});
        EXPECT_EQ(form.Take(), Reports{"selected tabs 0"});
        form.Change(1, [](FormControl& control) { control.selection = 1; });
        EXPECT_TRUE(form.user.IsSeen("second"));
        EXPECT_EQ(form.Take(), Reports{});
        form.refuses = true;
        form.user.TurnTo("tabs", 0);
        EXPECT_EQ(form.user.Ask("tabs", TCM_GETCURSEL), 1) << "the page that the form has in front stays there";
        EXPECT_TRUE(form.user.IsSeen("second"));
    });
}

TEST(EveryKind, ShowsCaptionsAndStates)
{
    RecordingForm form;
    form.Add(Frame, "frame", "Frame", {5, 5, 90, 40});
    form.Add(Label, "label", "Inches", {6, 12, 50, 8}, 1);
    form.Add(ProgressBar, "bar", "", {100, 10, 80, 12}).value = 30;
    form.Add(Timer, "timer", "", {});
    form.Add(CheckBox, "box", "Box", {100, 30, 60, 10}).visible = false;
    form.Show([&] {
        EXPECT_EQ(form.user.Text("frame"), "Frame");
        EXPECT_EQ(form.user.Ask("bar", PBM_GETPOS), 30);
        EXPECT_FALSE(form.user.IsSeen("box"));
        form.Change(0, [](FormControl& control) { control.caption = "Another"; });
        form.Change(2, [](FormControl& control) { control.caption = "mm"; });
        form.Change(1, [](FormControl& control) { control.enabled = false; });
        form.Change(3, [](FormControl& control) { control.value = 31; });
        form.Change(5, [](FormControl& control) { control.visible = true; });
        EXPECT_NE(TheUiThread().Titled(L"Another"), nullptr);
        EXPECT_EQ(form.user.Text("label"), "mm");
        EXPECT_FALSE(form.user.IsEnabled("label")) << "with the frame that it stands in";
        EXPECT_EQ(form.user.Ask("bar", PBM_GETPOS), 31);
        EXPECT_TRUE(form.user.IsSeen("box"));
        form.Change(1, [](FormControl& control) { control.enabled = true; });
        EXPECT_TRUE(form.user.IsEnabled("label"));
        TheUiThread().Run([&] { form.view->ControlChanged(77); });
        EXPECT_EQ(form.Take(), Reports{});
    });
}

} // namespace
} // namespace sm::windows
