// SPDX-License-Identifier: GPL-3.0-or-later
#include "converter/DwgCommand.h"

#include "base/files/Paths.h"
#include "base/process/ChildProcess.h"

#include <cstdlib>
#include <filesystem>

namespace sm::drawing {

namespace {

namespace fs = std::filesystem;

constexpr const char* kPackage = "node_modules/@mlightcad/libredwg-web";

bool Exists(const fs::path& path)
{
    std::error_code error;
    return fs::exists(path, error);
}

std::string PackageFolder(const DwgOptions& options)
{
    for (const std::string& folder : options.packageFolders)
        if (Exists(base::ToPath(folder) / kPackage / "wasm" / "libredwg-web.js"))
            return base::ToText(base::ToPath(folder) / kPackage);
    return {};
}

std::string Program(const DwgOptions& options, const std::string& name)
{
    return options.searchPath ? base::FindProgram(name, *options.searchPath) : base::FindProgram(name);
}

std::string InstallingCommand(const DwgOptions& options, bool needsNode)
{
    const std::string packages = needsNode ? "sudo apt-get install nodejs npm && " : "";
    return packages + "'" + base::ToText(base::ToPath(options.scriptFolder) / "install") + "'";
}

/// Node compiles the library while it runs it unless it is told to be quick: half a minute instead of a second.
DwgCommand NodeCommand(const DwgOptions& options)
{
    const std::string script = base::ToText(base::ToPath(options.scriptFolder) / "to-dxf.mjs");
    const std::string package = PackageFolder(options);
    DwgCommand command{
        "node", Program(options, "node"), {"--liftoff-only", "--no-warnings", script, package, "{in}", "{out}"}, {}};
    if (options.scriptFolder.empty() || !Exists(base::ToPath(script)))
        command.readiness = {false, "the script to-dxf.mjs is missing", "install sheetmaker-pdf anew"};
    else if (command.program.empty())
        command.readiness = {false, "no DWG converter is installed", InstallingCommand(options, true), true};
    else if (package.empty())
        command.readiness = {false, "no DWG converter is installed", InstallingCommand(options, false), true};
    else
        command.readiness = {true, "node with libredwg-web, " + package, {}};
    return command;
}

/// Another program of that name has been seen: only one that tells its version as LibreDWG does is taken.
std::string VersionOfDwg2Dxf(const std::string& program)
{
    base::ChildCommand command;
    command.program = program;
    command.arguments = {"--version"};
    command.environment = {"LC_ALL=C"};
    command.workingFolder = "/";
    command.limits.deadline = std::chrono::seconds(10);
    command.limits.cpuSeconds = 5;
    const base::ChildResult result = base::RunChild(command);
    const std::string line = result.output.substr(0, result.output.find('\n'));
    const bool told = result.end == base::ChildResult::End::Exited && line.starts_with("dwg2dxf ") &&
                      line.find_first_of("0123456789") != std::string::npos;
    return told ? line : std::string();
}

DwgCommand Dwg2DxfCommand(const DwgOptions& options)
{
    DwgCommand command{"dwg2dxf", Program(options, "dwg2dxf"), {"-y", "-o", "{out}", "{in}"}, {}};
    const std::string version = command.program.empty() ? std::string() : VersionOfDwg2Dxf(command.program);
    if (command.program.empty())
        command.readiness = {false, "dwg2dxf is not installed", "install LibreDWG, or choose another converter"};
    else if (version.empty())
        command.readiness = {false, command.program + " is not LibreDWG's dwg2dxf", "choose another converter"};
    else
        command.readiness = {true, version, {}};
    return command;
}

/// It reads folders, not files: (in folder, out folder, version, form, recurse, audit, filter).
DwgCommand OdaCommand(const DwgOptions& options)
{
    DwgCommand command{"ODAFileConverter",
                       Program(options, "ODAFileConverter"),
                       {"{infolder}", "{outfolder}", "ACAD2018", "DXF", "0", "1", "*.dwg"},
                       {}};
    if (command.program.empty())
        command.readiness = {false, "ODAFileConverter is not installed", "install it, or choose another converter"};
    else
        command.readiness = {true, command.program, {}};
    return command;
}

DwgCommand OwnCommand(const DwgOptions& options)
{
    const std::string& line = options.converter;
    DwgCommand command{"", "", SplitWords(line).value_or(std::vector<std::string>{}), {}};
    command.name = command.arguments.empty() ? line : command.arguments.front();
    const std::string error = DwgConverterError(line);
    if (!error.empty()) {
        command.readiness = {false, "the DWG converter \"" + line + "\" " + error, "set another one"};
        return command;
    }
    command.program = Program(options, command.name);
    command.arguments.erase(command.arguments.begin());
    command.name = base::ToText(base::ToPath(command.name).filename());
    if (command.program.empty())
        command.readiness = {false, "the program of \"" + line + "\" can't be found", "install it, or set another one"};
    else
        command.readiness = {true, "your own command, " + command.program, {}};
    return command;
}

} // namespace

std::optional<std::vector<std::string>> SplitWords(const std::string& line)
{
    std::vector<std::string> words;
    char quote = 0;
    bool inWord = false;
    for (const char c : line) {
        const bool blank = c == ' ' || c == '\t' || c == '\n';
        if (quote != 0 ? c == quote : c == '\'' || c == '"') {
            quote = quote != 0 ? 0 : c;
            if (!inWord)
                words.emplace_back();
            inWord = true;
        } else if (quote == 0 && blank) {
            inWord = false;
        } else {
            if (!inWord)
                words.emplace_back();
            inWord = true;
            words.back() += c;
        }
    }
    return quote == 0 ? std::optional(words) : std::nullopt;
}

std::string DwgConverterError(const std::string& converter)
{
    if (converter.empty() || converter == "node" || converter == "dwg2dxf" || converter == "oda")
        return {};
    const auto words = SplitWords(converter);
    if (!words)
        return "has a quote that isn't closed";
    const bool hasIn = converter.find("{in}") != std::string::npos;
    if (words->empty() || !hasIn || converter.find("{out}") == std::string::npos)
        return "is none of node, dwg2dxf, oda and no command with {in} and {out}";
    return {};
}

DwgCommand ChooseDwgCommand(const DwgOptions& options)
{
    if (options.converter == "dwg2dxf")
        return Dwg2DxfCommand(options);
    if (options.converter == "oda")
        return OdaCommand(options);
    if (!options.converter.empty() && options.converter != "node")
        return OwnCommand(options);
    DwgCommand node = NodeCommand(options);
    if (node.readiness.ready || options.converter == "node")
        return node;
    DwgCommand other = Dwg2DxfCommand(options);
    return other.readiness.ready ? other : node;
}

DwgReadiness ExamineDwgConverter(const DwgOptions& options)
{
    return ChooseDwgCommand(options).readiness;
}

} // namespace sm::drawing
