#include "plotting/JobOptions.h"

#include "settings/mdlUtilities.h"
#include "settings/mdlWinReg.h"

#include <algorithm>
#include <string_view>

namespace sm {
namespace {

constexpr std::string_view kExtension = ".joboptions";

/// Letter case of ASCII alone: a Turkish locale must not hide ".JOBOPTIONS".
bool SameLetter(char left, char right)
{
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return lower(left) == lower(right);
}

} // namespace

std::vector<std::string> ListJobOptions(Surroundings& surroundings)
{
    std::vector<std::string> names;
    for (const std::string& file : surroundings.files.ListFiles(SettingsFolderPath(surroundings))) {
        const auto extension = std::search(file.begin(), file.end(), kExtension.begin(), kExtension.end(), SameLetter);
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
    WriteSetting(surroundings, "JobOptionsFile", name);
    return name;
}

} // namespace sm
