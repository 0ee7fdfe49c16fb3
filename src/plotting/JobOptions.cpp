// SPDX-License-Identifier: GPL-3.0-or-later
#include "plotting/JobOptions.h"

#include "ports/IFileSystem.h"
#include "ports/IWindows.h"
#include "settings/mdlUtilities.h"
#include "settings/mdlWinReg.h"

#include <algorithm>
#include <string_view>

namespace sm {
namespace {

constexpr std::string_view kExtension = ".joboptions";

} // namespace

std::vector<std::string> ListJobOptions(Surroundings& surroundings)
{
    std::vector<std::string> names;
    for (const std::string& file : surroundings.files.ListFiles(SettingsFolderPath(surroundings))) {
        // Whatever the locale: a Turkish one would hide ".JOBOPTIONS".
        const auto extension =
            std::search(file.begin(), file.end(), kExtension.begin(), kExtension.end(), SameAsciiLetter);
        if (extension != file.end())
            names.emplace_back(file.begin(), extension);
    }
    return names;
}

std::string JobOptionsPath(Surroundings& surroundings, const std::string& name)
{
    return JoinPath(surroundings.locale, SettingsFolderPath(surroundings), name) + std::string(kExtension);
}

std::optional<std::string> PickJobOptions(Surroundings& surroundings)
{
    const std::vector<std::string> names = ListJobOptions(surroundings);
    const std::optional<std::int32_t> choice = surroundings.windows.PickJobOptions(names);
    if (!choice || *choice < 0 || static_cast<std::size_t>(*choice) >= names.size())
        return {};
    const std::string& name = names[static_cast<std::size_t>(*choice)];
    WriteSetting(surroundings, SettingNamed("JobOptionsFile").name, name);
    return name;
}

} // namespace sm
