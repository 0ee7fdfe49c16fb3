// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes of a drawing's file, mapped for reading, or of a text in memory.
#pragma once

#include "base/files/FileFacts.h"

#include <memory>
#include <string>
#include <string_view>

namespace sm::drawing {

using base::FileStamp;

class FileBytes {
public:
    /// Maps the file. Throws DrawingError: missing, a folder, unreadable, empty.
    static FileBytes Map(const std::string& path);
    /// Keeps `bytes`; nothing on disk belongs to them.
    static FileBytes Keep(std::string bytes);
    /// `view` lives as long as `owner`.
    static FileBytes Share(std::shared_ptr<const void> owner, std::string_view view);
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
