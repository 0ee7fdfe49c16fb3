// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/PrivateFolder.h"

#include "base/files/Leftovers.h"
#include "base/files/Paths.h"
#include "base/process/ThisProcess.h"
#include "base/windows/Handles.h"

#include <filesystem>

namespace sm::base {

namespace {

constexpr const char* kFolderPrefix = "sheetmaker-";
constexpr int kFolderNamesTried = 100;

/// "TMP" and "TEMP" are what the system itself asks; a user's temporary folder is readable by the user alone.
std::string ParentFolder(const std::string& wanted)
{
    std::error_code error;
    std::filesystem::path parent = ToPath(wanted);
    if (wanted.empty())
        parent = std::filesystem::temp_directory_path(error);
    return ToText(std::filesystem::absolute(parent, error).lexically_normal());
}

/// False, with the system's last error, when it can't be made.
bool MakeNamed(const std::string& folder, std::string& path)
{
    for (int attempt = 0; attempt < kFolderNamesTried; ++attempt) {
        path = ToText(ToPath(folder) / ToPath(TemporaryName(kFolderPrefix, "")));
        if (::CreateDirectoryW(WidePath(path).c_str(), nullptr) != FALSE)
            return true;
        if (::GetLastError() != ERROR_ALREADY_EXISTS)
            return false;
    }
    return false;
}

} // namespace

PrivateFolder::PrivateFolder(const std::string& parent) : m_owner(ProcessNumber())
{
    const std::string folder = ParentFolder(parent);
    if (parent.empty())
        RemoveAbandonedFoldersOnce(folder, kFolderPrefix);
    if (!MakeNamed(folder, m_path)) {
        const std::error_code error = LastError();
        throw FolderFailure("A temporary folder could not be made in " + folder + ": " + error.message() +
                                ". Free the folder's space or set TMP to a folder that can be written.",
                            error == std::errc::no_space_on_device);
    }
}

PrivateFolder::~PrivateFolder()
{
    Remove();
}

bool PrivateFolder::Remove()
{
    std::error_code error;
    std::filesystem::remove_all(ToPath(m_path), error);
    return !std::filesystem::exists(ToPath(m_path), error);
}

void MakePrivateFolders(const std::string& path)
{
    std::error_code error;
    if (!path.empty())
        std::filesystem::create_directories(ToPath(path), error);
}

} // namespace sm::base
