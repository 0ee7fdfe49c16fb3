// SPDX-License-Identifier: GPL-3.0-or-later
// Completions for shells. Layouts of the drawing on the line are asked of the program itself.
#pragma once

#include "pages/CommandFacts.h"

#include <string>
#include <vector>

namespace sm::app {

/// What completions offer for values besides the choices in the table.
struct CompletionNames {
    std::vector<std::string> settings, jobOptions;
};

std::string BashCompletion(const std::vector<CommandFacts>& commands, const CompletionNames& names);
std::string ZshCompletion(const std::vector<CommandFacts>& commands, const CompletionNames& names);
std::string FishCompletion(const std::vector<CommandFacts>& commands, const CompletionNames& names);

/// What an option's value or a positional is completed with.
enum class CompletedWith { Nothing, Files, Drawings, Folders, Layouts, Settings, Commands, JobOptions, Choices };
CompletedWith CompletionOf(const CommandFacts& command, const OptionFacts& option);

} // namespace sm::app
