// SPDX-License-Identifier: GPL-3.0-or-later
#include "FormUser.h"

#include "windows/automation/WideText.h"
#include "windows/controls/ControlWindow.h"

#include <thread>
#include <vector>

#include <commctrl.h>

namespace sm::windows {
namespace {

struct Search {
    int id;
    HWND found;
};

BOOL CALLBACK CompareId(HWND window, LPARAM search)
{
    auto* const wanted = reinterpret_cast<Search*>(search);
    if (GetDlgCtrlID(window) == wanted->id)
        wanted->found = window;
    return wanted->found == nullptr;
}

} // namespace

HWND FormUser::Window() const
{
    const std::wstring title = Wide(m_form.Controls().front().caption);
    for (int i = 0; i < 500; ++i) {
        if (const HWND window = TheUiThread().Titled(title))
            return window;
        Sleep(10);
    }
    ADD_FAILURE() << "no window titled " << m_form.Controls().front().caption;
    return nullptr;
}

int FormUser::IdOf(const std::string& name) const
{
    const auto& controls = m_form.Controls();
    for (std::size_t i = 0; i < controls.size(); ++i) {
        if (controls[i].name == name)
            return static_cast<int>(i) + kFirstControlId;
    }
    ADD_FAILURE() << "no control " << name;
    return -1;
}

HWND FormUser::Find(const std::string& name) const
{
    Search search = {IdOf(name), nullptr};
    EnumChildWindows(Window(), &CompareId, reinterpret_cast<LPARAM>(&search));
    EXPECT_NE(search.found, nullptr) << name;
    return search.found;
}

std::string FormUser::Text(const std::string& name) const
{
    const HWND window = Find(name);
    std::wstring text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
    SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.pop_back();
    return Utf8(text);
}

std::string FormUser::Focused() const
{
    const int id = GetDlgCtrlID(TheUiThread().Focus());
    const auto position = static_cast<std::size_t>(id - kFirstControlId);
    return id > kFirstControlId && position < m_form.Controls().size() ? m_form.Controls()[position].name : "(none)";
}

void FormUser::Click(const std::string& name) const
{
    PostMessageW(Find(name), BM_CLICK, 0, 0);
    TheUiThread().Rest();
}

void FormUser::Press(const std::string& name, int x, int y) const
{
    const HWND window = Find(name);
    PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    PostMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
    TheUiThread().Rest();
}

void FormUser::DoublePress(const std::string& name, int x, int y) const
{
    Press(name, x, y);
    PostMessageW(Find(name), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(x, y));
    PostMessageW(Find(name), WM_LBUTTONUP, 0, MAKELPARAM(x, y));
    TheUiThread().Rest();
}

void FormUser::PressTool(const std::string& name) const
{
    const int id = IdOf(name);
    const auto& button = m_form.Controls()[static_cast<std::size_t>(id - kFirstControlId)];
    const std::string& bar = m_form.Controls()[button.parent].name;
    RECT place = {};
    EXPECT_NE(Ask(bar, TB_GETRECT, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(&place)), 0) << name;
    Press(bar, (place.left + place.right) / 2, (place.top + place.bottom) / 2);
}

void FormUser::Notify(const std::string& name, int code) const
{
    const HWND window = Find(name);
    SendMessageW(GetParent(window), WM_COMMAND, MAKEWPARAM(IdOf(name), code), reinterpret_cast<LPARAM>(window));
    TheUiThread().Rest();
}

void FormUser::Type(const std::string& name, const std::string& text) const
{
    SendMessageW(Find(name), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Wide(text).c_str()));
    TheUiThread().Rest();
}

void FormUser::Leave(const std::string& name) const
{
    Notify(name, EN_KILLFOCUS);
}

void FormUser::TypeAndLeave(const std::string& name, const std::string& text) const
{
    Type(name, text);
    Leave(name);
}

void FormUser::Choose(const std::string& name, int position) const
{
    SendMessageW(Find(name), CB_SETCURSEL, static_cast<WPARAM>(position), 0);
    Notify(name, CBN_SELCHANGE);
}

void FormUser::TurnTo(const std::string& strip, int page) const
{
    PostMessageW(Find(strip), TCM_SETCURFOCUS, static_cast<WPARAM>(page), 0);
    TheUiThread().Rest();
}

void FormUser::Focus(const std::string& name) const
{
    const HWND window = Find(name);
    TheUiThread().Run([window] { SetFocus(window); });
    TheUiThread().Rest();
}

void FormUser::Keys(std::initializer_list<WORD> keys)
{
    std::vector<INPUT> strokes;
    const auto add = [&](WORD key, DWORD flags) {
        INPUT stroke = {};
        stroke.type = INPUT_KEYBOARD;
        stroke.ki.wVk = key;
        stroke.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
        stroke.ki.dwFlags = flags;
        strokes.push_back(stroke);
    };
    for (const WORD key : keys)
        add(key, 0);
    for (auto key = std::rbegin(keys); key != std::rend(keys); ++key)
        add(*key, KEYEVENTF_KEYUP);
    SendInput(static_cast<UINT>(strokes.size()), strokes.data(), sizeof(INPUT));
    TheUiThread().Rest();
}

void FormUser::Close() const
{
    PostMessageW(Window(), WM_CLOSE, 0, 0);
    TheUiThread().Rest();
}

void WhileUserPlays(const std::function<void()>& user, const std::function<void()>& body)
{
    TheUiThread();
    std::thread second([&] {
        if (TheUiThread().WaitForFront() == nullptr)
            return ADD_FAILURE() << "no window came up", static_cast<void>(0);
        TheUiThread().Rest();
        user();
    });
    body();
    MSG message = {};
    HANDLE running = reinterpret_cast<HANDLE>(pthread_gethandle(second.native_handle()));
    while (MsgWaitForMultipleObjects(1, &running, FALSE, 20000, QS_ALLINPUT) == WAIT_OBJECT_0 + 1) {
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE)
            DispatchMessageW(&message);
    }
    second.join();
}

} // namespace sm::windows
