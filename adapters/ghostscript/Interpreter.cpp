// SPDX-License-Identifier: GPL-3.0-or-later
#include "ghostscript/Interpreter.h"

#include "base/files/Paths.h"
#include "base/process/ThisProcess.h"

#include <filesystem>

namespace sm::ghostscript {
namespace {

namespace fs = std::filesystem;

constexpr const char* kTemporary = "tmp";

/// The user's own settings don't reach the run, but for where programs and fonts are found.
std::vector<std::string> Environment()
{
    std::vector<std::string> environment{std::string("TMPDIR=") + kTemporary, "LC_ALL=C.UTF-8"};
    for (const char* name : {"PATH", "HOME", "XDG_CACHE_HOME"}) {
        if (const auto value = base::Variable(name))
            environment.push_back(std::string(name) + "=" + *value);
    }
    return environment;
}

} // namespace

base::ChildResult RunInterpreter(const InterpreterRun& run)
{
    std::error_code error;
    fs::create_directory(base::ToPath(run.folder) / kTemporary, error);
    base::ChildCommand command;
    command.program = run.program;
    command.arguments = {"-q", "-dBATCH", "-dNOPAUSE", "-dSAFER"};
    command.arguments.insert(command.arguments.end(), run.arguments.begin(), run.arguments.end());
    for (const std::string& file : run.readable)
        command.arguments.push_back("--permit-file-read=" + file);
    command.arguments.push_back(run.input);
    command.environment = Environment();
    command.workingFolder = run.folder;
    command.keptLines = run.keptLines;
    command.limits = run.limits;
    return base::RunChild(command);
}

} // namespace sm::ghostscript
