// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/Completions.h"

namespace sm::app {
namespace {

CompletedWith OfPositional(const CommandFacts& command, const std::string& name)
{
    if (name.starts_with("DRAWING"))
        return CompletedWith::Drawings;
    if (name == "FILE")
        return CompletedWith::Files;
    if (name == "TOPIC")
        return CompletedWith::Commands;
    if (name == "NAME" && (command.name == "get" || command.name == "set"))
        return CompletedWith::Settings;
    return CompletedWith::Nothing;
}

} // namespace

CompletedWith CompletionOf(const CommandFacts& command, const OptionFacts& option)
{
    if (!option.choices.empty())
        return CompletedWith::Choices;
    if (option.positional)
        return OfPositional(command, option.value);
    if (option.longName == "--layout")
        return CompletedWith::Layouts;
    if (option.longName == "--job-options")
        return CompletedWith::JobOptions;
    if (option.longName.ends_with("-dir"))
        return CompletedWith::Folders;
    const bool file = option.value == "PATH" || option.value.find("FILE") != std::string::npos ||
                      option.value.find(".pdf") != std::string::npos;
    return file ? CompletedWith::Files : CompletedWith::Nothing;
}

} // namespace sm::app
