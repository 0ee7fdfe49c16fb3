// SPDX-License-Identifier: GPL-3.0-or-later
// What is measured, and how it is told.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <numeric>
#include <string>
#include <vector>

namespace sm::bench {

using Clock = std::chrono::steady_clock;

inline double Since(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

/// Milliseconds of processor: of this thread, or with CLOCK_PROCESS_CPUTIME_ID of all.
inline double Used(clockid_t whose = CLOCK_THREAD_CPUTIME_ID)
{
    timespec time{};
    clock_gettime(whose, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// MB, as the system counts them for this process.
inline double Memory(const std::string& name)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with(name + ":"))
            return std::stod(line.substr(name.size() + 1)) / 1024;
    return 0;
}

/// Milliseconds by the clock, and of processor in all threads: what the clock would show with nothing else to do.
struct Times {
    double clock = 0, used = 0;
};

/// One row of the result; a figure that is too large is told.
inline bool Tell(const std::string& what, Times times, double most)
{
    const char* const verdict = times.clock <= most ? "" : times.used <= most ? "  missed on this load" : "  MISSED";
    std::printf("%-40s %8.1f ms, processor %8.1f  (at most %g)%s\n", what.c_str(), times.clock, times.used, most,
                verdict);
    return times.clock <= most;
}

struct Frames {
    std::vector<double> wall{}, cpu{};
    Times sharp{}; ///< from the last event until everything is painted
};

inline double Worst(const std::vector<double>& list)
{
    return *std::max_element(list.begin(), list.end());
}

inline double Mean(const std::vector<double>& list)
{
    return std::accumulate(list.begin(), list.end(), 0.0) / static_cast<double>(list.size());
}

} // namespace sm::bench
