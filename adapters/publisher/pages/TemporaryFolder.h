// The publisher's own folder for the time of a document.
#pragma once

#include "process/PrivateFolder.h"

#include <string>

namespace sm::publisher {

class TemporaryFolder {
public:
    /// Makes a private folder in `parent` (empty: $TMPDIR, else the system's temporary folder).
    /// Throws PublishFailure (WorkFolderUnusable or DiskFull).
    explicit TemporaryFolder(const std::string& parent);
    /// Absolute, without a trailing slash.
    [[nodiscard]] const std::string& Path() const { return m_folder.Path(); }

private:
    process::PrivateFolder m_folder;
};

} // namespace sm::publisher
