#include "machine/LogFiles.h"

#include "base/files/Leftovers.h"
#include "base/files/Paths.h"
#include "machine/Install.h"

#include <algorithm>
#include <fstream>
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

LogFiles::LogFiles(std::filesystem::path folder, std::size_t workers)
    : m_folder(std::move(folder)), m_joined(TemporaryLogName()), m_names(workers)
{
    RemoveAbandonedLogs(m_folder);
    if (workers > 1)
        std::generate(m_names.begin(), m_names.end(), TemporaryLogName);
}

LogFiles::~LogFiles()
{
    std::error_code ignored;
    for (const std::string& name : m_names)
        if (!name.empty())
            std::filesystem::remove(m_folder / base::ToPath(name), ignored);
}

void LogFiles::Join() const
{
    if (m_names.size() < 2)
        return;
    const std::filesystem::path whole = m_folder / kLogFileName;
    const std::filesystem::path part = m_folder / base::ToPath(m_joined);
    std::error_code ignored;
    std::filesystem::create_directories(m_folder, ignored);
    {
        std::ofstream joined(part, std::ios::binary);
        for (const std::string& name : m_names)
            joined << ReadWholeFile(m_folder / base::ToPath(name));
    }
    std::filesystem::rename(part, whole, ignored);
}

std::string ReadWholeFile(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

} // namespace sm::app
