#include "commands/Doctor.h"

#include "base/files/FileFacts.h"
#include "base/files/Paths.h"
#include "base/process/ChildProcess.h"
#include "commandline/ExitCodes.h"
#include "machine/DwgSetup.h"
#include "ports/RegistryKeys.h"
#include "workers/WindowsProgram.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fmt/format.h>
#include <ostream>

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
    return ended ? result.output.substr(0, result.output.find('\n')) : std::string();
}

Finding Ghostscript(const Install& install)
{
    const std::string program = system::FindProgram(install.environment, "gs");
    const std::string version = program.empty() ? "" : VersionOf(program, install.environment);
    if (version.empty())
        return {State::Optional, "Ghostscript",
                (program.empty() ? "not installed" : program + " can't be run") +
                    std::string(" (PDF underlays, PostScript of other programs, and job options that turn colours or "
                                "downsample pictures need it)"),
                "sudo apt-get install ghostscript"};
    return {State::Good, "Ghostscript", version + ", " + program, {}};
}

Finding ShareFolder(const Install& install)
{
    const fs::path& share = install.places.shareFolder;
    const std::string remedy = "install sheetmaker-pdf anew, or set SHEETMAKER_PDF_SHARE to its share folder";
    if (share.empty())
        return {State::Missing, "share folder", "not found", remedy};
    std::error_code unreadable;
    for (const char* part : {"Drivers/ps8.hdi", "PC3", "Settings"})
        if (!fs::exists(share / part, unreadable))
            return {State::Missing, "share folder", base::ToText(share / part) + " is missing", remedy};
    return {State::Good, "share folder", base::ToText(share), {}};
}

Finding JobOptionFiles(const Install& install)
{
    const std::vector<std::string> names = JobOptionNames(install);
    if (names.empty())
        return {State::Missing, "job options", "none installed", "install sheetmaker-pdf anew"};
    return {State::Good, "job options", fmt::format("{}", fmt::join(names, ", ")), {}};
}

bool HoldsFont(const fs::path& folder)
{
    std::error_code unreadable;
    fs::recursive_directory_iterator file(folder, fs::directory_options::skip_permission_denied, unreadable), end;
    for (; !unreadable && file != end; file.increment(unreadable))
        if (file->path().extension() == ".ttf" || file->path().extension() == ".otf")
            return true;
    return false;
}

Finding Fonts(const Install& install)
{
    const fs::path home = base::ToPath(install.environment("HOME").value_or("/nonexistent"));
    for (const fs::path& folder : {base::ToPath("/usr/share/fonts"), base::ToPath("/usr/local/share/fonts"),
                                   home / ".local/share/fonts", home / ".fonts"})
        if (HoldsFont(folder))
            return {State::Good, "fonts", base::ToText(folder), {}};
    return {State::Missing, "fonts", "no TrueType font is installed", "sudo apt-get install fonts-dejavu-core"};
}

/// Whether files can be made in the folder, or in the nearest folder above it that is there.
Finding WritableFolder(const char* what, fs::path folder, const char* remedy)
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

Finding Settings(const Install& install)
{
    std::string trouble;
    const auto registry = OpenSettings(install, [&](const std::string& text) { trouble = text; });
    registry->OpenKey(RegistryRoot::CurrentUser, "Software");
    registry->OpenKey(RegistryRoot::CurrentUser, kMakerKey);
    if (!trouble.empty())
        return {State::Missing, "settings", trouble, "look at the file, or remove it"};
    const std::string file = base::ToText(install.places.SettingsFile());
    std::error_code closed;
    const bool exists = base::FactsOf(file, closed).kind != base::FileKind::Missing;
    if (exists && !base::MayWrite(file, closed))
        return {State::Missing, "settings", file + " can't be written", "give yourself the right to write it"};
    const Finding folder =
        WritableFolder("settings", install.places.settingsFolder, "give yourself the right to write there");
    return folder.state == State::Good ? Finding{State::Good, "settings", file, {}} : folder;
}

Finding Viewer(const Install& install)
{
    const std::string program = system::FindProgram(install.environment, "xdg-open");
    if (program.empty())
        return {State::Optional, "PDF viewer", "xdg-open is not installed (--open needs it)",
                "sudo apt-get install xdg-utils"};
    const bool display = install.environment("DISPLAY") || install.environment("WAYLAND_DISPLAY");
    return {display ? State::Good : State::Optional,
            "PDF viewer",
            display ? program : "there is no display (--open needs one)",
            {}};
}

Finding Windows(const Install& install)
{
    const std::string program = system::FindProgram(install.environment, base::ToText(install.windowsProgram));
    if (install.windowsProgram.empty() || program.empty())
        return {State::Optional, "windows", "the program with the windows is missing (settings, page-setup need it)",
                "sudo apt-get install sheetmaker-pdf-windows; in a source tree, \"./sheetmaker settings\" builds it"};
    const bool screen = HasScreen(install.environment);
    return {screen ? State::Good : State::Optional,
            "windows",
            screen ? program : "there is no screen (settings, page-setup need one)",
            {}};
}

Finding DwgConverter(const Install& install)
{
    const auto registry = OpenSettings(install, [](const std::string&) {}); // told of the settings already
    const drawing::DwgReadiness found = drawing::ExamineDwgConverter(DwgOptionsOf(install, *registry));
    return {found.ready ? State::Good : State::Optional, "DWG converter",
            found.ready ? found.what : found.what + " (needed for DWG files older than R9 alone)", found.remedy};
}

const char* Mark(State state)
{
    return state == State::Good ? "ok      " : state == State::Optional ? "optional" : "MISSING ";
}

} // namespace

std::vector<Finding> Examine(const Install& install)
{
    std::error_code unset;
    const fs::path temporary = fs::temp_directory_path(unset);
    return {
        Ghostscript(install),
        {State::Good, "PDF library", "libqpdf, part of this program", {}},
        Fonts(install),
        ShareFolder(install),
        JobOptionFiles(install),
        Settings(install),
        WritableFolder("log folder", install.places.stateFolder, "give yourself the right to write there"),
        WritableFolder("temporary folder", unset ? base::ToPath(P_tmpdir) : temporary, "set TMPDIR to another folder"),
        Viewer(install),
        Windows(install),
        DwgConverter(install)};
}

std::string FindingText(const std::vector<Finding>& findings)
{
    std::string text;
    for (const Finding& finding : findings) {
        text += fmt::format("{}  {}: {}\n", Mark(finding.state), finding.what, finding.detail);
        if (!finding.remedy.empty())
            text += fmt::format("          -> {}\n", finding.remedy);
    }
    return text;
}

int RunDoctor(const Install& install, std::ostream& out)
{
    const std::vector<Finding> findings = Examine(install);
    out << FindingText(findings);
    const bool missing = std::any_of(findings.begin(), findings.end(),
                                     [](const Finding& finding) { return finding.state == State::Missing; });
    return missing ? kExitToolMissing : kExitDone;
}

} // namespace sm::app
