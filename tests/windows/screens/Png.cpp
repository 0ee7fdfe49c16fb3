// SPDX-License-Identifier: GPL-3.0-or-later
#include "Png.h"

#include <set>

#include <objidl.h>

#include <algorithm>
using std::max; // the header below takes them from nowhere
using std::min;
#include <gdiplus.h>

namespace sm::windows {
namespace {

constexpr CLSID kPng = {0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};

class WindowBitmap {
public:
    explicit WindowBitmap(HWND window)
    {
        RECT place = {};
        GetWindowRect(window, &place);
        const int width = place.right - place.left, height = place.bottom - place.top;
        const HDC seen = GetWindowDC(window);
        m_canvas = CreateCompatibleDC(seen);
        m_bitmap = CreateCompatibleBitmap(seen, width, height);
        m_former = SelectObject(m_canvas, m_bitmap);
        BitBlt(m_canvas, 0, 0, width, height, seen, 0, 0, SRCCOPY);
        ReleaseDC(window, seen);
    }
    ~WindowBitmap()
    {
        SelectObject(m_canvas, m_former);
        DeleteObject(m_bitmap);
        DeleteDC(m_canvas);
    }
    WindowBitmap(const WindowBitmap&) = delete;
    WindowBitmap& operator=(const WindowBitmap&) = delete;
    [[nodiscard]] HBITMAP Handle() const { return m_bitmap; }
    [[nodiscard]] HDC Canvas() const { return m_canvas; }

private:
    HDC m_canvas;
    HBITMAP m_bitmap;
    HGDIOBJ m_former;
};

} // namespace

bool SavePicture(HWND window, const std::wstring& file)
{
    ULONG_PTR token = 0;
    const Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&token, &input, nullptr) != Gdiplus::Ok)
        return false;
    bool isSaved = false;
    {
        const WindowBitmap seen(window);
        Gdiplus::Bitmap picture(seen.Handle(), nullptr);
        isSaved = picture.Save(file.c_str(), &kPng, nullptr) == Gdiplus::Ok;
    }
    Gdiplus::GdiplusShutdown(token);
    return isSaved;
}

int CountColors(HWND window)
{
    constexpr std::size_t kEnough = 1000;
    const WindowBitmap seen(window);
    RECT place = {};
    GetWindowRect(window, &place);
    std::set<COLORREF> colors;
    for (int y = 0; y < place.bottom - place.top; y += 3) {
        for (int x = 0; x < place.right - place.left && colors.size() < kEnough; x += 3)
            colors.insert(GetPixel(seen.Canvas(), x, y));
    }
    return static_cast<int>(colors.size());
}

} // namespace sm::windows
