// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/DrawingView.h"

#include "scene/SoftCanvas.h"

#include <algorithm>
#include <cmath>

namespace sm::win32 {
namespace {

/// A bitmap of a window's size to draw on out of sight.
class HiddenCanvas {
public:
    HiddenCanvas(HDC seen, int width, int height)
        : m_canvas(CreateCompatibleDC(seen)), m_bitmap(CreateCompatibleBitmap(seen, width, height)),
          m_before(SelectObject(m_canvas, m_bitmap))
    {
    }
    ~HiddenCanvas()
    {
        SelectObject(m_canvas, m_before);
        DeleteObject(m_bitmap);
        DeleteDC(m_canvas);
    }
    HiddenCanvas(const HiddenCanvas&) = delete;
    HiddenCanvas& operator=(const HiddenCanvas&) = delete;
    [[nodiscard]] HDC Canvas() const { return m_canvas; }

private:
    HDC m_canvas;
    HBITMAP m_bitmap;
    HGDIOBJ m_before;
};

void PutPixels(HDC canvas, const scene::PixelImage& pixels)
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = pixels.Width();
    info.bmiHeader.biHeight = -pixels.Height(); // rows from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    const auto height = static_cast<UINT>(pixels.Height());
    SetDIBitsToDevice(canvas, 0, 0, static_cast<DWORD>(pixels.Width()), height, 0, 0, 0, height, pixels.Row(0), &info,
                      DIB_RGB_COLORS);
}

/// Puts `from` at `corner`, each of its pixels `factor` large: what shows until the view is painted anew.
void PutScaled(const scene::PixelImage& from, Vec2 corner, double factor, scene::PixelImage& to)
{
    for (int y = 0; y < to.Height(); ++y) {
        const double row = std::floor((y + 0.5 - corner.y) / factor);
        if (!(row >= 0 && row < from.Height()))
            continue;
        const std::uint32_t* const source = from.Row(static_cast<int>(row));
        std::uint32_t* const target = to.Row(y);
        for (int x = 0; x < to.Width(); ++x) {
            const double column = std::floor((x + 0.5 - corner.x) / factor);
            if (column >= 0 && column < from.Width())
                target[x] = source[static_cast<int>(column)];
        }
    }
}

void PutMoved(const scene::PixelImage& from, int left, int top, scene::PixelImage& to)
{
    const scene::PixelBox seen = to.All().Common({left, top, left + from.Width(), top + from.Height()});
    for (int y = seen.top; y < seen.bottom && !seen.Empty(); ++y)
        std::copy_n(from.Row(y - top) + (seen.left - left), seen.Width(), to.Row(y) + seen.left);
}

} // namespace

DrawingView::DrawingView(HWND parent, const std::wstring& name)
    : PickingView(scene::CreateSoftCanvases()), m_overlay(scene::CreateSoftCanvases())
{
    Make({kClass, name, WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPCHILDREN, 0, parent, CS_DBLCLKS});
}

DrawingView::~DrawingView()
{
    StopPainting();
    Unmake();
}

scene::PixelBox DrawingView::Room() const
{
    RECT room = {};
    GetClientRect(Handle(), &room);
    return {0, 0, static_cast<int>(room.right), static_cast<int>(room.bottom)};
}

void DrawingView::ShowPointer(scene::ViewPointer pointer)
{
    m_cursor = pointer == scene::ViewPointer::Cross  ? LoadCursorW(nullptr, IDC_CROSS)
               : pointer == scene::ViewPointer::None ? nullptr
                                                     : LoadCursorW(nullptr, IDC_ARROW);
    POINT at = {};
    if (GetCursorPos(&at) != FALSE && WindowFromPoint(at) == Handle())
        SetCursor(m_cursor);
}

// What was painted last is shown where it belongs by now: moved or scaled until the new picture is there.
void DrawingView::Compose(scene::PixelImage& pixels) const
{
    for (int y = 0; y < pixels.Height(); ++y)
        std::fill_n(pixels.Row(y), pixels.Width(), 0xFF000000 | Ground());
    if (Image() == nullptr)
        return;
    const Vec2 corner = Map().ToPixel(ImageMap().ToScene({0, 0}));
    if (std::abs(ImageMap().scale - Map().scale) > 1e-9 * ImageMap().scale)
        return PutScaled(*Image(), corner, Map().scale / ImageMap().scale, pixels);
    constexpr double kFar = 1e6; // pixels; nothing of it shows
    if (std::abs(corner.x) < kFar && std::abs(corner.y) < kFar)
        PutMoved(*Image(), static_cast<int>(std::lround(corner.x)), static_cast<int>(std::lround(corner.y)), pixels);
}

void DrawingView::Paint()
{
    PAINTSTRUCT paint = {};
    const HDC seen = BeginPaint(Handle(), &paint);
    const scene::PixelBox room = Room();
    if (!room.Empty()) {
        const HiddenCanvas hidden(seen, room.Width(), room.Height());
        const HGDIOBJ before = m_font != nullptr ? SelectObject(hidden.Canvas(), m_font) : nullptr;
        scene::PixelImage pixels(room.Width(), room.Height());
        Compose(pixels);
        std::vector<ViewText> texts;
        const auto shapes = m_overlay->On(pixels);
        const OverlayCanvas over{*shapes, texts, hidden.Canvas(), room.Width(), room.Height(), Magnified()};
        if (paintOver)
            paintOver(over);
        PaintOverlay(over, Overlay(), OnBackdrop());
        PutPixels(hidden.Canvas(), pixels);
        DrawTexts(hidden.Canvas(), texts);
        BitBlt(seen, 0, 0, room.Width(), room.Height(), hidden.Canvas(), 0, 0, SRCCOPY);
        if (before != nullptr)
            SelectObject(hidden.Canvas(), before);
    }
    EndPaint(Handle(), &paint);
}

} // namespace sm::win32
