#include "workers/WorkerLimits.h"

#include "base/files/FileFacts.h"

#include <algorithm>
#include <sys/resource.h>
#include <unistd.h>

namespace sm::app {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kTime = 300s, kTimePerMegabyte = 20s;

#ifdef __SANITIZE_ADDRESS__
constexpr bool kLimitsMemory = false; // the sanitizer's own maps are many times larger
#else
constexpr bool kLimitsMemory = true;
#endif

std::uint64_t MachineMemory()
{
    const long pages = sysconf(_SC_PHYS_PAGES), size = sysconf(_SC_PAGESIZE);
    return pages > 0 && size > 0 ? static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(size) : 0;
}

std::uint64_t MegabytesOf(const std::vector<std::string>& drawings)
{
    std::uint64_t bytes = 0;
    for (const std::string& drawing : drawings) {
        std::error_code unknown;
        bytes += base::FactsOf(drawing, unknown).stamp.size;
    }
    return bytes / 1'000'000;
}

void Limit(__rlimit_resource_t resource, std::uint64_t most)
{
    rlimit limit{};
    if (getrlimit(resource, &limit) != 0)
        return;
    limit.rlim_cur = std::min<rlim_t>(most, limit.rlim_max);
    setrlimit(resource, &limit);
}

} // namespace

WorkerLimits LimitsFor(const std::vector<std::string>& drawings, int seconds, int mebibytes)
{
    WorkerLimits limits;
    const auto megabytes = static_cast<std::int64_t>(std::min<std::uint64_t>(MegabytesOf(drawings), 1'000'000));
    const auto count = static_cast<std::int64_t>(std::max<std::size_t>(drawings.size(), 1));
    limits.time = seconds > 0 ? std::chrono::seconds(seconds) : kTime * count + kTimePerMegabyte * megabytes;
    limits.memory = mebibytes > 0 ? static_cast<std::uint64_t>(mebibytes) << 20 : MachineMemory() / 10 * 9;
    return limits;
}

void ObeyLimits(const WorkerLimits& limits)
{
    if (limits.time.count() > 0)
        Limit(RLIMIT_CPU, static_cast<std::uint64_t>(limits.time.count()) * 2 / 1000 + 1);
    if (limits.memory > 0 && kLimitsMemory)
        Limit(RLIMIT_DATA, limits.memory);
}

} // namespace sm::app
