// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/UserFolders.h"

#include "base/files/Paths.h"
#include "base/process/ThisProcess.h"

namespace sm::base {

namespace {

constexpr const char* kProgramFolder = "sheetmaker-pdf";

std::filesystem::path Named(const VariableLookup& variables, const char* variable)
{
    return ToPath(variables(variable).value_or(""));
}

} // namespace

std::filesystem::path HomeFolder(const VariableLookup& variables)
{
    const std::filesystem::path home = Named(variables, "USERPROFILE");
    return home.is_absolute() ? home : ToPath("C:/");
}

std::filesystem::path UserFolder(const VariableLookup& variables, const std::string& variable,
                                 const std::string& belowHome)
{
    const std::filesystem::path given = ToPath(variables(variable).value_or(""));
    return given.is_absolute() ? given : HomeFolder(variables) / ToPath(belowHome);
}

std::filesystem::path SettingsFolder(const VariableLookup& variables)
{
    return UserFolder(variables, "LOCALAPPDATA", "AppData/Local") / kProgramFolder;
}

std::filesystem::path StateFolder(const VariableLookup& variables)
{
    return SettingsFolder(variables);
}

std::vector<std::filesystem::path> FontFolders(const VariableLookup& variables)
{
    std::vector<std::filesystem::path> folders{UserFolder(variables, "LOCALAPPDATA", "AppData/Local") /
                                                   "Microsoft/Windows/Fonts",
                                               Named(variables, "SystemRoot") / "Fonts"};
    for (const char* programs : {"ProgramFiles", "ProgramFiles(x86)"})
        if (const auto folder = Named(variables, programs); folder.is_absolute())
            folders.push_back(folder / "LibreCAD/resources/fonts");
    return folders;
}

std::optional<std::string> Variable(const std::string& name)
{
    return Variable(name.c_str());
}

} // namespace sm::base
