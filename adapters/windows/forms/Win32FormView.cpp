#include "windows/forms/Win32FormView.h"

#include "windows/automation/WideText.h"
#include "windows/controls/FormScale.h"

#include <algorithm>
#include <optional>

namespace sm::windows {
namespace {

constexpr UINT kSettle = WM_APP + 1;   ///< reports that were put off are due
constexpr UINT kAppeared = WM_APP + 2; ///< the window has come up
constexpr int kMostEvents = 10000;     ///< of one pumping: a window that never has enough of painting stops no one

/// Nothing leaves the view's operations: what fails here is a want of memory or of windows, and the form goes on.
template <class Body> bool Guarded(const Body& body) noexcept
{
    try {
        body();
        return true;
    } catch (...) {
        return false;
    }
}

} // namespace

Win32FormView::Win32FormView(IForm& form, ShownForms& shown)
    : m_form(form), m_shown(shown), m_reporter(form),
      m_dialog([this](UINT message, WPARAM wide, LPARAM extra) { return OnMessage(message, wide, extra); }),
      m_keyboard(form, m_reporter, m_windows)
{
    m_reporter.showAnew = [this](std::size_t control) { ControlChanged(control); };
    m_reporter.wake = [this] { PostMessageW(m_dialog.Window(), kSettle, 0, 0); };
    m_reporter.controlOf = [this](HWND window) { return ControlOf(window); };
    const VisualStyles styles;
    const FormReporter::Silence silence(m_reporter);
    MakeControls();
    UseFont(1);
    ShowForm();
    for (std::size_t i = 1; i < m_windows.size(); ++i)
        m_windows[i]->Show(form.Controls()[i]);
    EnableWithin(0);
    LayOut();
    const WPARAM allCues = MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL | UISF_HIDEFOCUS);
    SendMessageW(m_dialog.Window(), WM_CHANGEUISTATE, allCues, 0);
}

Win32FormView::~Win32FormView()
{
    const FormReporter::Silence silence(m_reporter);
    m_windows.clear();
}

void Win32FormView::MakeControls()
{
    const auto& controls = m_form.Controls();
    for (std::size_t i = 0; i < controls.size(); ++i) {
        ControlWindow* const holder =
            i > 0 && controls[i].parent > 0 ? m_windows.at(controls[i].parent).get() : nullptr;
        const HWND inside = holder != nullptr ? holder->Window() : nullptr;
        const HWND parent = inside != nullptr ? inside : m_dialog.Window();
        const bool clickable = m_form.Handles(i, FormEvent::Click);
        m_windows.push_back(MakeControlWindow({controls[i], i, parent, holder, m_reporter, clickable}));
    }
    m_enabled.assign(controls.size(), true);
}

void Win32FormView::UseFont(double scale)
{
    auto font = std::make_unique<FormFont>(scale);
    for (const auto& window : m_windows)
        window->UseFont(*font);
    m_font = std::move(font);
    m_units = {};
}

