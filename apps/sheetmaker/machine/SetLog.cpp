// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/SetLog.h"

#include "base/files/Paths.h"

#include <fstream>

namespace sm::app {

namespace fs = std::filesystem;

SetLog::SetLog(fs::path stateFolder, const std::string& file)
    : m_files(std::move(stateFolder), {}, {file, ""}), m_sheetLog(TemporaryLogName()), m_part(TemporaryLogName())
{
}

SetLog::~SetLog()
{
    std::error_code ignored;
    fs::remove(InFolder(m_sheetLog), ignored);
    fs::remove(InFolder(m_part), ignored);
}

fs::path SetLog::InFolder(const std::string& name) const
{
    return base::ToPath(m_files.Folder()) / base::ToPath(name);
}

bool SetLog::Finish() const
{
    if (m_text.empty())
        return true;
    std::error_code failed;
    fs::create_directories(base::ToPath(m_files.Folder()), failed);
    std::ofstream part(InFolder(m_part), std::ios::binary);
    part << m_text;
    part.close();
    if (part)
        fs::rename(InFolder(m_part), m_files.Whole(), failed);
    return part && !failed;
}

void SetLog::TakeSheetLog()
{
    std::error_code ignored;
    m_text += ReadWholeFile(InFolder(m_sheetLog));
    fs::remove(InFolder(m_sheetLog), ignored);
}

} // namespace sm::app
