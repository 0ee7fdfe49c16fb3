// The conversion logs of several workers become the user's one log.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace sm::app {

/// A name for a log beside the user's that is gone with the run; if the run is killed, a later one removes it.
std::string TemporaryLogName();
/// Removes such logs of runs that were killed.
void RemoveAbandonedLogs(const std::filesystem::path& folder);

class LogFiles {
public:
    /// `folder` holds the user's log and, while workers run, theirs.
    LogFiles(std::filesystem::path folder, std::size_t workers);
    /// Removes what is left of the workers' logs.
    ~LogFiles();
    LogFiles(const LogFiles&) = delete;
    LogFiles& operator=(const LogFiles&) = delete;

    /// The log's file name for each worker; empty, the user's own, when there is one alone.
    [[nodiscard]] const std::vector<std::string>& Names() const { return m_names; }
    /// Puts the workers' logs in their order in the place of the user's log; nothing for one worker.
    void Join() const;

private:
    std::filesystem::path m_folder;
    std::string m_joined;
    std::vector<std::string> m_names;
};

/// Whole contents; empty when the file can't be read.
std::string ReadWholeFile(const std::filesystem::path& file);

} // namespace sm::app
