#include "pdf/AtomicFile.h"

#include "pdf/PublishStatus.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

namespace sm::publisher {

namespace {

constexpr std::size_t kBufferSize = 1 << 18;

[[noreturn]] void FailWriting(const std::string& path, int error)
{
    const bool full = error == ENOSPC || error == EDQUOT || error == EFBIG;
    throw PublishFailure(full ? PublishStatus::DiskFull : PublishStatus::TargetNotWritable,
                         full ? fmt::format("{} could not be written: the disk is full or the file is larger than "
                                            "allowed ({}). Free some space and save again.",
                                            path, std::strerror(error))
                              : fmt::format("{} could not be written: {}. Choose another name or folder, or change "
                                            "its permissions.",
                                            path, std::strerror(error)));
}

/// The path that the rename must hit: a link's end, so that the link itself stays.
std::string FollowLinks(const std::string& path)
{
    std::error_code error;
    const auto resolved = std::filesystem::canonical(path, error);
    return error ? path : resolved.string();
}

void RefuseUnlessRegular(const std::string& path)
{
    struct stat status {};
    if (::stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) {
        throw PublishFailure(PublishStatus::TargetNotWritable,
                             fmt::format("{} could not be written: it is {}. Choose another name.", path,
                                         S_ISDIR(status.st_mode) ? "a folder" : "not an ordinary file"));
    }
    // A rename needs no right on the file itself; a file that was made read-only is meant to stay as it is.
    if (::access(path.c_str(), F_OK) == 0 && ::access(path.c_str(), W_OK) != 0) {
        FailWriting(path, errno);
    }
}

std::string FolderOf(const std::string& path)
{
    const auto slash = path.rfind('/');
    return slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

std::string TemporaryBeside(const std::string& path)
{
    static std::atomic<unsigned> counter{0};
    const auto slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "" : path.substr(0, slash + 1);
    return fmt::format("{}.sheetmaker-{}-{}.part", folder, ::getpid(), ++counter);
}

} // namespace

void WriteFully(int descriptor, const void* data, std::size_t size, const std::string& path)
{
    const auto* bytes = static_cast<const char*>(data);
    while (size > 0) {
        const ssize_t written = ::write(descriptor, bytes, size);
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            FailWriting(path, written < 0 ? errno : EIO);
        }
        bytes += written;
        size -= static_cast<std::size_t>(written);
    }
}

AtomicFile::AtomicFile(const std::string& path) : m_target(FollowLinks(path))
{
    RefuseUnlessRegular(m_target);
    m_temporary = TemporaryBeside(m_target);
    m_descriptor = ::open(m_temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0666);
    if (m_descriptor < 0) {
        FailWriting(m_target, errno);
    }
    m_buffer.reserve(kBufferSize);
}

AtomicFile::~AtomicFile()
{
    if (m_descriptor >= 0) {
        ::close(m_descriptor);
        ::unlink(m_temporary.c_str());
    }
}

void AtomicFile::Write(const void* data, std::size_t size)
{
    m_written += size;
    if (m_buffer.size() + size > kBufferSize) {
        Flush();
    }
    if (size >= kBufferSize) {
        WriteFully(m_descriptor, data, size, m_target);
    } else {
        m_buffer.append(static_cast<const char*>(data), size);
    }
}

void AtomicFile::Flush()
{
    WriteFully(m_descriptor, m_buffer.data(), m_buffer.size(), m_target);
    m_buffer.clear();
}

void AtomicFile::Commit()
{
    Flush();
    if (::fsync(m_descriptor) != 0) {
        FailWriting(m_target, errno);
    }
    if (std::rename(m_temporary.c_str(), m_target.c_str()) != 0) {
        FailWriting(m_target, errno);
    }
    ::close(m_descriptor);
    m_descriptor = -1;
    const int folder = ::open(FolderOf(m_target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder >= 0) {
        ::fsync(folder); // best effort: the file itself is whole either way
        ::close(folder);
    }
}

} // namespace sm::publisher
