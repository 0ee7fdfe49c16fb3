// SPDX-License-Identifier: GPL-3.0-or-later
// The table of commands and options in plain values, for the manual pages and the completions.
#pragma once

#include <string>
#include <vector>

namespace sm::app {

struct OptionFacts {
    std::string shortName, longName;  ///< "-o", "--output"; both empty for a positional
    std::string value;                ///< what it takes as the help has it, "PATH"; a positional's name; empty: a flag
    std::vector<std::string> choices; ///< where only these are taken
    std::string help;
    bool positional = false, required = false, repeats = false;

    [[nodiscard]] bool IsFlag() const { return !positional && value.empty(); }
};

struct CommandFacts {
    std::string name; ///< empty for the program itself
    std::string summary;
    std::string footer; ///< "Examples:" with their lines, then paragraphs
    std::vector<OptionFacts> options;
};

/// The program itself, then every command in the order of the help.
std::vector<CommandFacts> AllCommands();

/// A footer's parts.
struct FooterParts {
    std::vector<std::string> examples; ///< a line each
    std::string notes;                 ///< paragraphs, parted by empty lines
};
FooterParts PartsOf(const std::string& footer);

} // namespace sm::app
