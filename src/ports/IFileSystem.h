// SPDX-License-Identifier: GPL-3.0-or-later
// Folder and file tests and listings. No operation throws.
#pragma once

#include <string>
#include <vector>

namespace sm {

class IFileSystem {
public:
    virtual ~IFileSystem() = default;
    virtual bool FolderExists(const std::string& path) = 0;
    virtual bool FileExists(const std::string& path) = 0;
    /// Names (without folder) of the files in `folder`, sorted; empty when the folder can't be read.
    virtual std::vector<std::string> ListFiles(const std::string& folder) = 0;
};

} // namespace sm
