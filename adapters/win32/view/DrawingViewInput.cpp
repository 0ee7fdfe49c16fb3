// SPDX-License-Identifier: GPL-3.0-or-later
// What the drawing's view hears of mouse and keyboard.
#include "view/DrawingView.h"

#include <windowsx.h>

#include <optional>

namespace sm::win32 {
namespace {

using scene::MouseButton;
using scene::ViewKey;

Vec2 PlaceIn(LPARAM extra)
{
    return {static_cast<double>(GET_X_LPARAM(extra)), static_cast<double>(GET_Y_LPARAM(extra))};
}

std::optional<MouseButton> ButtonOf(UINT message)
{
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
        return MouseButton::Left;
    case WM_MBUTTONDOWN:
    case WM_MBUTTONUP:
    case WM_MBUTTONDBLCLK:
        return MouseButton::Middle;
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
    case WM_RBUTTONDBLCLK:
        return MouseButton::Right;
    default:
        return std::nullopt;
    }
}

std::optional<ViewKey> ViewKeyOf(WPARAM key)
{
    switch (key) {
    case VK_LEFT:
        return ViewKey::Left;
    case VK_RIGHT:
        return ViewKey::Right;
    case VK_UP:
        return ViewKey::Up;
    case VK_DOWN:
        return ViewKey::Down;
    case VK_OEM_PLUS:
    case VK_ADD:
        return ViewKey::ZoomIn;
    case VK_OEM_MINUS:
    case VK_SUBTRACT:
        return ViewKey::ZoomOut;
    case VK_HOME:
        return ViewKey::Home;
    case 'W':
        return ViewKey::ZoomWindow;
    default:
        return std::nullopt;
    }
}

} // namespace

LRESULT DrawingView::OnMessage(UINT message, WPARAM wide, LPARAM extra)
{
    if (OnMouse(message, wide, extra))
        return 0;
    switch (message) {
    case WM_PAINT:
        Paint();
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_SIZE:
        Resized();
        return 0;
    case WM_SETCURSOR:
        if (LOWORD(extra) != HTCLIENT)
            break;
        SetCursor(m_cursor);
        return TRUE;
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_KEYDOWN:
        if (TakeKey(wide))
            return 0;
        if (wide == VK_SHIFT)
            Refresh(true);
        break;
    case WM_KEYUP:
        if (wide == VK_SHIFT)
            Refresh(false);
        break;
    case WM_CHAR:
        if (onLetter && onLetter(static_cast<wchar_t>(wide)))
            return 0;
        break;
    default:
        break;
    }
    return ByDefault(message, wide, extra);
}

bool DrawingView::TakeKey(WPARAM key)
{
    const auto known = GetKeyState(VK_CONTROL) < 0 ? std::nullopt : ViewKeyOf(key);
    if (known)
        Key(*known);
    return known.has_value();
}

bool DrawingView::OnMouse(UINT message, WPARAM wide, LPARAM extra)
{
    const bool isSuspended = (wide & MK_SHIFT) != 0;
    if (const auto button = ButtonOf(message))
        return OnButton(message, *button, PlaceIn(extra), isSuspended), true;
    switch (message) {
    case WM_MOUSEMOVE:
        return OnMove(PlaceIn(extra), wide), true;
    case WM_MOUSEWHEEL:
        return TurnWheel(wide, extra), true;
    case WM_MOUSELEAVE:
        m_isWatched = false;
        return Leave(), true;
    default:
        return false;
    }
}

void DrawingView::OnButton(UINT message, MouseButton button, Vec2 at, bool isSuspended)
{
    switch (message) {
    case WM_LBUTTONUP:
    case WM_MBUTTONUP:
    case WM_RBUTTONUP:
        if (GetCapture() == Handle())
            ReleaseCapture();
        return Release(button, at, isSuspended);
    case WM_LBUTTONDBLCLK:
    case WM_MBUTTONDBLCLK:
    case WM_RBUTTONDBLCLK:
        return PressTwice(button, at, isSuspended);
    default:
        SetFocus(Handle());
        SetCapture(Handle());
        return Press(button, at, isSuspended);
    }
}

void DrawingView::OnMove(Vec2 at, WPARAM wide)
{
    if (!m_isWatched) {
        TRACKMOUSEEVENT wanted = {sizeof wanted, TME_LEAVE, Handle(), 0};
        m_isWatched = TrackMouseEvent(&wanted) != FALSE;
    }
    Move(at, (wide & MK_LBUTTON) != 0, (wide & MK_SHIFT) != 0);
}

void DrawingView::TurnWheel(WPARAM wide, LPARAM extra)
{
    POINT at = {GET_X_LPARAM(extra), GET_Y_LPARAM(extra)};
    ScreenToClient(Handle(), &at);
    Wheel({static_cast<double>(at.x), static_cast<double>(at.y)},
          static_cast<double>(GET_WHEEL_DELTA_WPARAM(wide)) / WHEEL_DELTA);
}

} // namespace sm::win32
