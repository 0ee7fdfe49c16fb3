// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/forms/FormDialog.h"

#include "ports/HostError.h"
#include "windows/controls/VisualStyles.h"

#include <algorithm>
#include <utility>

namespace sm::windows {
namespace {

/// A template that names no font, no menu and no class, and has no caption yet.
struct EmptyTemplate {
    DLGTEMPLATE head;
    WORD menu, windowClass, title;
};

/// The form lays itself out for its screen's dots; where the system would do that by itself, it leaves it alone.
void LayOutAlone(HWND dialog)
{
    using SetBehaviour = BOOL WINAPI(HWND, int mask, int values);
    constexpr int kNothing = 7; // neither the dialog, nor its size, nor its controls
    void* const found =
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "SetDialogDpiChangeBehavior"));
    if (found != nullptr)
        reinterpret_cast<SetBehaviour*>(found)(dialog, kNothing, kNothing);
}

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN | DS_MODALFRAME;

RECT WorkArea(HWND window)
{
    MONITORINFO info = {};
    info.cbSize = sizeof info;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &info);
    return info.rcWork;
}

SIZE Outer(HWND window, const SIZE& content)
{
    RECT whole = {0, 0, content.cx, content.cy};
    AdjustWindowRectEx(&whole, static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongW(window, GWL_EXSTYLE)));
    return {whole.right - whole.left, whole.bottom - whole.top};
}

/// The first place for `size` in `room` when the middles of both shall meet.
LONG Start(LONG middleTwice, LONG size, LONG least, LONG most)
{
    return std::max(least, std::min((middleTwice - size) / 2, most - size));
}

} // namespace

FormDialog::FormDialog(Handler handler) : m_handler(std::move(handler))
{
    EmptyTemplate wanted = {};
    wanted.head.style = kStyle;
    m_window =
        CreateDialogIndirectParamW(OwnModule(), &wanted.head, nullptr, &Procedure, reinterpret_cast<LPARAM>(this));
    if (m_window == nullptr)
        throw HostError("No window could be made.");
    LayOutAlone(m_window);
}

FormDialog::~FormDialog()
{
    SetWindowLongPtrW(m_window, DWLP_USER, 0);
    DestroyWindow(m_window);
}

INT_PTR CALLBACK FormDialog::Procedure(HWND window, UINT message, WPARAM wide, LPARAM extra)
{
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, extra);
        return FALSE; // the keyboard stays where it is: the window is hidden yet
    }
    auto* const self = reinterpret_cast<FormDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (self == nullptr)
        return FALSE;
    try {
        return self->m_handler(message, wide, extra).value_or(FALSE);
    } catch (...) { // a want of memory; nothing may cross the system's frames
        return FALSE;
    }
}

bool FormDialog::FitsScreen(const SIZE& content) const
{
    const RECT area = WorkArea(m_window);
    const SIZE outer = Outer(m_window, content);
    return outer.cx <= area.right - area.left && outer.cy <= area.bottom - area.top;
}

void FormDialog::Resize(const SIZE& content)
{
    const SIZE outer = Outer(m_window, content);
    SetWindowPos(m_window, nullptr, 0, 0, outer.cx, outer.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormDialog::PutInTheMiddle(HWND owner)
{
    if (std::exchange(m_hasPlace, true))
        return;
    const bool isOver = owner != nullptr && IsWindowVisible(owner) != FALSE && IsIconic(owner) == FALSE;
    const RECT area = WorkArea(isOver ? owner : m_window);
    RECT over = area, own = {};
    if (isOver)
        GetWindowRect(owner, &over);
    GetWindowRect(m_window, &own);
    const LONG left = Start(over.left + over.right, own.right - own.left, area.left, area.right);
    const LONG top = Start(over.top + over.bottom, own.bottom - own.top, area.top, area.bottom);
    SetWindowPos(m_window, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

ModalShowing::ModalShowing(ShownForms& forms, FormDialog& dialog)
    : m_forms(forms), m_dialog(dialog.Window()), m_focusBefore(GetFocus())
{
    const HWND below = !forms.up.empty() ? forms.up.back() : forms.owner ? forms.owner() : nullptr;
    if (below != nullptr && IsWindow(below) != FALSE)
        m_owner = GetAncestor(below, GA_ROOT);
    forms.up.push_back(m_dialog);
    SetWindowLongPtrW(m_dialog, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(m_owner));
    dialog.PutInTheMiddle(m_owner);
    m_hasDisabled = m_owner != nullptr && IsWindowEnabled(m_owner) != FALSE;
    if (m_hasDisabled)
        EnableWindow(m_owner, FALSE);
    ShowWindow(m_dialog, SW_SHOW);
    SetForegroundWindow(m_dialog);
}

void ModalShowing::End()
{
    if (!std::exchange(m_isUp, false))
        return;
    m_forms.up.erase(std::remove(m_forms.up.begin(), m_forms.up.end(), m_dialog), m_forms.up.end());
    const bool wasActive = GetActiveWindow() == m_dialog;
    if (m_hasDisabled)
        EnableWindow(m_owner, TRUE); // before the dialog goes: else another program would come to the front
    ShowWindow(m_dialog, SW_HIDE);
    SetWindowLongPtrW(m_dialog, GWLP_HWNDPARENT, 0); // an owner that goes would take it along
    if (!wasActive || m_owner == nullptr || IsWindow(m_owner) == FALSE)
        return;
    SetForegroundWindow(m_owner);
    const bool isThere =
        m_focusBefore != nullptr && IsWindowVisible(m_focusBefore) != FALSE && IsWindowEnabled(m_focusBefore) != FALSE;
    if (isThere && GetAncestor(m_focusBefore, GA_ROOT) == m_owner)
        SetFocus(m_focusBefore);
}

} // namespace sm::windows
