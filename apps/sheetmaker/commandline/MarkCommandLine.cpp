// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/MarkCommandLine.h"

#include "commandline/ConvertCommandLine.h"
#include "commandline/CountOption.h"
#include "commandline/MarkHelp.h"
#include "commandline/MarkValues.h"
#include "commandline/NamedNumbers.h"
#include "commandline/Suggest.h"
#include "settings/DataKeg.h"

#include <CLI/CLI.hpp>
#include <map>

namespace sm::app {
namespace {

const std::map<std::string, RecordAction> kActions = {{"list", RecordAction::List},
                                                      {"add", RecordAction::Add},
                                                      {"change", RecordAction::Change},
                                                      {"remove", RecordAction::Remove}};
constexpr std::int32_t kLargestStamp = 1000; // points

/// An option whose text `parse` turns into a value, or refuses by giving nothing; `meaning` then says what is wanted.
template <class Value, class Parse>
CLI::Option* AddParsed(CLI::App& command, const std::string& option, std::optional<Value>& target, const Parse& parse,
                       const std::string& meaning, const std::string& help)
{
    return command
        .add_option_function<std::string>(
            option, [&target, parse](const std::string& text) { target = parse(text); }, help)
        ->check([parse, meaning](const std::string& text) {
            return parse(text) ? std::string() : "\"" + text + "\" is no " + meaning;
        });
}

void AddDrawing(CLI::App& command, std::string& drawing)
{
    command.add_option("DRAWING", drawing, "The drawing (DWG, or DXF of release 2000 or later)")
        ->required()
        ->type_name("");
}

void AddAction(CLI::App& command, RecordAction& action, bool required)
{
    command
        .add_option_function<std::string>(
            "ACTION", [&action](const std::string& name) { action = kActions.at(name); },
            required ? "What to do" : "What to do (default: add)")
        ->required(required)
        ->type_name("list|add|change|remove")
        ->check([](const std::string& name) {
            return kActions.contains(name) ? std::string() : "\"" + name + "\" is none of list, add, change, remove";
        });
}

void AddPlace(CLI::App& command, std::optional<DrawingPoint>& at, const std::string& help)
{
    AddParsed(command, "--at", at, ParsePoint, "point; write it as X,Y with \".\" for decimals", help)
        ->type_name("X,Y");
}

/// A whole number of points.
std::optional<std::int32_t> ParseSize(const std::string& text)
{
    std::int32_t size = 0;
    const bool number = CLI::detail::lexical_cast(text, size);
    return number && size >= 1 && size <= kLargestStamp ? std::optional(size) : std::nullopt;
}

/// "centre" is taken, too.
std::optional<std::int32_t> ParseJustification(const std::string& name)
{
    return NumberOfWord(name == "centre" ? "center" : name, kStampJustifications);
}

std::string FontError(const std::string& name)
{
    if (!FindName(name, StampFontNames()).empty())
        return {};
    const std::string suggestion = Suggestion(name, StampFontNames());
    return "\"" + name + "\" is no font of stamps" +
           (suggestion.empty() ? "; there are " + CLI::detail::join(StampFontNames(), ", ") : suggestion);
}

void AddStampLooks(CLI::App& command, StampJob& job)
{
    const StampSettings defaults;
    command.add_option("--text", job.text, "A number of the stamp list, 1 to 15, or a text (default: 1)")
        ->type_name("N|TEXT");
    command
        .add_option_function<std::string>(
            "--font", [&job](const std::string& name) { job.font = FindName(name, StampFontNames()); },
            "One of the 14 standard fonts (default: " + defaults.FontName + ")")
        ->type_name("NAME")
        ->check(FontError);
    AddParsed(command, "--size", job.size, ParseSize, "size from 1 to 1000 points",
              "Points (default: " + std::to_string(defaults.FontSize) + ")")
        ->type_name("POINTS");
    AddParsed(command, "--color", job.color, ParseColor,
              "colour; write #RRGGBB or one of " + CLI::detail::join(ColorNames(), ", "),
              "#RRGGBB or a name such as blue (default: " + ColorName(defaults.Color) + ")")
        ->type_name("COLOR");
    AddParsed(command, "--justify", job.justification, ParseJustification,
              "justification; there are " + CLI::detail::join(WordsOf(kStampJustifications), ", "),
              "Which part of the text stands at the point (default: " +
                  WordOf(defaults.Justification, kStampJustifications) + ")")
        ->type_name(CLI::detail::join(WordsOf(kStampJustifications), "|"));
}

void AddStamp(CLI::App& program, StampJob& job)
{
    CLI::App& command = *program.add_subcommand("stamp", "Show, set, change or remove a drawing's text stamp");
    command.footer(kStampFooter);
    AddDrawing(command, job.drawing);
    AddAction(command, job.action, false);
    AddStampLooks(command, job);
    command
        .add_option("--layout", job.layout, std::string("The layout that is stamped (default: ") + kAllLayouts + ")")
        ->type_name("NAME");
    AddPlace(command, job.at, "Where the stamp stands, in drawing units");
}

void AddAttach(CLI::App& program, AttachJob& job)
{
    CLI::App& command = *program.add_subcommand("attach", "Show, add, change or remove a drawing's file attachments");
    command.footer(kAttachFooter);
    AddDrawing(command, job.drawing);
    AddAction(command, job.action, true);
    command.add_option("FILE", job.item, "The file; an attachment also by its number in the list")->type_name("");
    AddPlace(command, job.at, "Where the icon stands, in drawing units");
    command.add_option("--layout", job.layout, "The layout with the icon (default: the active one)")->type_name("NAME");
    command.add_option("--file", job.file, "With change: the file to attach instead")->type_name("FILE");
}

void AddSign(CLI::App& program, SignJob& job)
{
    CLI::App& command = *program.add_subcommand("sign", "Show, add, change or remove a drawing's signature fields");
    command.footer(kSignFooter);
    AddDrawing(command, job.drawing);
    AddAction(command, job.action, true);
    command.add_option("NAME", job.item, "The field; one that is there also by its number in the list")->type_name("");
    command.add_option("--label", job.label, "The field's second text: who signs")->type_name("TEXT");
    AddParsed(command, "--rect", job.box, ParseBox,
              "rectangle; write it as X1,Y1,X2,Y2 with \".\" for decimals and two different corners",
              "The field's rectangle, in drawing units")
        ->type_name("X1,Y1,X2,Y2");
    command.add_option("--layout", job.layout, "The layout with the field (default: the active one)")
        ->type_name("NAME");
    command.add_option("--name", job.name, "With change: the field's new name")->type_name("NAME");
}

void AddPublish(CLI::App& program, PublishJob& job)
{
    CLI::App& command = *program.add_subcommand("publish", "Convert sheets of several drawings into one PDF");
    command.footer(kPublishFooter);
    command.add_option("-o,--output", job.output, "The PDF")->required()->type_name("SET.pdf");
    command.add_option("DRAWING[:LAYOUT]", job.sheets, "The drawings, each alone or with one of its layouts")
        ->type_name("");
    command
        .add_option("--list", job.list, "Take the drawings that this file names, too, a line each (-: standard input)")
        ->type_name("FILE");
    command.add_flag("--keep-going", job.keepGoing, "Save what succeeded when a sheet fails");
    command.add_flag("--contents", job.options.contents,
                     "Begin with a list of the sheets: their titles and page numbers, as links");
    AddMaking(command, job.options);
    command.add_flag("--no-clobber", job.noClobber, "Leave a PDF that exists as it is");
    command.add_flag("--update", job.update, "Leave it when it is whole and newer than all the drawings");
    command.add_flag("--strict", job.strict, "Count what the set lacks as a failure, as \"convert\" does");
    AddTelling(command, job.report, job.talk);
    AddLog(command, job.log);
    AddCount(command, "--jobs", job.workers, kMostAtATime, "N",
             "How many drawings to have in hand: while one is plotted, the next are read (default: one a processor)");
    AddLimits(command, job.seconds, job.mebibytes);
}

} // namespace

void AddMarkCommands(CLI::App& program, MarkJobs& jobs)
{
    AddPublish(program, jobs.publish);
    AddStamp(program, jobs.stamp);
    AddAttach(program, jobs.attach);
    AddSign(program, jobs.sign);
}

} // namespace sm::app
