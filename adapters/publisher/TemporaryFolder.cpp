#include "publisher/TemporaryFolder.h"

#include "publisher/PublishStatus.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fmt/format.h>
#include <unistd.h>

namespace sm::publisher {

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

TemporaryFolder::TemporaryFolder(const std::string& parent) : m_owner(::getpid())
{
    const std::string folder = ParentFolder(parent);
    m_path = (std::filesystem::path(folder) / "sheetmaker-XXXXXX").string();
    if (::mkdtemp(m_path.data()) == nullptr) {
        const int error = errno;
        throw PublishFailure(error == ENOSPC || error == EDQUOT ? PublishStatus::DiskFull
                                                                : PublishStatus::WorkFolderUnusable,
                             fmt::format("A temporary folder could not be made in {}: {}. Free the folder's space or "
                                         "set TMPDIR to a folder that can be written.",
                                         folder, std::strerror(error)));
    }
}

TemporaryFolder::~TemporaryFolder()
{
    if (m_owner == ::getpid()) {
        std::error_code error;
        std::filesystem::remove_all(m_path, error);
    }
}

} // namespace sm::publisher
