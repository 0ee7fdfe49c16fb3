// SPDX-License-Identifier: GPL-3.0-or-later
#include "workers/WorkerLimits.h"

#include <algorithm>
#include <sys/resource.h>

namespace sm::app {
namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kLimitsMemory = false; // the sanitizers' own maps are many times larger
#else
constexpr bool kLimitsMemory = true;
#endif

void Limit(__rlimit_resource_t resource, std::uint64_t most)
{
    rlimit limit{};
    if (getrlimit(resource, &limit) != 0)
        return;
    limit.rlim_cur = std::min<rlim_t>(most, limit.rlim_max);
    setrlimit(resource, &limit);
}

} // namespace

void ObeyLimits(const WorkerLimits& limits)
{
    if (limits.time.count() > 0)
        Limit(RLIMIT_CPU, static_cast<std::uint64_t>(limits.time.count()) * 2 / 1000 + 1);
    if (limits.memory > 0 && kLimitsMemory)
        Limit(RLIMIT_DATA, limits.memory);
}

} // namespace sm::app
