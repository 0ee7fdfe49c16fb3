// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/FolderNames.h"
#include "base/files/Paths.h"

namespace sm::base {

bool FolderName::IsFile() const
{
    std::error_code ignored;
    return m_kind == Kind::File ||
           (m_kind != Kind::Folder && std::filesystem::is_regular_file(ToPath(m_folder) / ToPath(m_name), ignored));
}

bool FolderName::IsFolder() const
{
    if (m_kind == Kind::File || m_kind == Kind::Link || m_name == "." || m_name == "..")
        return false;
    std::error_code ignored;
    return m_kind == Kind::Folder ||
           std::filesystem::symlink_status(ToPath(m_folder) / ToPath(m_name), ignored).type() ==
               std::filesystem::file_type::directory;
}

} // namespace sm::base
