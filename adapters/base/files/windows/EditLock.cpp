// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/EditLock.h"

#include "base/files/Paths.h"
#include "base/process/ThisProcess.h"
#include "base/windows/Handles.h"
#include "files/Makers.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <thread>

namespace sm::base {

namespace {

constexpr std::chrono::milliseconds kPause{20};
constexpr std::size_t kLongestHolder = 200;
constexpr std::string_view kLockEnding = ".sheetmaker-lock";

/// How often this process holds a lock.
int& HoldsOf(const std::string& lockPath)
{
    static std::map<std::string, int> holds;
    return holds[lockPath];
}

std::string LockPathOf(const std::string& path)
{
    const std::filesystem::path file = ToPath(FollowLinks(path));
    return ToText(file.parent_path() / ToPath("." + ToText(file.filename()) + std::string(kLockEnding)));
}

std::string OnThisMachine()
{
    const std::string name = MachineName();
    return name.empty() ? name : " on " + name;
}

/// What the holder wrote into the lock's file; anybody may write there.
std::string HolderOf(const std::string& lockPath)
{
    const Handle file = OpenFile(lockPath, GENERIC_READ, OPEN_EXISTING);
    std::string text(kLongestHolder, '\0');
    DWORD count = 0;
    if (!file.IsOpen() || ::ReadFile(file.Get(), text.data(), kLongestHolder, &count, nullptr) == FALSE)
        count = 0;
    text.resize(count);
    const bool plain =
        std::all_of(text.begin(), text.end(), [](char c) { return std::isprint(static_cast<unsigned char>(c)) != 0; });
    return text.empty() || !plain ? "another process" : text;
}

/// Others may read who holds it; it goes away with its holder, however that ends.
Handle OpenLock(const std::string& lockPath, DWORD disposition)
{
    return OpenFile(lockPath, GENERIC_WRITE | DELETE, disposition, FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE,
                    FILE_SHARE_READ | FILE_SHARE_DELETE);
}

} // namespace

EditLock::EditLock(const std::string& path, std::chrono::milliseconds patience) : m_lockPath(LockPathOf(path))
{
    const auto end = std::chrono::steady_clock::now() + patience;
    if (HoldsOf(m_lockPath)++ > 0)
        return;
    while (!TryLock()) {
        if (std::chrono::steady_clock::now() >= end) {
            --HoldsOf(m_lockPath);
            throw EditLockHeld(HolderOf(m_lockPath));
        }
        std::this_thread::sleep_for(kPause);
    }
}

// False: somebody else holds it. While it is going away it can't be opened either.
bool EditLock::TryLock()
{
    Handle file = OpenLock(m_lockPath, CREATE_ALWAYS);
    if (!file.IsOpen()) {
        const bool exists = ::GetFileAttributesW(WidePath(m_lockPath).c_str()) != INVALID_FILE_ATTRIBUTES;
        return !exists && ::GetLastError() != ERROR_ACCESS_DENIED; // else it can't be made: nothing is held
    }
    const std::string holder = "process " + std::to_string(ProcessNumber()) + OnThisMachine();
    DWORD written = 0;
    ::WriteFile(file.Get(), holder.data(), static_cast<DWORD>(holder.size()), &written, nullptr);
    m_handle = file.Release();
    return true;
}

EditLock::~EditLock()
{
    --HoldsOf(m_lockPath);
    if (m_handle != -1)
        ::CloseHandle(HandleOf(m_handle));
}

bool IsEditLock(std::string_view name)
{
    return name.starts_with(".") && name.ends_with(kLockEnding) && name.size() > kLockEnding.size() + 1;
}

void RemoveAbandonedLock(const std::string& lockPath)
{
    const std::string machine = OnThisMachine();
    if (!machine.empty() && HolderOf(lockPath).ends_with(machine))
        OpenLock(lockPath, OPEN_EXISTING); // the system removes it with its last handle
}

} // namespace sm::base
