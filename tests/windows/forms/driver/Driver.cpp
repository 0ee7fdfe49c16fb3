// SPDX-License-Identifier: GPL-3.0-or-later
// Plays the user of another program's dialogs, by messages alone.
//
//     drive_forms window TITLE click ID text ID TEXT choose ID POSITION page ID POSITION expect ID TEXT close
//
// `window` waits for a visible dialog with that title that takes input, which the commands behind it are for; `text`
// leaves the field, too. `press CAPTION` clicks the button that is seen with that caption. `pick X Y` waits for the
// drawing's window and presses there until it goes. `answer TITLE BUTTON` waits for the system's own dialog and gives
// it that answer. `own TITLE` shows a window of this program's, until it is closed. Gives 0, or the number of the
// command that failed.
#include <string>
#include <vector>

#include <windows.h>

#include <commctrl.h>

namespace {

constexpr int kMostTries = 500; ///< of 10 ms each

/// Whether the window could be made.
bool OwnWindow(const std::string& title)
{
    const HWND window = CreateWindowA("STATIC", title.c_str(), WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50, 500, 300,
                                      nullptr, nullptr, nullptr, nullptr);
    MSG message = {};
    while (window != nullptr && IsWindow(window) && GetMessageA(&message, nullptr, 0, 0) > 0)
        DispatchMessageA(&message);
    return window != nullptr;
}

HWND WaitForWindow(const std::string& title)
{
    for (int i = 0; i < kMostTries; ++i) {
        const HWND window = FindWindowA("#32770", title.c_str());
        if (window != nullptr && IsWindowVisible(window) && IsWindowEnabled(window))
            return window;
        Sleep(10);
    }
    return nullptr;
}

struct Search {
    int id;
    HWND found;
};

struct WantedCaption {
    const std::string& caption;
    HWND found;
};

BOOL CALLBACK CompareCaption(HWND window, LPARAM search)
{
    auto* const looked = reinterpret_cast<WantedCaption*>(search);
    char text[100] = {};
    SendMessageA(window, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
    if (looked->caption == text && IsWindowVisible(window) != FALSE && IsWindowEnabled(window) != FALSE)
        looked->found = window;
    return looked->found == nullptr;
}

BOOL CALLBACK CompareId(HWND window, LPARAM search)
{
    auto* const wanted = reinterpret_cast<Search*>(search);
    if (GetDlgCtrlID(window) == wanted->id)
        wanted->found = window;
    return wanted->found == nullptr;
}

class Driver {
public:
    /// Whether the command could be carried out; moves `at` behind its arguments.
    bool Do(const std::vector<std::string>& words, std::size_t& at)
    {
        const std::string command = words[at++];
        const auto next = [&] { return at < words.size() ? words[at++] : std::string(); };
        if (command == "window")
            return (m_window = WaitForWindow(next())) != nullptr;
        if (command == "press")
            return Press(next());
        if (command == "pick") {
            const int x = std::atoi(next().c_str());
            return Pick(x, std::atoi(next().c_str()));
        }
        if (command == "answer") {
            m_window = WaitForWindow(next());
            const int button = std::atoi(next().c_str());
            return m_window != nullptr && PostMessageA(m_window, TDM_CLICK_BUTTON, static_cast<WPARAM>(button), 0);
        }
        if (command == "own")
            return OwnWindow(next());
        if (command == "close")
            return PostMessageA(m_window, WM_CLOSE, 0, 0) != FALSE;
        const HWND control = Find(std::atoi(next().c_str()));
        if (control == nullptr)
            return false;
        if (command == "click")
            return PostMessageA(control, BM_CLICK, 0, 0) != FALSE; // it may last as long as another dialog
        const std::string value = next();
        if (command == "expect")
            return Expect(control, value);
        if (command == "text")
            return Type(control, value);
        const auto position = static_cast<WPARAM>(std::atoi(value.c_str()));
        if (command == "page")
            return SendMessageA(control, TCM_SETCURFOCUS, position, 0) == 0;
        return command == "choose" && Choose(control, position);
    }

private:
    [[nodiscard]] bool Press(const std::string& caption) const
    {
        WantedCaption wanted{caption, nullptr};
        EnumChildWindows(m_window, CompareCaption, reinterpret_cast<LPARAM>(&wanted));
        return wanted.found != nullptr && PostMessageA(wanted.found, BM_CLICK, 0, 0) != FALSE;
    }
    /// The drawing may have to be read before a press is taken.
    static bool Pick(int x, int y)
    {
        bool wasUp = false;
        for (int i = 0; i < kMostTries; ++i, Sleep(20)) {
            const HWND window = FindWindowA("SheetmakerDrawing", nullptr);
            const bool isUp = window != nullptr && IsWindowVisible(window) != FALSE;
            if (wasUp && !isUp)
                return true;
            wasUp = isUp;
            if (const HWND view = isUp ? FindWindowExA(window, nullptr, "SheetmakerDrawingView", nullptr) : nullptr)
                PostMessageA(view, WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, MAKELPARAM(x, y));
        }
        return false;
    }
    [[nodiscard]] HWND Find(int id) const
    {
        Search search = {id, nullptr};
        EnumChildWindows(m_window, &CompareId, reinterpret_cast<LPARAM>(&search));
        return search.found;
    }
    static void Tell(HWND control, int code)
    {
        const auto from = reinterpret_cast<LPARAM>(control);
        SendMessageA(GetParent(control), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code), from);
    }
    static bool Type(HWND control, const std::string& text)
    {
        SendMessageA(control, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
        Tell(control, EN_KILLFOCUS);
        return true;
    }
    static bool Choose(HWND control, WPARAM position)
    {
        if (SendMessageA(control, CB_SETCURSEL, position, 0) == CB_ERR)
            return false;
        Tell(control, CBN_SELCHANGE);
        return true;
    }
    /// What is to come of a posted press may take a while.
    static bool Expect(HWND control, const std::string& text)
    {
        for (int i = 0; i < kMostTries; ++i) {
            char shown[300] = {};
            SendMessageA(control, WM_GETTEXT, sizeof shown, reinterpret_cast<LPARAM>(shown));
            if (text == shown)
                return true;
            Sleep(10);
        }
        return false;
    }

    HWND m_window = nullptr;
};

} // namespace

int main(int count, char** arguments)
{
    const std::vector<std::string> words(arguments + 1, arguments + count);
    Driver driver;
    int number = 0;
    for (std::size_t at = 0; at < words.size();) {
        ++number;
        if (!driver.Do(words, at))
            return number;
    }
    return 0;
}
