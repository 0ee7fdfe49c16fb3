// A file that appears under its name only when it is whole and on disk.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace sm::publisher {

/// Writes all of `data` to a descriptor. Throws PublishFailure: DiskFull for "no space", quota and size limit,
/// TargetNotWritable otherwise; the text names `path`.
void WriteFully(int descriptor, const void* data, std::size_t size, const std::string& path);

class AtomicFile {
public:
    /// Opens a hidden temporary beside `path`; its mode is what the umask leaves of 0666. A symbolic link at `path`
    /// is followed. Throws PublishFailure (TargetNotWritable, DiskFull) when `path` is a folder or no regular file,
    /// or when its folder can't be written.
    explicit AtomicFile(const std::string& path);
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;
    /// Removes the temporary unless `Commit` was reached.
    ~AtomicFile();

    void Write(const void* data, std::size_t size);
    /// Syncs, renames over the target and syncs the folder's entry. Throws PublishFailure.
    void Commit();
    [[nodiscard]] std::uintmax_t BytesWritten() const { return m_written; }

private:
    void Flush();

    std::string m_target;
    std::string m_temporary;
    std::string m_buffer;
    std::uintmax_t m_written = 0;
    int m_descriptor = -1;
};

} // namespace sm::publisher
