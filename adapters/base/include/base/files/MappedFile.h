// SPDX-License-Identifier: GPL-3.0-or-later
// A file's bytes without a copy of them.
#pragma once

#include "base/files/FileFacts.h"

#include <string>
#include <string_view>
#include <system_error>

namespace sm::base {

class MappedFile {
public:
    /// All of it may be needed as long as it is open, or part after part.
    enum class Reading { Whole, InParts };

    /// Holds nothing when the file can't be read, with `error`, when it is no regular file, which `Facts` tells, and
    /// when it is empty.
    MappedFile(const std::string& path, Reading reading, std::error_code& error);
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;
    ~MappedFile();

    [[nodiscard]] std::string_view Bytes() const { return m_bytes; }
    /// Of the file when it was mapped.
    [[nodiscard]] const FileFacts& Facts() const { return m_facts; }
    /// A file that somebody cut while it was mapped by this process: what stood behind its new end was read as zeros,
    /// and nothing made of it may be kept. Empty when that happened to none.
    static std::string Cut();
    /// Throws std::runtime_error that says so when there is one.
    static void RequireWhole();
    /// All of it is read soon: fetched at once, which takes less than page after page.
    void Fetch() const;
    /// Gives back the memory of a part that was read; reading it again fetches it again.
    void Forget(std::string_view part) const;

private:
    void Map(const std::string& path, Reading reading, std::error_code& error);

    std::string_view m_bytes;
    FileFacts m_facts;
    bool m_isCopy = false; ///< in memory, where a mapped file couldn't be replaced
};

} // namespace sm::base
