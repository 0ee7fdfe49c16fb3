// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/MappedFile.h"

#include "files/posix/Descriptor.h"
#include "files/posix/MapGuard.h"

#include <cstdint>
#include <fcntl.h>
#include <stdexcept>

#include <sys/mman.h>

namespace sm::base {

MappedFile::MappedFile(const std::string& path, Reading reading, std::error_code& error)
{
    Map(path, reading, error);
}

void MappedFile::Map(const std::string& path, Reading, std::error_code& error)
{
    error.clear();
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat state {};
    if (!file.IsOpen() || ::fstat(file.Get(), &state) != 0) {
        error = LastError();
        return;
    }
    m_facts = FactsFrom(state);
    if (m_facts.kind != FileKind::File || m_facts.stamp.size == 0)
        return;
    const auto size = static_cast<std::size_t>(m_facts.stamp.size);
    void* const address = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.Get(), 0);
    if (address == MAP_FAILED)
        error = LastError();
    else
        m_bytes = {static_cast<const char*>(address), size};
    if (!m_bytes.empty())
        Guard(m_bytes.data(), m_bytes.size(), path);
}

MappedFile::~MappedFile()
{
    if (m_bytes.empty())
        return;
    Unguard(m_bytes.data());
    ::munmap(const_cast<char*>(m_bytes.data()), m_bytes.size());
}

std::string MappedFile::Cut()
{
    return CutFile();
}

void MappedFile::RequireWhole()
{
    const std::string path = Cut();
    if (!path.empty())
        throw std::runtime_error(path + ": the file changed while it was read; try again when nobody writes to it");
}

void MappedFile::Fetch() const
{
    // A system that doesn't know the advice fetches page after page as they are read.
    if (!m_bytes.empty())
        ::madvise(const_cast<char*>(m_bytes.data()), m_bytes.size(), MADV_POPULATE_READ);
}

void MappedFile::Forget(std::string_view part) const
{
    // Whole pages only: the ends may be in use by those who read the neighbouring parts.
    const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    const auto from = (reinterpret_cast<std::uintptr_t>(part.data()) + page - 1) / page * page;
    const auto to = reinterpret_cast<std::uintptr_t>(part.data() + part.size()) / page * page;
    if (from < to)
        ::madvise(reinterpret_cast<void*>(from), to - from, MADV_DONTNEED);
}

} // namespace sm::base
