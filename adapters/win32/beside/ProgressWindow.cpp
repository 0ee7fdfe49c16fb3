// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/ProgressWindow.h"

#include "windows/automation/WideText.h"
#include "windows/controls/VisualStyles.h"
#include "windows/system/OwnModule.h"

#include <commctrl.h>

namespace sm::win32 {
namespace {

constexpr int kWidth = 420, kLine = 20, kEdge = 12, kButton = 90; // pixels of 96 dots per inch
constexpr int kLastTop = 3 * kEdge + 2 * kLine, kButtonLeft = kWidth - kEdge - kButton;
constexpr DWORD kProgressStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU;

struct Part {
    int control;
    RECT place; // pixels of 96 dots per inch
};
constexpr Part kParts[] = {
    {ProgressWindow::kSheet, {kEdge, kEdge, kWidth - kEdge, kEdge + kLine}},
    {ProgressWindow::kBar, {kEdge, 2 * kEdge + kLine, kWidth - kEdge, 2 * kEdge + 2 * kLine}},
    {ProgressWindow::kLeft, {kEdge, kLastTop, kButtonLeft - kEdge, kLastTop + 2 * kLine}},
    {IDCANCEL, {kButtonLeft, kLastTop, kButtonLeft + kButton, kLastTop + kLine + 6}},
};

} // namespace

std::wstring TimeLeft(int index, int count, ULONGLONG elapsedMilliseconds)
{
    if (index < 2 || count < index)
        return {};
    const auto to = static_cast<ULONGLONG>(count - index + 1), made = static_cast<ULONGLONG>(index - 1);
    const ULONGLONG seconds = elapsedMilliseconds * to / made / 1000;
    constexpr ULONGLONG kMinute = 60, kRound = 5;
    if (seconds >= 2 * kMinute)
        return L"about " + std::to_wstring((seconds + kMinute / 2) / kMinute) + L" minutes left";
    return L"about " + std::to_wstring((seconds / kRound + 1) * kRound) + L" seconds left";
}

ProgressWindow::ProgressWindow()
{
    const windows::VisualStyles styles;
    Make({kClass, L"Making PDF", kProgressStyle, WS_EX_CONTROLPARENT | WS_EX_DLGMODALFRAME});
    Add(L"STATIC", L"", SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS, kSheet);
    Add(PROGRESS_CLASSW, L"Sheets", 0, kBar);
    Add(L"STATIC", L"", SS_LEFT | SS_NOPREFIX, kLeft);
    Add(L"BUTTON", L"Cancel", WS_TABSTOP | BS_PUSHBUTTON, IDCANCEL);
    OnDots();
}

void ProgressWindow::Add(const wchar_t* kind, const wchar_t* text, DWORD style, int control) const
{
    CreateWindowW(kind, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, Handle(),
                  reinterpret_cast<HMENU>(static_cast<INT_PTR>(control)), windows::OwnModule(), nullptr);
}

void ProgressWindow::OnDots()
{
    m_font.Use(Handle(), Dots());
    for (const auto& [control, place] : kParts)
        MoveWindow(Get(control), Scaled(place.left), Scaled(place.top), Scaled(place.right - place.left),
                   Scaled(place.bottom - place.top), TRUE);
}

/// In the middle of the screen.
void ProgressWindow::Appear() const
{
    RECT room = {0, 0, Scaled(kWidth), Scaled(4 * kEdge + 4 * kLine)};
    AdjustWindowRectEx(&room, kProgressStyle, FALSE, WS_EX_DLGMODALFRAME);
    const int width = room.right - room.left, height = room.bottom - room.top;
    SetWindowPos(Handle(), nullptr, (GetSystemMetrics(SM_CXSCREEN) - width) / 2,
                 (GetSystemMetrics(SM_CYSCREEN) - height) / 2, width, height, SWP_NOZORDER);
    ShowWindow(Handle(), SW_SHOW);
}

void ProgressWindow::Tell(const beside::RunProgress& progress)
{
    if (m_since == 0)
        m_since = GetTickCount64();
    const std::string sheet =
        "Sheet " + std::to_string(progress.index) + " of " + std::to_string(progress.count) + ": " + progress.sheet;
    SetWindowTextW(Get(kSheet), windows::Wide(sheet).c_str());
    SendMessageW(Get(kBar), PBM_SETRANGE32, 0, progress.count);
    SendMessageW(Get(kBar), PBM_SETPOS, static_cast<WPARAM>(progress.index - 1), 0);
    if (!m_isCancelled)
        SetWindowTextW(Get(kLeft), TimeLeft(progress.index, progress.count, GetTickCount64() - m_since).c_str());
    if (IsWindowVisible(Handle()) == FALSE)
        Appear();
    UpdateWindow(Handle());
    Pump();
}

void ProgressWindow::Cancel()
{
    m_isCancelled = true;
    EnableWindow(Get(IDCANCEL), FALSE);
    SetWindowTextW(Get(kLeft), L"Cancelled: ends with this sheet, and the former PDF stays");
}

bool ProgressWindow::IsCancelled()
{
    Pump();
    return m_isCancelled;
}

LRESULT ProgressWindow::OnMessage(UINT message, WPARAM wide, LPARAM extra)
{
    if ((message == WM_COMMAND && LOWORD(wide) == IDCANCEL) || message == WM_CLOSE)
        return Cancel(), 0;
    return ByDefault(message, wide, extra);
}

/// An order to the whole program to end is passed on; there is little to do, and the run waits.
void ProgressWindow::Pump() const
{
    constexpr int kMost = 1000;
    MSG message = {};
    for (int i = 0; i < kMost && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE; ++i) {
        if (message.message == WM_QUIT)
            return PostQuitMessage(static_cast<int>(message.wParam));
        if (IsDialogMessageW(Handle(), &message) != FALSE)
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

} // namespace sm::win32
