// SPDX-License-Identifier: GPL-3.0-or-later
// The program with the windows: "settings" and "page-setup" on a screen. It knows the toolkit; the command line's own
// program, which becomes this one for those commands, doesn't.
#include "Dispatch.h"
#include "base/files/Paths.h"
#include "base/process/ThisProcess.h"
#include "commandline/ExitCodes.h"
#include "commands/PageSetupCommand.h"
#include "commands/SettingsCommand.h"
#include "machine/DwgSetup.h"
#include "machine/HelpTopic.h"
#include "qt/DrawingWindow.h"
#include "qt/Screen.h"
#include "screen/StoredMemory.h"
#include "system/DocumentOpener.h"

#include <iostream>

namespace sm::app {
namespace {

qt::ScreenOptions ScreenOptionsOf(const Install& install, beside::IWindowMemory& memory)
{
    qt::ScreenOptions options;
    options.memory = &memory;
    options.helpFolder = base::ToText(install.places.shareFolder / "help");
    options.open = [environment = install.environment](const std::string& pathOrAddress) {
        const std::string topic = HelpTopic(pathOrAddress);
        const bool isHelp = pathOrAddress.starts_with("file://"); // documents are opened by their paths
        return isHelp ? system::OpenAndSee(environment, topic) : system::OpenOnDesktop(environment, topic);
    };
    return options;
}

int ShowOnScreen(const Job& job, const Install& install)
{
    std::string why;
    const auto memory =
        CreateWindowMemory(OpenSettings(install, [](const std::string&) {})); // the run complains itself
    const auto screen = qt::Screen::Open(ScreenOptionsOf(install, *memory), why);
    if (!screen) {
        std::cerr << "sheetmaker: " << why << "\n";
        return kExitToolMissing;
    }
    const auto picker = qt::CreateDrawingWindow({ReferenceOptionsOf(install), base::ToText(install.places.shareFolder),
                                                 [&screen] { return screen->Listed(); }, memory.get()});
    const ScreenParts parts{screen->Desktop(),
                            screen->Toolkit(),
                            *picker,
                            base::IsTerminal(base::Stream::Errors),
                            base::IsRead(base::Stream::Errors),
                            &screen->Company(),
                            memory.get(),
                            picker.get()};
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
