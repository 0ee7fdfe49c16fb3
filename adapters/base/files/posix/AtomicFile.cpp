// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/AtomicFile.h"

#include "files/Temporaries.h"
#include "files/posix/Descriptor.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>

namespace sm::base {

namespace {

constexpr std::size_t kBufferSize = 1 << 18;
constexpr int kNamesTried = 100;

/// At no time may more people read the new file than the old one.
mode_t FirstRights(const std::string& target)
{
    struct stat old {};
    return ::stat(target.c_str(), &old) == 0 ? old.st_mode & 0777 : 0666;
}

} // namespace

AtomicFile::AtomicFile(const std::string& path, Keeping keeping) : m_target(FollowLinks(path)), m_keeping(keeping)
{
    const mode_t rights = FirstRights(m_target);
    RemoveLeftoversOnce(FolderPartOf(m_target));
    for (int attempt = 0; attempt < kNamesTried && m_handle < 0; ++attempt) {
        m_temporary = TemporaryBeside(m_target);
        m_handle = ::open(m_temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, rights);
        if (m_handle < 0 && errno != EEXIST)
            break;
    }
    if (m_handle < 0)
        ThrowLastError();
}

AtomicFile::~AtomicFile()
{
    if (m_handle >= 0)
        ::close(static_cast<int>(m_handle));
    if (!m_temporary.empty())
        ::unlink(m_temporary.c_str());
}

void AtomicFile::Write(std::string_view bytes)
{
    m_written += bytes.size();
    if (m_buffer.size() + bytes.size() > kBufferSize)
        Flush();
    if (bytes.size() >= kBufferSize) {
        WriteFully(static_cast<int>(m_handle), bytes);
        return;
    }
    if (m_buffer.empty())
        m_buffer.reserve(kBufferSize);
    m_buffer.append(bytes);
}

void AtomicFile::Flush()
{
    WriteFully(static_cast<int>(m_handle), m_buffer);
    m_buffer.clear();
}

void AtomicFile::TakeRights() const
{
    struct stat old {};
    if (::stat(m_target.c_str(), &old) != 0)
        return;
    const int file = static_cast<int>(m_handle);
    // Only the superuser may give a file away, and not every file system keeps owners and rights.
    if (::fchown(file, old.st_uid, old.st_gid) != 0) [[maybe_unused]]
        const int given = ::fchown(file, static_cast<uid_t>(-1), old.st_gid);
    [[maybe_unused]] const int changed = ::fchmod(file, old.st_mode & 07777);
}

void AtomicFile::Finish()
{
    if (m_finished)
        return;
    Flush();
    TakeRights();
    if (m_keeping == Keeping::Durable && ::fsync(static_cast<int>(m_handle)) != 0)
        ThrowLastError();
    m_finished = true;
}

void AtomicFile::Commit()
{
    Finish();
    const int file = static_cast<int>(m_handle);
    m_handle = -1;
    if (::close(file) != 0 || std::rename(m_temporary.c_str(), m_target.c_str()) != 0)
        ThrowLastError();
    m_temporary.clear();
    if (m_keeping == Keeping::Durable)
        SyncFolderOf(m_target); // the file itself is whole either way
}

} // namespace sm::base
