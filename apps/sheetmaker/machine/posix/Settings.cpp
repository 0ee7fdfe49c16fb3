// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/Install.h"

#include "store/SettingsFile.h"
#include "store/SqliteRegistry.h"

namespace sm::app {

/// Installed, it lies where nobody looks for commands; in a build folder beside the program.
std::filesystem::path WindowsProgram(const std::filesystem::path& executable)
{
    constexpr const char* kName = "sheetmaker-windows";
    std::error_code unreadable;
    const std::filesystem::path installed =
        (executable.parent_path() / ".." / "libexec" / "sheetmaker-pdf" / kName).lexically_normal();
    return std::filesystem::exists(installed, unreadable) ? installed : executable.parent_path() / kName;
}

bool CanReadSettings(const Install& install, const std::function<void(const std::string&)>& complain)
{
    return store::SettingsFile(install.places.SettingsFile(), complain).CanRead();
}

std::unique_ptr<IRegistry> OpenSettings(const Install& install, const std::function<void(const std::string&)>& complain)
{
    return store::OpenSqliteRegistry(install.places.SettingsFile(), FactsOf(install), complain, store::Reading::Once);
}

} // namespace sm::app
