// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/Completions.h"

#include <fmt/format.h>

namespace sm::app {
namespace {

constexpr const char* kHead = R"sh(#compdef sheetmaker
# Completion of "sheetmaker" for zsh. Made from the program's own table of options.

_sheetmaker_layouts() {
    local word
    local -a layouts
    for word in "${words[@]}"; do
        case ${word:l} in
        *.dxf|*.dwg|*.dwt)
            layouts=("${(@f)$(sheetmaker layouts "${(Q)word}" --names 2>/dev/null)}")
            compadd -a layouts
            return
            ;;
        esac
    done
}

_sheetmaker_drawings() { _files -g '(#i)*.(dxf|dwg|dwt)(-.)' }

)sh";

/// Inside single quotes, and inside the brackets of a specification.
std::string Quoted(const std::string& text)
{
    std::string quoted;
    for (const char c : text) {
        if (c == '\'')
            quoted += "'\\''";
        else if (c == '[' || c == ']' || c == ':' || c == '\\')
            quoted += std::string("\\") + c;
        else
            quoted += c;
    }
    return quoted;
}

std::string Listed(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words) {
        text += text.empty() ? "" : " ";
        for (const char c : word)
            text += (c == ' ' ? "\\" : "") + std::string(1, c);
    }
    return "(" + Quoted(text) + ")";
}

std::string Action(CompletedWith kind, const OptionFacts& option, const CompletionNames& names)
{
    switch (kind) {
    case CompletedWith::Files:
        return "_files";
    case CompletedWith::Folders:
        return "_files -/";
    case CompletedWith::Drawings:
        return "_sheetmaker_drawings";
    case CompletedWith::Layouts:
        return "_sheetmaker_layouts";
    case CompletedWith::Choices:
        return "(" + fmt::format("{}", fmt::join(option.choices, " ")) + ")";
    case CompletedWith::Settings:
        return "(" + fmt::format("{}", fmt::join(names.settings, " ")) + ")";
    case CompletedWith::Commands:
        return "_sheetmaker_topics";
    case CompletedWith::JobOptions:
        return Listed(names.jobOptions);
    case CompletedWith::Nothing:
        break;
    }
    return " ";
}

std::string Specification(const CommandFacts& command, const OptionFacts& option, const CompletionNames& names)
{
    const std::string action = Action(CompletionOf(command, option), option, names);
    const std::string value = Quoted(option.value);
    if (option.positional)
        return fmt::format("        '{}:{}:{}'", option.repeats ? "*" : option.required ? "" : ":", value, action);
    const std::string help = "[" + Quoted(option.help) + "]";
    const std::string repeats = option.repeats ? "*" : "";
    const std::string behind = option.IsFlag() ? "" : ":" + value + ":" + action;
    const std::string longOne = fmt::format("        '{}{}{}{}'", repeats, option.longName, help, behind);
    return option.shortName.empty()
               ? longOne
               : fmt::format("        '{}{}{}{}' \\\n", repeats, option.shortName, help, behind) + longOne;
}

std::string CommandCase(const CommandFacts& command, const CompletionNames& names)
{
    std::string text = "    " + command.name + ")\n        _arguments -s";
    for (const OptionFacts& option : command.options)
        text += " \\\n" + Specification(command, option, names);
    return text + "\n        ;;\n";
}

} // namespace

std::string ZshCompletion(const std::vector<CommandFacts>& commands, const CompletionNames& names)
{
    std::string text = kHead;
    text += "_sheetmaker_commands() {\n    local -a commands\n    commands=(\n";
    for (const CommandFacts& command : commands)
        if (!command.name.empty())
            text += fmt::format("        '{}:{}'\n", command.name, Quoted(command.summary));
    text +=
        "    )\n    _describe command commands\n}\n\n_sheetmaker_topics() {\n    _sheetmaker_commands\n    compadd " +
        fmt::format("{}", fmt::join(names.settings, " ")) +
        "\n}\n\n_sheetmaker() {\n    if (( CURRENT == 2 )); then\n"
        "        _sheetmaker_commands\n        return\n    fi\n    shift words\n    (( CURRENT-- ))\n"
        "    case $words[1] in\n";
    for (const CommandFacts& command : commands)
        if (!command.name.empty())
            text += CommandCase(command, names);
    return text + "    esac\n}\n\n_sheetmaker \"$@\"\n";
}

} // namespace sm::app
