// SPDX-License-Identifier: GPL-3.0-or-later
// The part of the command line that converts drawings.
#pragma once

#include "commandline/Jobs.h"

namespace CLI { // NOLINT(readability-identifier-naming): the library calls itself so
class App;
}

namespace sm::app {

/// Adds what changes how layouts are plotted and the PDF is made.
void AddMaking(CLI::App& command, ConvertOptions& options);
/// --log.
void AddLog(CLI::App& command, std::optional<std::string>& file);
/// Adds --report alone.
void AddReportForm(CLI::App& command, ReportForm& report, const std::string& help);
/// Adds --report, --quiet and --verbose.
void AddTelling(CLI::App& command, ReportForm& report, Talk& talk);

/// Adds "convert"; `job` outlives the parsing.
void AddConvert(CLI::App& program, ConvertJob& job);

} // namespace sm::app
