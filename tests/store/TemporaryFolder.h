// SPDX-License-Identifier: GPL-3.0-or-later
// A folder for one test, gone with it.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace sm::store {

class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "sm-store-XXXXXX").string();
        m_path = mkdtemp(pattern.data());
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    [[nodiscard]] const std::filesystem::path& Path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

} // namespace sm::store
