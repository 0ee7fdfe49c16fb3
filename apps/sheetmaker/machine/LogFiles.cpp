#include "machine/LogFiles.h"

#include "base/files/File.h"
#include "base/files/Leftovers.h"
#include "base/files/Paths.h"
#include "base/files/PrivateFolder.h"
#include "base/text/Names.h"
#include "machine/Install.h"

#include <algorithm>
#include <fstream>
#include <map>
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

namespace {

/// "plan.log", "plan-2.log" for the second drawing of that name in another folder, and so on.
std::vector<std::string> OwnNames(const std::vector<std::string>& drawings)
{
    std::vector<std::string> names;
    std::map<std::string, int> taken;
    for (const std::string& drawing : drawings) {
        const std::string stem = base::ToText(base::ToPath(drawing).stem());
        const int number = ++taken[base::FoldCase(stem)];
        names.push_back(stem + (number > 1 ? "-" + std::to_string(number) : "") + kLogEnding);
    }
    return names;
}

} // namespace

LogFiles::LogFiles(std::filesystem::path stateFolder, const std::vector<std::string>& drawings, const LogWishes& wishes)
    : m_folder(std::move(stateFolder)), m_whole(kLogFileName), m_joined(TemporaryLogName()), m_names(drawings.size())
{
    if (!wishes.folder.empty()) {
        m_folder = std::filesystem::absolute(base::ToPath(wishes.folder));
        m_whole.clear();
        m_names = OwnNames(drawings);
        return;
    }
    if (!wishes.file.empty()) {
        const std::filesystem::path file = std::filesystem::absolute(base::ToPath(wishes.file));
        m_folder = file.parent_path();
        m_whole = base::ToText(file.filename());
    }
    RemoveAbandonedLogs(m_folder);
    if (drawings.size() > 1)
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
    const std::filesystem::path whole = m_folder / base::ToPath(m_whole);
    std::error_code failed;
    if (!m_whole.empty() && std::filesystem::is_directory(whole, failed))
        return base::ToText(whole) + " is a folder";
    base::MakePrivateFolders(Folder());
    base::File::CreateUnnamed(Folder(), failed);
    return failed ? Folder() + " can't be written: " + failed.message() : std::string();
}

void LogFiles::Join() const
{
    if (m_names.size() < 2 || m_whole.empty())
        return;
    const std::filesystem::path part = m_folder / base::ToPath(m_joined);
    std::error_code ignored;
    std::filesystem::create_directories(m_folder, ignored);
    {
        std::ofstream joined(part, std::ios::binary);
        for (const std::string& name : m_names)
            joined << ReadWholeFile(m_folder / base::ToPath(name));
    }
    std::filesystem::rename(part, m_folder / base::ToPath(m_whole), ignored);
}

std::string ReadWholeFile(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

} // namespace sm::app
