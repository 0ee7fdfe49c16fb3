// SPDX-License-Identifier: GPL-3.0-or-later
// Options that take a count.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace sm::app {

/// An option that takes a whole number from 1 to `most` into `target`, called `unit` in the help.
void AddCount(CLI::App& command, const std::string& option, int& target, int most, const std::string& unit,
              const std::string& help);

/// More drawings at a time would only be in each other's way.
inline constexpr int kMostAtATime = 256;

/// --timeout and --memory.
void AddLimits(CLI::App& command, int& seconds, int& mebibytes);

} // namespace sm::app
