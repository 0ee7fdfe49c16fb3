// SPDX-License-Identifier: GPL-3.0-or-later
#include "workers/WorkerLimits.h"

#include "base/files/FileFacts.h"
#include "base/process/ThisProcess.h"

#include <algorithm>
#include <thread>

namespace sm::app {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kTime = 300s, kTimePerMegabyte = 20s;

std::uint64_t SizeOf(const std::string& drawing)
{
    std::error_code unknown;
    return base::FactsOf(drawing, unknown).stamp.size;
}

} // namespace

WorkerLimits LimitsFor(const std::vector<std::string>& drawings, int seconds, int mebibytes)
{
    WorkerLimits limits;
    std::uint64_t bytes = 0;
    for (const std::string& drawing : drawings) {
        const std::uint64_t size = SizeOf(drawing);
        bytes += size;
        limits.drawing = std::max(limits.drawing, size);
    }
    const auto megabytes = static_cast<std::int64_t>(std::min<std::uint64_t>(bytes / 1'000'000, 1'000'000));
    const auto count = static_cast<std::int64_t>(std::max<std::size_t>(drawings.size(), 1));
    limits.time = seconds > 0 ? std::chrono::seconds(seconds) : kTime * count + kTimePerMegabyte * megabytes;
    limits.memory = mebibytes > 0 ? static_cast<std::uint64_t>(mebibytes) << 20 : base::MachineMemory() / 10 * 9;
    return limits;
}

std::size_t AtATime(int asked)
{
    return asked > 0 ? static_cast<std::size_t>(asked) : std::max<std::size_t>(std::thread::hardware_concurrency(), 1);
}

} // namespace sm::app
