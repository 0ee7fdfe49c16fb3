// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/CountOption.h"

namespace sm::app {

void AddCount(CLI::App& command, const std::string& option, int& target, int most, const std::string& unit,
              const std::string& help)
{
    // CLI11's own range check would write its bounds into the help.
    const auto check = [most](const std::string& text) {
        int count = 0;
        const bool valid = CLI::detail::lexical_cast(text, count) && count >= 1 && count <= most;
        return valid ? std::string() : "\"" + text + "\" is no number from 1 to " + std::to_string(most);
    };
    command.add_option(option, target, help)->type_name(unit)->check(check);
}

void AddLimits(CLI::App& command, int& seconds, int& mebibytes)
{
    constexpr int kMostSeconds = 1'000'000, kMostMebibytes = 1 << 24;
    AddCount(command, "--timeout", seconds, kMostSeconds, "S",
             "Give up a conversion after so many seconds (default: by the size of the files, at least 300)");
    AddCount(command, "--memory", mebibytes, kMostMebibytes, "MIB",
             "Give up a conversion that needs more memory (default: nine tenths of the machine's)");
}

} // namespace sm::app
