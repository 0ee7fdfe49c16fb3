// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/EditLock.h"

#include "base/files/FileFacts.h"
#include "base/files/Paths.h"
#include "files/Makers.h"
#include "files/posix/Descriptor.h"

#include <cctype>
#include <cerrno>
#include <fcntl.h>
#include <map>
#include <thread>
#include <unistd.h>

#include <sys/stat.h>

namespace sm::base {

namespace {

constexpr std::chrono::milliseconds kPause{20};
constexpr std::size_t kLongestHolder = 200;
constexpr std::string_view kLockEnding = ".sheetmaker-lock";

/// How often a process holds a lock. Forked processes find the count of their parent, which isn't theirs.
struct Hold {
    pid_t process = 0;
    int count = 0;
};

Hold& HoldOf(const std::string& lockPath)
{
    static std::map<std::string, Hold> holds;
    Hold& hold = holds[lockPath];
    if (hold.process != ::getpid())
        hold = {::getpid(), 0};
    return hold;
}

std::string LockPathOf(const std::string& path)
{
    const std::filesystem::path file = ToPath(FollowLinks(path));
    return ToText(file.parent_path() / ToPath("." + ToText(file.filename()) + std::string(kLockEnding)));
}

/// Empty when the machine has no name.
std::string OnThisMachine()
{
    const std::string name = MachineName();
    return name.empty() ? name : " on " + name;
}

std::string ThisProcessOnThisMachine()
{
    return "process " + std::to_string(::getpid()) + OnThisMachine();
}

/// What the holder wrote into the lock's file; anybody may write there.
std::string HolderOf(const std::string& lockPath)
{
    const Descriptor file(::open(lockPath.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    std::string text(kLongestHolder, '\0');
    const ssize_t count = file.IsOpen() ? ::read(file.Get(), text.data(), text.size()) : 0;
    text.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    for (const char c : text)
        if (!std::isprint(static_cast<unsigned char>(c)))
            return "another process";
    return text.empty() ? "another process" : text;
}

/// The lock counts only when its file is still the one under its name: the last holder removed it at its end.
bool IsUnderItsName(int handle, const std::string& lockPath)
{
    struct stat opened {
    }, named{};
    return ::fstat(handle, &opened) == 0 && ::stat(lockPath.c_str(), &named) == 0 && opened.st_ino == named.st_ino &&
           opened.st_dev == named.st_dev;
}

/// False, with errno, when somebody else holds it or no locks can be had.
bool TakeLock(int file)
{
    struct flock all {};
    all.l_type = F_WRLCK;
    all.l_whence = SEEK_SET;
    return ::fcntl(file, F_OFD_SETLK, &all) == 0;
}

} // namespace

EditLock::EditLock(const std::string& path, std::chrono::milliseconds patience) : m_lockPath(LockPathOf(path))
{
    const auto end = std::chrono::steady_clock::now() + patience;
    if (HoldOf(m_lockPath).count++ > 0)
        return;
    while (!TryLock()) {
        if (std::chrono::steady_clock::now() >= end) {
            --HoldOf(m_lockPath).count;
            throw EditLockHeld(HolderOf(m_lockPath));
        }
        std::this_thread::sleep_for(kPause);
    }
}

// False: somebody else holds it.
bool EditLock::TryLock()
{
    m_handle = ::open(m_lockPath.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0666);
    if (m_handle < 0)
        return true;
    const int file = static_cast<int>(m_handle);
    const bool locked = TakeLock(file);
    const bool isHeld = !locked && (errno == EAGAIN || errno == EACCES);
    if (isHeld || (locked && !IsUnderItsName(file, m_lockPath))) {
        ::close(file);
        m_handle = -1;
        return false;
    }
    const std::string holder = ThisProcessOnThisMachine();
    [[maybe_unused]] const bool told = ::ftruncate(file, 0) == 0 && ::write(file, holder.data(), holder.size()) > 0;
    return true;
}

EditLock::~EditLock()
{
    --HoldOf(m_lockPath).count;
    if (m_handle < 0)
        return;
    ::unlink(m_lockPath.c_str());
    ::close(static_cast<int>(m_handle));
}

bool IsEditLock(std::string_view name)
{
    return name.starts_with(".") && name.ends_with(kLockEnding) && name.size() > kLockEnding.size() + 1;
}

void RemoveAbandonedLock(const std::string& lockPath)
{
    const std::string machine = OnThisMachine();
    // What another machine holds may look free from here.
    if (machine.empty() || !HolderOf(lockPath).ends_with(machine))
        return;
    const Descriptor file(::open(lockPath.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    if (file.IsOpen() && TakeLock(file.Get()) && IsUnderItsName(file.Get(), lockPath))
        ::unlink(lockPath.c_str());
}

} // namespace sm::base
