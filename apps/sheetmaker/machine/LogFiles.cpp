#include "machine/LogFiles.h"

#include "base/files/Paths.h"
#include "base/process/ThisProcess.h"
#include "machine/Install.h"

#include <fmt/format.h>
#include <fstream>
#include <sstream>

namespace sm::app {

LogFiles::LogFiles(std::filesystem::path folder, std::size_t workers) : m_folder(std::move(folder)), m_names(workers)
{
    for (std::size_t worker = 0; workers > 1 && worker < workers; ++worker)
        m_names[worker] = fmt::format("SmPdfAcad-{}-{}.log", base::ProcessNumber(), worker + 1);
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
    const std::filesystem::path part = m_folder / base::ToPath(m_names.front() + ".part");
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
