// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/WindowFont.h"

namespace sm::win32 {
namespace {

HFONT MessageFont(int dots)
{
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    const HDC screen = GetDC(nullptr);
    metrics.lfMessageFont.lfHeight = MulDiv(metrics.lfMessageFont.lfHeight, dots, GetDeviceCaps(screen, LOGPIXELSY));
    ReleaseDC(nullptr, screen);
    return CreateFontIndirectW(&metrics.lfMessageFont);
}

} // namespace

void WindowFont::Use(HWND window, int dots)
{
    const HFONT font = MessageFont(dots);
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
        SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    m_font.reset(font);
}

} // namespace sm::win32
