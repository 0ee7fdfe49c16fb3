// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/OwnWindow.h"

#include "windows/system/OwnModule.h"

#include <memory>
#include <stdexcept>
#include <utility>

namespace sm::win32 {
namespace {

/// A function of a library that the process has, where the system is new enough for it.
template <class Function> Function* SystemFunction(const char* name)
{
    const HMODULE library = GetModuleHandleW(L"user32.dll");
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

using DpiOf = UINT WINAPI(HWND);

int DotsOf(HWND window)
{
    if (auto* const dots = SystemFunction<DpiOf>("GetDpiForWindow"))
        return static_cast<int>(dots(window));
    const HDC canvas = GetDC(window);
    const int dots = GetDeviceCaps(canvas, LOGPIXELSY);
    ReleaseDC(window, canvas);
    return dots;
}

} // namespace

OwnWindow::~OwnWindow()
{
    Unmake();
}

void OwnWindow::Register(const Making& making)
{
    WNDCLASSEXW kind = {};
    kind.cbSize = sizeof kind;
    kind.style = making.classStyle;
    kind.lpfnWndProc = &Procedure;
    kind.hInstance = windows::OwnModule();
    kind.hIcon = LoadIconW(windows::OwnModule(), MAKEINTRESOURCEW(1));
    kind.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    kind.hbrBackground = reinterpret_cast<HBRUSH>(std::intptr_t{COLOR_BTNFACE + 1});
    kind.lpszClassName = making.name;
    RegisterClassExW(&kind); // it may be there already
}

void OwnWindow::Make(const Making& making)
{
    Register(making);
    m_window =
        CreateWindowExW(making.more, making.name, making.title.c_str(), making.style, CW_USEDEFAULT, CW_USEDEFAULT,
                        CW_USEDEFAULT, CW_USEDEFAULT, making.parent, nullptr, windows::OwnModule(), nullptr);
    if (m_window == nullptr)
        throw std::runtime_error("there is no window to pick in");
    SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    m_dots = DotsOf(m_window);
}

void OwnWindow::TakeDots(int dots, const RECT& wanted)
{
    m_dots = dots;
    OnDots();
    SetWindowPos(m_window, nullptr, wanted.left, wanted.top, wanted.right - wanted.left, wanted.bottom - wanted.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void OwnWindow::Unmake()
{
    if (m_window == nullptr)
        return;
    SetWindowLongPtrW(m_window, GWLP_USERDATA, 0);
    MSG message = {};
    while (PeekMessageW(&message, m_window, kWork, kWork, PM_REMOVE) != FALSE)
        delete reinterpret_cast<std::function<void()>*>(message.lParam);
    DestroyWindow(std::exchange(m_window, nullptr));
}

void OwnWindow::PostWork(std::function<void()> work) const
{
    auto kept = std::make_unique<std::function<void()>>(std::move(work));
    if (PostMessageW(m_window, kWork, 0, reinterpret_cast<LPARAM>(kept.get())) != FALSE)
        static_cast<void>(kept.release());
}

LRESULT CALLBACK OwnWindow::Procedure(HWND window, UINT message, WPARAM wide, LPARAM extra)
{
    auto* const self = reinterpret_cast<OwnWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    std::unique_ptr<std::function<void()>> work;
    if (message == kWork)
        work.reset(reinterpret_cast<std::function<void()>*>(extra));
    if (self == nullptr)
        return DefWindowProcW(window, message, wide, extra);
    try {
        if (message == WM_DPICHANGED)
            self->TakeDots(HIWORD(wide), *reinterpret_cast<const RECT*>(extra));
        else if (work == nullptr)
            return self->OnMessage(message, wide, extra);
        else
            (*work)();
    } catch (...) { // a want of memory; nothing may cross the system's frames
    }
    return 0;
}

} // namespace sm::win32
