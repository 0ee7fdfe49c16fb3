#include "pages/MappedFile.h"

#include <cstdint>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace sm::publisher {

MappedFile::MappedFile(const std::string& path) : m_bytes(MAP_FAILED)
{
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat facts = {};
    if (descriptor >= 0 && ::fstat(descriptor, &facts) == 0 && S_ISREG(facts.st_mode) && facts.st_size > 0) {
        m_size = static_cast<std::size_t>(facts.st_size);
        m_bytes = ::mmap(nullptr, m_size, PROT_READ, MAP_PRIVATE, descriptor, 0);
    }
    if (descriptor >= 0) {
        ::close(descriptor);
    }
}

MappedFile::~MappedFile()
{
    if (m_bytes != MAP_FAILED) {
        ::munmap(m_bytes, m_size);
    }
}

std::string_view MappedFile::Bytes() const
{
    return m_bytes == MAP_FAILED ? std::string_view() : std::string_view(static_cast<const char*>(m_bytes), m_size);
}

void MappedFile::Forget(std::string_view part) const
{
    // Whole pages only: the ends may be in use by those who read the neighbouring parts.
    const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    const auto from = (reinterpret_cast<std::uintptr_t>(part.data()) + page - 1) / page * page;
    const auto to = reinterpret_cast<std::uintptr_t>(part.data() + part.size()) / page * page;
    if (from < to) {
        ::madvise(reinterpret_cast<void*>(from), to - from, MADV_DONTNEED);
    }
}

} // namespace sm::publisher
