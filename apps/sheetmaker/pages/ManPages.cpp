// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/ManPages.h"

#include "pages/Roff.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace sm::app {
namespace {

using OrderedJson = nlohmann::ordered_json;

struct Term {
    const char* term;
    const char* meaning;
};

constexpr Term kExitCodes[] = {
    {"0", "Everything asked for was done."},
    {"1", "Some of it failed; the other drawings were converted."},
    {"2", "The command line is wrong, or asks for what a drawing hasn't got; nothing was written."},
    {"3", "A tool or a file of the installation is missing."},
    {"4", "Converted, but the drawing was damaged and content was lost; --strict makes that 1."},
    {"130", "Ended by Ctrl+C or a request to terminate; what was done stays, nothing is left half-made."},
};

constexpr Term kFiles[] = {
    {"~/.config/sheetmaker-pdf/settings.sqlite", "The user's settings."},
    {"~/.config/sheetmaker-pdf/PlotStyles", "The user's own plot style tables."},
    {"~/.config/sheetmaker-pdf/fonts", "Fonts that go before those of the machine."},
    {"~/.local/state/sheetmaker-pdf/SmPdfAcad.log", "The log of the last conversion."},
    {"~/.local/state/sheetmaker-pdf/log-places.txt", "Where --log and --log-dir put others, for \"log --list\"."},
    {"DRAWING.sheetmaker", "What belongs to a drawing that can't be written: its stamps, attachments and fields."},
};

constexpr Term kVariables[] = {
    {"SHEETMAKER_PDF_SHARE", "The share folder, in place of that beside the program."},
    {"XDG_CONFIG_HOME, XDG_STATE_HOME, XDG_DATA_HOME, XDG_CACHE_HOME", "In place of the folders in the home folder."},
    {"SOURCE_DATE_EPOCH",
     "Stops the clock at so many seconds since 1970, UTC: the same input then gives the same bytes, unless "
     "it is encrypted."},
    {"TMPDIR", "Where temporary folders are made."},
};

std::string Title(const std::string& name)
{
    std::string title = name;
    std::transform(title.begin(), title.end(), title.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return title;
}

std::string TermOf(const OptionFacts& option)
{
    if (option.positional)
        return Italic(option.value) + (option.repeats ? " ..." : "");
    std::string term = option.shortName.empty() ? "" : Bold(option.shortName);
    if (!option.longName.empty())
        term += (term.empty() ? "" : ", ") + Bold(option.longName);
    return option.value.empty() ? term : term + " " + Italic(option.value);
}

std::string Synopsis(const CommandFacts& command)
{
    std::string line = Bold("sheetmaker " + command.name) + " [" + Italic("OPTIONS") + "]";
    for (const OptionFacts& option : command.options)
        if (option.positional) {
            const std::string value = Italic(option.value) + (option.repeats ? " ..." : "");
            line += option.required ? " " + value : " [" + value + "]";
        } else if (option.required) {
            line += " " + TermOf(option);
        }
    return line;
}

template <std::size_t count> void AddItems(RoffPage& page, const char* heading, const Term (&rows)[count])
{
    page.Section(heading);
    for (const Term& row : rows)
        page.Item(Bold(row.term), row.meaning);
}

void AddOptions(RoffPage& page, const CommandFacts& command, bool positional)
{
    const auto belongs = [positional](const OptionFacts& option) { return option.positional == positional; };
    if (std::none_of(command.options.begin(), command.options.end(), belongs))
        return;
    page.Section(positional ? "ARGUMENTS" : "OPTIONS");
    for (const OptionFacts& option : command.options)
        if (belongs(option))
            page.Item(TermOf(option), option.help + ".");
}

void AddFooter(RoffPage& page, const CommandFacts& command)
{
    const FooterParts parts = PartsOf(command.footer);
    if (!parts.examples.empty())
        page.Section("EXAMPLES").Verbatim(parts.examples);
    if (!parts.notes.empty() && !command.name.empty())
        page.Section("NOTES").Paragraphs(parts.notes);
}

std::string TypeText(const OrderedJson& field)
{
    if (field.contains("const"))
        return field.at("const").dump();
    const std::string type = field.at("type");
    return type == "array" && field.at("items").contains("type")
               ? "array of " + field.at("items").at("type").get<std::string>() + "s"
               : type;
}

void AddFields(RoffPage& page, const OrderedJson& fields, const std::string& prefix)
{
    for (const auto& [name, field] : fields.items()) {
        page.Item(Bold(prefix + name) + " (" + RoffText(TypeText(field)) + ")", field.at("description"));
        const OrderedJson& inner = field.contains("items") ? field.at("items") : field;
        if (inner.contains("properties"))
            AddFields(page, inner.at("properties"), prefix + name + (field.contains("items") ? "[]." : "."));
    }
}

} // namespace

std::string ProgramPage(const std::vector<CommandFacts>& commands, const std::string& version)
{
    const CommandFacts& program = commands.front();
    RoffPage page("SHEETMAKER", "1", version);
    page.Section("NAME").Line("sheetmaker \\- PDF documents from the sheets of CAD drawings");
    page.Section("SYNOPSIS").Line(Bold("sheetmaker") + " " + Italic("COMMAND") + " [" + Italic("ARGUMENTS") + "]");
    page.Section("DESCRIPTION").Paragraphs(program.summary);
    page.Paragraphs("Drawings are read from DXF and DWG files. Every layout that is converted becomes a page, plotted "
                    "by its own page setup; stamps, attachments, signature fields and links go with it.");
    page.Section("COMMANDS");
    for (const CommandFacts& command : commands)
        if (!command.name.empty())
            page.Item(Bold(command.name), command.summary + "; see sheetmaker-" + command.name + "(1).");
    AddOptions(page, program, false);
    AddFooter(page, program);
    AddItems(page, "EXIT STATUS", kExitCodes);
    AddItems(page, "FILES", kFiles);
    AddItems(page, "ENVIRONMENT", kVariables);
    std::string others;
    for (const CommandFacts& command : commands)
        if (!command.name.empty())
            others += Bold("sheetmaker-" + command.name) + "(1), ";
    return page.Section("SEE ALSO").Line(others + Bold("sheetmaker-report") + "(5)").Text();
}

std::string CommandPage(const CommandFacts& command, const std::string& version)
{
    const std::string name = "sheetmaker-" + command.name;
    RoffPage page(Title(name), "1", version);
    page.Section("NAME").Line(RoffText(name) + " \\- " + RoffText(command.summary));
    page.Section("SYNOPSIS").Line(Synopsis(command));
    page.Section("DESCRIPTION").Paragraphs(command.summary + ".");
    AddOptions(page, command, true);
    AddOptions(page, command, false);
    AddFooter(page, command);
    AddItems(page, "EXIT STATUS", kExitCodes);
    return page.Section("SEE ALSO").Line(Bold("sheetmaker") + "(1), " + Bold("sheetmaker-report") + "(5)").Text();
}

std::string ReportPage(const std::string& schema, const std::string& version)
{
    const OrderedJson whole = OrderedJson::parse(schema);
    RoffPage page("SHEETMAKER-REPORT", "5", version);
    page.Section("NAME").Line("sheetmaker\\-report \\- what \"sheetmaker convert \\-\\-report\" writes");
    page.Section("DESCRIPTION").Paragraphs(whole.at("description"));
    page.Section("THE REPORT");
    AddFields(page, whole.at("properties"), "");
    page.Section("A DRAWING");
    AddFields(page, whole.at("$defs").at("drawing").at("properties"), "");
    return page.Section("SEE ALSO").Line(Bold("sheetmaker-convert") + "(1)").Text();
}

} // namespace sm::app
