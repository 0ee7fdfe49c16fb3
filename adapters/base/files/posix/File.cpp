// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/File.h"

#include "base/files/AtomicFile.h"

#include "files/posix/Descriptor.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>

namespace sm::base {

namespace {

constexpr int kAttempts = 100;
constexpr mode_t kUsual = 0666; ///< of which the umask takes away
constexpr mode_t kPrivate = 0600;

int Number(std::intptr_t handle)
{
    return static_cast<int>(handle);
}

} // namespace

File File::Open(const std::string& path, std::error_code& error)
{
    File file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    error = file.IsOpen() ? std::error_code() : LastError();
    return file;
}

File File::Create(const std::string& path, Rights rights, std::error_code& error)
{
    const mode_t mode = rights == Rights::Private ? kPrivate : kUsual;
    File file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
    error = file.IsOpen() ? std::error_code() : LastError();
    return file;
}

File File::CreateLog(const std::string& path, std::error_code& error)
{
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        ::unlink(path.c_str());
        File file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, kUsual));
        error = file.IsOpen() ? std::error_code() : LastError();
        if (error != std::errc::file_exists)
            return file;
    }
    return {};
}

File File::CreateUnnamed(const std::string& folder, std::error_code& error)
{
    // For a moment it has a name: one that a later run removes when this one is killed in between.
    const std::string name = TemporaryBeside((folder.empty() ? "." : folder) + "/plot");
    File file(::open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR));
    error = file.IsOpen() ? std::error_code() : LastError();
    if (file.IsOpen())
        ::unlink(name.c_str());
    return file;
}

FileFacts File::Facts() const
{
    struct stat state {};
    return ::fstat(Number(m_handle), &state) == 0 ? FactsFrom(state) : FileFacts{};
}

std::size_t File::Read(char* to, std::size_t size)
{
    return ReadFully(Number(m_handle), to, size);
}

void File::Write(std::string_view bytes)
{
    WriteFully(Number(m_handle), bytes);
}

void File::Rewind()
{
    if (::lseek(Number(m_handle), 0, SEEK_SET) < 0)
        ThrowLastError();
}

void File::Close()
{
    if (m_handle >= 0)
        ::close(Number(std::exchange(m_handle, -1)));
}

} // namespace sm::base
