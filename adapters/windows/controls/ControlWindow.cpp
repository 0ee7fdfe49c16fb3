// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/controls/ControlWindow.h"

#include "windows/automation/WideText.h"
#include "windows/controls/VisualStyles.h"

#include <commctrl.h>

namespace sm::windows {
namespace {

constexpr UINT_PTR kSubclass = 1;

} // namespace

ControlWindow::ControlWindow(const ControlSite& site)
    : m_reporter(site.reporter), m_position(site.position), m_parent(site.parent), m_holder(site.holder),
      m_canFocus(site.control.tabIndex >= 0)
{
}

ControlWindow::~ControlWindow()
{
    if (m_window != nullptr)
        RemoveWindowSubclass(m_window, &Procedure, kSubclass);
}

void ControlWindow::Create(const wchar_t* windowClass, DWORD style, DWORD outerStyle)
{
    const auto id = static_cast<INT_PTR>(m_position) + kFirstControlId;
    m_window = CreateWindowExW(outerStyle, windowClass, L"", style | WS_CHILD | (m_canFocus ? WS_TABSTOP : 0), 0, 0, 0,
                               0, m_parent, reinterpret_cast<HMENU>(id), OwnModule(), nullptr);
    if (m_window != nullptr)
        SetWindowSubclass(m_window, &Procedure, kSubclass, reinterpret_cast<DWORD_PTR>(this));
}

LRESULT CALLBACK ControlWindow::Procedure(HWND window, UINT message, WPARAM wide, LPARAM extra, UINT_PTR,
                                          DWORD_PTR self)
{
    try {
        return reinterpret_cast<ControlWindow*>(self)->HandleAny(message, wide, extra);
    } catch (...) { // a want of memory; nothing may cross the system's frames
        return DefSubclassProc(window, message, wide, extra);
    }
}

LRESULT ControlWindow::HandleAny(UINT message, WPARAM wide, LPARAM extra)
{
    if (message == WM_NCDESTROY) {
        const HWND window = std::exchange(m_window, nullptr);
        RemoveWindowSubclass(window, &Procedure, kSubclass);
        return DefSubclassProc(window, message, wide, extra);
    }
    if (message != WM_SETFOCUS && message != WM_KILLFOCUS)
        return Handle(message, wide, extra);
    m_keyboardMoves = true;
    const LRESULT result = Handle(message, wide, extra);
    m_keyboardMoves = false;
    if (message == WM_KILLFOCUS)
        m_reporter.KeyboardLeaves(m_position, reinterpret_cast<HWND>(wide));
    return result;
}

LRESULT ControlWindow::Handle(UINT message, WPARAM wide, LPARAM extra)
{
    return DefSubclassProc(m_window, message, wide, extra);
}

bool ControlWindow::Show(const FormControl& control)
{
    Apply(control, m_shown);
    const bool mayMove = m_isNew || control.caption != m_shown.caption || control.place != m_shown.place;
    const bool isRecolored = control.backColor != m_shown.backColor || control.maskColor != m_shown.maskColor;
    const bool changesSight = m_isNew || control.visible != m_shown.visible;
    m_shown = control;
    m_isNew = false;
    if (m_window == nullptr)
        return mayMove;
    if (changesSight && control.kind != ControlKind::TabPage) // pages come and go with their strip
        ShowWindow(m_window, control.visible ? SW_SHOWNA : SW_HIDE);
    if (isRecolored)
        InvalidateRect(m_window, nullptr, TRUE);
    return mayMove;
}

void ControlWindow::Apply(const FormControl& control, const FormControl& last)
{
    if (control.caption != last.caption)
        SetWindowTextW(m_window, Wide(control.caption).c_str());
}

void ControlWindow::Enable(bool enabled)
{
    if (m_window != nullptr)
        EnableWindow(m_window, enabled);
}

void ControlWindow::UseFont(const FormFont& font)
{
    if (m_window != nullptr)
        SendMessageW(m_window, WM_SETFONT, reinterpret_cast<WPARAM>(font.Handle()), TRUE);
}

void ControlWindow::Place(const RECT& place, const FormUnits&)
{
    if (m_window != nullptr)
        MoveWindow(m_window, place.left, place.top, place.right - place.left, place.bottom - place.top, TRUE);
}

COLORREF ControlWindow::Surface() const
{
    return m_holder != nullptr ? m_holder->Surface() : GetSysColor(COLOR_BTNFACE);
}

COLORREF ColorOf(const ControlColor& color)
{
    switch (color.role) {
    case ColorRole::ButtonFace:
        return GetSysColor(COLOR_BTNFACE);
    case ColorRole::Window:
        return GetSysColor(COLOR_WINDOW);
    case ColorRole::Explicit:
        break;
    }
    return static_cast<COLORREF>(color.rgb) & 0xFFFFFF;
}

std::unique_ptr<ControlWindow> MakeControlWindow(const ControlSite& site)
{
    for (const auto make :
         {MakePressWindow, MakeFieldWindow, MakeListWindow, MakeToolWindow, MakePlainWindow, MakeHolderWindow}) {
        if (auto window = make(site))
            return window;
    }
    return std::make_unique<ControlWindow>(site); // a timer, or a kind that a later table may bring
}

} // namespace sm::windows
