// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/posix/MapGuard.h"

#include <array>
#include <atomic>
#include <csignal>
#include <cstdint>
#include <mutex>
#include <unistd.h>

#include <sys/mman.h>

namespace sm::base {

namespace {

struct Range {
    std::atomic<std::uintptr_t> begin{0}, end{0}; ///< begin 0: free
    std::atomic<bool> wasCut{false};
    std::string path;
};

std::mutex mutex;
std::array<Range, 256> ranges;
std::string cutFile; // of a range that was given back

/// Puts zeros in the place of all that lies behind the fault. Calls only what a signal handler may call.
bool Mend(std::uintptr_t fault)
{
    for (Range& range : ranges) {
        const std::uintptr_t begin = range.begin.load(), end = range.end.load();
        if (begin == 0 || fault < begin || fault >= end)
            continue;
        const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
        const std::uintptr_t from = fault / page * page;
        range.wasCut.store(true);
        return ::mmap(reinterpret_cast<void*>(from), end - from, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, -1,
                      0) != MAP_FAILED;
    }
    return false;
}

void OnBusError(int signal, siginfo_t* info, void* /*context*/)
{
    const bool isFault = info->si_code > 0;
    if (isFault && Mend(reinterpret_cast<std::uintptr_t>(info->si_addr)))
        return;
    ::signal(signal, SIG_DFL); // the fault comes again
    if (!isFault)
        ::raise(signal);
}

void Listen()
{
    struct sigaction action {};
    action.sa_sigaction = OnBusError;
    action.sa_flags = SA_SIGINFO;
    ::sigaction(SIGBUS, &action, nullptr);
}

} // namespace

void Guard(const void* begin, std::size_t size, const std::string& path)
{
    const std::lock_guard<std::mutex> lock(mutex);
    static std::once_flag once;
    std::call_once(once, Listen);
    for (Range& range : ranges) {
        if (range.begin.load() != 0)
            continue;
        range.path = path;
        range.wasCut.store(false);
        range.end.store(reinterpret_cast<std::uintptr_t>(begin) + size);
        range.begin.store(reinterpret_cast<std::uintptr_t>(begin));
        return;
    }
}

void Unguard(const void* begin)
{
    const std::lock_guard<std::mutex> lock(mutex);
    for (Range& range : ranges) {
        if (range.begin.load() != reinterpret_cast<std::uintptr_t>(begin))
            continue;
        if (range.wasCut.load() && cutFile.empty())
            cutFile = range.path;
        range.begin.store(0);
        return;
    }
}

std::string CutFile()
{
    const std::lock_guard<std::mutex> lock(mutex);
    for (const Range& range : ranges)
        if (cutFile.empty() && range.begin.load() != 0 && range.wasCut.load())
            return range.path;
    return cutFile;
}

} // namespace sm::base
