// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/MappedFile.h"

#include "base/windows/Handles.h"

#include <utility>

namespace sm::base {

namespace {

// A mapped file can't be replaced by anybody, this process included, so that a drawing which is read to be edited could
// never be saved: what is read whole is read into memory. Null, with the system's last error, when that can't be.
void* Copied(HANDLE file, std::size_t size)
{
    void* const memory = ::VirtualAlloc(nullptr, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    if (memory == nullptr)
        return nullptr;
    try {
        if (ReadFully(file, static_cast<char*>(memory), size) == size)
            return memory;
        ::SetLastError(ERROR_HANDLE_EOF); // it was cut in between
    } catch (const std::system_error&) {  // the last error tells
    }
    const DWORD error = ::GetLastError();
    ::VirtualFree(memory, 0, MEM_RELEASE);
    ::SetLastError(error);
    return nullptr;
}

void* Mapped(HANDLE file)
{
    const Handle map(::CreateFileMappingW(file, nullptr, PAGE_READONLY, 0, 0, nullptr));
    return map.IsOpen() ? ::MapViewOfFile(map.Get(), FILE_MAP_READ, 0, 0, 0) : nullptr;
}

} // namespace

MappedFile::MappedFile(const std::string& path, Reading reading, std::error_code& error)
{
    Map(path, reading, error);
}

void MappedFile::Map(const std::string& path, Reading reading, std::error_code& error)
{
    error.clear();
    const DWORD order = reading == Reading::Whole ? FILE_FLAG_SEQUENTIAL_SCAN : FILE_FLAG_RANDOM_ACCESS;
    const Handle file = OpenFile(path, GENERIC_READ, OPEN_EXISTING, order | FILE_FLAG_BACKUP_SEMANTICS);
    if (!file.IsOpen()) {
        error = LastError();
        return;
    }
    m_facts = FactsFrom(file.Get());
    if (m_facts.kind != FileKind::File || m_facts.stamp.size == 0)
        return;
    if (!std::in_range<std::size_t>(m_facts.stamp.size)) { // in a process of 32 bits
        error = std::make_error_code(std::errc::file_too_large);
        return;
    }
    const auto size = static_cast<std::size_t>(m_facts.stamp.size);
    const void* const address = reading == Reading::Whole ? Copied(file.Get(), size) : Mapped(file.Get());
    if (address == nullptr)
        error = LastError();
    else
        m_bytes = {static_cast<const char*>(address), size};
    m_isCopy = reading == Reading::Whole;
}

MappedFile::~MappedFile()
{
    if (m_bytes.empty())
        return;
    if (m_isCopy)
        ::VirtualFree(const_cast<char*>(m_bytes.data()), 0, MEM_RELEASE);
    else
        ::UnmapViewOfFile(m_bytes.data());
}

// The system cuts no file that is mapped, whoever asks.
std::string MappedFile::Cut()
{
    return {};
}

void MappedFile::RequireWhole() {}

// What is read whole is in memory already.
void MappedFile::Fetch() const {}

// The system takes such memory for others as it needs it.
void MappedFile::Forget(std::string_view) const {}

} // namespace sm::base
