// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/LogFiles.h"

#include "base/files/AtomicFile.h"
#include "base/files/File.h"
#include "base/files/FileFacts.h"
#include "base/files/Leftovers.h"
#include "base/files/Paths.h"
#include "base/files/PrivateFolder.h"
#include "base/text/Names.h"
#include "machine/Install.h"

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>

namespace sm::app {

namespace {

constexpr const char* kLogPrefix = "SmPdfAcad-";
constexpr const char* kLogEnding = ".log";

} // namespace

std::string TemporaryLogName()
{
    return base::TemporaryName(kLogPrefix, kLogEnding);
}

void RemoveAbandonedLogs(const std::filesystem::path& folder)
{
    base::RemoveAbandonedFiles(base::ToText(folder), kLogPrefix, kLogEnding);
}

std::vector<std::string> LogNames(const std::vector<std::string>& drawings)
{
    std::vector<std::string> names;
    std::set<std::string> taken;
    for (const std::string& drawing : drawings) {
        const std::string stem = base::ToText(base::ToPath(drawing).stem());
        std::string name = stem + kLogEnding;
        for (int number = 2; !taken.insert(base::FoldCase(name)).second; ++number)
            name = stem + "-" + std::to_string(number) + kLogEnding;
        names.push_back(name);
    }
    return names;
}

LogFiles::LogFiles(std::filesystem::path stateFolder, const std::vector<std::string>& ownNames, const LogWishes& wishes)
    : m_folder(std::move(stateFolder)), m_whole(kLogFileName), m_joined(TemporaryLogName()), m_names(ownNames.size())
{
    if (!wishes.folder.empty()) {
        m_folder = std::filesystem::absolute(base::ToPath(wishes.folder));
        m_whole.clear();
        m_names = ownNames;
        return;
    }
    if (!wishes.file.empty()) {
        const std::string given = base::ToText(std::filesystem::absolute(base::ToPath(wishes.file)));
        const std::filesystem::path file = base::ToPath(base::FollowLinks(given));
        m_folder = file.parent_path();
        m_whole = base::ToText(file.filename());
    }
    RemoveAbandonedLogs(m_folder);
    if (ownNames.size() > 1)
        std::generate(m_names.begin(), m_names.end(), TemporaryLogName);
    else if (!wishes.file.empty())
        std::fill(m_names.begin(), m_names.end(), m_whole);
}

LogFiles::~LogFiles()
{
    std::error_code ignored;
    if (m_names.size() < 2 || m_whole.empty())
        return;
    for (const std::string& name : m_names)
        std::filesystem::remove(m_folder / base::ToPath(name), ignored);
}

std::string LogFiles::Folder() const
{
    return base::ToText(m_folder);
}

std::string LogFiles::Trouble() const
{
    const std::filesystem::path whole = Whole();
    std::error_code failed;
    if (!m_whole.empty() && std::filesystem::is_directory(whole, failed))
        return base::ToText(whole) + " is a folder";
    base::MakePrivateFolders(Folder());
    base::RemoveLeftoversOnce(Folder()); // a run that was killed at the next line left its file
    base::File::CreateUnnamed(Folder(), failed);
    return failed ? Folder() + " can't be written: " + failed.message() : std::string();
}

std::string LogFiles::Join() const
{
    if (m_names.size() < 2 || m_whole.empty())
        return {};
    const std::filesystem::path part = m_folder / base::ToPath(m_joined);
    std::error_code failed;
    std::filesystem::create_directories(m_folder, failed);
    std::ofstream joined(part, std::ios::binary);
    for (const std::string& name : m_names)
        joined << ReadWholeFile(m_folder / base::ToPath(name));
    joined.close();
    if (joined)
        std::filesystem::rename(part, Whole(), failed);
    if (joined && !failed)
        return {};
    std::error_code ignored;
    std::filesystem::remove(part, ignored);
    return base::ToText(Whole()) + " can't be written" + (failed ? ": " + failed.message() : std::string());
}

std::string ReadWholeFile(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

} // namespace sm::app
