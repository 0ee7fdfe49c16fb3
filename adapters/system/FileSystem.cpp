// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/SystemPorts.h"

#include "base/files/Paths.h"

#include <algorithm>
#include <filesystem>

namespace sm::system {
namespace {

class FileSystem final : public IFileSystem {
public:
    bool FolderExists(const std::string& path) override
    {
        std::error_code unreadable;
        return std::filesystem::is_directory(base::ToPath(path), unreadable);
    }

    bool FileExists(const std::string& path) override
    {
        std::error_code unreadable;
        return std::filesystem::is_regular_file(base::ToPath(path), unreadable);
    }

    std::vector<std::string> ListFiles(const std::string& folder) override
    {
        std::vector<std::string> names;
        std::error_code unreadable;
        std::filesystem::directory_iterator entry(base::ToPath(folder), unreadable);
        while (!unreadable && entry != std::filesystem::directory_iterator()) {
            std::error_code vanished;
            if (entry->is_regular_file(vanished))
                names.push_back(base::ToText(entry->path().filename()));
            entry.increment(unreadable);
        }
        std::sort(names.begin(), names.end());
        return names;
    }
};

} // namespace

std::unique_ptr<IFileSystem> CreateFileSystem()
{
    return std::make_unique<FileSystem>();
}

} // namespace sm::system
