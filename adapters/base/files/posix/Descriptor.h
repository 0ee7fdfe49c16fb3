// SPDX-License-Identifier: GPL-3.0-or-later
// The owner of a descriptor of the system.
#pragma once

#include "base/files/FileFacts.h"

#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace sm::base {

class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        Close();
        m_number = std::exchange(other.m_number, -1);
        return *this;
    }
    ~Descriptor() { Close(); }

    [[nodiscard]] int Get() const { return m_number; }
    [[nodiscard]] bool IsOpen() const { return m_number >= 0; }
    /// False, with errno, when what was written could not be kept.
    bool Close() { return m_number < 0 || ::close(std::exchange(m_number, -1)) == 0; }
    /// Gives it up without closing it.
    int Release() { return std::exchange(m_number, -1); }

private:
    int m_number = -1;
};

/// errno as an error.
std::error_code LastError();
/// Throws it as a std::system_error.
[[noreturn]] void ThrowLastError();

/// Writes all of `bytes`. Throws std::system_error.
void WriteFully(int descriptor, std::string_view bytes);
/// Reads up to `size` bytes, fewer at the end of the file only. Throws std::system_error.
std::size_t ReadFully(int descriptor, char* to, std::size_t size);

FileFacts FactsFrom(const struct stat& state);

/// Makes a folder's entries last; what can't be synced is left.
void SyncFolderOf(const std::string& path);

} // namespace sm::base
