// SPDX-License-Identifier: GPL-3.0-or-later
// An open file.
#pragma once

#include "base/files/FileFacts.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace sm::base {

class File {
public:
    /// Who may use a new file: everybody whom the user's settings leave it to, or the user alone.
    enum class Rights { Usual, Private };

    File() = default;
    File(File&& other) noexcept;
    File& operator=(File&& other) noexcept;
    ~File();

    /// For reading, whatever stands there: a pipe isn't waited for. Ask `Facts` before reading. Not open, with `error`,
    /// when that can't be.
    static File Open(const std::string& path, std::error_code& error);
    /// A new file for writing; refused when something stands there.
    static File Create(const std::string& path, Rights rights, std::error_code& error);
    /// A new file that is written at its end, in place of what stood there. Of two processes that do so at the same
    /// time each gets a file of its own, the later one the name.
    static File CreateLog(const std::string& path, std::error_code& error);
    /// For reading and writing, without a name: it goes away with its object. On the disk of `folder` (empty: the
    /// working folder).
    static File CreateUnnamed(const std::string& folder, std::error_code& error);

    [[nodiscard]] bool IsOpen() const { return m_handle != -1; }
    [[nodiscard]] FileFacts Facts() const;
    /// Up to `size` bytes, fewer at the end of the file only. Throws std::system_error.
    std::size_t Read(char* to, std::size_t size);
    /// All of `bytes`. Throws std::system_error.
    void Write(std::string_view bytes);
    /// To the first byte. Throws std::system_error.
    void Rewind();
    void Close();

private:
    explicit File(std::intptr_t handle) : m_handle(handle) {}

    std::intptr_t m_handle = -1; ///< the system's; -1: not open
};

/// The bytes of a regular file of at most `largest` bytes; nothing when it can't be read or is anything else.
std::optional<std::string> ReadRegularFile(const std::string& path, std::uint64_t largest);

} // namespace sm::base
