// SPDX-License-Identifier: GPL-3.0-or-later
// The program with the windows, for Windows: "settings" and "page-setup" on a screen. The command line's own program,
// which starts it for those commands, loads nothing that only windows need.
#include "Dispatch.h"
#include "base/process/ThisProcess.h"
#include "commandline/ExitCodes.h"
#include "commands/PageSetupCommand.h"
#include "commands/SettingsCommand.h"
#include "windows/forms/Win32Toolkit.h"
#include "windows/system/WindowsSystem.h"

#include <iostream>

#include <windows.h>

#include <objbase.h>

namespace sm::app {
namespace {

/// There is no window of the drawing yet: places are typed in.
class NoPicker final : public cadhost::IPointPicker {
public:
    std::optional<drawing::Vec2> PickPoint(const drawing::Drawing&, std::size_t&, const std::string&) override
    {
        throw std::runtime_error(kReason);
    }
    std::optional<drawing::Vec2> PickCorner(const drawing::Drawing&, std::size_t, drawing::Vec2,
                                            const std::string&) override
    {
        throw std::runtime_error(kReason);
    }

private:
    static constexpr const char* kReason = "the drawing can't be shown to pick a place in it; type the coordinates";
};

/// The thread's COM, which the system's dialogs stand on.
class Com {
public:
    Com() { m_isOpen = SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)); }
    ~Com()
    {
        if (m_isOpen)
            ::CoUninitialize();
    }
    Com(const Com&) = delete;
    Com& operator=(const Com&) = delete;

private:
    bool m_isOpen = false;
};

int ShowOnScreen(const Job& job, const Install& install)
{
    const Com com;
    const auto desktop = windows::CreateWindowsDesktop(::GetActiveWindow);
    const auto toolkit = windows::CreateWin32Toolkit(::GetActiveWindow);
    NoPicker picker;
    const ScreenParts parts{*desktop, *toolkit, picker, base::IsTerminal(base::Stream::Errors)};
    if (const auto* const settings = std::get_if<SettingsJob>(&job))
        return RunSettings(*settings, install, parts, std::cout, std::cerr);
    return RunPageSetup(std::get<PageSetupJob>(job), install, parts, std::cout, std::cerr);
}

} // namespace
} // namespace sm::app

int main(int argc, char** argv)
{
    sm::base::PrepareProcess();
    try {
        const int code = sm::app::RunProgram({argv + 1, argv + argc}, sm::app::ThisInstall(), std::cout, std::cerr,
                                             sm::app::ShowOnScreen);
        std::cout << std::flush;
        return code;
    } catch (const std::exception& error) {
        std::cerr << "sheetmaker: " << error.what() << "\n";
        return sm::app::kExitFailed;
    }
}
