// SPDX-License-Identifier: GPL-3.0-or-later
// All nine forms as they are seen: nothing is cut off, and what they look like is kept beside the build.
#include "../forms/FormUser.h"
#include "Png.h"

#include "doubles/TestHouse.h"
#include "ui/FilledForms.h"
#include "windows/automation/WideText.h"
#include "windows/controls/ControlWindow.h"
#include "windows/forms/Win32Toolkit.h"

#include <algorithm>

namespace sm::windows {
namespace {

std::wstring& Folder()
{
    static std::wstring folder;
    return folder;
}

std::string& Dots()
{
    static std::string dots;
    return dots;
}

std::wstring TextOf(HWND window)
{
    wchar_t text[300] = {};
    GetWindowTextW(window, text, 300);
    return text;
}

/// Pixels of the caption in the control's own font, on one line or wrapped at its width.
SIZE CaptionSize(HWND window, bool wraps)
{
    RECT room = {};
    GetClientRect(window, &room);
    const HDC canvas = GetDC(window);
    SelectObject(canvas, reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0)));
    const std::wstring text = TextOf(window);
    DrawTextW(canvas, text.c_str(), -1, &room, DT_CALCRECT | (wraps ? DT_WORDBREAK : DT_SINGLELINE));
    ReleaseDC(window, canvas);
    return {room.right - room.left, room.bottom - room.top};
}

/// What a control of that kind takes of its width for itself.
int OwnWidth(ControlKind kind)
{
    constexpr int kBox = 16, kEdges = 8;
    switch (kind) {
    case ControlKind::CheckBox:
    case ControlKind::OptionButton:
        return kBox;
    case ControlKind::CommandButton:
    case ControlKind::Frame:
        return kEdges;
    default:
        return 0;
    }
}

bool HasCaption(ControlKind kind)
{
    return kind == ControlKind::Label || OwnWidth(kind) > 0;
}

/// Neither cut off by its parent nor too small for what is written on it.
void ExpectReadable(HWND form, const FormControl& control, HWND window)
{
    SCOPED_TRACE(control.name);
    RECT place = {}, outer = {}, seen = {};
    GetWindowRect(window, &place);
    GetClientRect(GetParent(window), &outer);
    MapWindowPoints(GetParent(window), nullptr, reinterpret_cast<POINT*>(&outer), 2);
    IntersectRect(&seen, &place, &outer);
    EXPECT_TRUE(EqualRect(&seen, &place)) << "it reaches beyond its parent";
    EXPECT_TRUE(IsChild(form, window));
    if (!HasCaption(control.kind))
        return;
    const bool wraps = control.kind == ControlKind::Label && control.place.height >= 16;
    const SIZE text = CaptionSize(window, wraps);
    EXPECT_LE(text.cx + OwnWidth(control.kind), place.right - place.left) << "its text is cut off";
    EXPECT_LE(text.cy, place.bottom - place.top);
}

class Screens : public TestHouse {
protected:
    Screens() { BeginCall(); }
    void Keep(const FormUser& user, const std::string& name)
    {
        TheUiThread().Run([&] {
            RedrawWindow(user.Window(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
            EXPECT_GT(CountColors(user.Window()), 5) << "nothing is to be seen";
            EXPECT_TRUE(SavePicture(user.Window(), Folder() + Wide("/" + name + "-" + Dots() + ".png")));
        });
    }
    static void ExpectAllReadable(const Form& form, const FormUser& user)
    {
        TheUiThread().Run([&] {
            for (const FormControl& control : form.Controls()) {
                if (control.kind == ControlKind::FormWindow || control.kind == ControlKind::ToolButton ||
                    control.kind == ControlKind::Timer)
                    continue;
                const HWND window = user.Find(control.name);
                if (IsWindowVisible(window))
                    ExpectReadable(user.Window(), control, window);
            }
        });
    }
    void Look(Form& form)
    {
        const FormUser user(form);
        WhileUserPlays(
            [&] {
                ExpectAllReadable(form, user);
                if (form.Has("tabPDFMaker"))
                    LookAtTabs(form, user);
                else
                    Keep(user, form.Name());
                TheUiThread().Run([&] { form.Hide(); });
            },
            [&] { EXPECT_TRUE(form.ShowModal()); });
    }
    void LookAtTabs(const Form& form, const FormUser& user)
    {
        int page = 0;
        for (const FormControl& control : form.Controls()) {
            if (control.kind != ControlKind::TabPage)
                continue;
            user.TurnTo("tabPDFMaker", page++);
            ExpectAllReadable(form, user);
            std::string name = form.Name() + "-" + control.caption;
            name.erase(std::remove(name.begin(), name.end(), ' '), name.end());
            Keep(user, name);
        }
    }
    std::unique_ptr<IFormToolkit> toolkit = CreateWin32Toolkit([] { return HWND(); });
    FormSession session{context, *toolkit, {}};
};

TEST_F(Screens, NothingIsCutOff)
{
    NineForms forms(session);
    FillForms(forms);
    forms.gui.OnceShown = nullptr;
    for (Form* form : forms.All()) {
        if (form != &forms.progress)
            Look(*form);
    }
    const FormUser user(forms.progress);
    bool isSeen = false;
    forms.progress.Scan = [&] {
        forms.progress.Advance(42);
        Keep(user, "frmProgress");
        isSeen = true;
    };
    EXPECT_TRUE(forms.progress.ShowModal());
    EXPECT_TRUE(isSeen);
    (void)Log();
}

TEST_F(Screens, DisabledTabsAreSeenToBeDisabled)
{
    NineForms forms(session);
    FillForms(forms);
    forms.gui.OnceShown = nullptr;
    forms.gui.SetTicked("chkPageSetup", false);
    forms.gui.PDFPageSetupOff();
    forms.gui.TextStampOff();
    const FormUser user(forms.gui);
    WhileUserPlays(
        [&] {
            user.TurnTo("tabPDFMaker", 1);
            for (const FormControl& control : forms.gui.Controls()) {
                if (control.tag == "AcadPageSetup") {
                    EXPECT_FALSE(user.IsEnabled(control.name)) << control.name;
                }
            }
            Keep(user, "frmGUITap-PDFPageSetup-off");
            user.TurnTo("tabPDFMaker", 2);
            EXPECT_FALSE(user.IsEnabled("btnStampColor"));
            Keep(user, "frmGUITap-TextStamp-off");
            TheUiThread().Run([&] { forms.gui.Hide(); });
        },
        [&] { EXPECT_TRUE(forms.gui.ShowModal()); });
    (void)Log();
}

} // namespace
} // namespace sm::windows

/// Arguments: the folder for the pictures, and what their names end with.
int main(int count, char** arguments)
{
    SetProcessDPIAware();
    testing::InitGoogleTest(&count, arguments);
    if (count != 3)
        return 2;
    sm::windows::Folder() = sm::windows::Wide(arguments[1]);
    sm::windows::Dots() = arguments[2];
    return RUN_ALL_TESTS();
}
