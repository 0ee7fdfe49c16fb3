// SPDX-License-Identifier: GPL-3.0-or-later
#include "doctor/SystemFindings.h"

#include "base/files/FileFacts.h"
#include "base/files/Paths.h"
#include "base/files/UserFolders.h"
#include "base/process/ChildProcess.h"
#include "base/text/Keywords.h"
#include "ghostscript/Interpreter.h"

#include <chrono>

namespace sm::app {
namespace {

namespace fs = std::filesystem;
using State = Finding::State;

constexpr std::chrono::seconds kPatience{10};

/// The first line that a program prints of itself; empty when it can't be run.
std::string VersionOf(const std::string& program, const system::Environment& environment)
{
    base::ChildCommand command;
    command.program = program;
    command.arguments = {"--version"};
    for (const char* name : {"PATH", "HOME", "LD_LIBRARY_PATH"})
        if (const auto value = environment(name))
            command.environment.push_back(name + ("=" + *value));
    command.workingFolder = "/";
    command.limits.deadline = kPatience;
    const base::ChildResult result = base::RunChild(command);
    const bool ended = result.end == base::ChildResult::End::Exited && result.code == 0;
    return ended ? result.output.substr(0, result.output.find_first_of("\r\n")) : std::string();
}

/// Is there an outline font in the folder, or below it?
bool HoldsFont(const fs::path& folder)
{
    std::error_code unreadable;
    fs::recursive_directory_iterator file(folder, fs::directory_options::skip_permission_denied, unreadable), end;
    for (; !unreadable && file != end; file.increment(unreadable))
        if (const std::string ending = base::LowerAscii(base::ToText(file->path().extension()));
            ending == ".ttf" || ending == ".ttc" || ending == ".otf")
            return true;
    return false;
}

} // namespace

Finding WritableFolder(const std::string& what, fs::path folder, const std::string& remedy)
{
    const fs::path wanted = folder;
    std::error_code unreadable;
    while (!fs::exists(folder, unreadable) && folder.has_relative_path())
        folder = folder.parent_path();
    std::error_code closed;
    if (base::MayMakeFilesIn(base::ToText(folder), closed))
        return {State::Good, what, base::ToText(wanted), {}};
    return {State::Missing, what, base::ToText(wanted) + " can't be written", remedy};
}

Finding Ghostscript(const Install& install)
{
    const std::string program = InterpreterProgram(install);
    const std::string version = program.empty() ? "" : VersionOf(program, install.environment);
    if (version.empty())
        return {State::Optional, "Ghostscript",
                (program.empty() ? "not installed" : program + " can't be run") +
                    std::string(" (PDF underlays, PostScript of other programs, and job options that turn colours or "
                                "downsample pictures need it)"),
                ghostscript::kInterpreterRemedy};
    return {State::Good, "Ghostscript", version + ", " + program, {}};
}

Finding Fonts(const Install& install)
{
    for (const std::filesystem::path& folder : base::FontFolders(install.environment))
        if (HoldsFont(folder))
            return {State::Good, "fonts", base::ToText(folder), {}};
    return {State::Missing, "fonts", "no TrueType font is installed", kFontsRemedy};
}

} // namespace sm::app
