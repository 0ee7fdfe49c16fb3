// SPDX-License-Identifier: GPL-3.0-or-later
// The toolbar and its buttons, which have no windows of their own.
#include "windows/controls/ControlWindow.h"

#include "windows/automation/WideText.h"

#include <commctrl.h>

namespace sm::windows {
namespace {

/// One stop of the keyboard: the arrows go from button to button, Space and Enter press. The mouse leaves the keyboard
/// where it is, so that what is typed goes on behind what a button has put in.
class ToolbarWindow final : public ControlWindow {
public:
    explicit ToolbarWindow(const ControlSite& site) : ControlWindow(site)
    {
        Create(TOOLBARCLASSNAMEW, TBSTYLE_FLAT | CCS_NODIVIDER | CCS_NORESIZE | CCS_NOPARENTALIGN);
        SendMessageW(Window(), TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
        SendMessageW(Window(), TB_SETBITMAPSIZE, 0, 0);
    }
    void Add(int id)
    {
        TBBUTTON button = {};
        button.iBitmap = I_IMAGENONE;
        button.idCommand = id;
        button.fsState = TBSTATE_ENABLED;
        button.fsStyle = BTNS_BUTTON | BTNS_SHOWTEXT;
        SendMessageW(Window(), TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button));
    }
    void SetCaption(int id, const std::string& caption)
    {
        std::wstring text = Wide(caption);
        TBBUTTONINFOW info = {};
        info.cbSize = sizeof info;
        info.dwMask = TBIF_TEXT;
        info.pszText = text.data();
        SendMessageW(Window(), TB_SETBUTTONINFOW, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(&info));
    }
    void SetSize(int id, int width, int height)
    {
        TBBUTTONINFOW info = {};
        info.cbSize = sizeof info;
        info.dwMask = TBIF_SIZE;
        info.cx = static_cast<WORD>(width);
        SendMessageW(Window(), TB_SETBUTTONSIZE, 0, MAKELPARAM(width, height));
        SendMessageW(Window(), TB_SETBUTTONINFOW, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(&info));
    }
    bool TakeKey(WPARAM key) override
    {
        const auto hot = static_cast<int>(SendMessageW(Window(), TB_GETHOTITEM, 0, 0));
        if (key == VK_LEFT || key == VK_RIGHT)
            return Heat(hot, key == VK_LEFT ? -1 : 1);
        if (key != VK_SPACE && key != VK_RETURN)
            return false;
        TBBUTTON button = {};
        if (SendMessageW(Window(), TB_GETBUTTON, static_cast<WPARAM>(hot), reinterpret_cast<LPARAM>(&button)) == 0)
            return false;
        const auto from = reinterpret_cast<LPARAM>(Window());
        SendMessageW(GetParent(Window()), WM_COMMAND, MAKEWPARAM(button.idCommand, BN_CLICKED), from);
        return true;
    }
    void Entered() override { Heat(-1, 1); }
    /// A thin edge round each button, so that it is seen to be one before the mouse comes over it.
    LRESULT Notify(const NMHDR& notice) override
    {
        if (notice.code != static_cast<UINT>(NM_CUSTOMDRAW))
            return 0;
        const auto& stage = reinterpret_cast<const NMTBCUSTOMDRAW&>(notice).nmcd;
        if (stage.dwDrawStage == CDDS_PREPAINT)
            return CDRF_NOTIFYITEMDRAW;
        if (stage.dwDrawStage != CDDS_ITEMPREPAINT)
            return CDRF_DODEFAULT;
        RECT edge = stage.rc;
        InflateRect(&edge, -1, -1);
        SetDCBrushColor(stage.hdc, GetSysColor(COLOR_BTNSHADOW));
        FrameRect(stage.hdc, &edge, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
        return CDRF_DODEFAULT;
    }

private:
    void Apply(const FormControl&, const FormControl&) override {}
    LRESULT Handle(UINT message, WPARAM wide, LPARAM extra) override
    {
        if (message == WM_KILLFOCUS)
            SendMessageW(Window(), TB_SETHOTITEM, static_cast<WPARAM>(-1), 0);
        return message == WM_GETDLGCODE ? DLGC_WANTARROWS : ControlWindow::Handle(message, wide, extra);
    }
    /// The next button that can be pressed; at the ends the old one stays. Uses the key in any case.
    bool Heat(int hot, int step)
    {
        const auto count = static_cast<int>(SendMessageW(Window(), TB_BUTTONCOUNT, 0, 0));
        for (int next = hot + step; next >= 0 && next < count; next += step) {
            TBBUTTON button = {};
            SendMessageW(Window(), TB_GETBUTTON, static_cast<WPARAM>(next), reinterpret_cast<LPARAM>(&button));
            if ((button.fsState & TBSTATE_ENABLED) == 0 || (button.fsState & TBSTATE_HIDDEN) != 0)
                continue;
            SendMessageW(Window(), TB_SETHOTITEM, static_cast<WPARAM>(next), 0);
            break;
        }
        return true;
    }
};

class ToolWindow final : public ControlWindow {
public:
    ToolWindow(const ControlSite& site, ToolbarWindow& bar)
        : ControlWindow(site), m_bar(bar), m_id(static_cast<int>(site.position) + kFirstControlId)
    {
        m_bar.Add(m_id);
    }
    void Command(int code) override
    {
        if (code == BN_CLICKED)
            Press();
    }
    void Enable(bool enabled) override { Send(TB_ENABLEBUTTON, enabled); }
    void Place(const RECT& place, const FormUnits&) override
    {
        m_bar.SetSize(m_id, place.right - place.left, place.bottom - place.top);
    }
    [[nodiscard]] SIZE Needed(const FormFont& font) const override
    {
        constexpr LONG kPadding = 12;
        const SIZE text = font.Size(Wide(Shown().caption));
        return {text.cx + kPadding, text.cy};
    }

private:
    void Apply(const FormControl& control, const FormControl& last) override
    {
        if (control.caption != last.caption)
            m_bar.SetCaption(m_id, control.caption);
        if (control.visible != last.visible)
            Send(TB_HIDEBUTTON, !control.visible);
    }
    void Send(UINT message, bool on)
    {
        SendMessageW(m_bar.Window(), message, static_cast<WPARAM>(m_id), MAKELPARAM(on ? TRUE : FALSE, 0));
    }
    ToolbarWindow& m_bar;
    int m_id;
};

} // namespace

std::unique_ptr<ControlWindow> MakeToolWindow(const ControlSite& site)
{
    if (site.control.kind == ControlKind::Toolbar)
        return std::make_unique<ToolbarWindow>(site);
    auto* const bar = dynamic_cast<ToolbarWindow*>(site.holder);
    if (site.control.kind == ControlKind::ToolButton && bar != nullptr)
        return std::make_unique<ToolWindow>(site, *bar);
    return nullptr;
}

} // namespace sm::windows
