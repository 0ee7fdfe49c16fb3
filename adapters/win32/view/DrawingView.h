// SPDX-License-Identifier: GPL-3.0-or-later
// The part of a window that shows a drawing, and follows the mouse.
#pragma once

#include "scene/PickingView.h"
#include "view/ViewTexts.h"
#include "window/OwnWindow.h"

#include <functional>
#include <memory>

namespace sm::win32 {

using scene::Backdrop;
using scene::LayoutPicture;
using scene::ViewMap;

class DrawingView final : public OwnWindow, public scene::PickingView {
public:
    static constexpr const wchar_t* kClass = L"SheetmakerDrawingView";

    /// `name` is what a screen reader calls it. Throws std::runtime_error when no window can be made.
    DrawingView(HWND parent, const std::wstring& name);
    ~DrawingView() override;

    /// The window that it is in has come up.
    void Appear() { Ask(); }
    /// The wheel was turned elsewhere in the window; as in the system's message.
    void TurnWheel(WPARAM wide, LPARAM extra);
    /// Whether the key is one that moves the view; then it does.
    bool TakeKey(WPARAM key);
    /// Texts over the drawing are written in `font`, and what has a size of its own is shown for so many dots per inch.
    void SetFont(HFONT font, int dots)
    {
        m_font = font;
        m_dots = dots;
    }

    [[nodiscard]] double Magnified() const override { return m_dots / static_cast<double>(kUsualDots); }

    std::function<bool(wchar_t)> onLetter;                 ///< typed; true: used
    std::function<void(const OverlayCanvas&)> paintOver{}; ///< over the drawing, by `Map`

private:
    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM extra) override;
    bool OnMouse(UINT message, WPARAM wide, LPARAM extra);
    void OnButton(UINT message, scene::MouseButton button, Vec2 at, bool isSuspended);
    void OnMove(Vec2 at, WPARAM wide);

    void Redraw() override { InvalidateRect(Handle(), nullptr, FALSE); }
    void ShowPointer(scene::ViewPointer pointer) override;
    void Post(std::function<void()> work) override { PostWork(std::move(work)); }
    [[nodiscard]] bool IsShown() const override { return IsWindowVisible(Handle()) != FALSE; }
    [[nodiscard]] scene::PixelBox Room() const override;
    [[nodiscard]] bool IsSuspended() const override { return GetKeyState(VK_SHIFT) < 0; }

    void Paint();
    void Compose(scene::PixelImage& pixels) const;

    HCURSOR m_cursor = LoadCursorW(nullptr, IDC_ARROW);
    HFONT m_font = nullptr;
    int m_dots = kUsualDots;
    std::unique_ptr<scene::IPixelCanvases> m_overlay;
    bool m_isWatched = false; ///< the system will tell when the cursor leaves
};

} // namespace sm::win32
