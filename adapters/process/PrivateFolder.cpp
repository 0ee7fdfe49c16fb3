#include "process/PrivateFolder.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <unistd.h>

namespace sm::process {

namespace {

std::string ParentFolder(const std::string& wanted)
{
    std::error_code error;
    std::filesystem::path parent(wanted);
    if (wanted.empty()) {
        parent = std::filesystem::temp_directory_path(error);
    }
    return std::filesystem::absolute(parent, error).lexically_normal().string();
}

} // namespace

PrivateFolder::PrivateFolder(const std::string& parent) : m_owner(::getpid())
{
    const std::string folder = ParentFolder(parent);
    m_path = (std::filesystem::path(folder) / "sheetmaker-XXXXXX").string();
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
        std::filesystem::remove_all(m_path, error);
    }
}

} // namespace sm::process
