// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the drawings of a conversion, several at a time, and hands the results on in their order.
#pragma once

#include "workers/Worker.h"

#include <functional>
#include <string>
#include <vector>

namespace sm::app {

struct PooledTask {
    DrawingTask task;
    std::string pdfPath;
    WorkerLimits limits = {};
    bool keepsLines = false; ///< a single task, too, hands its lines on at its end
};

struct PoolCallbacks {
    /// A drawing has ended, whatever its place in the order; its report may be completed here. May be empty.
    std::function<void(DrawingReport& report)> ended;
    /// A drawing is done, and so are all before it; `lines` is what it wrote to stderr.
    std::function<void(const DrawingReport& report, const std::string& lines)> done;
    /// How many have ended, whatever their place in the order; may be empty.
    std::function<void(std::size_t ended, std::size_t count)> progress;
};

/// True when all ran to their end. False when the end was asked for: everything that ran was ended and what it
/// left behind removed. A single task writes its lines straight to stderr. Throws std::system_error when no process
/// can be started.
bool RunPool(const std::vector<PooledTask>& tasks, std::size_t atATime, const WorkerWork& work,
             const PoolCallbacks& callbacks);

} // namespace sm::app
