// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/AtomicFile.h"

#include "base/windows/Handles.h"
#include "files/Temporaries.h"

namespace sm::base {

namespace {

constexpr std::size_t kBufferSize = 1 << 18;
constexpr int kNamesTried = 100;

} // namespace

AtomicFile::AtomicFile(const std::string& path, Keeping keeping) : m_target(FollowLinks(path)), m_keeping(keeping)
{
    RemoveLeftoversOnce(FolderPartOf(m_target));
    for (int attempt = 0; attempt < kNamesTried && m_handle == -1; ++attempt) {
        m_temporary = TemporaryBeside(m_target);
        m_handle = OpenFile(m_temporary, GENERIC_WRITE, CREATE_NEW).Release();
        if (m_handle == -1 && ::GetLastError() != ERROR_FILE_EXISTS)
            break;
    }
    if (m_handle == -1)
        ThrowLastError();
}

AtomicFile::~AtomicFile()
{
    if (m_handle != -1)
        ::CloseHandle(HandleOf(m_handle));
    if (!m_temporary.empty())
        ::DeleteFileW(WidePath(m_temporary).c_str());
}

void AtomicFile::Write(std::string_view bytes)
{
    m_written += bytes.size();
    if (m_buffer.size() + bytes.size() > kBufferSize)
        Flush();
    if (bytes.size() >= kBufferSize) {
        WriteFully(HandleOf(m_handle), bytes);
        return;
    }
    if (m_buffer.empty())
        m_buffer.reserve(kBufferSize);
    m_buffer.append(bytes);
}

void AtomicFile::Flush()
{
    WriteFully(HandleOf(m_handle), m_buffer);
    m_buffer.clear();
}

/// The folder hands its rights down; a file that was hidden or kept from searches stays so.
void AtomicFile::TakeRights() const
{
    constexpr DWORD kTaken = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED | FILE_ATTRIBUTE_ARCHIVE;
    const DWORD old = ::GetFileAttributesW(WidePath(m_target).c_str());
    if (old != INVALID_FILE_ATTRIBUTES && (old & kTaken) != 0)
        ::SetFileAttributesW(WidePath(m_temporary).c_str(), old & kTaken);
}

void AtomicFile::Finish()
{
    if (m_finished)
        return;
    Flush();
    TakeRights();
    if (m_keeping == Keeping::Durable && ::FlushFileBuffers(HandleOf(m_handle)) == FALSE)
        ThrowLastError();
    m_finished = true;
}

void AtomicFile::Commit()
{
    Finish();
    ::CloseHandle(HandleOf(std::exchange(m_handle, -1)));
    const DWORD how = MOVEFILE_REPLACE_EXISTING | (m_keeping == Keeping::Durable ? MOVEFILE_WRITE_THROUGH : 0);
    if (::MoveFileExW(WidePath(m_temporary).c_str(), WidePath(m_target).c_str(), how) == FALSE)
        ThrowLastError();
    m_temporary.clear();
}

} // namespace sm::base
