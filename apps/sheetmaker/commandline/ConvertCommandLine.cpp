// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/ConvertCommandLine.h"

#include "base/files/Paths.h"
#include "commandline/CommandHelp.h"
#include "commandline/CountOption.h"
#include "commandline/NamedNumbers.h"
#include "commandline/PlotCommandLine.h"

#include <CLI/CLI.hpp>
#include <fstream>
#include <map>
#include <span>

namespace sm::app {
namespace {

const std::map<std::string, LayoutChoice> kLayoutChoices = {{"auto", LayoutChoice::Auto},
                                                            {"all", LayoutChoice::All},
                                                            {"active", LayoutChoice::Active},
                                                            {"model", LayoutChoice::Model}};
const std::map<std::string, AttachmentChoice> kAttachmentChoices = {
    {"all", AttachmentChoice::All}, {"refuse-outside", AttachmentChoice::RefuseOutside}};
const std::map<std::string, PdfStandard> kStandards = {{"2b", PdfStandard::A2b}, {"3b", PdfStandard::A3b}};
const std::map<std::string, ReportForm> kReportForms = {{"json", ReportForm::Json}, {"jsonl", ReportForm::JsonLines}};

/// An option with named values, stored by name and checked against the names in their own order. `target` is a value or
/// an optional one.
template <class Value, class Target>
void AddChoice(CLI::App& command, const std::string& option, Target& target, const std::map<std::string, Value>& values,
               const std::vector<std::string>& names, const std::string& help)
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
    command
        .add_option(
            "--layout", options.layoutNames,
            "Convert the layouts of this name alone: also with * and ?, FIRST..LAST, or a number; may be repeated")
        ->type_name("NAME")
        ->allow_extra_args(false)
        ->excludes("--layouts");
}

/// Why an empty text isn't taken.
std::string IsNoText(const std::string& text)
{
    return text.empty() ? "it takes a text" : std::string();
}

/// A password, or the first line of the file that "@" names; that is read once, since it may be a pipe. Throws for what
/// can't be one.
std::string PasswordOf(const std::string& option, const std::string& word)
{
    constexpr std::size_t kLongest = 127; // bytes of UTF-8 (ISO 32000-2, 7.6.4.3.3)
    std::string password = word;
    if (word.starts_with('@')) {
        char line[kLongest + 3] = {};
        std::ifstream file(base::ToPath(word.substr(1)), std::ios::binary);
        if (!file)
            throw CLI::ValidationError(option, word.substr(1) + " can't be read");
        file.getline(line, sizeof line);
        password = line;
        if (password.ends_with('\r'))
            password.pop_back();
    }
    if (password.empty())
        throw CLI::ValidationError(option, "a password is empty");
    if (password.size() > kLongest)
        throw CLI::ValidationError(option, "a password has at most 127 bytes");
    return password;
}

void AddPassword(CLI::App& command, ConvertOptions& options, const std::string& name, std::string Passwords::*target,
                 const std::string& help)
{
    command
        .add_option_function<std::string>(
            name,
            [&options, target, name](const std::string& word) {
                if (!options.encryption)
                    options.encryption.emplace();
                (*options.encryption).*target = PasswordOf(name, word);
            },
            help + "; @FILE takes it from the first line of a file")
        ->type_name("TEXT");
}

void AddEncryption(CLI::App& command, ConvertOptions& options)
{
    AddPassword(command, options, "--owner-password", &Passwords::owner,
                "Encrypt the PDF (AES, 256 bits); who knows this password may change its security");
    AddPassword(command, options, "--user-password", &Passwords::user, "Ask for this password to open the PDF");
    command.get_option("--user-password")->needs("--owner-password");
}

void AddQualityOptions(CLI::App& command, ConvertOptions& options)
{
    AddNamedNumber(command, "--line-quality", options.lineQuality, kLineQualities,
                   std::to_string(ResolutionOf(kLinesForPrint)) + " dpi or " +
                       std::to_string(ResolutionOf(kLinesForDraft)) + " dpi");
    command.add_option("--job-options", options.jobOptions, "Name of the job options, without extension")
        ->type_name("NAME");
    command.add_option("--title", options.title, "Title of the document (default: the drawing's name)")
        ->type_name("TEXT")
        ->check(IsNoText);
    command.add_flag("--optimize", options.optimize, "Put the first page first, for reading over a network");
    AddChoice(command, "--pdfa", options.standard, kStandards, {"2b", "3b"},
              "Keep to PDF/A, for archives, or fail; 3b may hold attached files");
    AddEncryption(command, options);
    command.get_option("--pdfa")->excludes("--owner-password");
    command.add_flag("--pdf-layers", options.pdfLayers, "Make the drawing's layers layers of the PDF");
    AddChoice(
        command, "--attachments", options.attachments, kAttachmentChoices, {"all", "refuse-outside"},
        "Embed every attached file, or fail for a drawing that attaches one from outside its folder (default: all)");
    command.add_flag("--keep-ps", options.keepPs, "Keep the PostScript files beside the PDF");
    command.add_flag("--open", options.open, "Show the PDF afterwards");
}

void AddLogs(CLI::App& command, ConvertJob& job)
{
    AddLog(command, job.log);
    command.add_option("--log-dir", job.logFolder, "Write a log for each drawing, NAME.log, into this folder")
        ->type_name("FOLDER")
        ->check(IsNoText)
        ->excludes("--log");
}

} // namespace

