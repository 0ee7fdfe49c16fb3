// The bytes of a file, mapped for reading, or of a text in memory.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace sm::drawing {

/// What tells one state of a file on disk from another.
struct FileStamp {
    std::uint64_t device = 0, inode = 0, size = 0;
    std::int64_t seconds = 0, nanoseconds = 0;
    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

class FileBytes {
public:
    /// Maps the file. Throws DrawingError: missing, a folder, unreadable, empty.
    static FileBytes Map(const std::string& path);
    /// Keeps `bytes`; nothing on disk belongs to them.
    static FileBytes Keep(std::string bytes);
    /// Of the file as it is on disk now; all zero when it can't be asked.
    static FileStamp StampOf(const std::string& path);

    [[nodiscard]] std::string_view View() const { return m_view; }
    /// Of the file when it was mapped.
    [[nodiscard]] const FileStamp& Stamp() const { return m_stamp; }

private:
    std::shared_ptr<const void> m_owner;
    std::string_view m_view;
    FileStamp m_stamp;
};

} // namespace sm::drawing
