// SPDX-License-Identifier: GPL-3.0-or-later
// The task of a worker process as it is handed to a process that isn't a copy of its parent.
#pragma once

#include "run/DrawingTask.h"

#include <string>

namespace sm::app {

/// The first word of a worker's command line; the others are those of the run.
inline constexpr const char* kWorkerWord = "@worker";

/// All but the options, which the worker reads from its command line; one line of JSON.
std::string TaskText(const DrawingTask& task);

/// Throws std::exception for a text that isn't one.
DrawingTask TaskFromText(const std::string& text);

} // namespace sm::app
