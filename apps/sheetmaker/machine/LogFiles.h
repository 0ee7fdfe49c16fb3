// SPDX-License-Identifier: GPL-3.0-or-later
// The conversion logs of several workers become the user's one log.
#pragma once

#include "base/files/Paths.h"

#include <filesystem>
#include <string>
#include <vector>

namespace sm::app {

/// A name for a log beside the user's that is gone with the run; if the run is killed, a later one removes it.
std::string TemporaryLogName();
/// Removes such logs of runs that were killed.
void RemoveAbandonedLogs(const std::filesystem::path& folder);

/// Where logs go. Both empty: into the user's log.
struct LogWishes {
    std::string file;   ///< the one log of all drawings
    std::string folder; ///< a log of each drawing's own
};

/// Names of logs for drawings: "plan.log", "plan-2.log" for the second one of that name, no two the same.
std::vector<std::string> LogNames(const std::vector<std::string>& drawings);

/// How it is told that there is none; the reason follows.
inline constexpr const char* kNoLog = "no log is kept: ";

class LogFiles {
public:
    /// `stateFolder` holds the user's log and, while workers run, theirs. `ownNames` are the names of the workers' own
    /// logs, in their order, where a folder is wished for.
    LogFiles(std::filesystem::path stateFolder, const std::vector<std::string>& ownNames, const LogWishes& wishes = {});
    /// Removes what is left of the workers' logs.
    ~LogFiles();
    LogFiles(const LogFiles&) = delete;
    LogFiles& operator=(const LogFiles&) = delete;

    /// The log's file name for each worker; empty, the user's own, when there is one alone.
    [[nodiscard]] const std::vector<std::string>& Names() const { return m_names; }
    /// Their folder.
    [[nodiscard]] std::string Folder() const;
    /// The one log, where there is one.
    [[nodiscard]] std::filesystem::path Whole() const { return m_folder / base::ToPath(m_whole); }
    /// Why no log can be kept there, as a sentence without its end; empty when it can.
    [[nodiscard]] std::string Trouble() const;
    /// Puts the workers' logs in their order in the place of the one log; nothing where each keeps its own. Gives the
    /// reason, like `Trouble`, when that can't be.
    [[nodiscard]] std::string Join() const;

private:
    std::filesystem::path m_folder;
    std::string m_whole; ///< name of the one log; empty: each drawing keeps its own
    std::string m_joined;
    std::vector<std::string> m_names;
};

/// Whole contents; empty when the file can't be read.
std::string ReadWholeFile(const std::filesystem::path& file);

} // namespace sm::app
