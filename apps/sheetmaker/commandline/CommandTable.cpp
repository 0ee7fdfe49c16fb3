// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/CommandTable.h"

#include "commandline/CommandHelp.h"
#include "commandline/ConvertCommandLine.h"
#include "drawing/DwgConverter.h"

#include <map>

namespace sm::app {

CommandTable::CommandTable(const std::string& versionLine, std::string_view command)
    : m_program(kProgramSummary, "sheetmaker")
{
    m_program.allow_windows_style_options(false); // "/" begins a path on every system
    m_program.footer(kProgramFooter);
    m_program.set_version_flag("--version", versionLine);
    m_program.require_subcommand(1);
    m_program.get_formatter()->column_width(34);
    if (command != "convert") {
        AddCommands();
        return;
    }
    AddConvert(m_program, m_jobs.convert);
    AddDwgConverter("convert");
}

std::vector<std::string> CommandTable::CommandNames() const
{
    std::vector<std::string> names;
    for (const CLI::App* command : m_program.get_subcommands({}))
        names.push_back(command->get_name());
    return names;
}

void CommandTable::AddHelp()
{
    CLI::App& help = *m_program.add_subcommand("help", "Explain a command or a setting");
    help.footer(kHelpFooter);
    help.add_option("TOPIC", m_jobs.help.topic, "A command, or a setting")->type_name("");
}

void CommandTable::AddSettings()
{
    CLI::App& get = *m_program.add_subcommand("get", "Print a setting");
    get.footer(kGetFooter);
    get.add_option("NAME", m_jobs.get.name, "The setting's name")->required()->type_name("");
    CLI::App& set = *m_program.add_subcommand("set", "Change a setting");
    set.footer(kSetFooter);
    set.add_option("NAME", m_jobs.set.name, "The setting's name")->required()->type_name("");
    set.add_option("VALUE", m_jobs.set.value, "Its new value; \"\" goes back to the default")
        ->required()
        ->type_name("");
    CLI::App& list = *m_program.add_subcommand("list", "Print all settings");
    list.footer(kListFooter);
    list.add_option("PART", m_jobs.list.part, "Only names that contain this")->type_name("");
}

void CommandTable::AddWindows()
{
    CLI::App& settings = *m_program.add_subcommand("settings", "Show the settings dialog of a drawing");
    settings.footer(kSettingsFooter);
    settings
        .add_option("DRAWING", m_jobs.settings.drawing, "The drawing (DXF or DWG); without one, a dialog asks for it")
        ->type_name("");
    settings.add_option("--layout", m_jobs.settings.layout, "Take this layout as the current one")->type_name("NAME");
    CLI::App& pageSetup = *m_program.add_subcommand("page-setup", "Show the page setup dialog");
    pageSetup.footer(kPageSetupFooter);
    pageSetup
        .add_option("DRAWING", m_jobs.pageSetup.drawing,
                    "The drawing whose PDF page setup is edited; without one, the global page setup is")
        ->type_name("");
    pageSetup.add_flag("--show", m_jobs.pageSetup.show, "Print the drawing's own page setup");
    pageSetup
        .add_option("--set", m_jobs.pageSetup.assignments,
                    "Change a value of it, without a window; may be repeated; \"sheetmaker help NAME\" explains names")
        ->type_name("NAME=VALUE")
        ->allow_extra_args(false);
    pageSetup.add_flag("--remove", m_jobs.pageSetup.remove, "Remove it from the drawing");
}

void CommandTable::AddReport()
{
    CLI::App& report = *m_program.add_subcommand("report", "Merge the reports of several runs");
    report.footer(kReportFooter);
    report
        .add_option_function<std::string>(
            "ACTION", [](const std::string&) {}, "What to do")
        ->required()
        ->type_name("merge")
        ->check([](const std::string& name) {
            return name == "merge" ? std::string() : "\"" + name + "\" is no action; there is merge";
        });
    report.add_option("FILE", m_jobs.report.files, "Reports, as --report json or jsonl wrote them")
        ->required()
        ->type_name("");
    report.add_option("-o,--output", m_jobs.report.output, "The merged report (default: standard output)")
        ->type_name("PATH");
    AddReportForm(report, m_jobs.report.form, "Write one object, or a line for each drawing (default: json)");
    report
        .add_option("--list", m_jobs.report.list,
                    "Name the drawings of this list that no report tells of, and end with 1 for them")
        ->type_name("FILE");
    report.add_option("--missing", m_jobs.report.missing, "Write their names into this file, a line each")
        ->type_name("FILE")
        ->needs("--list");
    report.add_flag("--strict", m_jobs.report.strict, "End as \"convert --strict\" would have");
}

void CommandTable::AddLog()
{
    CLI::App& log = *m_program.add_subcommand("log", "Print the log of the last conversion, or another one");
    log.footer(kLogFooter);
    log.add_option("LOG", m_jobs.log.log,
                   "A log of the list, by its number, name or path (default: the last conversion's)")
        ->type_name("");
    log.add_flag("--list", m_jobs.log.list, "Show which logs there are, the newest first")->excludes("LOG");
}

/// The same for every command that opens drawings.
void CommandTable::AddDwgConverter(const char* command)
{
    m_program.get_subcommand(command)
        ->add_option("--dwg-converter", m_jobs.dwgConverter,
                     "Read DWG files through a converter: a command with {in} and {out}, or node, dwg2dxf, oda "
                     "(default: only those older than R9, by the setting DwgConverter, node or dwg2dxf)")
        ->type_name("COMMAND")
        ->check([](const std::string& converter) {
            std::string error = drawing::DwgConverterError(converter);
            if (!error.empty())
                error.insert(0, "\"" + converter + "\" ");
            return error;
        });
}

void CommandTable::AddCommands()
{
    AddConvert(m_program, m_jobs.convert);
    CLI::App& layouts = *m_program.add_subcommand("layouts", "Show the layouts of a drawing");
    layouts.footer(kLayoutsFooter);
    layouts.add_option("DRAWING", m_jobs.layouts.drawing, "The drawing (DXF or DWG)")->required()->type_name("");
    layouts.add_flag("--json", m_jobs.layouts.json, "As JSON");
    layouts.add_flag("--names", m_jobs.layouts.names, "The names alone, a line each")->excludes("--json");
    AddWindows();
    AddMarkCommands(m_program, m_jobs.marks);
    AddSettings();
    AddReport();
    AddLog();
    m_program.add_subcommand("doctor", "Say what is installed, what is missing and how to mend it")
        ->footer(kDoctorFooter);
    AddHelp();
    for (const char* command :
         {"convert", "publish", "layouts", "settings", "page-setup", "stamp", "attach", "sign", "doctor"})
        AddDwgConverter(command);
}

Job CommandTable::ChosenJob() const
{
    const std::string name = m_program.get_subcommands().front()->get_name();
    const std::map<std::string, Job> byName = {{"convert", m_jobs.convert},
                                               {"layouts", m_jobs.layouts},
                                               {"get", m_jobs.get},
                                               {"set", m_jobs.set},
                                               {"list", m_jobs.list},
                                               {"log", m_jobs.log},
                                               {"help", m_jobs.help},
                                               {"doctor", DoctorJob{}},
                                               {"stamp", m_jobs.marks.stamp},
                                               {"attach", m_jobs.marks.attach},
                                               {"sign", m_jobs.marks.sign},
                                               {"publish", m_jobs.marks.publish},
                                               {"report", m_jobs.report},
                                               {"settings", m_jobs.settings},
                                               {"page-setup", m_jobs.pageSetup}};
    return byName.at(name);
}

} // namespace sm::app
