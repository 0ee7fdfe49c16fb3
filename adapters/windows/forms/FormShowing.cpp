// SPDX-License-Identifier: GPL-3.0-or-later
// How a form's window is shown, the messages it takes, and how it ends.
#include "windows/forms/Win32FormView.h"

namespace sm::windows {
namespace {

constexpr int kMostEvents = 10000; ///< of one pumping: a window that never has enough of painting stops no one

struct IdSearch {
    int id;
    HWND found;
};

BOOL CALLBACK CompareId(HWND window, LPARAM search)
{
    auto& wanted = *reinterpret_cast<IdSearch*>(search);
    if (GetDlgCtrlID(window) == wanted.id)
        wanted.found = window;
    return wanted.found == nullptr;
}

} // namespace

INT_PTR Win32FormView::Paint(HDC canvas, HWND window) const
{
    const std::size_t control = ControlOf(window);
    const COLORREF back = control != 0 ? m_windows[control]->Back() : GetSysColor(COLOR_BTNFACE);
    const bool isOff = IsWindowEnabled(window) == FALSE;
    SetTextColor(canvas, GetSysColor(isOff ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT));
    SetBkColor(canvas, back);
    SetDCBrushColor(canvas, back);
    return reinterpret_cast<INT_PTR>(GetStockObject(DC_BRUSH));
}

std::optional<INT_PTR> Win32FormView::OnMessage(UINT message, WPARAM wide, LPARAM extra)
{
    ControlWindow* from = nullptr;
    switch (message) {
    case WM_COMMAND:
        from = extra != 0 ? WithId(LOWORD(wide)) : nullptr;
        if (from != nullptr)
            from->Command(HIWORD(wide));
        return TRUE;
    case WM_NOTIFY:
        from = WithId(reinterpret_cast<const NMHDR*>(extra)->idFrom);
        if (from == nullptr)
            return std::nullopt;
        SetWindowLongPtrW(m_dialog.Window(), DWLP_MSGRESULT, from->Notify(*reinterpret_cast<const NMHDR*>(extra)));
        return TRUE;
    case WM_DRAWITEM:
        from = WithId(wide);
        if (from != nullptr)
            from->Draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(extra));
        return TRUE;
    case WM_CTLCOLORBTN:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORSTATIC:
        return Paint(reinterpret_cast<HDC>(wide), reinterpret_cast<HWND>(extra));
    case WM_CLOSE:
        m_reporter.Settle();
        m_form.UserClosed();
        return TRUE;
    case WM_DPICHANGED:
        TakeDots(HIWORD(wide), *reinterpret_cast<const RECT*>(extra));
        return TRUE;
    case WM_SETTINGCHANGE:
    case WM_THEMECHANGED:
        Restyle();
        return std::nullopt;
    case kSettle:
        m_reporter.Settle();
        return TRUE;
    case kAppeared:
        m_form.UserActivated();
        return TRUE;
    default:
        return std::nullopt;
    }
}

bool Win32FormView::ShowModal()
{
    if (m_showing != nullptr)
        return false;
    const bool wasShown = Guarded([&] {
        const VisualStyles styles;
        m_isHidden = false;
        ModalShowing showing(m_shown, m_dialog);
        m_showing = &showing;
        Appear();
        if (m_shown.watcher != nullptr)
            m_shown.watcher->Appeared(m_dialog.Window(), m_form);
        Run();
    });
    if (m_shown.watcher != nullptr)
        m_shown.watcher->Left(m_form);
    m_showing = nullptr;
    m_isHidden = true;
    return wasShown;
}

void Win32FormView::Appear()
{
    const FormReporter::Silence silence(m_reporter);
    if (m_keyboard.CanStop(m_lastFocused))
        SetFocus(m_windows[m_lastFocused]->Window());
    else
        m_keyboard.GoToFirst();
    PostMessageW(m_dialog.Window(), kAppeared, 0, 0);
}

/// A report under way has returned whenever this looks; an order to the whole program to end is passed on.
void Win32FormView::Run()
{
    MSG message = {};
    while (!m_isHidden) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got == 0)
            PostQuitMessage(static_cast<int>(message.wParam));
        if (got <= 0)
            return;
        Dispatch(message);
    }
}

void Win32FormView::Dispatch(const MSG& message)
{
    bool isUsed = false;
    Guarded([&] { isUsed = m_keyboard.Take(message, m_dialog.Window()); });
    if (isUsed || (m_shown.watcher != nullptr && m_shown.watcher->Take(message)))
        return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

void Win32FormView::Hide()
{
    if (m_showing == nullptr || m_isHidden)
        return;
    m_isHidden = true;
    m_lastFocused = ControlOf(GetFocus());
    if (m_shown.watcher != nullptr)
        m_shown.watcher->Left(m_form);
    if (m_showing->IsInFront())
        m_showing->End();
    else
        ShowWindow(m_dialog.Window(), SW_HIDE);
    PostMessageW(m_dialog.Window(), WM_NULL, 0, 0);
}

void Win32FormView::PumpEvents()
{
    Guarded([&] {
        MSG message = {};
        for (int i = 0; i < kMostEvents && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE; ++i) {
            if (message.message == WM_QUIT)
                return PostQuitMessage(static_cast<int>(message.wParam));
            Dispatch(message);
        }
    });
}

HWND WindowOfControl(HWND form, std::size_t position)
{
    IdSearch search = {kFirstControlId + static_cast<int>(position), nullptr};
    EnumChildWindows(form, CompareId, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

} // namespace sm::windows
