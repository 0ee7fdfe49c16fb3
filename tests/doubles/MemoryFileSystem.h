// SPDX-License-Identifier: GPL-3.0-or-later
// A file system in memory, a wrapper that only forwards and one whose calls fail by plan.
#pragma once

#include "doubles/FaultPlan.h"
#include "ports/IFileSystem.h"

#include <set>

namespace sm {

/// Paths are compared as they are written; "\" and "/" both end a folder's name.
class MemoryFileSystem : public IFileSystem {
public:
    void AddFolder(const std::string& path) { m_folders.insert(path); }
    /// Adds the file and the folder it lies in.
    void AddFile(const std::string& path)
    {
        m_files.insert(path);
        if (path.find_last_of("\\/") != std::string::npos)
            m_folders.insert(path.substr(0, path.find_last_of("\\/")));
    }
    void Remove(const std::string& path)
    {
        m_folders.erase(path);
        m_files.erase(path);
    }

    bool FolderExists(const std::string& path) override { return m_folders.count(path) > 0; }
    bool FileExists(const std::string& path) override { return m_files.count(path) > 0; }
    std::vector<std::string> ListFiles(const std::string& folder) override
    {
        std::vector<std::string> names;
        for (const std::string& file : m_files) {
            const std::size_t at = file.find_last_of("\\/");
            if (at != std::string::npos && file.substr(0, at) == folder)
                names.push_back(file.substr(at + 1));
        }
        return names;
    }

private:
    std::set<std::string> m_folders, m_files;
};

class ForwardingFileSystem : public IFileSystem {
public:
    explicit ForwardingFileSystem(IFileSystem& inner) : m_inner(inner) {}
    bool FolderExists(const std::string& path) override { return m_inner.FolderExists(path); }
    bool FileExists(const std::string& path) override { return m_inner.FileExists(path); }
    std::vector<std::string> ListFiles(const std::string& folder) override { return m_inner.ListFiles(folder); }

private:
    IFileSystem& m_inner;
};

/// A call that fails by `faults` finds nothing.
class FailingFileSystem : public ForwardingFileSystem {
public:
    using ForwardingFileSystem::ForwardingFileSystem;
    FaultPlan faults;
    bool FolderExists(const std::string& path) override
    {
        return !faults.ShouldFail() && ForwardingFileSystem::FolderExists(path);
    }
    bool FileExists(const std::string& path) override
    {
        return !faults.ShouldFail() && ForwardingFileSystem::FileExists(path);
    }
    std::vector<std::string> ListFiles(const std::string& folder) override
    {
        return faults.ShouldFail() ? std::vector<std::string>() : ForwardingFileSystem::ListFiles(folder);
    }
};

} // namespace sm
