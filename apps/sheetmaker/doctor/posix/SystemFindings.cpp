// SPDX-License-Identifier: GPL-3.0-or-later
#include "doctor/SystemFindings.h"

#include "base/files/FileFacts.h"
#include "base/files/Paths.h"
#include "ports/RegistryKeys.h"
#include "workers/WindowsProgram.h"

namespace sm::app {

namespace {

using State = Finding::State;

} // namespace

const char* const kTemporaryRemedy = "set TMPDIR to another folder";
const char* const kFontsRemedy = "sudo apt-get install fonts-dejavu-core";

std::string InterpreterProgram(const Install& install)
{
    return system::FindProgram(install.environment, "gs");
}

Finding Settings(const Install& install)
{
    std::string trouble;
    const auto registry = OpenSettings(install, [&](const std::string& text) { trouble = text; });
    registry->OpenKey(RegistryRoot::CurrentUser, "Software");
    registry->OpenKey(RegistryRoot::CurrentUser, kMakerKey);
    if (!trouble.empty())
        return {State::Missing, "settings", trouble, "look at the file, or remove it"};
    const std::string file = base::ToText(install.places.SettingsFile());
    std::error_code closed;
    const bool exists = base::FactsOf(file, closed).kind != base::FileKind::Missing;
    if (exists && !base::MayWrite(file, closed))
        return {State::Missing, "settings", file + " can't be written", "give yourself the right to write it"};
    const Finding folder =
        WritableFolder("settings", install.places.settingsFolder, "give yourself the right to write there");
    return folder.state == State::Good ? Finding{State::Good, "settings", file, {}} : folder;
}

Finding Viewer(const Install& install)
{
    const std::string program = system::FindProgram(install.environment, "xdg-open");
    if (program.empty())
        return {State::Optional, "PDF viewer", "xdg-open is not installed (--open needs it)",
                "sudo apt-get install xdg-utils"};
    const bool display = install.environment("DISPLAY") || install.environment("WAYLAND_DISPLAY");
    return {display ? State::Good : State::Optional,
            "PDF viewer",
            display ? program : "there is no display (--open needs one)",
            {}};
}

Finding Windows(const Install& install)
{
    const std::string program = system::FindProgram(install.environment, base::ToText(install.windowsProgram));
    if (install.windowsProgram.empty() || program.empty())
        return {State::Optional, "windows", "the program with the windows is missing (settings, page-setup need it)",
                "sudo apt-get install sheetmaker-pdf-windows; in a source tree, \"./sheetmaker settings\" builds it"};
    const bool screen = HasScreen(install.environment);
    return {screen ? State::Good : State::Optional,
            "windows",
            screen ? program : "there is no screen (settings, page-setup need one)",
            {}};
}

std::vector<Finding> FurtherFindings(const Install&)
{
    return {};
}

} // namespace sm::app
