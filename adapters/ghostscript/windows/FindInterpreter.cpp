// SPDX-License-Identifier: GPL-3.0-or-later
#include "ghostscript/Interpreter.h"

#include "base/files/Paths.h"
#include "base/process/ThisProcess.h"
#include "windows/RegisteredInterpreter.h"

#include <filesystem>

namespace sm::ghostscript {
namespace {

namespace fs = std::filesystem;

/// What its own installer calls those without a window.
constexpr const char* kOwnNames[] = {"gswin64c", "gswin32c"};

/// The last of the versions in the folder where its own installer puts them, in case of an installation that was copied
/// there; empty when there is none.
std::string Copied()
{
    fs::path newest;
    std::error_code unreadable;
    const fs::path all = base::ToPath(base::Variable("ProgramFiles").value_or("C:/Program Files")) / "gs";
    for (fs::directory_iterator folder(all, unreadable), end; !unreadable && folder != end;
         folder.increment(unreadable)) {
        const fs::path program = folder->path() / "bin" / (std::string(kOwnNames[0]) + ".exe");
        if (fs::exists(program, unreadable) && (newest.empty() || newest < program))
            newest = program;
    }
    return base::ToText(newest);
}

} // namespace

const char* const kInterpreterRemedy = "run Ghostscript's own installer; it is found by the registry or on PATH";

std::string FindInterpreter(const std::string& program)
{
    if (program.find_first_of("/\\") != std::string::npos) // a certain one
        return base::FindProgram(program);
    if (std::string registered = RegisteredInterpreter(); !registered.empty())
        return registered;
    for (const std::string& name : {program, std::string(kOwnNames[0]), std::string(kOwnNames[1])})
        if (std::string found = base::FindProgram(name); !found.empty())
            return found;
    return Copied();
}

// Symbolic links need a right there that few users have.
std::string LinkInput(const std::string& folder, const std::string& name, const std::string& path)
{
    std::error_code error;
    const fs::path target = base::ToPath(folder) / base::ToPath(name);
    fs::create_hard_link(base::ToPath(path), target, error);
    if (error)
        fs::copy_file(base::ToPath(path), target, error);
    return error ? error.message() : "";
}

} // namespace sm::ghostscript
