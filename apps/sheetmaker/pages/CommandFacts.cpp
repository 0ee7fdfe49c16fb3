// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/CommandFacts.h"

#include "commandline/CommandTable.h"

#include <sstream>

namespace sm::app {
namespace {

std::vector<std::string> ChoicesOf(const std::string& value)
{
    std::vector<std::string> choices;
    std::istringstream words(value);
    for (std::string word; std::getline(words, word, '|');)
        choices.push_back(word);
    const bool names = !choices.empty() && value.find_first_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ ") == std::string::npos;
    return names ? choices : std::vector<std::string>();
}

OptionFacts FactsOf(const CLI::Option& option)
{
    OptionFacts facts;
    facts.positional = option.get_positional();
    if (!option.get_snames().empty())
        facts.shortName = "-" + option.get_snames().front();
    if (!option.get_lnames().empty())
        facts.longName = "--" + option.get_lnames().front();
    facts.value = facts.positional && option.get_type_name().empty() ? option.get_name() : option.get_type_name();
    const bool flag = option.get_items_expected_max() == 0;
    if (flag)
        facts.value.clear();
    facts.choices = ChoicesOf(facts.value);
    facts.help = option.get_description();
    facts.required = option.get_required();
    facts.repeats = option.get_items_expected_max() > 1;
    return facts;
}

CommandFacts FactsOf(const CLI::App& app)
{
    CommandFacts facts{app.get_parent() == nullptr ? "" : app.get_name(), app.get_description(), app.get_footer(), {}};
    for (const CLI::Option* option : app.get_options())
        facts.options.push_back(FactsOf(*option));
    return facts;
}

} // namespace

std::vector<CommandFacts> AllCommands()
{
    CommandTable table("");
    std::vector<CommandFacts> commands{FactsOf(table.Program())};
    for (const CLI::App* command : table.Program().get_subcommands({}))
        commands.push_back(FactsOf(*command));
    return commands;
}

FooterParts PartsOf(const std::string& footer)
{
    FooterParts parts;
    std::istringstream lines(footer);
    bool inExamples = false;
    for (std::string line; std::getline(lines, line);) {
        if (line == "Examples:")
            inExamples = true;
        else if (inExamples && line.starts_with("  "))
            parts.examples.push_back(line.substr(2));
        else if (!(line.empty() && parts.notes.empty()))
            parts.notes += line + "\n", inExamples = false;
    }
    return parts;
}

} // namespace sm::app
