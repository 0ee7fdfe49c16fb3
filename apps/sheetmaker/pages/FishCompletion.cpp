// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/Completions.h"

#include <fmt/format.h>

namespace sm::app {
namespace {

constexpr const char* kHead = R"sh(# Completion of "sheetmaker" for fish. Made from the program's own table of options.

function __sheetmaker_layouts
    for word in (commandline -opc)
        if string match -qir '\.(dxf|dwg|dwt)$' -- $word
            sheetmaker layouts $word --names 2>/dev/null
            return
        end
    end
end

function __sheetmaker_drawings
    __fish_complete_suffix .dxf
    __fish_complete_suffix .dwg
end

complete -c sheetmaker -f
)sh";

std::string Quoted(const std::string& text)
{
    std::string quoted = "'";
    for (const char c : text)
        quoted += (c == '\'' || c == '\\' ? "\\" : "") + std::string(1, c);
    return quoted + "'";
}

std::string Listed(const std::vector<std::string>& words)
{
    std::string text = "'";
    for (const std::string& word : words)
        text += (text.size() > 1 ? " " : "") + std::string("\"") + word + "\"";
    return text + "'";
}

std::string Values(CompletedWith kind, const OptionFacts& option, const CompletionNames& names)
{
    switch (kind) {
    case CompletedWith::Files:
        return " -F";
    case CompletedWith::Folders:
        return " -a '(__fish_complete_directories)'";
    case CompletedWith::Drawings:
        return " -k -a '(__sheetmaker_drawings)'";
    case CompletedWith::Layouts:
        return " -a '(__sheetmaker_layouts)'";
    case CompletedWith::Choices:
        return " -a " + Listed(option.choices);
    case CompletedWith::Commands: // with the settings
    case CompletedWith::Settings:
        return " -a " + Listed(names.settings);
    case CompletedWith::JobOptions:
        return " -a " + Listed(names.jobOptions);
    case CompletedWith::Nothing:
        break;
    }
    return "";
}

std::string OptionLine(const CommandFacts& command, const OptionFacts& option, const CompletionNames& names)
{
    std::string line = "complete -c sheetmaker -n '__fish_seen_subcommand_from " + command.name + "'";
    const std::string values = Values(CompletionOf(command, option), option, names);
    if (option.positional)
        return values.empty() ? "" : line + values + "\n";
    if (!option.shortName.empty())
        line += " -s " + option.shortName.substr(1);
    line += " -l " + option.longName.substr(2);
    if (!option.IsFlag())
        line += " -r" + values;
    return line + " -d " + Quoted(option.help) + "\n";
}

} // namespace

std::string FishCompletion(const std::vector<CommandFacts>& commands, const CompletionNames& names)
{
    CompletionNames all = names;
    for (const CommandFacts& command : commands)
        if (!command.name.empty())
            all.settings.push_back(command.name);
    std::string text = kHead;
    for (const CommandFacts& command : commands)
        if (!command.name.empty()) {
            text += fmt::format("complete -c sheetmaker -n __fish_use_subcommand -a {} -d {}\n", command.name,
                                Quoted(command.summary));
            for (const OptionFacts& option : command.options) {
                const bool topics = CompletionOf(command, option) == CompletedWith::Commands;
                text += OptionLine(command, option, topics ? all : names);
            }
        }
    return text;
}

} // namespace sm::app