/// Font, style or colours of the desktop may be others now.
void Win32FormView::Restyle()
{
    const FormReporter::Silence silence(m_reporter);
    UseFont(1);
    LayOut();
    RedrawWindow(m_dialog.Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void Win32FormView::ShowForm()
{
    SetWindowTextW(m_dialog.Window(), Wide(m_form.Controls().front().caption).c_str());
}

bool Win32FormView::IsEnabled(std::size_t control) const
{
    const auto& controls = m_form.Controls();
    while (control != 0 && controls[control].enabled)
        control = controls[control].parent;
    return controls[control].enabled;
}

void Win32FormView::EnableWithin(std::size_t control)
{
    const auto& controls = m_form.Controls();
    for (std::size_t i = std::max<std::size_t>(control, 1); i < controls.size(); ++i) {
        const bool enabled = IsEnabled(i);
        if (enabled == m_enabled[i])
            continue;
        m_enabled[i] = enabled;
        m_windows[i]->Enable(enabled);
    }
}

/// What lies on a tab page stands in its middle: the strip is wider than its pages ask for.
int Win32FormView::PageMargin(std::size_t page, const FormUnits& units) const
{
    if (m_form.Controls()[page].kind != ControlKind::TabPage)
        return 0;
    RECT inside = {};
    GetClientRect(m_windows[page]->Window(), &inside);
    return std::max(0, (static_cast<int>(inside.right) - units.Across(m_form.Controls()[page].place.width)) / 2);
}

/// On a screen that is too small for the form, its letters get smaller.
void Win32FormView::LayOut()
{
    constexpr double kSmaller = 0.9, kLeast = 0.4;
    const auto& controls = m_form.Controls();
    const auto content = [&] {
        return SIZE{m_units.Across(controls[0].place.width), m_units.Down(controls[0].place.height)};
    };
    const FormUnits before = m_units;
    m_units = MeasureScale(controls, m_windows, *m_font);
    if (m_units != before) {
        for (double scale = kSmaller; scale > kLeast && !m_dialog.FitsScreen(content()); scale *= kSmaller) {
            UseFont(scale);
            m_units = MeasureScale(controls, m_windows, *m_font);
        }
        m_dialog.Resize(content());
    }
    for (std::size_t i = 1; i < controls.size(); ++i) {
        RECT place = m_units.Rect(controls[i].place);
        OffsetRect(&place, PageMargin(controls[i].parent, m_units), 0);
        m_windows[i]->Place(place, m_units);
    }
}

/// A control that the form takes away hands the keyboard on: else all keys would be lost.
void Win32FormView::ShowControl(std::size_t control)
{
    const std::size_t focused = ControlOf(GetFocus());
    if (control == 0)
        ShowForm();
    else if (m_windows[control]->Show(m_form.Controls()[control]))
        LayOut();
    EnableWithin(control);
    if (focused != 0 && !m_keyboard.CanStop(focused))
        m_keyboard.MoveOnFrom(focused);
}

void Win32FormView::ControlChanged(std::size_t control)
{
    if (control >= m_windows.size())
        return;
    Guarded([&] {
        const FormReporter::Silence silence(m_reporter);
        ShowControl(control);
    });
}

std::size_t Win32FormView::ControlOf(HWND window) const
{
    if (window == nullptr || IsChild(m_dialog.Window(), window) == FALSE)
        return 0;
    for (; window != m_dialog.Window(); window = GetParent(window)) {
        const auto id = static_cast<UINT_PTR>(GetDlgCtrlID(window));
        if (const ControlWindow* const found = WithId(id); found != nullptr && found->Window() == window)
            return id - kFirstControlId;
    }
    return 0;
}

ControlWindow* Win32FormView::WithId(UINT_PTR id) const
{
    const bool isOurs = id > kFirstControlId && id < kFirstControlId + m_windows.size();
    return isOurs ? m_windows[id - kFirstControlId].get() : nullptr;
}

INT_PTR Win32FormView::Paint(HDC canvas, HWND window) const
{
    const std::size_t control = ControlOf(window);
    const COLORREF back = control != 0 ? m_windows[control]->Back() : GetSysColor(COLOR_BTNFACE);
    const bool isOff = IsWindowEnabled(window) == FALSE;
    SetTextColor(canvas, GetSysColor(isOff ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT));
    SetBkColor(canvas, back);
    SetDCBrushColor(canvas, back);
    return reinterpret_cast<INT_PTR>(GetStockObject(DC_BRUSH));
}

std::optional<INT_PTR> Win32FormView::OnMessage(UINT message, WPARAM wide, LPARAM extra)
{
    ControlWindow* from = nullptr;
    switch (message) {
    case WM_COMMAND:
        from = extra != 0 ? WithId(LOWORD(wide)) : nullptr;
        if (from != nullptr)
            from->Command(HIWORD(wide));
        return TRUE;
    case WM_NOTIFY:
        from = WithId(reinterpret_cast<const NMHDR*>(extra)->idFrom);
        if (from == nullptr)
            return std::nullopt;
        SetWindowLongPtrW(m_dialog.Window(), DWLP_MSGRESULT, from->Notify(*reinterpret_cast<const NMHDR*>(extra)));
        return TRUE;
    case WM_DRAWITEM:
        from = WithId(wide);
        if (from != nullptr)
            from->Draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(extra));
        return TRUE;
    case WM_CTLCOLORBTN:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORSTATIC:
        return Paint(reinterpret_cast<HDC>(wide), reinterpret_cast<HWND>(extra));
    case WM_CLOSE:
        m_reporter.Settle();
        m_form.UserClosed();
        return TRUE;
    case WM_SETTINGCHANGE:
    case WM_THEMECHANGED:
        Restyle();
        return std::nullopt;
    case kSettle:
        m_reporter.Settle();
        return TRUE;
    case kAppeared:
        m_form.UserActivated();
        return TRUE;
    default:
        return std::nullopt;
    }
}

bool Win32FormView::ShowModal()
{
    if (m_showing != nullptr)
        return false;
    const bool wasShown = Guarded([&] {
        const VisualStyles styles;
        m_isHidden = false;
        ModalShowing showing(m_shown, m_dialog);
        m_showing = &showing;
        Appear();
        Run();
    });
    m_showing = nullptr;
    m_isHidden = true;
    return wasShown;
}

void Win32FormView::Appear()
{
    const FormReporter::Silence silence(m_reporter);
    if (m_keyboard.CanStop(m_lastFocused))
        SetFocus(m_windows[m_lastFocused]->Window());
    else
        m_keyboard.GoToFirst();
    PostMessageW(m_dialog.Window(), kAppeared, 0, 0);
}

/// A report under way has returned whenever this looks; an order to the whole program to end is passed on.
void Win32FormView::Run()
{
    MSG message = {};
    while (!m_isHidden) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got == 0)
            PostQuitMessage(static_cast<int>(message.wParam));
        if (got <= 0)
            return;
        Dispatch(message);
    }
}

void Win32FormView::Dispatch(const MSG& message)
{
    bool isUsed = false;
    Guarded([&] { isUsed = m_keyboard.Take(message, m_dialog.Window()); });
    if (isUsed)
        return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

void Win32FormView::Hide()
{
    if (m_showing == nullptr || m_isHidden)
        return;
    m_isHidden = true;
    m_lastFocused = ControlOf(GetFocus());
    if (m_showing->IsInFront())
        m_showing->End();
    else
        ShowWindow(m_dialog.Window(), SW_HIDE);
    PostMessageW(m_dialog.Window(), WM_NULL, 0, 0);
}

void Win32FormView::PumpEvents()
{
    Guarded([&] {
        MSG message = {};
        for (int i = 0; i < kMostEvents && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE; ++i) {
            if (message.message == WM_QUIT)
                return PostQuitMessage(static_cast<int>(message.wParam));
            Dispatch(message);
        }
    });
}

} // namespace sm::windows
