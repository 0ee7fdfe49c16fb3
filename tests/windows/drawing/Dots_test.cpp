// SPDX-License-Identifier: GPL-3.0-or-later
// Windows that come onto a screen of other dots per inch, as the system tells them.
#include "../forms/RecordingForm.h"
#include "OpenDrawing.h"
#include "beside/ProgressWindow.h"
#include "view/MarkDialog.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <vector>

namespace sm::win32 {
namespace {

using windows::TheUiThread;

constexpr RECT kWanted{20, 30, 1320, 930};

SIZE SizeOf(HWND window)
{
    RECT place = {};
    GetWindowRect(window, &place);
    return {place.right - place.left, place.bottom - place.top};
}

int DotsOfDesktop()
{
    const HDC screen = GetDC(nullptr);
    const int dots = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dots;
}

int FontOf(HWND window)
{
    LOGFONTW font = {};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof font, &font);
    return -static_cast<int>(font.lfHeight);
}

/// To twice the dots of the desktop.
void ComeToOtherScreen(HWND window)
{
    TheUiThread().Run([&] {
        const int dots = 2 * DotsOfDesktop();
        RECT wanted = kWanted;
        SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(dots, dots), reinterpret_cast<LPARAM>(&wanted));
    });
    TheUiThread().Rest();
}

class OnOtherScreen : public OpenDrawing {
protected:
    OnOtherScreen() { OpenSample("house.dxf"); }
};

TEST_F(OnOtherScreen, TheDrawingWindowIsAsLargeAsTheSystemProposesAndItsControlsAreTwiceAsLarge)
{
    Pick([](const DrawingUser& user) {
        const HWND button = user.Control(kZoomIn), tabs = user.Control(kTabs);
        const SIZE before = SizeOf(button), tabsBefore = SizeOf(tabs);
        const int font = FontOf(button);
        ComeToOtherScreen(user.Window());
        RECT place = {};
        GetWindowRect(user.Window(), &place);
        EXPECT_TRUE(EqualRect(&place, &kWanted));
        EXPECT_NEAR(FontOf(button), 2 * font, 1);
        EXPECT_NEAR(SizeOf(button).cy, 2 * before.cy, 3);
        EXPECT_NEAR(SizeOf(button).cx, 2 * before.cx, before.cx / 10);
        EXPECT_NEAR(SizeOf(tabs).cy, 2 * tabsBefore.cy, 4);
        RECT room = {};
        GetClientRect(user.Window(), &room);
        EXPECT_EQ(SizeOf(user.View()).cx, room.right) << "the view fills what is left";
        user.Move(user.PixelOf({100, 80}));
        Keep(user, "other-dots");
        user.Key(VK_ESCAPE);
    });
}

/// Pixels that the snap mark is broad in the view, by its colour.
int BreadthOfSnapMark(HWND view)
{
    int least = 100000, most = -1;
    TheUiThread().Run([&] {
        UpdateWindow(view);
        RECT room = {};
        GetClientRect(view, &room);
        const HDC canvas = GetDC(view);
        for (int y = 0; y < room.bottom; ++y)
            for (int x = 0; x < room.right; ++x) {
                const COLORREF color = GetPixel(canvas, x, y);
                if (GetRValue(color) < 0xC0 || GetGValue(color) > 0x60 || GetBValue(color) > 0x40)
                    continue;
                least = std::min(least, x);
                most = std::max(most, x);
            }
        ReleaseDC(view, canvas);
    });
    return most - least + 1;
}

TEST_F(OnOtherScreen, SnapMarksAreTwiceAsLarge)
{
    drawing = drawing::Drawing::FromBytes("0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n10\n0\n20\n0\n11\n100\n21\n50\n"
                                          "0\nENDSEC\n0\nEOF\n",
                                          "line.dxf");
    Pick([](const DrawingUser& user) {
        user.Move(user.PixelOf({100, 50}));
        EXPECT_EQ(user.Text(kHint), "End point");
        const int before = BreadthOfSnapMark(user.View());
        EXPECT_NEAR(before, 16 * DotsOfDesktop() / 96, 2);
        ComeToOtherScreen(user.Window());
        user.Settle();
        user.Move(user.PixelOf({100, 50}));
        EXPECT_EQ(user.Text(kHint), "End point");
        EXPECT_NEAR(BreadthOfSnapMark(user.View()), 2 * before, 2);
        user.Key(VK_ESCAPE);
    });
}

TEST(OnOtherScreenAlone, TheProgressIsTwiceAsLarge)
{
    TheUiThread();
    ProgressWindow window;
    window.Tell({"plan.dxf", "A-101", 1, 3});
    const std::array<int, 4> parts{ProgressWindow::kSheet, ProgressWindow::kBar, ProgressWindow::kLeft, IDCANCEL};
    std::vector<SIZE> before;
    for (const int part : parts)
        before.push_back(SizeOf(GetDlgItem(window.Handle(), part)));
    RECT wanted = kWanted;
    const int dots = 2 * DotsOfDesktop();
    SendMessageW(window.Handle(), WM_DPICHANGED, MAKEWPARAM(dots, dots), reinterpret_cast<LPARAM>(&wanted));
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const SIZE now = SizeOf(GetDlgItem(window.Handle(), parts[i]));
        EXPECT_NEAR(now.cx, 2 * before[i].cx, 1) << i;
        EXPECT_NEAR(now.cy, 2 * before[i].cy, 1) << i;
    }
    EXPECT_EQ(window.Dots(), dots);
}

TEST(OnOtherScreenAlone, AFormIsTwiceAsLargeAndStandsWhereTheSystemWantsIt)
{
    windows::RecordingForm form;
    form.Add(ControlKind::CommandButton, "btn", "Press", {10, 10, 60, 14});
    form.Add(ControlKind::TextBox, "txt", "", {10, 40, 60, 12});
    form.Show([&] {
        const SIZE before = SizeOf(form.user.Find("btn")), whole = SizeOf(form.user.Window());
        const int font = FontOf(form.user.Find("txt"));
        ComeToOtherScreen(form.user.Window());
        EXPECT_NEAR(FontOf(form.user.Find("txt")), 2 * font, 1);
        EXPECT_NEAR(SizeOf(form.user.Find("btn")).cx, 2 * before.cx, before.cx / 10);
        EXPECT_NEAR(SizeOf(form.user.Find("btn")).cy, 2 * before.cy, before.cy / 5);
        EXPECT_GT(SizeOf(form.user.Window()).cx, whole.cx * 3 / 2);
        RECT place = {};
        GetWindowRect(form.user.Window(), &place);
        EXPECT_EQ(place.left, kWanted.left);
        EXPECT_EQ(place.top, kWanted.top);
    });
}

} // namespace
} // namespace sm::win32
