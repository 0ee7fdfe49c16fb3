// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/MarkDialog.h"

#include "window/ModalWait.h"
#include "window/WindowText.h"
#include "windows/automation/WideText.h"
#include "windows/controls/VisualStyles.h"
#include "windows/system/OwnModule.h"

#include <algorithm>
#include <vector>

namespace sm::win32 {
namespace {

constexpr DWORD kDialogStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU,
                kDialogMore = WS_EX_CONTROLPARENT | WS_EX_DLGMODALFRAME;
// Pixels of 96 dots per inch.
constexpr int kDialogEdge = 12, kCaptionWidth = 90, kLineWidth = 260, kLineHeight = 23, kBetweenLines = 6,
              kReasonHeight = 34, kButtonWidth = 84, kButtonHeight = 26;

} // namespace

MarkDialog::MarkDialog(beside::IMarkBoard& board, const std::string& layout, std::size_t mark, HWND owner)
    : m_board(board), m_layout(layout), m_mark(mark), m_owner(owner)
{
    const windows::VisualStyles styles;
    Make({kClass, L"Edit Mark", kDialogStyle, kDialogMore, owner});
    MakeControls();
    m_font.Use(Handle(), Dots());
}

HWND MarkDialog::Add(const wchar_t* kind, const std::string& text, DWORD style, int control, DWORD more) const
{
    return CreateWindowExW(more, kind, windows::Wide(text).c_str(), WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, Handle(),
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(control)), windows::OwnModule(), nullptr);
}

void MarkDialog::MakeControls()
{
    for (const beside::MarkField& field : m_board.Fields(m_layout, m_mark)) {
        Add(L"STATIC", field.label + ":", SS_LEFT | SS_NOPREFIX, kFirstCaption + m_fields);
        Add(L"EDIT", field.value, WS_TABSTOP | ES_AUTOHSCROLL, kFirstLine + m_fields, WS_EX_CLIENTEDGE);
        ++m_fields;
    }
    Add(L"STATIC", {}, SS_LEFT | SS_NOPREFIX, kReason);
    Add(L"BUTTON", "OK", WS_TABSTOP | BS_DEFPUSHBUTTON, IDOK);
    Add(L"BUTTON", "Cancel", WS_TABSTOP | BS_PUSHBUTTON, IDCANCEL);
}

SIZE MarkDialog::LayOut() const
{
    const auto put = [this](int control, int left, int top, int width, int height) {
        MoveWindow(Get(control), Scaled(left), Scaled(top), Scaled(width), Scaled(height), TRUE);
    };
    const int lineLeft = kDialogEdge + kCaptionWidth, right = lineLeft + kLineWidth;
    int y = kDialogEdge;
    for (int i = 0; i < m_fields; ++i, y += kLineHeight + kBetweenLines) {
        put(kFirstCaption + i, kDialogEdge, y + 3, kCaptionWidth - kBetweenLines, kLineHeight - 3);
        put(kFirstLine + i, lineLeft, y, kLineWidth, kLineHeight);
    }
    put(kReason, kDialogEdge, y, right - kDialogEdge, kReasonHeight);
    y += kReasonHeight + kBetweenLines;
    put(IDOK, right - 2 * kButtonWidth - kBetweenLines, y, kButtonWidth, kButtonHeight);
    put(IDCANCEL, right - kButtonWidth, y, kButtonWidth, kButtonHeight);
    return {Scaled(right + kDialogEdge), Scaled(y + kButtonHeight + kDialogEdge)};
}

void MarkDialog::OnDots()
{
    m_font.Use(Handle(), Dots());
    static_cast<void>(LayOut());
}

/// In its middle, on the screen.
void MarkDialog::PutOverOwner() const
{
    const SIZE content = LayOut();
    RECT whole = {0, 0, content.cx, content.cy}, owner = {};
    AdjustWindowRectEx(&whole, kDialogStyle, FALSE, kDialogMore);
    const LONG width = whole.right - whole.left, height = whole.bottom - whole.top;
    GetWindowRect(m_owner, &owner);
    MONITORINFO info = {};
    info.cbSize = sizeof info;
    GetMonitorInfoW(MonitorFromWindow(m_owner, MONITOR_DEFAULTTONEAREST), &info);
    const RECT& work = info.rcWork;
    const LONG left = std::max(std::min((owner.left + owner.right - width) / 2, work.right - width), work.left);
    const LONG top = std::max(std::min((owner.top + owner.bottom - height) / 2, work.bottom - height), work.top);
    SetWindowPos(Handle(), nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

bool MarkDialog::Ask()
{
    PutOverOwner();
    {
        const OthersWait othersWait(Handle());
        m_isWaiting = true;
        ShowWindow(Handle(), SW_SHOWNORMAL);
        SetFocus(Get(m_fields > 0 ? static_cast<int>(kFirstLine) : IDCANCEL));
        SendMessageW(Get(kFirstLine), EM_SETSEL, 0, -1);
        PassMessages(m_isWaiting, [this](const MSG& message) {
            return IsDialogMessageW(Handle(), const_cast<MSG*>(&message)) != FALSE;
        });
    }
    SetForegroundWindow(m_owner); // before this window goes, and another program's comes to the front
    ShowWindow(Handle(), SW_HIDE);
    return m_isTaken;
}

LRESULT MarkDialog::OnMessage(UINT message, WPARAM wide, LPARAM extra)
{
    switch (message) {
    case DM_GETDEFID: // the Return key
        return MAKELRESULT(IDOK, DC_HASDEFID);
    case WM_COMMAND:
        if (LOWORD(wide) == IDOK)
            Confirm();
        if (LOWORD(wide) == IDCANCEL)
            m_isWaiting = false;
        return 0;
    case WM_CLOSE:
        m_isWaiting = false;
        return 0;
    default:
        return ByDefault(message, wide, extra);
    }
}

void MarkDialog::Confirm()
{
    std::vector<std::string> values;
    for (int i = 0; i < m_fields; ++i)
        values.push_back(TextOf(Get(kFirstLine + i)));
    const std::string why = m_board.Change(m_layout, m_mark, values);
    if (why.empty()) {
        m_isTaken = true;
        m_isWaiting = false;
        return;
    }
    ShowText(Get(kReason), why);
    MessageBeep(MB_OK);
}

} // namespace sm::win32
