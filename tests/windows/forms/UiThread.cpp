// SPDX-License-Identifier: GPL-3.0-or-later
#include "UiThread.h"

#include <gtest/gtest.h>

#include <vector>

namespace sm::windows {
namespace {

constexpr UINT kRun = WM_APP + 50, kMark = WM_APP + 51;

BOOL CALLBACK NoteWindow(HWND window, LPARAM list)
{
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

std::vector<HWND> WindowsOf(DWORD thread)
{
    std::vector<HWND> found;
    EnumThreadWindows(thread, &NoteWindow, reinterpret_cast<LPARAM>(&found));
    return found;
}

bool IsDialog(HWND window)
{
    wchar_t name[16] = {};
    GetClassNameW(window, name, 16);
    return std::wstring(name) == L"#32770";
}

} // namespace

UiThread::UiThread()
{
    WNDCLASSW kind = {};
    kind.lpfnWndProc = &Procedure;
    kind.lpszClassName = L"SheetmakerTestThread";
    RegisterClassW(&kind);
    m_window = CreateWindowW(kind.lpszClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
}

UiThread::~UiThread()
{
    DestroyWindow(m_window);
}

LRESULT CALLBACK UiThread::Procedure(HWND window, UINT message, WPARAM wide, LPARAM extra)
{
    if (message == kRun)
        (*reinterpret_cast<const std::function<void()>*>(extra))();
    if (message == kMark)
        SetEvent(reinterpret_cast<HANDLE>(wide));
    return DefWindowProcW(window, message, wide, extra);
}

void UiThread::Run(const std::function<void()>& body) const
{
    SendMessageW(m_window, kRun, 0, reinterpret_cast<LPARAM>(&body));
}

void UiThread::Rest() const
{
    const HANDLE marked = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    int quiet = 0;
    for (int i = 0; i < 200 && quiet < 2; ++i) {
        PostMessageW(m_window, kMark, reinterpret_cast<WPARAM>(marked), 0);
        EXPECT_EQ(WaitForSingleObject(marked, 10000), WAIT_OBJECT_0) << "the windows' thread hangs";
        DWORD waiting = 0;
        Run([&] { waiting = HIWORD(GetQueueStatus(QS_INPUT | QS_POSTMESSAGE)); });
        quiet = waiting == 0 ? quiet + 1 : 0;
        Sleep(waiting == 0 ? 0 : 1);
    }
    CloseHandle(marked);
}

HWND UiThread::Focus() const
{
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(m_id, &info);
    return info.hwndFocus;
}

HWND UiThread::Front() const
{
    for (const HWND window : WindowsOf(m_id)) {
        if (IsDialog(window) && IsWindowVisible(window) && IsWindowEnabled(window))
            return window;
    }
    return nullptr;
}

HWND UiThread::WaitForFront() const
{
    for (int i = 0; i < 1000; ++i) {
        if (const HWND front = Front())
            return front;
        Sleep(10);
    }
    return nullptr;
}

HWND UiThread::Titled(const std::wstring& title) const
{
    for (const HWND window : WindowsOf(m_id)) {
        wchar_t text[200] = {};
        GetWindowTextW(window, text, 200);
        if (IsWindowVisible(window) && text == title)
            return window;
    }
    return nullptr;
}

UiThread& TheUiThread()
{
    static UiThread thread;
    return thread;
}

} // namespace sm::windows
