// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/FolderLock.h"

#include <cerrno>
#include <fcntl.h>

#include <sys/file.h>
#include <unistd.h>

namespace sm::base {

FolderLock::FolderLock(const std::string& folder) : m_handle(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    while (m_handle >= 0 && ::flock(static_cast<int>(m_handle), LOCK_EX) != 0 && errno == EINTR) {
    }
}

FolderLock::~FolderLock()
{
    if (m_handle >= 0)
        ::close(static_cast<int>(m_handle));
}

} // namespace sm::base
