// SPDX-License-Identifier: GPL-3.0-or-later
#include "DrawingUser.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <stdexcept>
#include <thread>

#include <commctrl.h>

namespace sm::win32 {
namespace {

using windows::TheUiThread;

constexpr int kPatience = 6000; // times ten milliseconds; only a hang takes that long

LPARAM At(POINT at)
{
    return MAKELPARAM(static_cast<WORD>(at.x), static_cast<WORD>(at.y));
}

bool IsReady(HWND window)
{
    bool isReady = false;
    TheUiThread().Run([&] {
        auto* const own = reinterpret_cast<OwnWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        const auto* const pick = dynamic_cast<const PickWindow*>(own);
        isReady = pick != nullptr && pick->IsReady();
    });
    return isReady;
}

} // namespace

HWND DrawingUser::Up()
{
    const HWND window = FindWindowW(PickWindow::kClass, nullptr);
    return window != nullptr && IsWindowVisible(window) != FALSE ? window : nullptr;
}

DrawingUser DrawingUser::Wait()
{
    for (int i = 0; i < kPatience; ++i, Sleep(10)) {
        const HWND window = Up();
        if (window != nullptr && IsReady(window))
            return DrawingUser(window);
    }
    throw std::runtime_error("there is no drawing window");
}

void DrawingUser::Settle() const
{
    for (int i = 0; i < kPatience && !IsReady(m_window); ++i)
        Sleep(10);
    TheUiThread().Rest();
}

HWND DrawingUser::View() const
{
    return FindWindowExW(m_window, nullptr, DrawingView::kClass, nullptr);
}

std::string DrawingUser::Text(PickControl control) const
{
    return TextOf(Control(control));
}

std::string DrawingUser::Title() const
{
    return TextOf(m_window);
}

void DrawingUser::Send(UINT message, POINT at, WPARAM wide) const
{
    SendMessageW(View(), message, wide, At(at));
}

// The display's own pointer goes along: what it tells must not contradict.
void DrawingUser::Move(POINT at, WPARAM held) const
{
    POINT seen = at;
    ClientToScreen(View(), &seen);
    SetCursorPos(seen.x, seen.y);
    TheUiThread().Rest();
    Send(WM_MOUSEMOVE, at, held);
}

void DrawingUser::Press(POINT at, WPARAM held) const
{
    Send(WM_LBUTTONDOWN, at, MK_LBUTTON | held);
}

void DrawingUser::Release(POINT at) const
{
    Send(WM_LBUTTONUP, at);
}

void DrawingUser::Wheel(POINT at, int notches) const
{
    ClientToScreen(View(), &at);
    SendMessageW(View(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(notches * WHEEL_DELTA)), At(at));
}

HWND DrawingUser::Focus() const
{
    const HWND focus = TheUiThread().Focus();
    return focus != nullptr ? focus : View();
}

/// Posted: keys pass by the window's own loop.
void DrawingUser::Key(WPARAM key) const
{
    PostMessageW(Focus(), WM_KEYDOWN, key, 1);
    TheUiThread().Rest();
}

void DrawingUser::Letters(const std::string& text) const
{
    for (const char letter : text) {
        if (letter == '-')
            PostMessageW(Focus(), WM_KEYDOWN, VK_OEM_MINUS, 1);
        else
            PostMessageW(Focus(), WM_CHAR, static_cast<WPARAM>(letter), 1);
        TheUiThread().Rest();
    }
}

void DrawingUser::Click(PickControl control) const
{
    SendMessageW(Control(control), BM_CLICK, 0, 0);
}

void DrawingUser::TurnTo(int tab) const
{
    RECT place = {};
    TheUiThread().Run([&] { TabCtrl_GetItemRect(Control(kTabs), tab, &place); });
    const POINT middle{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    PostMessageW(Control(kTabs), WM_LBUTTONDOWN, MK_LBUTTON, At(middle));
    PostMessageW(Control(kTabs), WM_LBUTTONUP, 0, At(middle));
    TheUiThread().Rest();
    Settle();
}

Vec2 DrawingUser::PointAt(POINT pixel) const
{
    std::string text;
    TheUiThread().Run([&] { // nothing comes between
        Send(WM_MOUSEMOVE, pixel, MK_SHIFT);
        text = Text(kPlace);
    });
    std::size_t end = 0;
    const double x = std::stod(text, &end);
    return {x, std::stod(text.substr(end + 1))};
}

POINT DrawingUser::PixelOf(Vec2 point) const
{
    const POINT a{100, 100}, b{500, 400};
    const Vec2 p = PointAt(a), q = PointAt(b);
    return {std::lround(a.x + (point.x - p.x) / (q.x - p.x) * (b.x - a.x)),
            std::lround(a.y + (point.y - p.y) / (q.y - p.y) * (b.y - a.y))};
}

void WhileUserDraws(const std::function<void(const DrawingUser&)>& user, const std::function<void()>& body)
{
    std::atomic<bool> isPlayed = false;
    std::thread thread([&] {
        try {
            user(DrawingUser::Wait());
        } catch (const std::exception& error) {
            ADD_FAILURE() << error.what();
            PostMessageW(DrawingUser::Up(), WM_CLOSE, 0, 0);
        }
        isPlayed = true;
    });
    body();
    MSG message = {};
    bool isQuiet = false;
    while (!isPlayed || !isQuiet) { // the user may still look at the window, which goes by a message of its own
        isQuiet = MsgWaitForMultipleObjects(0, nullptr, FALSE, 50, QS_ALLINPUT) != WAIT_OBJECT_0;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE)
            DispatchMessageW(&message);
    }
    thread.join();
}

} // namespace sm::win32
