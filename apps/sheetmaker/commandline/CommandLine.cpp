#include "commandline/CommandLine.h"

#include "commandline/CommandHelp.h"
#include "commandline/CountOption.h"
#include "commandline/ExitCodes.h"
#include "commandline/MarkCommandLine.h"
#include "commandline/NamedNumbers.h"
#include "commandline/Suggest.h"
#include "drawing/DwgConverter.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <span>

namespace sm::app {
namespace {

const std::vector<std::string> kCommands = {"convert", "publish", "layouts", "settings", "page-setup",
                                            "stamp",   "attach",  "sign",    "get",      "set",
                                            "list",    "log",     "doctor"};

const std::map<std::string, LayoutChoice> kLayoutChoices = {{"auto", LayoutChoice::Auto},
                                                            {"all", LayoutChoice::All},
                                                            {"active", LayoutChoice::Active},
                                                            {"model", LayoutChoice::Model}};
const std::map<std::string, AttachmentChoice> kAttachmentChoices = {
    {"all", AttachmentChoice::All}, {"refuse-outside", AttachmentChoice::RefuseOutside}};
constexpr int kMostWorkers = 256;

/// An option with named values, stored by name and checked against the names in their own order.
template <class Value>
void AddChoice(CLI::App& command, const std::string& option, std::optional<Value>& target,
               const std::map<std::string, Value>& values, const std::vector<std::string>& names,
               const std::string& help)
{
    command
        .add_option_function<std::string>(
            option, [&target, &values](const std::string& name) { target = values.at(name); }, help)
        ->type_name(CLI::detail::join(names, "|"))
        ->check([&values, names](const std::string& name) {
            return values.contains(name) ? std::string()
                                         : "\"" + name + "\" is none of " + CLI::detail::join(names, ", ");
        });
}

/// An option whose words are the names of numbers.
void AddNamedNumber(CLI::App& command, const std::string& option, std::optional<std::int32_t>& target,
                    std::span<const NamedNumber> numbers, const std::string& help)
{
    const std::vector<std::string> words = WordsOf(numbers);
    command
        .add_option_function<std::string>(
            option, [&target, numbers](const std::string& word) { target = NumberOfWord(word, numbers); }, help)
        ->type_name(CLI::detail::join(words, "|"))
        ->check([numbers, words](const std::string& word) {
            return NumberOfWord(word, numbers) ? std::string()
                                               : "\"" + word + "\" is none of " + CLI::detail::join(words, ", ");
        });
}

void AddLayoutOptions(CLI::App& command, ConvertOptions& options)
{
    AddChoice(command, "--layouts", options.layouts, kLayoutChoices, {"auto", "all", "active", "model"},
              "Which layouts to convert (default: auto)");
    command.add_option("--layout", options.layoutName, "Convert the layout of this name only")
        ->type_name("NAME")
        ->excludes("--layouts");
    AddNamedNumber(command, "--page-setup", options.pageSetupSource, kPageSetupSources,
                   "Plot with the layout's own page setup, the drawing's PDF page setup or the user's global one");
}

void AddQualityOptions(CLI::App& command, ConvertOptions& options)
{
    AddNamedNumber(command, "--line-quality", options.lineQuality, kLineQualities,
                   std::to_string(ResolutionOf(kLinesForPrint)) + " dpi or " +
                       std::to_string(ResolutionOf(kLinesForDraft)) + " dpi");
    command.add_option("--job-options", options.jobOptions, "Name of the job options, without extension")
        ->type_name("NAME");
    command.add_flag("--pdf-layers", options.pdfLayers, "Make the drawing's layers layers of the PDF");
    AddChoice(
        command, "--attachments", options.attachments, kAttachmentChoices, {"all", "refuse-outside"},
        "Embed every attached file, or fail for a drawing that attaches one from outside its folder (default: all)");
    command.add_flag("--keep-ps", options.keepPs, "Keep the PostScript files beside the PDF");
    command.add_flag("--open", options.open, "Show the PDF afterwards");
    command.add_flag("--as-set", options.asSet, "Take what no option says from the stored settings");
}

void AddConvert(CLI::App& program, ConvertJob& job)
{
    CLI::App& command = *program.add_subcommand("convert", "Convert drawings to PDF");
    command.footer(kConvertFooter);
    command.add_option("DRAWING", job.drawings, "The drawings (DXF or DWG)")->required()->type_name("");
    command.add_option("-o,--output", job.output, "The PDF; with several drawings, the folder for the PDFs")
        ->type_name("PATH");
    AddLayoutOptions(command, job.options);
    AddQualityOptions(command, job.options);
    AddCount(command, "--jobs", job.workers, kMostWorkers, "N",
             "How many drawings at a time (default: one a processor)");
    AddLimits(command, job.seconds, job.mebibytes);
    command.add_flag(
        "--strict", job.strict,
        "Count as a failure what a damaged drawing lost, what can't be drawn, characters that no font has, and "
        "files that can't be attached");
    command.add_flag("--no-clobber", job.noClobber, "Leave out drawings whose PDF exists");
    command
        .add_option_function<std::string>(
            "--report", [&job](const std::string&) { job.reportJson = true; },
            "Print a report of every drawing on stdout")
        ->type_name("json")
        ->check([](const std::string& form) {
            return form == "json" ? std::string() : "\"" + form + "\" is none of json";
        });
}

struct Jobs {
    ConvertJob convert;
    LayoutsJob layouts;
    GetJob get;
    SetJob set;
    ListJob list;
    SettingsJob settings;
    PageSetupJob pageSetup;
    MarkJobs marks;
    std::string dwgConverter;
};

void AddSettings(CLI::App& program, Jobs& jobs)
{
    CLI::App& get = *program.add_subcommand("get", "Print a setting");
    get.footer(kGetFooter);
    get.add_option("NAME", jobs.get.name, "The setting's name")->required()->type_name("");
    CLI::App& set = *program.add_subcommand("set", "Change a setting");
    set.footer(kSetFooter);
    set.add_option("NAME", jobs.set.name, "The setting's name")->required()->type_name("");
    set.add_option("VALUE", jobs.set.value, "Its new value; \"\" goes back to the default")->required()->type_name("");
    CLI::App& list = *program.add_subcommand("list", "Print all settings");
    list.footer(kListFooter);
    list.add_option("PART", jobs.list.part, "Only names that contain this")->type_name("");
}

void AddWindows(CLI::App& program, Jobs& jobs)
{
    CLI::App& settings = *program.add_subcommand("settings", "Show the settings dialog of a drawing");
    settings.footer(kSettingsFooter);
    settings
        .add_option("DRAWING", jobs.settings.drawing, "The drawing (DXF or DWG); without one, a dialog asks for it")
        ->type_name("");
    settings.add_option("--layout", jobs.settings.layout, "Take this layout as the current one")->type_name("NAME");
    CLI::App& pageSetup = *program.add_subcommand("page-setup", "Show the page setup dialog");
    pageSetup.footer(kPageSetupFooter);
    pageSetup
        .add_option("DRAWING", jobs.pageSetup.drawing,
                    "The drawing whose PDF page setup is edited; without one, the global page setup is")
        ->type_name("");
}

/// The same for every command that opens drawings.
void AddDwgConverter(CLI::App& program, std::string& converter)
{
    for (const char* name :
         {"convert", "publish", "layouts", "settings", "page-setup", "stamp", "attach", "sign", "doctor"})
        program.get_subcommand(name)
            ->add_option("--dwg-converter", converter,
                         "What turns a DWG into DXF: a command with {in} and {out}, or node, dwg2dxf, oda "
                         "(default: the setting DwgConverter, else node, else dwg2dxf)")
            ->type_name("COMMAND")
            ->check([](const std::string& command) {
                const std::string error = drawing::DwgConverterError(command);
                return error.empty() ? error : "\"" + command + "\" " + error;
            });
}

void AddCommands(CLI::App& program, Jobs& jobs)
{
    AddConvert(program, jobs.convert);
    CLI::App& layouts = *program.add_subcommand("layouts", "Show the layouts of a drawing");
    layouts.footer(kLayoutsFooter);
    layouts.add_option("DRAWING", jobs.layouts.drawing, "The drawing (DXF or DWG)")->required()->type_name("");
    layouts.add_flag("--json", jobs.layouts.json, "As JSON");
    AddWindows(program, jobs);
    AddMarkCommands(program, jobs.marks);
    AddSettings(program, jobs);
    program.add_subcommand("log", "Print the log of the last conversion")->footer(kLogFooter);
    program.add_subcommand("doctor", "Say what is installed, what is missing and how to mend it")
        ->footer(kDoctorFooter);
    AddDwgConverter(program, jobs.dwgConverter);
}

Job ChosenJob(const CLI::App& program, const Jobs& jobs)
{
    const std::string name = program.get_subcommands().front()->get_name();
    const std::map<std::string, Job> byName = {{"convert", jobs.convert},
                                               {"layouts", jobs.layouts},
                                               {"get", jobs.get},
                                               {"set", jobs.set},
                                               {"list", jobs.list},
                                               {"log", LogJob{}},
                                               {"doctor", DoctorJob{}},
                                               {"stamp", jobs.marks.stamp},
                                               {"attach", jobs.marks.attach},
                                               {"sign", jobs.marks.sign},
                                               {"publish", jobs.marks.publish},
                                               {"settings", jobs.settings},
                                               {"page-setup", jobs.pageSetup}};
    return byName.at(name);
}

ParsedCommand WrongUsage(const std::string& text)
{
    return {{}, kExitUsage, {}, text + "\n"};
}

/// What is said of a first word that is no command; nothing when it is one.
std::optional<ParsedCommand> RefuseCommand(const std::vector<std::string>& words)
{
    if (words.empty() || words[0].starts_with('-') ||
        std::find(kCommands.begin(), kCommands.end(), words[0]) != kCommands.end())
        return std::nullopt;
    const std::string suggestion = Suggestion(words[0], kCommands);
    return WrongUsage("sheetmaker: there is no command \"" + words[0] + "\"" +
                      (suggestion.empty() ? "; \"sheetmaker --help\" lists them" : suggestion));
}

std::string UsageError(const CLI::App& program, const CLI::Error& error)
{
    const auto chosen = program.get_subcommands();
    const std::string name = chosen.empty() ? "" : " " + chosen.front()->get_name();
    return "sheetmaker" + name + ": " + error.what() + "\n\"sheetmaker" + name + " --help\" explains it";
}

} // namespace

ParsedCommand ParseCommandLine(const std::vector<std::string>& words, const std::string& version)
{
    if (std::optional<ParsedCommand> refused = RefuseCommand(words))
        return *refused;
    Jobs jobs;
    CLI::App program(kProgramSummary, "sheetmaker");
    program.footer(kProgramFooter);
    program.set_version_flag("--version", "sheetmaker " + version);
    program.require_subcommand(1);
    program.get_formatter()->column_width(34);
    AddCommands(program, jobs);
    try {
        std::vector<std::string> reversed(words.rbegin(), words.rend());
        program.parse(reversed);
        return {ChosenJob(program, jobs), kExitDone, {}, {}, jobs.dwgConverter};
    } catch (const CLI::CallForHelp&) {
        return {{}, kExitDone, program.help(), {}}; // that of the chosen command, when there is one
    } catch (const CLI::CallForVersion& call) {
        return {{}, kExitDone, std::string(call.what()) + "\n", {}};
    } catch (const CLI::ParseError& error) {
        return words.empty() ? WrongUsage(program.help()) : WrongUsage(UsageError(program, error));
    }
}

} // namespace sm::app
