// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/File.h"

#include "base/files/AtomicFile.h"
#include "base/windows/Handles.h"

namespace sm::base {

namespace {

constexpr int kAttempts = 100;

std::intptr_t Kept(Handle file, std::error_code& error)
{
    error = file.IsOpen() ? std::error_code() : LastError();
    return file.Release();
}

} // namespace

File File::Open(const std::string& path, std::error_code& error)
{
    return File(Kept(OpenFile(path, GENERIC_READ, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS), error));
}

// What lies in a user's folders is the user's alone there: rights are inherited from the folder.
File File::Create(const std::string& path, Rights, std::error_code& error)
{
    return File(Kept(OpenFile(path, GENERIC_WRITE, CREATE_NEW), error));
}

File File::CreateLog(const std::string& path, std::error_code& error)
{
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        ::DeleteFileW(WidePath(path).c_str());
        File file(Kept(OpenFile(path, FILE_APPEND_DATA | SYNCHRONIZE, CREATE_NEW), error));
        if (error != std::errc::file_exists)
            return file;
    }
    return {};
}

File File::CreateUnnamed(const std::string& folder, std::error_code& error)
{
    const std::string name = TemporaryBeside((folder.empty() ? "." : folder) + "/plot");
    return File(Kept(OpenFile(name, GENERIC_READ | GENERIC_WRITE | DELETE, CREATE_NEW,
                              FILE_ATTRIBUTE_TEMPORARY | FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE),
                     error));
}

FileFacts File::Facts() const
{
    return FactsFrom(HandleOf(m_handle));
}

std::size_t File::Read(char* to, std::size_t size)
{
    return ReadFully(HandleOf(m_handle), to, size);
}

void File::Write(std::string_view bytes)
{
    WriteFully(HandleOf(m_handle), bytes);
}

void File::Rewind()
{
    if (::SetFilePointerEx(HandleOf(m_handle), {}, nullptr, FILE_BEGIN) == FALSE)
        ThrowLastError();
}

void File::Close()
{
    if (m_handle != -1)
        ::CloseHandle(HandleOf(std::exchange(m_handle, -1)));
}

} // namespace sm::base
