// SPDX-License-Identifier: GPL-3.0-or-later
// The file system of a run: what the install ships doesn't change while a drawing is converted.
#pragma once

#include "ports/IFileSystem.h"

#include <map>
#include <memory>
#include <string>

namespace sm::app {

/// Asks `below` once about each file and folder of the install's share folder, and each time about all others.
class InstallFiles final : public IFileSystem {
public:
    InstallFiles(std::unique_ptr<IFileSystem> below, const std::string& shareFolder)
        : m_below(std::move(below)), m_shipped(shareFolder + "/")
    {
    }

    bool FolderExists(const std::string& path) override
    {
        return Kept(m_folders, path, [&] { return m_below->FolderExists(path); });
    }
    bool FileExists(const std::string& path) override
    {
        return Kept(m_files, path, [&] { return m_below->FileExists(path); });
    }
    std::vector<std::string> ListFiles(const std::string& folder) override { return m_below->ListFiles(folder); }

private:
    using Answers = std::map<std::string, bool>;

    template <class Ask> bool Kept(Answers& answers, const std::string& path, const Ask& ask)
    {
        if (!path.starts_with(m_shipped))
            return ask();
        const auto known = answers.find(path);
        return known != answers.end() ? known->second : answers.emplace(path, ask()).first->second;
    }

    std::unique_ptr<IFileSystem> m_below;
    std::string m_shipped;
    Answers m_files, m_folders;
};

} // namespace sm::app
