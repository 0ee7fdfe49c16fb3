// SPDX-License-Identifier: GPL-3.0-or-later
// The command that turns a DWG into a DXF. For this room only.
#pragma once

#include "drawing/DwgConverter.h"

#include <optional>
#include <string>
#include <vector>

namespace sm::drawing {

struct DwgCommand {
    std::string name; ///< for messages
    std::string program;
    std::vector<std::string> arguments; ///< "{in}", "{out}", "{infolder}", "{outfolder}" stand for the files
    DwgReadiness readiness;
};

/// Splits a command line into words: blanks part them, single and double quotes keep a word together. Nothing is
/// expanded. Nothing for a quote that isn't closed.
std::optional<std::vector<std::string>> SplitWords(const std::string& line);

/// The command that `options` ask for; `readiness` says whether it can be run.
DwgCommand ChooseDwgCommand(const DwgOptions& options);

} // namespace sm::drawing
