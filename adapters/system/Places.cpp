// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/Places.h"

#include "base/files/Paths.h"
#include "base/files/UserFolders.h"

namespace sm::system {
namespace {

constexpr const char* kFolderName = "sheetmaker-pdf";

bool IsFolder(const std::filesystem::path& path)
{
    std::error_code unreadable;
    return !path.empty() && std::filesystem::is_directory(path, unreadable);
}

std::filesystem::path ShareFolder(const Environment& environment, const std::filesystem::path& executable)
{
    const std::filesystem::path given = base::ToPath(environment("SHEETMAKER_PDF_SHARE").value_or(""));
    if (!given.empty())
        return IsFolder(given) ? std::filesystem::absolute(given) : std::filesystem::path();
    const std::filesystem::path installed =
        (executable.parent_path() / ".." / "share" / kFolderName).lexically_normal();
    if (IsFolder(installed))
        return installed;
    for (std::filesystem::path folder = executable.parent_path(); folder.has_relative_path();
         folder = folder.parent_path())
        if (IsFolder(folder / "share" / kFolderName))
            return folder / "share" / kFolderName;
    return {};
}

} // namespace

Places FindPlaces(const Environment& environment, const std::filesystem::path& executable)
{
    return {base::SettingsFolder(environment), base::StateFolder(environment), ShareFolder(environment, executable)};
}

} // namespace sm::system
