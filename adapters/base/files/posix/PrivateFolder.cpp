// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/PrivateFolder.h"

#include "base/files/Leftovers.h"
#include "base/files/Paths.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

namespace sm::base {

namespace {

constexpr const char* kFolderPrefix = "sheetmaker-";
constexpr int kFolderNamesTried = 100;

std::string ParentFolder(const std::string& wanted)
{
    std::error_code error;
    std::filesystem::path parent = ToPath(wanted);
    if (wanted.empty()) {
        parent = std::filesystem::temp_directory_path(error);
        parent = error ? std::filesystem::path("/tmp") : parent; // what $TMPDIR names is no folder
    }
    return ToText(std::filesystem::absolute(parent, error).lexically_normal());
}

/// Within a folder of a run; its path stays short. False, with errno, when it can't be made.
bool MakeUnnamed(const std::string& folder, std::string& path)
{
    path = ToText(ToPath(folder) / ToPath(std::string(kFolderPrefix) + "XXXXXX"));
    return ::mkdtemp(path.data()) != nullptr;
}

/// The same, with a name that tells its process.
bool MakeNamed(const std::string& folder, std::string& path)
{
    for (int attempt = 0; attempt < kFolderNamesTried; ++attempt) {
        path = ToText(ToPath(folder) / ToPath(TemporaryName(kFolderPrefix, "")));
        if (::mkdir(path.c_str(), 0700) == 0)
            return true;
        if (errno != EEXIST)
            return false;
    }
    return false;
}

} // namespace

PrivateFolder::PrivateFolder(const std::string& parent) : m_owner(::getpid())
{
    const std::string folder = ParentFolder(parent);
    if (parent.empty())
        RemoveAbandonedFoldersOnce(folder, kFolderPrefix);
    if (parent.empty() ? !MakeNamed(folder, m_path) : !MakeUnnamed(folder, m_path)) {
        const int error = errno;
        throw FolderFailure("A temporary folder could not be made in " + folder + ": " + std::strerror(error) +
                                ". Free the folder's space or set TMPDIR to a folder that can be written.",
                            error == ENOSPC || error == EDQUOT);
    }
}

PrivateFolder::~PrivateFolder()
{
    if (m_owner == ::getpid())
        Remove();
}

bool PrivateFolder::Remove()
{
    constexpr int kAttempts = 2; // what the system refused once, for want of descriptors, it may give now
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        std::error_code error;
        if (::rmdir(m_path.c_str()) == 0) // an empty one goes even when no more descriptors can be had
            return true;
        std::filesystem::remove_all(ToPath(m_path), error);
        if (!std::filesystem::exists(ToPath(m_path), error))
            return true;
    }
    return false;
}

void MakePrivateFolders(const std::string& path)
{
    const std::filesystem::path folder = ToPath(path);
    std::error_code error;
    if (folder.empty() || std::filesystem::exists(folder, error))
        return;
    std::filesystem::create_directories(folder.parent_path(), error);
    ::mkdir(path.c_str(), 0700);
}

} // namespace sm::base
