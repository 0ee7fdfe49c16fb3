// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/automation/WideText.h"
#include "windows/system/Attempted.h"
#include "windows/system/CommonDialogs.h"
#include "windows/system/OwnModule.h"
#include "windows/system/WindowsSystem.h"

#include <windows.h>

#include <shellapi.h>
#include <utility>

namespace sm::windows {
namespace {

/// The message whose box is up on this thread: its Help button names no file of its own.
thread_local const Message* t_shown = nullptr;

bool OpenWithShell(HWND owner, const std::wstring& target)
{
    const auto result =
        reinterpret_cast<INT_PTR>(ShellExecuteW(owner, L"open", target.c_str(), nullptr, nullptr, SW_SHOWNORMAL));
    return result > 32;
}

/// The page of the install, where it is; else the help file by the system's own viewer.
bool OpenHelp(HWND owner, const std::string& helpFile, std::int32_t context)
{
    const std::wstring module = OwnModulePath();
    const std::wstring page =
        module.substr(0, module.find_last_of(L'\\') + 1) + L"help\\topics\\c" + std::to_wstring(context) + L".html";
    if (GetFileAttributesW(page.c_str()) != INVALID_FILE_ATTRIBUTES)
        return OpenWithShell(owner, page);
    if (helpFile.empty())
        return false;
    return WinHelpW(owner, Wide(helpFile).c_str(), context == 0 ? HELP_FINDER : HELP_CONTEXT,
                    static_cast<ULONG_PTR>(context)) != FALSE;
}

void CALLBACK HelpAsked(LPHELPINFO info)
{
    try {
        if (t_shown != nullptr && !OpenHelp(GetActiveWindow(), t_shown->helpFile, static_cast<int>(info->dwContextId)))
            MessageBeep(MB_OK);
    } catch (...) {
        MessageBeep(MB_OK);
    }
}

DWORD StyleOf(const Message& message)
{
    DWORD style = message.buttons == MessageButtons::OkCancel ? MB_OKCANCEL
                  : message.buttons == MessageButtons::YesNo  ? MB_YESNO
                                                              : MB_OK;
    switch (message.icon) {
    case MessageIcon::Critical:
        style |= MB_ICONSTOP;
        break;
    case MessageIcon::Question:
        style |= MB_ICONQUESTION;
        break;
    case MessageIcon::Exclamation:
        style |= MB_ICONEXCLAMATION;
        break;
    case MessageIcon::Information:
        style |= MB_ICONINFORMATION;
        break;
    case MessageIcon::None:
        break;
    }
    return message.helpContext != 0 ? style | MB_HELP : style;
}

MessageAnswer AnswerOf(int button)
{
    switch (button) {
    case IDOK:
        return MessageAnswer::Ok;
    case IDYES:
        return MessageAnswer::Yes;
    case IDNO:
        return MessageAnswer::No;
    default:
        return MessageAnswer::Cancel;
    }
}

MessageAnswer ShowBox(const Message& message, HWND owner)
{
    const std::wstring text = Wide(message.text), title = Wide(message.title);
    MSGBOXPARAMSW box{};
    box.cbSize = sizeof box;
    box.hwndOwner = owner;
    box.lpszText = text.c_str();
    box.lpszCaption = title.c_str();
    box.dwStyle = StyleOf(message) | (owner == nullptr ? MB_TASKMODAL : MB_APPLMODAL) | MB_SETFOREGROUND;
    box.dwContextHelpId = static_cast<DWORD_PTR>(message.helpContext);
    box.lpfnMsgBoxCallback = HelpAsked;
    const Message* const former = std::exchange(t_shown, &message);
    const int button = MessageBoxIndirectW(&box);
    t_shown = former;
    return AnswerOf(button);
}

class WindowsDesktop final : public IDesktop {
public:
    explicit WindowsDesktop(std::function<HWND()> owner) : m_owner(std::move(owner)) {}

    MessageAnswer ShowMessage(const Message& message) override
    {
        return Attempted(MessageAnswer::Cancel, [&] { return ShowBox(message, Owner()); });
    }
    void Beep() override { MessageBeep(MB_OK); }
    std::optional<std::string> AskOpenFile(const FileDialog& dialog) override
    {
        return Attempted(std::optional<std::string>(), [&] { return AskFile(dialog, false, Owner()); });
    }
    std::optional<std::string> AskSaveFile(const FileDialog& dialog) override
    {
        return Attempted(std::optional<std::string>(), [&] { return AskFile(dialog, true, Owner()); });
    }
    std::optional<std::int32_t> AskColor(std::int32_t initial) override
    {
        return Attempted(std::optional<std::int32_t>(), [&] { return AskColorOf(initial, Owner()); });
    }
    bool OpenDocument(const std::string& pathOrAddress) override
    {
        return Attempted(false, [&] { return OpenWithShell(Owner(), Wide(pathOrAddress)); });
    }
    bool ShowHelp(const std::string& helpFile, std::int32_t context) override
    {
        return Attempted(false, [&] { return OpenHelp(Owner(), helpFile, context); });
    }

private:
    HWND Owner() const
    {
        const HWND owner = m_owner ? m_owner() : nullptr;
        return IsWindow(owner) != FALSE ? owner : nullptr;
    }
    std::function<HWND()> m_owner;
};

} // namespace

std::unique_ptr<IDesktop> CreateWindowsDesktop(std::function<HWND()> owner)
{
    return std::make_unique<WindowsDesktop>(std::move(owner));
}

} // namespace sm::windows
