// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/FileFacts.h"
#include "base/files/Paths.h"

#include <algorithm>
#include <array>

namespace sm::base {

namespace {

bool IsNamedThere(const std::filesystem::path& path)
{
    constexpr std::array kFolders{"/dev/", "/proc/", "/sys/", "/net/"};
    const std::string text = ToText(path.lexically_normal()) + "/";
    return std::any_of(kFolders.begin(), kFolders.end(), [&](const char* folder) { return text.starts_with(folder); });
}

} // namespace

bool IsOfTheSystem(const std::string& path)
{
    std::error_code error;
    const std::filesystem::path whole = std::filesystem::absolute(ToPath(path), error);
    return IsNamedThere(error ? ToPath(path) : whole) || IsNamedThere(ToPath(FollowLinks(path)));
}

} // namespace sm::base
