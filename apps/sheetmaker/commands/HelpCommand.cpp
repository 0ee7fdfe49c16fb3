// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/HelpCommand.h"

#include "commandline/CommandTable.h"
#include "commandline/ExitCodes.h"
#include "commandline/Suggest.h"
#include "preferences/SettingHelp.h"
#include "preferences/SettingNames.h"

#include <ostream>

namespace sm::app {

int RunHelp(const HelpJob& job, std::ostream& out, std::ostream& err)
{
    CommandTable table("");
    if (job.topic.empty()) {
        out << table.Program().help();
        return kExitDone;
    }
    std::vector<std::string> topics = table.CommandNames();
    const std::string command = FindName(job.topic, topics);
    if (!command.empty()) {
        const CLI::App& found = *table.Program().get_subcommand(command);
        out << found.help("sheetmaker"); // as "--help" has it
        return kExitDone;
    }
    if (const Setting* setting = FindSetting(job.topic)) {
        out << SettingHelp(*setting);
        return kExitDone;
    }
    const std::vector<std::string> settings = SettingNameList();
    topics.insert(topics.end(), settings.begin(), settings.end());
    const std::string suggestion = Suggestion(job.topic, topics);
    err << "sheetmaker help: there is neither a command nor a setting \"" << job.topic << "\""
        << (suggestion.empty() ? "; \"sheetmaker help\" lists the commands, \"sheetmaker list\" the settings"
                               : suggestion)
        << "\n";
    return kExitUsage;
}

} // namespace sm::app
