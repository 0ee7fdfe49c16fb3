// SPDX-License-Identifier: GPL-3.0-or-later
// Everything that is pressed and has a window of its own: buttons, check boxes, options, the colour button, images.
#include "windows/controls/ControlWindow.h"

#include "windows/automation/WideText.h"
#include "windows/controls/FormPictures.h"

#include <uxtheme.h>
#include <vssym32.h>

namespace sm::windows {
namespace {

/// None of them changes over by itself: the form decides.
class PressWindow : public ControlWindow {
public:
    PressWindow(const ControlSite& site, DWORD style) : ControlWindow(site) { Create(L"BUTTON", style); }
    /// An unticked option sends a press whenever it gets the keyboard; nobody has pressed it then.
    void Command(int code) override
    {
        const bool isPress = code == BN_CLICKED || code == BN_DOUBLECLICKED;
        if (isPress && !IsKeyboardMoving())
            Press();
    }
    [[nodiscard]] SIZE Needed(const FormFont& font) const override
    {
        constexpr LONG kPadding = 12, kLeastAir = 4;
        const SIZE text = font.Size(Wide(Shown().caption));
        return {text.cx + kPadding, text.cy + kLeastAir};
    }
};

/// A check box or an option.
class TickWindow final : public PressWindow {
public:
    using PressWindow::PressWindow;
    [[nodiscard]] SIZE Needed(const FormFont& font) const override
    {
        const SIZE text = font.Size(Wide(Shown().caption));
        const LONG box = GetSystemMetrics(SM_CXMENUCHECK), gap = font.Height() / 2;
        return {box + gap + text.cx, text.cy};
    }

private:
    void Apply(const FormControl& control, const FormControl& last) override
    {
        PressWindow::Apply(control, last);
        const WPARAM wanted = control.value != 0 ? BST_CHECKED : BST_UNCHECKED;
        if (static_cast<WPARAM>(SendMessageW(Window(), BM_GETCHECK, 0, 0)) != wanted)
            SendMessageW(Window(), BM_SETCHECK, wanted, 0);
    }
};

/// The face of a push button, in the desktop's style.
void DrawButtonFace(const DRAWITEMSTRUCT& item)
{
    const bool isDown = (item.itemState & ODS_SELECTED) != 0, isOff = (item.itemState & ODS_DISABLED) != 0;
    RECT place = item.rcItem;
    const HTHEME theme = OpenThemeData(item.hwndItem, L"BUTTON");
    if (theme == nullptr) {
        const UINT state = DFCS_BUTTONPUSH | (isDown ? DFCS_PUSHED : 0) | (isOff ? DFCS_INACTIVE : 0);
        DrawFrameControl(item.hDC, &place, DFC_BUTTON, state);
        return;
    }
    const int state = isOff ? PBS_DISABLED : isDown ? PBS_PRESSED : PBS_NORMAL;
    DrawThemeBackground(theme, item.hDC, BP_PUSHBUTTON, state, &place, nullptr);
    CloseThemeData(theme);
}

/// `part` of `color` over `ground`.
COLORREF Blend(COLORREF color, COLORREF ground, double part)
{
    const auto mix = [part](BYTE over, BYTE under) { return static_cast<BYTE>(over * part + under * (1 - part)); };
    return RGB(mix(GetRValue(color), GetRValue(ground)), mix(GetGValue(color), GetGValue(ground)),
               mix(GetBValue(color), GetBValue(ground)));
}

/// A button whose face is a patch of its colour, paler when it can't be pressed.
class ColorWindow final : public PressWindow {
public:
    explicit ColorWindow(const ControlSite& site) : PressWindow(site, BS_OWNERDRAW) {}
    void Draw(const DRAWITEMSTRUCT& item) override
    {
        constexpr int kMargin = 4;
        constexpr double kPale = 0.3;
        DrawButtonFace(item);
        RECT patch = item.rcItem;
        InflateRect(&patch, -kMargin, -kMargin);
        const COLORREF mask = ColorOf(Shown().maskColor), color = ColorOf(Shown().backColor);
        const bool isOff = (item.itemState & ODS_DISABLED) != 0;
        SetDCBrushColor(item.hDC, isOff ? Blend(color, mask, kPale) : color);
        SetDCPenColor(item.hDC, GetSysColor(isOff ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT));
        SelectObject(item.hDC, GetStockObject(DC_BRUSH));
        SelectObject(item.hDC, GetStockObject(DC_PEN));
        Rectangle(item.hDC, patch.left, patch.top, patch.right, patch.bottom);
        InflateRect(&patch, -2, -2);
        if ((item.itemState & ODS_FOCUS) != 0)
            DrawFocusRect(item.hDC, &patch);
    }
    [[nodiscard]] SIZE Needed(const FormFont&) const override { return {0, 0}; }
};

/// An image on which something happens when it is pressed; the keyboard gets there, too.
class PictureButton final : public PressWindow {
public:
    explicit PictureButton(const ControlSite& site) : PressWindow(site, BS_OWNERDRAW)
    {
        SetWindowTextW(Window(), PictureName(site.control.picture));
    }
    void UseFont(const FormFont& font) override
    {
        m_font = font.Handle();
        PressWindow::UseFont(font);
    }
    void Draw(const DRAWITEMSTRUCT& item) override
    {
        DrawPicture(item.hDC, Shown().picture, item.rcItem, {m_font, Surface()});
        RECT rim = item.rcItem;
        if ((item.itemState & ODS_FOCUS) != 0)
            DrawFocusRect(item.hDC, &rim);
    }
    [[nodiscard]] SIZE Needed(const FormFont&) const override { return {0, 0}; }

private:
    void Apply(const FormControl&, const FormControl&) override {}
    LRESULT Handle(UINT message, WPARAM wide, LPARAM extra) override
    {
        if (message != WM_SETCURSOR)
            return PressWindow::Handle(message, wide, extra);
        SetCursor(LoadCursorW(nullptr, MAKEINTRESOURCEW(32649))); // the hand
        return TRUE;
    }
    HFONT m_font = nullptr;
};

} // namespace

std::unique_ptr<ControlWindow> MakePressWindow(const ControlSite& site)
{
    switch (site.control.kind) {
    case ControlKind::CheckBox:
        return std::make_unique<TickWindow>(site, BS_CHECKBOX);
    case ControlKind::OptionButton:
        return std::make_unique<TickWindow>(site, BS_RADIOBUTTON);
    case ControlKind::CommandButton:
        return std::make_unique<PressWindow>(site, site.control.isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON);
    case ControlKind::ColorButton:
        return std::make_unique<ColorWindow>(site);
    case ControlKind::Image:
        return site.clickable ? std::make_unique<PictureButton>(site) : nullptr;
    default:
        return nullptr;
    }
}

} // namespace sm::windows
