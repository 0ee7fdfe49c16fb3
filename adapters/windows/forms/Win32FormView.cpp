// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/forms/Win32FormView.h"

#include "windows/automation/WideText.h"
#include "windows/controls/FormScale.h"

#include <algorithm>

namespace sm::windows {

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
    auto font = std::make_unique<FormFont>(scale * m_enlarged);
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

/// The window came onto a screen of other dots. What it needs there decides its size, not what the system proposes.
void Win32FormView::TakeDots(int dots, const RECT& wanted)
{
    const HDC screen = GetDC(nullptr);
    m_enlarged = static_cast<double>(dots) / GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    Restyle();
    SetWindowPos(m_dialog.Window(), nullptr, wanted.left, wanted.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
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
    if (m_shown.watcher != nullptr)
        m_shown.watcher->Changed(m_form);
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

} // namespace sm::windows
