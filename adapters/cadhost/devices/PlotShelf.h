// SPDX-License-Identifier: GPL-3.0-or-later
// The files of plotters and plot style tables, listed and read once a run.
#pragma once

#include "devices/Pc3File.h"

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace sm::cadhost {

/// One host's. Each folder is listed once. Where a user sits before a window and may put a file there meanwhile, one
/// that has changed is listed again.
class PlotShelf {
public:
    enum class Lists { Kept, Watched };
    explicit PlotShelf(Lists lists = Lists::Kept) : m_lists(lists) {}

    /// Names of the folder's files that end in ".pc3", letter case aside, sorted; none when it can't be read.
    const std::vector<std::string>& Devices(const std::string& folder) { return Listed(folder).devices; }
    /// The same for ".ctb" and ".stb".
    const std::vector<std::string>& Styles(const std::string& folder) { return Listed(folder).styles; }

    /// The PC3 file `device` of the folder; null when the folder has none of that name. Throws HostError for a broken
    /// one.
    std::shared_ptr<const Pc3File> Device(const std::string& folder, const std::string& device);

private:
    struct Folder {
        std::filesystem::file_time_type changed{};
        std::vector<std::string> devices, styles;
        std::map<std::string, std::shared_ptr<const Pc3File>> read;
    };
    Folder& Listed(const std::string& folder);

    Lists m_lists;
    std::map<std::string, Folder> m_folders;
};

} // namespace sm::cadhost