void AddLog(CLI::App& command, std::optional<std::string>& file)
{
    command.add_option("--log", file, "Write the log into this file rather than into the user's")
        ->type_name("FILE")
        ->check(IsNoText);
}

void AddMaking(CLI::App& command, ConvertOptions& options)
{
    AddNamedNumber(command, "--page-setup", options.pageSetupSource, kPageSetupSources,
                   "Plot with the layout's own page setup, the drawing's PDF page setup or the user's global one");
    AddPlotOptions(command, options.plot);
    AddQualityOptions(command, options);
}

void AddReportForm(CLI::App& command, ReportForm& report, const std::string& help)
{
    AddChoice(command, "--report", report, kReportForms, {"json", "jsonl"}, help);
}

void AddTelling(CLI::App& command, ReportForm& report, Talk& talk)
{
    AddReportForm(command, report,
                  "Print a report on stdout: one object at the end, or a line for each drawing as it ends");
    command.add_flag_callback(
        "--quiet", [&talk] { talk = Talk::Quiet; }, "Tell failures alone");
    command
        .add_flag_callback(
            "--verbose", [&talk] { talk = Talk::Verbose; }, "Tell of each sheet, the entities and the times, too")
        ->excludes("--quiet");
}

void AddConvert(CLI::App& program, ConvertJob& job)
{
    CLI::App& command = *program.add_subcommand("convert", "Convert drawings to PDF");
    command.footer(kConvertFooter);
    command.add_option("DRAWING", job.drawings, "The drawings (DXF or DWG); - is a DXF on standard input")
        ->type_name("");
    command
        .add_option("--list", job.list,
                    "Convert the drawings that this file names, too, a line each (-: standard input)")
        ->type_name("FILE");
    command
        .add_option("-o,--output", job.output,
                    "The PDF (-: standard output); with several drawings, the folder for the PDFs")
        ->type_name("PATH");
    AddLayoutOptions(command, job.options);
    AddMaking(command, job.options);
    command.add_flag("--as-set", job.options.asSet, "Take what no option says from the stored settings");
    AddCount(command, "--jobs", job.workers, kMostAtATime, "N",
             "How many drawings at a time (default: one a processor)");
    AddLimits(command, job.seconds, job.mebibytes);
    command.add_flag(
        "--strict", job.strict,
        "Count as a failure what a damaged drawing lost, what can't be drawn, characters that no font has, blank "
        "pages, "
        "sheets cut off by the paper, plot styles that are missing, files that can't be attached, marks that no page "
        "shows, and a log that can't be kept");
    command.add_flag("--no-clobber", job.noClobber, "Leave out drawings whose PDF exists");
    command.add_flag("--update", job.update, "Leave out drawings whose PDF is whole and newer");
    AddTelling(command, job.report, job.talk);
    AddLogs(command, job);
}

} // namespace sm::app
