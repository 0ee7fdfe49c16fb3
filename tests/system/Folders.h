// SPDX-License-Identifier: GPL-3.0-or-later
// A folder for one test, gone with it, and an environment that a test spells out.
#pragma once

#include "system/Environment.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

namespace sm::system {

class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "sm-system-XXXXXX").string();
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

    std::filesystem::path MakeFolder(const std::string& name) const
    {
        std::filesystem::create_directories(m_path / name);
        return m_path / name;
    }
    std::filesystem::path MakeFile(const std::string& name, const std::string& text = "") const
    {
        std::filesystem::create_directories((m_path / name).parent_path());
        std::ofstream(m_path / name) << text;
        return m_path / name;
    }
    std::filesystem::path MakeProgram(const std::string& name, const std::string& script) const
    {
        const std::filesystem::path program = MakeFile(name, "#!/bin/sh\n" + script + "\n");
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
        return program;
    }

private:
    std::filesystem::path m_path;
};

inline Environment Variables(std::map<std::string, std::string> variables)
{
    return [variables = std::move(variables)](const std::string& name) -> std::optional<std::string> {
        const auto found = variables.find(name);
        return found == variables.end() ? std::nullopt : std::optional<std::string>(found->second);
    };
}

} // namespace sm::system
