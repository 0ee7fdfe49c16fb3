// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/FolderLock.h"

#include "base/files/FileFacts.h"
#include "base/text/Names.h"
#include "base/windows/Handles.h"
#include "files/Makers.h"

namespace sm::base {

namespace {

/// A mutex of the whole machine, named after the folder: folders themselves can't be locked.
std::wstring MutexName(const std::string& folder)
{
    return Wide("Global\\sheetmaker-pdf." + MachineMark("folder", FoldCase(FollowLinks(folder))));
}

} // namespace

FolderLock::FolderLock(const std::string& folder)
    : m_handle(Handle(::CreateMutexW(nullptr, FALSE, MutexName(folder).c_str())).Release())
{
    if (m_handle != -1)
        ::WaitForSingleObject(HandleOf(m_handle), INFINITE);
}

FolderLock::~FolderLock()
{
    if (m_handle == -1)
        return;
    ::ReleaseMutex(HandleOf(m_handle));
    ::CloseHandle(HandleOf(m_handle));
}

} // namespace sm::base
