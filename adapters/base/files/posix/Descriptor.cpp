// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/posix/Descriptor.h"

#include "base/files/Paths.h"

#include <cerrno>
#include <fcntl.h>

namespace sm::base {

std::error_code LastError()
{
    return {errno, std::generic_category()};
}

void ThrowLastError()
{
    throw std::system_error(LastError());
}

void WriteFully(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t done = ::write(descriptor, bytes.data(), bytes.size());
        if (done < 0 && errno == EINTR)
            continue;
        if (done == 0)
            errno = EIO;
        if (done <= 0)
            ThrowLastError();
        bytes.remove_prefix(static_cast<std::size_t>(done));
    }
}

std::size_t ReadFully(int descriptor, char* to, std::size_t size)
{
    std::size_t filled = 0;
    while (filled < size) {
        const ssize_t got = ::read(descriptor, to + filled, size - filled);
        if (got < 0 && errno != EINTR)
            ThrowLastError();
        if (got == 0)
            break;
        filled += got > 0 ? static_cast<std::size_t>(got) : 0;
    }
    return filled;
}

FileFacts FactsFrom(const struct stat& state)
{
    FileFacts facts;
    facts.kind = S_ISREG(state.st_mode) ? FileKind::File : S_ISDIR(state.st_mode) ? FileKind::Folder : FileKind::Other;
    facts.stamp = {static_cast<std::uint64_t>(state.st_dev), static_cast<std::uint64_t>(state.st_ino),
                   static_cast<std::uint64_t>(state.st_size), static_cast<std::int64_t>(state.st_mtim.tv_sec),
                   static_cast<std::int64_t>(state.st_mtim.tv_nsec)};
    return facts;
}

void SyncFolderOf(const std::string& path)
{
    const std::string parent = ToText(ToPath(path).parent_path());
    const Descriptor folder(::open(parent.empty() ? "." : parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.IsOpen())
        ::fsync(folder.Get());
}

} // namespace sm::base
