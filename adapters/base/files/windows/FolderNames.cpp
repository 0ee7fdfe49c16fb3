// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/FolderNames.h"

#include "base/files/Paths.h"
#include "base/windows/Handles.h"

namespace sm::base {

namespace {

/// Neither a folder nor a link, of which the file itself would have to be asked.
bool IsPlainFile(const WIN32_FIND_DATAW& entry)
{
    return (entry.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT)) == 0;
}

} // namespace

bool FolderName::IsFile() const
{
    std::error_code ignored;
    return m_knownFile || std::filesystem::is_regular_file(ToPath(m_folder) / ToPath(m_name), ignored);
}

void VisitNames(const std::string& folder, const std::function<void(const FolderName&)>& visit, std::size_t most)
{
    WIN32_FIND_DATAW entry{};
    const std::wstring pattern = WidePath((folder.empty() ? "." : folder) + "/*");
    const HANDLE search =
        ::FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &entry, FindExSearchNameMatch, nullptr, 0);
    if (search == INVALID_HANDLE_VALUE)
        return;
    std::size_t seen = 0;
    do {
        const std::string name = Narrow(entry.cFileName);
        visit(FolderName(folder, name, IsPlainFile(entry)));
    } while (++seen < most && ::FindNextFileW(search, &entry) != FALSE);
    ::FindClose(search);
}

} // namespace sm::base
