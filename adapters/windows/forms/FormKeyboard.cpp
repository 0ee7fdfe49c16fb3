// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/forms/FormKeyboard.h"

#include "windows/automation/WideText.h"

#include <algorithm>

namespace sm::windows {
namespace {

constexpr LPARAM kWasDown = LPARAM{1} << 30; ///< the key is held

bool IsHeld(int key)
{
    return GetKeyState(key) < 0;
}

bool IsOption(const FormControl& control)
{
    return control.kind == ControlKind::OptionButton;
}

wchar_t Upper(wchar_t letter)
{
    CharUpperBuffW(&letter, 1);
    return letter;
}

/// The letter behind the "&" of a caption, in its upper case; 0 when there is none.
wchar_t MnemonicOf(const std::string& caption)
{
    const std::wstring text = Wide(caption);
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] == L'&' && text[++i] != L'&')
            return Upper(text[i]);
    }
    return 0;
}

} // namespace

bool FormKeyboard::Take(const MSG& message, HWND dialog)
{
    if (message.hwnd != dialog && !IsChild(dialog, message.hwnd))
        return false;
    const std::size_t focused = Focused();
    if (focused != 0 && m_windows[focused]->IsOpen())
        return false;
    const auto letter = static_cast<wchar_t>(message.wParam);
    switch (message.message) {
    case WM_KEYDOWN:
        return TakeDown(message.wParam, (message.lParam & kWasDown) != 0);
    case WM_SYSCHAR:
        return TakeLetter(letter);
    case WM_CHAR: // without Alt where no letters are typed
        return (SendMessageW(message.hwnd, WM_GETDLGCODE, 0, 0) & (DLGC_WANTCHARS | DLGC_WANTALLKEYS)) == 0 &&
               TakeLetter(letter);
    default:
        return false;
    }
}

bool FormKeyboard::TakeDown(WPARAM key, bool isRepeated)
{
    const std::size_t focused = Focused();
    switch (key) {
    case VK_RETURN:
        return isRepeated || IsHeld(VK_CONTROL) || TakeEnter();
    case VK_ESCAPE:
        if (!isRepeated)
            m_form.UserPressedEscape();
        return true;
    case VK_TAB:
        if (IsHeld(VK_CONTROL))
            return TurnPage(IsHeld(VK_SHIFT) ? -1 : 1);
        GoFrom(focused, IsHeld(VK_SHIFT) ? -1 : 1);
        return true;
    case VK_PRIOR:
    case VK_NEXT:
        return IsHeld(VK_CONTROL) && TurnPage(key == VK_PRIOR ? -1 : 1);
    case VK_UP:
    case VK_LEFT:
    case VK_DOWN:
    case VK_RIGHT:
        if (focused != 0 && IsOption(m_reporter.State(focused)))
            return GoInGroup(focused, key == VK_UP || key == VK_LEFT ? -1 : 1);
        break;
    default:
        break;
    }
    return focused != 0 && m_windows[focused]->TakeKey(key);
}

bool FormKeyboard::TakeEnter()
{
    const std::size_t focused = Focused();
    if (focused != 0 && m_windows[focused]->TakeKey(VK_RETURN))
        return true;
    m_reporter.Settle();
    m_form.UserPressedEnter(focused);
    return true;
}

bool FormKeyboard::IsReachable(std::size_t control) const
{
    return m_windows[control]->Window() != nullptr && IsWindowVisible(m_windows[control]->Window()) != FALSE &&
           IsWindowEnabled(m_windows[control]->Window()) != FALSE;
}

bool FormKeyboard::CanStop(std::size_t control) const
{
    const auto order = Order();
    return std::find(order.begin(), order.end(), control) != order.end() && IsReachable(control);
}

