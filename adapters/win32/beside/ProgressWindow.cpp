// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/ProgressWindow.h"

#include "windows/automation/WideText.h"
#include "windows/controls/VisualStyles.h"
#include "windows/system/OwnModule.h"

#include <commctrl.h>

namespace sm::win32 {
namespace {

constexpr int kWidth = 420, kLine = 20, kEdge = 12, kButton = 90; // pixels of 96 dots per inch

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
    Make({kClass, L"Making PDF", WS_POPUP | WS_CAPTION | WS_SYSMENU, WS_EX_CONTROLPARENT | WS_EX_DLGMODALFRAME});
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    m_font = CreateFontIndirectW(&metrics.lfMessageFont);
    Add(L"STATIC", L"", SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS, kSheet, {kEdge, kEdge, kWidth - kEdge, kEdge + kLine});
    Add(PROGRESS_CLASSW, L"Sheets", 0, kBar, {kEdge, 2 * kEdge + kLine, kWidth - kEdge, 2 * kEdge + 2 * kLine});
    const int top = 3 * kEdge + 2 * kLine, left = kWidth - kEdge - kButton;
    Add(L"STATIC", L"", SS_LEFT | SS_NOPREFIX, kLeft, {kEdge, top, left - kEdge, top + 2 * kLine});
    Add(L"BUTTON", L"Cancel", WS_TABSTOP | BS_PUSHBUTTON, IDCANCEL, {left, top, left + kButton, top + kLine + 6});
}

ProgressWindow::~ProgressWindow()
{
    Unmake();
    DeleteObject(m_font);
}

void ProgressWindow::Add(const wchar_t* kind, const wchar_t* text, DWORD style, int control, const RECT& place) const
{
    const auto scaled = [dots = DotsOf(Handle())](LONG pixels) { return MulDiv(static_cast<int>(pixels), dots, 96); };
    const HWND made =
        CreateWindowW(kind, text, WS_CHILD | WS_VISIBLE | style, scaled(place.left), scaled(place.top),
                      scaled(place.right - place.left), scaled(place.bottom - place.top), Handle(),
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(control)), windows::OwnModule(), nullptr);
    SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(m_font), TRUE);
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
    if (IsWindowVisible(Handle()) == FALSE) {
        const int dots = DotsOf(Handle());
        RECT room = {0, 0, MulDiv(kWidth, dots, 96), MulDiv(4 * kEdge + 4 * kLine, dots, 96)};
        AdjustWindowRectEx(&room, WS_POPUP | WS_CAPTION | WS_SYSMENU, FALSE, WS_EX_DLGMODALFRAME);
        const int width = room.right - room.left, height = room.bottom - room.top;
        SetWindowPos(Handle(), nullptr, (GetSystemMetrics(SM_CXSCREEN) - width) / 2,
                     (GetSystemMetrics(SM_CYSCREEN) - height) / 2, width, height, SWP_NOZORDER);
        ShowWindow(Handle(), SW_SHOW);
    }
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
