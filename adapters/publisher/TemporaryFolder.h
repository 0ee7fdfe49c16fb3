// A private folder (mode 0700) that goes away with its object.
#pragma once

#include <string>

namespace sm::publisher {

class TemporaryFolder {
public:
    /// Makes a folder with a unique name in `parent` (empty: $TMPDIR, else the system's temporary folder).
    /// Throws PublishFailure (WorkFolderUnusable or DiskFull).
    explicit TemporaryFolder(const std::string& parent);
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    /// Removes the folder and everything in it, but not when this is a forked child of the process that made it.
    ~TemporaryFolder();
    /// Absolute, without a trailing slash.
    [[nodiscard]] const std::string& Path() const { return m_path; }

private:
    std::string m_path;
    int m_owner;
};

} // namespace sm::publisher