/// Every control with a window where the keyboard may stop. An image to press comes behind what stands before it; a
/// toolbar in the place of its first button.
std::vector<std::size_t> FormKeyboard::Order() const
{
    const auto& controls = m_form.Controls();
    std::vector<std::pair<std::int32_t, std::size_t>> stops;
    std::int32_t last = 0;
    for (std::size_t i = 1; i < controls.size(); ++i) {
        last = std::max(last, controls[i].tabIndex);
        const bool isImage = controls[i].kind == ControlKind::Image && m_form.Handles(i, FormEvent::Click);
        const bool isTool = controls[i].kind == ControlKind::ToolButton;
        const std::size_t stop = isTool ? controls[i].parent : i;
        const bool isKnown = isTool && !stops.empty() && stops.back().second == stop;
        if ((controls[i].tabIndex >= 0 || isImage) && !isKnown)
            stops.emplace_back(isImage ? last : controls[i].tabIndex, stop);
    }
    std::stable_sort(stops.begin(), stops.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<std::size_t> order;
    for (const auto& stop : stops)
        order.push_back(stop.second);
    return order;
}

/// Of a group of options the Tab key finds the ticked one, or the first when none is.
bool FormKeyboard::IsGroupsStop(std::size_t option) const
{
    const auto& controls = m_form.Controls();
    if (controls[option].value != 0)
        return true;
    for (std::size_t i = 1; i < controls.size(); ++i) {
        const bool isOther = i != option && IsOption(controls[i]) && controls[i].parent == controls[option].parent;
        if (isOther && IsReachable(i) && (controls[i].value != 0 || i < option))
            return false;
    }
    return true;
}

void FormKeyboard::Go(std::size_t control)
{
    SetFocus(m_windows[control]->Window());
}

void FormKeyboard::GoFrom(std::size_t control, int step)
{
    const std::vector<std::size_t> order = Order();
    const auto count = static_cast<std::ptrdiff_t>(order.size());
    const auto found = std::find(order.begin(), order.end(), control);
    std::ptrdiff_t at = found != order.end() ? found - order.begin() : step > 0 ? -1 : 0;
    for (std::ptrdiff_t tried = 0; tried < count; ++tried) {
        at = (at + step + count) % count;
        const std::size_t next = order[static_cast<std::size_t>(at)];
        if (!IsReachable(next) || (IsOption(m_reporter.State(next)) && !IsGroupsStop(next)))
            continue;
        Go(next);
        return m_windows[next]->Entered();
    }
}

bool FormKeyboard::GoInGroup(std::size_t option, int step)
{
    const auto& controls = m_form.Controls();
    const auto count = static_cast<std::ptrdiff_t>(controls.size());
    auto at = static_cast<std::ptrdiff_t>(option);
    for (std::ptrdiff_t tried = 1; tried < count; ++tried) {
        at = (at + step + count) % count;
        const auto next = static_cast<std::size_t>(at);
        if (!IsOption(controls[next]) || controls[next].parent != controls[option].parent || !IsReachable(next))
            continue;
        Go(next);
        m_windows[next]->Press();
        break;
    }
    return true;
}

bool FormKeyboard::TurnPage(int step)
{
    const auto& controls = m_form.Controls();
    const auto strip = std::find_if(controls.begin(), controls.end(),
                                    [](const FormControl& control) { return control.kind == ControlKind::TabStrip; });
    if (strip == controls.end())
        return false;
    const auto position = static_cast<std::size_t>(strip - controls.begin());
    const auto pages =
        static_cast<std::int32_t>(std::count_if(controls.begin(), controls.end(), [&](const FormControl& control) {
            return control.kind == ControlKind::TabPage && control.parent == position;
        }));
    if (pages > 0)
        m_reporter.Selected(position, (strip->selection + step + pages) % pages);
    return true;
}

bool FormKeyboard::TakeLetter(wchar_t letter)
{
    const auto& controls = m_form.Controls();
    const auto wanted = Upper(letter);
    const std::size_t focused = Focused();
    for (std::size_t tried = 1; tried <= controls.size(); ++tried) { // from what has the keyboard on, and round
        const std::size_t at = (focused + tried) % controls.size();
        if (at != 0 && IsReachable(at) && MnemonicOf(controls[at].caption) == wanted && Answer(at))
            return true;
    }
    return false;
}

/// A button is pressed, and takes the keyboard along, so that the field it leaves is done with before; a label leads
/// to the field beside it.
bool FormKeyboard::Answer(std::size_t control)
{
    const auto& controls = m_form.Controls();
    switch (controls[control].kind) {
    case ControlKind::CommandButton:
    case ControlKind::CheckBox:
    case ControlKind::OptionButton:
        Go(control);
        m_windows[control]->Press();
        return true;
    case ControlKind::Label:
        for (std::size_t i = control + 1; i < controls.size(); ++i) {
            if (controls[i].parent != controls[control].parent || controls[i].tabIndex < 0)
                continue;
            if (IsReachable(i))
                Go(i);
            return true;
        }
        return false;
    default:
        return false;
    }
}

} // namespace sm::windows
