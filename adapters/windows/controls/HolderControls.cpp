// SPDX-License-Identifier: GPL-3.0-or-later
// What holds other controls: frames, tab strips with their pages, sunken boxes.
#include "windows/controls/ControlWindow.h"

#include "windows/automation/WideText.h"
#include "windows/controls/TabStripWindow.h"

namespace sm::windows {
namespace {

class FrameWindow final : public HolderWindow {
public:
    explicit FrameWindow(const ControlSite& site) : HolderWindow(site)
    {
        Create(L"BUTTON", BS_GROUPBOX | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT);
    }
    [[nodiscard]] SIZE Needed(const FormFont& font) const override
    {
        constexpr LONG kRim = 20;
        return {font.Size(Wide(Shown().caption)).cx + kRim, 0};
    }
    [[nodiscard]] RECT Border(const FormFont& font) const override { return {3, font.Height(), 3, 3}; }
};

class BoxWindow final : public HolderWindow {
public:
    explicit BoxWindow(const ControlSite& site) : HolderWindow(site)
    {
        Create(L"STATIC", WS_CLIPCHILDREN, WS_EX_CLIENTEDGE | WS_EX_CONTROLPARENT);
    }
    [[nodiscard]] RECT Border(const FormFont&) const override { return {0, 0, 2, 2}; }
};

} // namespace

LRESULT HolderWindow::Handle(UINT message, WPARAM wide, LPARAM extra)
{
    switch (message) {
    case WM_COMMAND:
    case WM_NOTIFY:
    case WM_DRAWITEM:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORSTATIC:
        return SendMessageW(GetParent(Window()), message, wide, extra);
    case WM_ERASEBKGND: {
        const auto canvas = reinterpret_cast<HDC>(wide);
        RECT inside = {};
        GetClientRect(Window(), &inside);
        SetDCBrushColor(canvas, Surface());
        FillRect(canvas, &inside, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
        return 1;
    }
    default:
        return ControlWindow::Handle(message, wide, extra);
    }
}

std::unique_ptr<ControlWindow> MakeHolderWindow(const ControlSite& site)
{
    switch (site.control.kind) {
    case ControlKind::Frame:
        return std::make_unique<FrameWindow>(site);
    case ControlKind::Picture:
        return std::make_unique<BoxWindow>(site);
    case ControlKind::TabStrip:
        return std::make_unique<TabStripWindow>(site);
    case ControlKind::TabPage:
        return std::make_unique<TabPageWindow>(site);
    default:
        return nullptr;
    }
}

} // namespace sm::windows
