// SPDX-License-Identifier: GPL-3.0-or-later
// What is drawn over a view: shapes at once, texts once the pixels are on the window's canvas.
#pragma once

#include "beside/PageSource.h"
#include "scene/PickingView.h"
#include "scene/PixelCanvas.h"

#include <string>
#include <vector>

#include <windows.h>

namespace sm::win32 {

struct ViewText {
    std::wstring text;
    POINT at{};
    std::wstring face{}; ///< empty: the window's own font
    int height = 0;      ///< pixels of its em
    int turn = 0;        ///< tenths of a degree, counter-clockwise
    bool isBold = false, isSlanted = false;
    COLORREF color = 0;
    UINT align = TA_LEFT | TA_TOP;
};

/// Shapes go on the canvas, texts into the list.
struct OverlayCanvas {
    scene::IPixelCanvas& shapes;
    std::vector<ViewText>& texts;
    HDC measure; ///< has the window's font
    int width, height;
    double scale; ///< of what has a size of its own, from 96 dots to the inch
};

/// Cross-hair, rubber band, snap mark with its name.
void PaintOverlay(const OverlayCanvas& canvas, const scene::ViewOverlay& over, scene::Backdrop backdrop);
/// `marks` in millimetres of the scene that `map` shows.
void PaintPageMarks(const OverlayCanvas& canvas, const std::vector<beside::PageMark>& marks, const scene::ViewMap& map);

/// Round a mark, pixels.
void PaintFrameRound(const OverlayCanvas& canvas, const Box2& box);
/// Pixels that a mark takes; it is in millimetres of the scene that `map` shows. `scale` as in OverlayCanvas.
Box2 MarkBox(const beside::PageMark& mark, const scene::ViewMap& map, double scale);

void DrawTexts(HDC canvas, const std::vector<ViewText>& texts);

} // namespace sm::win32
