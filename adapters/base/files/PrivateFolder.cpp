#include "base/files/PrivateFolder.h"

#include "base/files/Paths.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

namespace sm::base {

namespace {

std::string ParentFolder(const std::string& wanted)
{
    std::error_code error;
    std::filesystem::path parent = ToPath(wanted);
    if (wanted.empty()) {
        parent = std::filesystem::temp_directory_path(error);
    }
    return ToText(std::filesystem::absolute(parent, error).lexically_normal());
}

} // namespace

PrivateFolder::PrivateFolder(const std::string& parent) : m_owner(::getpid())
{
    const std::string folder = ParentFolder(parent);
    m_path = ToText(ToPath(folder) / "sheetmaker-XXXXXX");
    if (::mkdtemp(m_path.data()) == nullptr) {
        const int error = errno;
        throw FolderFailure("A temporary folder could not be made in " + folder + ": " + std::strerror(error) +
                                ". Free the folder's space or set TMPDIR to a folder that can be written.",
                            error == ENOSPC || error == EDQUOT);
    }
}

PrivateFolder::~PrivateFolder()
{
    if (m_owner == ::getpid()) {
        std::error_code error;
        std::filesystem::remove_all(ToPath(m_path), error);
    }
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
