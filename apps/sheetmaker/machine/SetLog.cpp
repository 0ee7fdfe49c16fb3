#include "machine/SetLog.h"

#include "machine/Install.h"
#include "machine/LogFiles.h"

#include <fstream>

namespace sm::app {

namespace fs = std::filesystem;

SetLog::SetLog(fs::path folder)
    : m_folder(std::move(folder)), m_sheetLog(TemporaryLogName()), m_part(TemporaryLogName())
{
    RemoveAbandonedLogs(m_folder);
}

SetLog::~SetLog()
{
    std::error_code ignored;
    fs::remove(m_folder / base::ToPath(m_sheetLog), ignored);
    fs::remove(Part(), ignored);
}

void SetLog::Finish() const
{
    if (m_text.empty())
        return;
    std::error_code ignored;
    fs::create_directories(m_folder, ignored);
    std::ofstream(Part(), std::ios::binary) << m_text;
    fs::rename(Part(), m_folder / kLogFileName, ignored);
}

void SetLog::TakeSheetLog()
{
    std::error_code ignored;
    m_text += ReadWholeFile(m_folder / base::ToPath(m_sheetLog));
    fs::remove(m_folder / base::ToPath(m_sheetLog), ignored);
}

} // namespace sm::app
