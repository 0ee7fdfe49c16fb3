// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/UserFolders.h"

#include "base/files/Paths.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace sm::base {
namespace {

std::filesystem::path AccountFolder()
{
    const passwd* account = getpwuid(getuid());
    return account != nullptr && account->pw_dir != nullptr && *account->pw_dir == '/' ? account->pw_dir : "/";
}

} // namespace

std::filesystem::path HomeFolder(const VariableLookup& variables)
{
    const std::string home = variables("HOME").value_or("");
    return home.starts_with('/') ? ToPath(home) : AccountFolder();
}

std::filesystem::path UserFolder(const VariableLookup& variables, const std::string& variable,
                                 const std::string& belowHome)
{
    const std::string given = variables(variable).value_or("");
    return given.starts_with('/') ? ToPath(given) : HomeFolder(variables) / ToPath(belowHome);
}

std::filesystem::path SettingsFolder(const VariableLookup& variables)
{
    return UserFolder(variables, "XDG_CONFIG_HOME", ".config") / "sheetmaker-pdf";
}

std::filesystem::path StateFolder(const VariableLookup& variables)
{
    return UserFolder(variables, "XDG_STATE_HOME", ".local/state") / "sheetmaker-pdf";
}

std::vector<std::filesystem::path> FontFolders(const VariableLookup& variables)
{
    return {UserFolder(variables, "XDG_DATA_HOME", ".local/share") / "fonts", HomeFolder(variables) / ".fonts",
            "/usr/local/share/fonts", "/usr/share/fonts", "/usr/share/librecad/fonts"};
}

std::optional<std::string> Variable(const std::string& name)
{
    const char* const value = std::getenv(name.c_str());
    return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

} // namespace sm::base
