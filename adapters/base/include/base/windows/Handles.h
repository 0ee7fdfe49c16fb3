// SPDX-License-Identifier: GPL-3.0-or-later
// The owner of a handle of the system, and what its calls take and say.
#pragma once

#include "base/files/FileFacts.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include <windows.h>

namespace sm::base {

class Handle {
public:
    Handle() = default;
    explicit Handle(HANDLE handle) : m_handle(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
    Handle(Handle&& other) noexcept : m_handle(std::exchange(other.m_handle, nullptr)) {}
    Handle& operator=(Handle&& other) noexcept
    {
        Close();
        m_handle = std::exchange(other.m_handle, nullptr);
        return *this;
    }
    ~Handle() { Close(); }

    [[nodiscard]] HANDLE Get() const { return m_handle; }
    [[nodiscard]] bool IsOpen() const { return m_handle != nullptr; }
    void Close()
    {
        if (m_handle != nullptr)
            ::CloseHandle(std::exchange(m_handle, nullptr));
    }
    /// As other objects keep it: -1 when it isn't open.
    [[nodiscard]] std::intptr_t Release()
    {
        const HANDLE handle = std::exchange(m_handle, nullptr);
        return handle == nullptr ? -1 : reinterpret_cast<std::intptr_t>(handle);
    }

private:
    HANDLE m_handle = nullptr;
};

inline HANDLE HandleOf(std::intptr_t kept)
{
    return reinterpret_cast<HANDLE>(kept);
}

/// UTF-8 text, and the wide text of Windows; what is neither becomes U+FFFD.
std::wstring Wide(std::string_view utf8);
std::string Narrow(std::wstring_view text);

/// A path as the system's calls take it, longer than 260 characters too.
std::wstring WidePath(std::string_view utf8);

/// The system's error as one of the numbers of <cerrno>, so that errors mean the same, and are worded the same, on
/// every system.
std::error_code ErrorOf(DWORD error);
std::error_code LastError();
[[noreturn]] void ThrowLastError();

/// How others may use the file meanwhile; whoever holds it open keeps nobody from renaming or removing it.
inline constexpr DWORD kSharedByAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Not open, with the system's last error, when that can't be.
Handle OpenFile(const std::string& path, DWORD access, DWORD disposition, DWORD flags = FILE_ATTRIBUTE_NORMAL,
                DWORD sharing = kSharedByAll);

/// Writes all of `bytes`. Throws std::system_error.
void WriteFully(HANDLE file, std::string_view bytes);
/// Reads up to `size` bytes, fewer at the end of the file only. Throws std::system_error.
std::size_t ReadFully(HANDLE file, char* to, std::size_t size);

/// Kind Missing when nothing can be told.
FileFacts FactsFrom(HANDLE file);

} // namespace sm::base
