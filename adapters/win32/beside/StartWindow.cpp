// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/StartWindow.h"

#include "scene/WaysFromForm.h"
#include "window/DroppedFiles.h"
#include "window/ModalWait.h"
#include "windows/automation/WideText.h"
#include "windows/controls/VisualStyles.h"
#include "windows/system/OwnModule.h"

#include <algorithm>

#include <shellapi.h>

namespace sm::win32 {
namespace {

// Pixels of 96 dots per inch.
constexpr int kStartWidth = 560, kStartHeight = 300, kStartEdge = 12, kStartLine = 20, kStartButton = 26;
constexpr int kOtherWidth = 130, kEndWidth = 84;

/// "plan.dxf    in C:\plans"
std::wstring RowOf(const std::string& path)
{
    const std::wstring whole = windows::Wide(path);
    const std::size_t slash = whole.find_last_of(L"\\/");
    return slash == std::wstring::npos ? whole : whole.substr(slash + 1) + L"    in " + whole.substr(0, slash);
}

} // namespace

StartWindow::StartWindow(const std::vector<std::string>& recent, IDesktop& desktop)
    : m_recent(recent), m_desktop(desktop)
{
    const windows::VisualStyles styles;
    Make({kClass, L"Recent Drawings", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT});
    Add(L"STATIC", L"&Drawings that were opened lately; another one may be dropped here:", SS_LEFT, kLabel);
    Add(L"LISTBOX", L"Recent drawings", WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT, kRecent,
        WS_EX_CLIENTEDGE);
    Add(L"BUTTON", L"O&ther Drawing...", WS_TABSTOP | BS_PUSHBUTTON, kOther);
    Add(L"BUTTON", L"&Open", WS_TABSTOP | BS_DEFPUSHBUTTON, IDOK);
    Add(L"BUTTON", L"Cancel", WS_TABSTOP | BS_PUSHBUTTON, IDCANCEL);
    for (const std::string& path : recent)
        SendMessageW(Get(kRecent), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(RowOf(path).c_str()));
    SendMessageW(Get(kRecent), LB_SETCURSEL, 0, 0);
    OnDots();
    DragAcceptFiles(Handle(), TRUE);
}

void StartWindow::Add(const wchar_t* kind, const wchar_t* text, DWORD style, int control, DWORD more) const
{
    CreateWindowExW(more, kind, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, Handle(),
                    reinterpret_cast<HMENU>(static_cast<INT_PTR>(control)), windows::OwnModule(), nullptr);
}

void StartWindow::OnDots()
{
    m_font.Use(Handle(), Dots());
    LayOut();
}

void StartWindow::LayOut() const
{
    RECT room = {};
    GetClientRect(Handle(), &room);
    const int edge = Scaled(kStartEdge), line = Scaled(kStartLine), button = Scaled(kStartButton);
    const int width = room.right - 2 * edge, top = 2 * edge + line, buttons = room.bottom - edge - button;
    const int right = room.right - edge, end = Scaled(kEndWidth);
    MoveWindow(Get(kLabel), edge, edge, width, line, TRUE);
    MoveWindow(Get(kRecent), edge, top, width, std::max(buttons - edge - top, 0), TRUE);
    MoveWindow(Get(kOther), edge, buttons, Scaled(kOtherWidth), button, TRUE);
    MoveWindow(Get(IDOK), right - 2 * end - edge / 2, buttons, end, button, TRUE);
    MoveWindow(Get(IDCANCEL), right - end, buttons, end, button, TRUE);
}

std::optional<std::string> StartWindow::Ask()
{
    const int width = Scaled(kStartWidth), height = Scaled(kStartHeight);
    SetWindowPos(Handle(), nullptr, (GetSystemMetrics(SM_CXSCREEN) - width) / 2,
                 (GetSystemMetrics(SM_CYSCREEN) - height) / 2, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
    const OthersWait othersWait(Handle());
    m_isWaiting = true;
    ShowWindow(Handle(), SW_SHOWNORMAL);
    SetForegroundWindow(Handle());
    SetFocus(Get(kRecent));
    PassMessages(m_isWaiting, [this](const MSG& message) {
        if (message.message == WM_KEYDOWN && message.wParam == 'O' && GetKeyState(VK_CONTROL) < 0)
            return AskOther(), true;
        return IsDialogMessageW(Handle(), const_cast<MSG*>(&message)) != FALSE;
    });
    ShowWindow(Handle(), SW_HIDE);
    return m_chosen;
}

LRESULT StartWindow::OnMessage(UINT message, WPARAM wide, LPARAM extra)
{
    switch (message) {
    case WM_SIZE:
        LayOut();
        return 0;
    case DM_GETDEFID: // the Return key
        return MAKELRESULT(IDOK, DC_HASDEFID);
    case WM_COMMAND:
        OnCommand(LOWORD(wide), HIWORD(wide));
        return 0;
    case WM_DROPFILES:
        if (const auto paths = TakeDropped(wide); paths.size() == 1 && scene::IsDrawingFile(paths.front()))
            Take(paths.front());
        else
            MessageBeep(MB_OK);
        return 0;
    case WM_CLOSE:
        m_isWaiting = false;
        return 0;
    default:
        return ByDefault(message, wide, extra);
    }
}

void StartWindow::OnCommand(int control, int code)
{
    if (control == IDOK || (control == kRecent && code == LBN_DBLCLK))
        TakeRow();
    if (control == kOther)
        AskOther();
    if (control == IDCANCEL)
        m_isWaiting = false;
}

void StartWindow::Take(const std::string& path)
{
    m_chosen = path;
    m_isWaiting = false;
}

void StartWindow::TakeRow()
{
    const LRESULT row = SendMessageW(Get(kRecent), LB_GETCURSEL, 0, 0);
    if (row >= 0 && static_cast<std::size_t>(row) < m_recent.size())
        Take(m_recent[static_cast<std::size_t>(row)]);
}

void StartWindow::AskOther()
{
    if (const auto path = scene::AskForDrawing(m_desktop))
        Take(*path);
}

} // namespace sm::win32
