// SPDX-License-Identifier: GPL-3.0-or-later
#include "ghostscript/Interpreter.h"

#include "base/files/Paths.h"
#include "base/process/ThisProcess.h"
#include "base/windows/Handles.h"
#include "windows/RegisteredInterpreter.h"

#include <filesystem>

namespace sm::ghostscript {
namespace {

namespace fs = std::filesystem;

/// What its own installer calls those without a window.
constexpr const char* kOwnNames[] = {"gswin64c", "gswin32c"};

/// The folder of the program or the component that this is part of.
fs::path OwnFolder()
{
    static const char anchor = 0;
    HMODULE module = nullptr;
    ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                         reinterpret_cast<LPCWSTR>(&anchor), &module);
    std::wstring path(32768, L'\0');
    path.resize(::GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size())));
    return base::ToPath(base::Narrow(path)).parent_path();
}

/// The one that our own installer has put beside us, when it was asked to; empty when it wasn't.
std::string Installed()
{
    std::error_code unreadable;
    const fs::path program = OwnFolder() / "ghostscript" / "gs.exe";
    return fs::is_regular_file(program, unreadable) ? base::ToText(program) : std::string();
}

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
    // Ours goes first: who installs it has chosen it, and this program has been tested with it.
    if (std::string installed = Installed(); !installed.empty())
        return installed;
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
