// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/CommandLine.h"

#include "commandline/CommandTable.h"
#include "commandline/ExitCodes.h"
#include "commandline/Suggest.h"

#include <algorithm>

namespace sm::app {
namespace {

ParsedCommand WrongUsage(const std::string& text)
{
    return {{}, kExitUsage, {}, text + "\n"};
}

/// What is said of a first word that is no command; nothing when it is one.
std::optional<ParsedCommand> RefuseCommand(const std::vector<std::string>& words,
                                           const std::vector<std::string>& commands)
{
    if (words.empty() || words[0].starts_with('-') ||
        std::find(commands.begin(), commands.end(), words[0]) != commands.end())
        return std::nullopt;
    const std::string suggestion = Suggestion(words[0], commands);
    return WrongUsage("sheetmaker: there is no command \"" + words[0] + "\"" +
                      (suggestion.empty() ? "; \"sheetmaker --help\" lists them" : suggestion));
}

/// A word that looks like an option and is none; empty when there isn't one.
std::string UnknownOption(const CLI::App& command)
{
    for (const std::string& word : command.remaining(true))
        if (word.starts_with("--") && word.size() > 2)
            return word.substr(0, word.find('='));
    return {};
}

std::string UnknownOptionError(const std::string& option, const CLI::App& command)
{
    std::vector<std::string> names;
    for (const CLI::Option* known : command.get_options())
        for (const std::string& name : known->get_lnames())
            names.push_back("--" + name);
    return "there is no option \"" + option + "\"" + Suggestion(option, names);
}

std::string UsageError(const CLI::App& program, const CLI::Error& error)
{
    const auto chosen = program.get_subcommands();
    const std::string name = chosen.empty() ? "" : " " + chosen.front()->get_name();
    const std::string unknown = UnknownOption(program);
    if (!unknown.empty() && error.get_exit_code() == static_cast<int>(CLI::ExitCodes::ExtrasError))
        return "sheetmaker" + name + ": " + UnknownOptionError(unknown, chosen.empty() ? program : *chosen.front()) +
               "\n\"sheetmaker" + name + " --help\" explains it";
    return "sheetmaker" + name + ": " + error.what() + "\n\"sheetmaker" + name + " --help\" explains it";
}

} // namespace

ParsedCommand ParseCommandLine(const std::vector<std::string>& words, const std::string& versionLine)
{
    if (words == std::vector<std::string>{"--version"})
        return {{}, kExitDone, versionLine + "\n", {}};
    CommandTable table(versionLine, words.empty() ? "" : words[0]);
    if (std::optional<ParsedCommand> refused = RefuseCommand(words, table.CommandNames()))
        return *refused;
    CLI::App& program = table.Program();
    try {
        std::vector<std::string> reversed(words.rbegin(), words.rend());
        program.parse(reversed);
        return {table.ChosenJob(), kExitDone, {}, {}, table.ChosenConverter()};
    } catch (const CLI::CallForHelp&) {
        return {{}, kExitDone, program.help(), {}}; // that of the chosen command, when there is one
    } catch (const CLI::CallForVersion& call) {
        return {{}, kExitDone, std::string(call.what()) + "\n", {}};
    } catch (const CLI::ParseError& error) {
        return words.empty() ? WrongUsage(program.help()) : WrongUsage(UsageError(program, error));
    }
}

} // namespace sm::app
