// SPDX-License-Identifier: GPL-3.0-or-later
// Windows fit their texts and the screen, whatever the font.
#include "RecordingForm.h"

#include "windows/controls/FormFont.h"
#include "windows/controls/FormUnits.h"

namespace sm::windows {
namespace {

using enum ControlKind;

SIZE SizeOf(HWND window)
{
    RECT place = {};
    GetClientRect(window, &place);
    return {place.right, place.bottom};
}

/// Of the window's upper left corner in its parent.
POINT PlaceOf(HWND window)
{
    RECT place = {};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&place), 2);
    return {place.left, place.top};
}

/// The desktop's message font in another size, while it lives.
class LargerDesktopFont {
public:
    explicit LargerDesktopFont(int factor)
    {
        m_before.cbSize = sizeof m_before;
        SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof m_before, &m_before, 0);
        NONCLIENTMETRICSW larger = m_before;
        larger.lfMessageFont.lfHeight *= factor;
        SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof larger, &larger, 0);
    }
    ~LargerDesktopFont() { SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof m_before, &m_before, 0); }
    LargerDesktopFont(const LargerDesktopFont&) = delete;
    LargerDesktopFont& operator=(const LargerDesktopFont&) = delete;

private:
    NONCLIENTMETRICSW m_before = {};
};

TEST(Layout, WhatFitsInUnitsFitsInPixels)
{
    const FormUnits units{1.85, 2.13};
    const ControlPlace outer{7, 7, 178, 42};
    for (std::int32_t left = 0; left < outer.width; ++left) {
        const RECT out = units.Rect(outer);
        EXPECT_LE(units.Rect({left, 0, outer.width - left, outer.height}).right, out.right - out.left);
    }
}

TEST(Layout, GrowsUntilTheTightestCaptionFits)
{
    RecordingForm form;
    form.Add(CommandButton, "short", "OK", {5, 5, 50, 14});
    form.Add(CommandButton, "long",
             "Einstellungen zur\xC3\xBC"
             "cksetzen",
             {60, 5, 50, 14});
    form.Show([&] {
        const FormFont font;
        const SIZE text = font.Size(L"Einstellungen zur\u00FCcksetzen"), button = SizeOf(form.user.Find("long"));
        EXPECT_GE(button.cx, text.cx + 8);
        EXPECT_EQ(SizeOf(form.user.Find("short")).cx, button.cx) << "what was alike stays alike";
        EXPECT_GE(SizeOf(form.user.Window()).cx, 3 * button.cx);
    });
}

TEST(Layout, GrowsWhenACaptionGetsLonger)
{
    RecordingForm form;
    form.Add(Label, "label", "mm", {5, 5, 20, 8});
    form.Show([&] {
        const LONG before = SizeOf(form.user.Window()).cx;
        form.Change(1, [](FormControl& control) { control.caption = "Drawing Units and more"; });
        EXPECT_GT(SizeOf(form.user.Window()).cx, before);
    });
}

TEST(Layout, GivesAWrappingTextItsLines)
{
    const std::string text =
        "The correct paper size was not available.  Please choose one from the list below, or two.";
    RecordingForm form;
    form.Add(Label, "label", text, {5, 5, 80, 16});
    form.Show([&] {
        const FormFont font;
        const SIZE room = SizeOf(form.user.Find("label"));
        EXPECT_LE(font.HeightAt(std::wstring(text.begin(), text.end()), room.cx), room.cy);
    });
}

TEST(Layout, MovesAControlThatTheFormMoves)
{
    RecordingForm form;
    form.Add(Picture, "box", "", {5, 5, 100, 80});
    form.Add(Image, "logo", "", {5, 0, 90, 40}, 1).picture = "logo";
    form.Show([&] {
        EXPECT_EQ(PlaceOf(form.user.Find("logo")).y, 0);
        form.Change(2, [](FormControl& control) { control.place.top = 20; });
        const LONG middle = PlaceOf(form.user.Find("logo")).y + SizeOf(form.user.Find("logo")).cy / 2;
        EXPECT_NEAR(middle, SizeOf(form.user.Find("box")).cy / 2, 4);
    });
}

TEST(Layout, FollowsTheDesktopsFontWhileItIsUp)
{
    RecordingForm form;
    form.Add(CommandButton, "button", "Get Point >", {5, 5, 60, 14});
    form.Show([&] {
        const SIZE before = SizeOf(form.user.Window());
        SIZE larger = {};
        TheUiThread().Run([&] {
            const LargerDesktopFont font(2);
            SendMessageW(form.user.Window(), WM_SETTINGCHANGE, SPI_SETNONCLIENTMETRICS, 0);
            larger = SizeOf(form.user.Window());
        });
        EXPECT_GT(larger.cx, before.cx * 3 / 2);
        EXPECT_GT(larger.cy, before.cy * 3 / 2);
        TheUiThread().Run([&] { SendMessageW(form.user.Window(), WM_SETTINGCHANGE, SPI_SETNONCLIENTMETRICS, 0); });
        EXPECT_EQ(SizeOf(form.user.Window()).cx, before.cx);
    });
}

TEST(Layout, LettersGetSmallerOnAScreenThatIsTooSmall)
{
    RecordingForm form;
    form.Add(CommandButton, "button", "OK", {5, 5, 60, 14});
    RECT area = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    const FormFont usual;
    form.controls[0].place = {0, 0, static_cast<std::int32_t>(1.3 * area.right * 4 / usual.Average()), 100};
    form.Show([&] {
        LOGFONTW used = {}, wanted = {};
        GetObjectW(reinterpret_cast<HGDIOBJ>(form.user.Ask("button", WM_GETFONT)), sizeof used, &used);
        GetObjectW(usual.Handle(), sizeof wanted, &wanted);
        EXPECT_LT(std::abs(used.lfHeight), std::abs(wanted.lfHeight));
        RECT place = {};
        GetWindowRect(form.user.Window(), &place);
        EXPECT_LE(place.right - place.left, area.right - area.left);
        EXPECT_LE(place.bottom - place.top, area.bottom - area.top);
        EXPECT_GE(place.left, area.left);
        EXPECT_GE(place.top, area.top);
    });
}

} // namespace
} // namespace sm::windows
