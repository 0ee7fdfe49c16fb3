// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/FolderNames.h"

#include "base/files/Paths.h"
#include "base/windows/Handles.h"

namespace sm::base {

namespace {

/// Of a link the file itself would have to be asked.
FolderName::Kind KindOf(const WIN32_FIND_DATAW& entry)
{
    if ((entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0)
        return FolderName::Kind::Untold;
    const bool isFolder = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    return isFolder ? FolderName::Kind::Folder : FolderName::Kind::File;
}

} // namespace

std::error_code VisitNames(const std::string& folder, const std::function<void(const FolderName&)>& visit,
                           std::size_t most)
{
    WIN32_FIND_DATAW entry{};
    const std::wstring pattern = WidePath((folder.empty() ? "." : folder) + "/*");
    const HANDLE search =
        ::FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &entry, FindExSearchNameMatch, nullptr, 0);
    if (search == INVALID_HANDLE_VALUE)
        return LastError();
    std::size_t seen = 0;
    do {
        const std::string name = Narrow(entry.cFileName);
        visit(FolderName(folder, name, KindOf(entry)));
    } while (++seen < most && ::FindNextFileW(search, &entry) != FALSE);
    const std::error_code error =
        seen < most && ::GetLastError() != ERROR_NO_MORE_FILES ? LastError() : std::error_code();
    ::FindClose(search);
    return error;
}

} // namespace sm::base
