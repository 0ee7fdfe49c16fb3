// SPDX-License-Identifier: GPL-3.0-or-later
// Every command with its options: what the command line takes, "--help" prints, and the manual pages and completions
// are made from.
#pragma once

#include "commandline/Jobs.h"
#include "commandline/MarkCommandLine.h"

#include <CLI/CLI.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace sm::app {

class CommandTable {
public:
    /// `versionLine` is what --version prints. For the command that most runs are for nothing else is laid out, when
    /// `command` names it: that takes as long as a twentieth of a small drawing.
    explicit CommandTable(const std::string& versionLine, std::string_view command = {});
    CommandTable(const CommandTable&) = delete;
    CommandTable& operator=(const CommandTable&) = delete;

    /// Parsing fills the jobs of this table.
    [[nodiscard]] CLI::App& Program() { return m_program; }
    /// Names of the commands, in the order of the help.
    [[nodiscard]] std::vector<std::string> CommandNames() const;
    /// After parsing: the job of the command that was named.
    [[nodiscard]] Job ChosenJob() const;
    /// After parsing: the DWG converter that the words asked for; empty: none.
    [[nodiscard]] const std::string& ChosenConverter() const { return m_jobs.dwgConverter; }

private:
    struct Jobs {
        ConvertJob convert;
        LayoutsJob layouts;
        HelpJob help;
        GetJob get;
        SetJob set;
        ListJob list;
        ReportJob report;
        LogJob log;
        SettingsJob settings;
        PageSetupJob pageSetup;
        MarkJobs marks;
        std::string dwgConverter;
    };
    void AddSettings();
    void AddWindows();
    void AddReport();
    void AddLog();
    void AddHelp();
    void AddDwgConverter(const char* command);
    void AddCommands();

    Jobs m_jobs;
    CLI::App m_program;
};

} // namespace sm::app
