#include "base/files/UserFolders.h"

#include "base/files/Paths.h"

#include <cstdlib>
#ifndef _WIN32
#include <pwd.h>
#include <unistd.h>
#endif

namespace sm::base {
namespace {

std::filesystem::path AccountFolder()
{
#ifdef _WIN32
    return "/";
#else
    const passwd* account = getpwuid(getuid());
    return account != nullptr && account->pw_dir != nullptr && *account->pw_dir == '/' ? account->pw_dir : "/";
#endif
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

std::optional<std::string> Variable(const std::string& name)
{
    const char* const value = std::getenv(name.c_str());
    return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

} // namespace sm::base
