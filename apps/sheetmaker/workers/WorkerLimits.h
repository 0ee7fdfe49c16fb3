// SPDX-License-Identifier: GPL-3.0-or-later
// What one drawing may take of the machine, so that no other has to wait for it forever.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace sm::app {

struct WorkerLimits {
    std::chrono::milliseconds time{0}; ///< of the clock, and twice that of processors; 0: no end
    std::uint64_t memory = 0;          ///< bytes of its own, files that are read aside; 0: what the machine gives
    std::uint64_t drawing = 0;         ///< bytes of its largest drawing; no limit
    friend bool operator==(const WorkerLimits&, const WorkerLimits&) = default;
};

/// `seconds` and `mebibytes` as the user asked for them; 0: five minutes a drawing and 20 seconds a megabyte, and all
/// of the machine's memory but a tenth.
WorkerLimits LimitsFor(const std::vector<std::string>& drawings, int seconds, int mebibytes);

/// How many drawings are in hand at a time: `asked`, or with 0 as many as the machine has processors.
std::size_t AtATime(int asked);

/// Lays the limits on this process and on those that it starts. The end by the clock is up to the parent.
void ObeyLimits(const WorkerLimits& limits);

/// Takes memory for a drawing of so many bytes at once, and in large pages for a large one: pages asked for one by one
/// are some twentieth of its time. Takes none where there is too little; the drawing gets what there is, as it needs
/// it.
void ExpectHeap(std::uint64_t drawing);

} // namespace sm::app
