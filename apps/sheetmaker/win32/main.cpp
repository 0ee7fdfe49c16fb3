// SPDX-License-Identifier: GPL-3.0-or-later
// The program with the windows, for Windows: "settings" and "page-setup" on a screen. The command line's own program,
// which starts it for those commands, loads nothing that only windows need.
#include "Dispatch.h"
#include "base/files/Paths.h"
#include "base/process/ThisProcess.h"
#include "commandline/ExitCodes.h"
#include "commands/PageSetupCommand.h"
#include "commands/SettingsCommand.h"
#include "machine/DwgSetup.h"
#include "screen/StoredMemory.h"
#include "win32/Company.h"
#include "win32/DrawingWindow.h"
#include "windows/forms/Win32Toolkit.h"
#include "windows/system/WindowsSystem.h"

#include <cstdio>
#include <iostream>

#include <windows.h>

#include <objbase.h>

namespace sm::app {
namespace {

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
    const auto memory =
        CreateWindowMemory(OpenSettings(install, [](const std::string&) {})); // the run complains itself
    const auto desktop = windows::CreateWindowsDesktop(win32::ActiveOwner);
    const auto company = win32::CreateCompany(*desktop);
    const auto toolkit = windows::CreateWin32Toolkit(win32::ActiveOwner, company.get());
    const auto picker =
        win32::CreateDrawingWindow({ReferenceOptionsOf(install), base::ToText(install.places.shareFolder),
                                    [&company] { return company->Listed(); }, memory.get()});
    const ScreenParts parts{company->Desktop(),
                            *toolkit,
                            *picker,
                            base::IsTerminal(base::Stream::Errors),
                            base::IsRead(base::Stream::Errors),
                            company.get(),
                            memory.get(),
                            picker.get()};
    if (const auto* const settings = std::get_if<SettingsJob>(&job))
        return RunSettings(*settings, install, parts, std::cout, std::cerr);
    return RunPageSetup(std::get<PageSetupJob>(job), install, parts, std::cout, std::cerr);
}

/// A program of windows has no console of its own. Started from one it speaks there; what was handed over stays.
void SpeakInTheCallersConsole()
{
    if (::AttachConsole(ATTACH_PARENT_PROCESS) == FALSE)
        return;
    for (std::FILE* const stream : {stdout, stderr}) {
        const DWORD handle = stream == stdout ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE;
        if (::GetFileType(::GetStdHandle(handle)) == FILE_TYPE_UNKNOWN)
            std::freopen("CONOUT$", "w", stream);
    }
}

} // namespace
} // namespace sm::app

int main(int argc, char** argv)
{
    sm::app::SpeakInTheCallersConsole();
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
