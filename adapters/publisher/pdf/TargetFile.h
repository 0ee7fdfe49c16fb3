// SPDX-License-Identifier: GPL-3.0-or-later
// The file that a document is saved to.
#pragma once

#include "base/files/AtomicFile.h"
#include "pdf/PublishStatus.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <system_error>

namespace sm::publisher {

/// DiskFull for "no space", quota and size limit, TargetNotWritable otherwise; the text names `path`.
PublishFailure WritingFailure(const std::string& path, const std::error_code& error);

/// Appears under its name only when it is whole and on disk.
class TargetFile {
public:
    /// A symbolic link at `path` is followed. Throws PublishFailure (TargetNotWritable, DiskFull) when `path` is a
    /// folder, no regular file or one that may not be written, or when its folder can't be written.
    explicit TargetFile(const std::string& path);

    void Write(const void* data, std::size_t size);
    /// Puts it in the place of the old one, with its rights. Throws PublishFailure.
    void Commit();
    [[nodiscard]] std::uintmax_t BytesWritten() const { return m_file.BytesWritten(); }

private:
    base::AtomicFile m_file;
};

} // namespace sm::publisher
