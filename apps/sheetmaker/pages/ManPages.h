// SPDX-License-Identifier: GPL-3.0-or-later
// Manual pages in roff.
#pragma once

#include "pages/CommandFacts.h"

#include <string>
#include <vector>

namespace sm::app {

/// sheetmaker(1).
std::string ProgramPage(const std::vector<CommandFacts>& commands, const std::string& version);
/// sheetmaker-COMMAND(1).
std::string CommandPage(const CommandFacts& command, const std::string& version);
/// sheetmaker-report(5), from the text of the report's JSON Schema. Throws std::exception for any other text.
std::string ReportPage(const std::string& schema, const std::string& version);

} // namespace sm::app
