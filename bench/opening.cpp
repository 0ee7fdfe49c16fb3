// SPDX-License-Identifier: GPL-3.0-or-later
// Opens drawings and says what that took of the processor: the best of some rounds, and the middle one. All drawings
// are opened in each round, one after the other, so that what else the machine does falls on all of them.
//
//     build/release/bench/opening [--runs N] DRAWING...    one line each: best ms, middle ms, entities, path
//     build/release/bench/opening --once DRAWING                    one line: kilobytes that the process took at most,
//                                                                   and what it took before
#include "drawing/Drawing.h"
#include "drawing/entities/Entity.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <exception>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace {

using sm::drawing::Drawing;

struct Opened {
    const char* path = nullptr;
    unsigned long entities = 0;
    std::vector<double> milliseconds;
};

double ProcessorMilliseconds()
{
    return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

void OpenOnce(Opened& one)
{
    const double begin = ProcessorMilliseconds();
    const auto drawing = Drawing::Open(one.path);
    one.milliseconds.push_back(ProcessorMilliseconds() - begin);
    one.entities = drawing->EntityCount();
}

/// Of this program alone: what the system tells about resources counts the program in that started it.
long PeakKilobytes()
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmHWM:"))
            return std::strtol(line.c_str() + 6, nullptr, 10);
    return 0;
}

int MeasureMemory(const char* path)
{
    const long before = PeakKilobytes();
    const auto drawing = Drawing::Open(path);
    std::printf("%ld %ld\n", PeakKilobytes(), before);
    return 0;
}

int MeasureTime(std::vector<Opened>& all, long runs)
{
    for (long run = 0; run < runs; ++run)
        for (Opened& one : all)
            OpenOnce(one);
    for (Opened& one : all) {
        std::ranges::sort(one.milliseconds);
        std::printf("%.3f %.3f %lu %s\n", one.milliseconds.front(), one.milliseconds[one.milliseconds.size() / 2],
                    one.entities, one.path);
    }
    return 0;
}

} // namespace

int main(int count, char** words)
{
    std::vector<Opened> all;
    long runs = 5;
    try {
        for (int i = 1; i < count; ++i) {
            const bool hasNext = i + 1 < count;
            if (std::strcmp(words[i], "--once") == 0 && hasNext)
                return MeasureMemory(words[i + 1]);
            if (std::strcmp(words[i], "--runs") == 0 && hasNext)
                runs = std::max(1L, std::strtol(words[++i], nullptr, 10));
            else
                all.push_back({words[i], 0, {}});
        }
        return MeasureTime(all, runs);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
