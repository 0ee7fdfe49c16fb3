#include "tags/FileBytes.h"

#include "drawing/Drawing.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace sm::drawing {

namespace {

/// A file descriptor that is closed at the end of its scope.
class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor()
    {
        if (m_number >= 0)
            close(m_number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    [[nodiscard]] int Number() const { return m_number; }

private:
    int m_number;
};

FileStamp StampFrom(const struct stat& state)
{
    return {static_cast<std::uint64_t>(state.st_dev), static_cast<std::uint64_t>(state.st_ino),
            static_cast<std::uint64_t>(state.st_size), static_cast<std::int64_t>(state.st_mtim.tv_sec),
            static_cast<std::int64_t>(state.st_mtim.tv_nsec)};
}

[[noreturn]] void ThrowOpenError(const std::string& path, int error)
{
    if (error == ENOENT || error == ENOTDIR)
        throw DrawingError(path + ": there is no such file; check the name");
    if (error == EACCES || error == EPERM)
        throw DrawingError(path + ": the file may not be read; ask for the right to read it");
    throw DrawingError(path + ": the file can't be read (" + std::strerror(error) +
                       "); copy it to another disk and try again");
}

} // namespace

FileBytes FileBytes::Map(const std::string& path)
{
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat state {};
    if (file.Number() < 0 || fstat(file.Number(), &state) != 0)
        ThrowOpenError(path, errno);
    if (S_ISDIR(state.st_mode))
        throw DrawingError(path + ": this is a folder; name a drawing in it");
    if (!S_ISREG(state.st_mode))
        throw DrawingError(path + ": this is no ordinary file; name a drawing");
    if (state.st_size == 0)
        throw DrawingError(path + ": the file is empty; save the drawing again");
    const auto size = static_cast<std::size_t>(state.st_size);
    void* const address = mmap(nullptr, size, PROT_READ, MAP_PRIVATE | MAP_POPULATE, file.Number(), 0);
    if (address == MAP_FAILED)
        ThrowOpenError(path, errno);
    FileBytes bytes;
    bytes.m_owner =
        std::shared_ptr<const void>(address, [size](const void* at) { munmap(const_cast<void*>(at), size); });
    bytes.m_view = {static_cast<const char*>(address), size};
    bytes.m_stamp = StampFrom(state);
    return bytes;
}

FileBytes FileBytes::Keep(std::string text)
{
    const auto owner = std::make_shared<const std::string>(std::move(text));
    FileBytes bytes;
    bytes.m_view = *owner;
    bytes.m_owner = owner;
    return bytes;
}

FileStamp FileBytes::StampOf(const std::string& path)
{
    struct stat state {};
    return stat(path.c_str(), &state) == 0 ? StampFrom(state) : FileStamp{};
}

} // namespace sm::drawing
