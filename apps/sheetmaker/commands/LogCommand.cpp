// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/PastRuns.h"

#include "base/process/ThisProcess.h"
#include "commandline/ExitCodes.h"
#include "commandline/Suggest.h"
#include "machine/LogBook.h"
#include "machine/LogFiles.h"

#include <algorithm>
#include <charconv>
#include <ctime>
#include <fmt/format.h>
#include <ostream>

namespace sm::app {
namespace {

namespace fs = std::filesystem;

/// In the user's time zone.
std::string TimeText(std::time_t time)
{
    const std::tm parts = base::LocalTime(time);
    char text[64] = {};
    return {text, std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &parts)};
}

int ShowLogs(const std::vector<KnownLog>& logs, std::ostream& out)
{
    const std::size_t width = std::to_string(logs.size()).size();
    for (std::size_t i = 0; i < logs.size(); ++i)
        out << fmt::format("{:>{}}  {}  {}\n", i + 1, width, TimeText(logs[i].written), base::ToText(logs[i].path));
    return kExitDone;
}

/// The log that a word means: a number of the list, a path, or the name of the log or of its drawing, the newest one
/// where several have it. Empty when it means none.
fs::path LogMeant(const std::string& word, const std::vector<KnownLog>& logs)
{
    std::size_t number = 0;
    const char* const end = word.data() + word.size();
    const auto [rest, error] = std::from_chars(word.data(), end, number);
    if (error == std::errc() && rest == end && number >= 1 && number <= logs.size())
        return logs[number - 1].path;
    const fs::path wanted = base::ToPath(word), whole = fs::absolute(wanted).lexically_normal();
    for (const KnownLog& log : logs)
        if (log.path == whole)
            return log.path;
    for (const KnownLog& log : logs)
        if (log.path.filename() == wanted || log.path.stem() == wanted.filename() ||
            (log.path.stem() == wanted.stem() && wanted.extension() != ".log"))
            return log.path;
    return {};
}

std::vector<std::string> NamesOf(const std::vector<KnownLog>& logs)
{
    std::vector<std::string> names;
    for (const KnownLog& log : logs)
        names.push_back(base::ToText(log.path.stem()));
    return names;
}

} // namespace

int RunLog(const LogJob& job, const Install& install, std::ostream& out, std::ostream& err)
{
    fs::path file = install.places.stateFolder / kLogFileName;
    std::error_code unreadable;
    if (job.list || !job.log.empty()) {
        const std::vector<KnownLog> logs = LogBook(install).Logs();
        if (job.list && !logs.empty())
            return ShowLogs(logs, out);
        if (!logs.empty())
            file = LogMeant(job.log, logs);
        if (file.empty()) {
            const std::string suggestion = Suggestion(job.log, NamesOf(logs));
            err << "sheetmaker log: there is no log \"" << job.log << "\""
                << (suggestion.empty() ? "; \"sheetmaker log --list\" shows them" : suggestion) << "\n";
            return kExitUsage;
        }
    }
    if (!fs::exists(file, unreadable)) {
        err << "A Log file has not yet been created.\n";
        return kExitFailed;
    }
    out << ReadWholeFile(file);
    return kExitDone;
}

} // namespace sm::app
