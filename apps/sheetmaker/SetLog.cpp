#include "sheetmaker/SetLog.h"

#include "sheetmaker/Install.h"
#include "sheetmaker/LogFiles.h"

#include <fmt/format.h>
#include <fstream>
#include <unistd.h>

namespace sm::app {

namespace fs = std::filesystem;

SetLog::SetLog(fs::path folder) : m_folder(std::move(folder)), m_sheetLog(fmt::format("SmPdfAcad-{}-1.log", getpid()))
{
}

SetLog::~SetLog()
{
    std::error_code ignored;
    fs::remove(m_folder / m_sheetLog, ignored);
    if (m_text.empty())
        return;
    const fs::path part = m_folder / (m_sheetLog + ".part");
    fs::create_directories(m_folder, ignored);
    std::ofstream(part, std::ios::binary) << m_text;
    fs::rename(part, m_folder / kLogFileName, ignored);
}

void SetLog::TakeSheetLog()
{
    std::error_code ignored;
    m_text += ReadWholeFile(m_folder / m_sheetLog);
    fs::remove(m_folder / m_sheetLog, ignored);
}

} // namespace sm::app
