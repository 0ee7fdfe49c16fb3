// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/Completions.h"

#include <fmt/format.h>

namespace sm::app {
namespace {

constexpr const char* kHead = R"sh(# Completion of "sheetmaker" for bash. Made from the program's own table of options.

# Lines that begin with the current word, with what the shell would take apart escaped.
_sheetmaker_lines() {
    local line
    COMPREPLY=()
    while IFS= read -r line; do
        [[ $line == "$cur"* ]] && COMPREPLY+=("$(printf '%q' "$line")")
    done
}

# The layouts of the first drawing on the line.
_sheetmaker_layouts()
{
    local word
    for word in "${COMP_WORDS[@]:2}";
    do
        case ${word,,} in
        *.dxf | *.dwg | *.dwt)
            word=${word//\\/} word=${word#[\"\']} word=${word%[\"\']} # nothing on the line is run
            _sheetmaker_lines < <(sheetmaker layouts "$word" --names 2>/dev/null)
            return
            ;;
        esac
    done
}

_sheetmaker_files() {
    local IFS=$'\n'
    compopt -o filenames 2>/dev/null
    COMPREPLY=($(compgen -f -- "$cur"))
}

_sheetmaker_folders() {
    local IFS=$'\n'
    compopt -o filenames 2>/dev/null
    COMPREPLY=($(compgen -d -- "$cur"))
}

_sheetmaker_drawings() {
    local IFS=$'\n' file
    compopt -o filenames 2>/dev/null
    COMPREPLY=()
    for file in $(compgen -f -- "$cur"); do
        case ${file,,} in
        *.dxf | *.dwg | *.dwt) COMPREPLY+=("$file") ;;
        *) [ -d "$file" ] && COMPREPLY+=("$file") ;;
        esac
    done
}

_sheetmaker() {
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]}
    COMPREPLY=()
)sh";

std::string Joined(const std::vector<std::string>& words, const char* between)
{
    return fmt::format("{}", fmt::join(words, between));
}

/// What is done for one kind of value, as a command of the shell.
std::string Action(CompletedWith kind, const OptionFacts& option, const std::string& commands,
                   const CompletionNames& names)
{
    switch (kind) {
    case CompletedWith::Files:
        return "_sheetmaker_files";
    case CompletedWith::Drawings:
        return "_sheetmaker_drawings";
    case CompletedWith::Folders:
        return "_sheetmaker_folders";
    case CompletedWith::Layouts:
        return "_sheetmaker_layouts";
    case CompletedWith::Choices:
        return "COMPREPLY=($(compgen -W '" + Joined(option.choices, " ") + "' -- \"$cur\"))";
    case CompletedWith::Settings:
        return "COMPREPLY=($(compgen -W '" + Joined(names.settings, " ") + "' -- \"$cur\"))";
    case CompletedWith::Commands:
        return "COMPREPLY=($(compgen -W '" + commands + " " + Joined(names.settings, " ") + "' -- \"$cur\"))";
    case CompletedWith::JobOptions:
        return "_sheetmaker_lines < <(printf '%s\\n' '" + Joined(names.jobOptions, "' '") + "')";
    case CompletedWith::Nothing:
        break;
    }
    return ":";
}

std::string OptionWords(const CommandFacts& command)
{
    std::vector<std::string> words;
    for (const OptionFacts& option : command.options)
        if (!option.longName.empty())
            words.push_back(option.longName);
    return Joined(words, " ");
}

std::string CommandCase(const CommandFacts& command, const std::string& commands, const CompletionNames& names)
{
    std::string values, positional = ":", others;
    for (const OptionFacts& option : command.options) {
        const std::string action = Action(CompletionOf(command, option), option, commands, names);
        if (option.positional && positional == ":")
            positional = action;
        else if (option.positional && others.empty() && positional.starts_with("COMPREPLY"))
            others = action; // behind the word that says what to do
        if (option.positional || option.IsFlag())
            continue;
        const std::string pattern =
            option.shortName.empty() ? option.longName : option.shortName + " | " + option.longName;
        values += fmt::format("        {}) {}; return ;;\n", pattern, action);
    }
    std::string text = "    " + command.name + ")\n";
    if (!values.empty())
        text += "        case $prev in\n" + values + "        esac\n";
    text += fmt::format("        if [[ $cur == -* ]]; then COMPREPLY=($(compgen -W '{}' -- \"$cur\")); return; fi\n",
                        OptionWords(command));
    if (!others.empty())
        text += "        if [ \"$COMP_CWORD\" -gt 2 ]; then " + others + "; return; fi\n";
    return text + "        " + positional + "\n        ;;\n";
}

} // namespace

std::string BashCompletion(const std::vector<CommandFacts>& commands, const CompletionNames& names)
{
    std::vector<std::string> words;
    for (const CommandFacts& command : commands)
        if (!command.name.empty())
            words.push_back(command.name);
    const std::string all = Joined(words, " ");
    std::string text = kHead;
    text += fmt::format("    if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
                        "        COMPREPLY=($(compgen -W '{} {}' -- \"$cur\"))\n        return\n    fi\n",
                        all, OptionWords(commands.front()));
    text += "    case $command in\n";
    for (const CommandFacts& command : commands)
        if (!command.name.empty())
            text += CommandCase(command, all, names);
    return text + "    esac\n}\ncomplete -F _sheetmaker sheetmaker\n";
}

} // namespace sm::app
