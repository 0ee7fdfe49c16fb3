// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/LogBook.h"

#include "base/files/AtomicFile.h"
#include "base/files/FolderLock.h"
#include "base/files/PrivateFolder.h"
#include "machine/LogFiles.h"
#include "plugin/mdlAcadHelper.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <set>
#include <sstream>

namespace sm::app {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostPlaces = 100;

/// Whether a conversion began this file.
bool IsLog(const fs::path& file)
{
    std::error_code unreadable;
    if (!fs::is_regular_file(file, unreadable))
        return false;
    std::ifstream stream(file, std::ios::binary);
    const std::string title = kProductTitle;
    std::string begin(title.size(), '\0');
    stream.read(begin.data(), static_cast<std::streamsize>(begin.size()));
    return begin == title;
}

std::time_t WrittenAt(const fs::path& file)
{
    std::error_code unreadable;
    const fs::file_time_type time = fs::last_write_time(file, unreadable);
    return unreadable ? 0 : std::chrono::system_clock::to_time_t(std::chrono::file_clock::to_sys(time));
}

std::set<fs::path> LogsIn(const fs::path& place)
{
    std::set<fs::path> logs;
    std::error_code unreadable;
    if (IsLog(place))
        logs.insert(place);
    for (fs::directory_iterator file(place, unreadable), end; !unreadable && file != end; file.increment(unreadable))
        if (file->path().extension() == ".log" && IsLog(file->path()))
            logs.insert(file->path());
    return logs;
}

} // namespace

fs::path LogBook::File() const
{
    return m_folder / "log-places.txt";
}

std::vector<std::string> LogBook::Places() const
{
    std::vector<std::string> places;
    std::istringstream lines(ReadWholeFile(File()));
    for (std::string line; std::getline(lines, line);)
        places.push_back(line);
    return places;
}

void LogBook::Remember(const fs::path& place) const noexcept
{
    try {
        const std::string text = base::ToText(fs::absolute(place).lexically_normal());
        if (text.find('\n') != std::string::npos)
            return;
        base::MakePrivateFolders(base::ToText(m_folder));
        const base::FolderLock lock(base::ToText(m_folder));
        std::vector<std::string> places = Places();
        std::erase(places, text);
        places.push_back(text);
        if (places.size() > kMostPlaces)
            places.erase(places.begin(), places.end() - kMostPlaces);
        base::AtomicFile file(base::ToText(File()), base::AtomicFile::Keeping::ForNow);
        for (const std::string& one : places)
            file.Write(one + "\n");
        file.Commit();
    } catch (...) { // as the header says
    }
}

std::vector<KnownLog> LogBook::Logs() const
{
    std::set<fs::path> paths = LogsIn(m_folder / kLogFileName);
    for (const std::string& place : Places())
        paths.merge(LogsIn(base::ToPath(place)));
    std::vector<KnownLog> logs;
    for (const fs::path& path : paths)
        logs.push_back({path, WrittenAt(path)});
    std::stable_sort(logs.begin(), logs.end(),
                     [](const KnownLog& left, const KnownLog& right) { return left.written > right.written; });
    return logs;
}

} // namespace sm::app
