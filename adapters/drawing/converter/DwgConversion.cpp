// SPDX-License-Identifier: GPL-3.0-or-later
#include "converter/DwgConversion.h"

#include "base/files/File.h"
#include "base/files/Paths.h"
#include "base/files/PrivateFolder.h"
#include "base/process/ChildProcess.h"
#include "base/process/ThisProcess.h"
#include "converter/DwgCommand.h"
#include "drawing/Drawing.h"
#include "tags/FileKind.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <filesystem>

namespace sm::drawing {

namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kMegabyte = 1U << 20U;
constexpr const char* kLostLine = "lost: ";

std::chrono::seconds WallLimit(const DwgOptions& options, std::uint64_t bytes)
{
    const std::uint64_t megabytes = (bytes + kMegabyte - 1) / kMegabyte;
    return std::chrono::seconds(options.seconds + 10 * (megabytes - 1));
}

struct Files {
    std::string folder, source, target;
    explicit Files(const std::string& root)
        : folder(root), source(root + "/in/drawing.dwg"), target(root + "/out/drawing.dxf")
    {
    }
};

[[noreturn]] void ThrowFolder(const std::string& path, const std::string& folder, const std::error_code& error)
{
    throw DrawingError(path + ": the DWG can't be copied into " + folder + " (" + error.message() +
                       "); free some space or set TMPDIR to another folder");
}

void CopyIn(const std::string& path, const Files& files, std::string_view bytes)
{
    std::error_code error;
    for (const char* part : {"/in", "/out", "/tmp"})
        if (!fs::create_directory(base::ToPath(files.folder + part), error))
            ThrowFolder(path, files.folder, error);
    base::File file = base::File::Create(files.source, base::File::Rights::Private, error);
    if (!file.IsOpen())
        ThrowFolder(path, files.folder, error);
    try {
        file.Write(bytes);
        file.Close();
    } catch (const std::system_error& failure) {
        ThrowFolder(path, files.folder, failure.code());
    }
}

std::string Filled(std::string word, const Files& files)
{
    const std::array<std::pair<std::string, std::string>, 4> places{{{"{in}", files.source},
                                                                     {"{out}", files.target},
                                                                     {"{infolder}", files.folder + "/in"},
                                                                     {"{outfolder}", files.folder + "/out"}}};
    for (const auto& [name, value] : places)
        for (std::size_t at = word.find(name); at != std::string::npos; at = word.find(name, at + value.size()))
            word.replace(at, name.size(), value);
    return word;
}

/// The user's own environment, but for what would make node load other code, and temporary files.
std::vector<std::string> EnvironmentFor(const Files& files)
{
    std::vector<std::string> variables{"TMPDIR=" + files.folder + "/tmp", "QT_QPA_PLATFORM=offscreen"};
    for (const std::string& text : base::Variables())
        if (!text.starts_with("NODE_") && !text.starts_with("TMPDIR=") && !text.starts_with("QT_QPA_PLATFORM="))
            variables.push_back(text);
    return variables;
}

base::ChildResult Run(const DwgCommand& chosen, const Files& files, std::uint64_t size, std::chrono::seconds wall)
{
    base::ChildCommand command;
    command.program = chosen.program;
    for (const std::string& argument : chosen.arguments)
        command.arguments.push_back(Filled(argument, files));
    command.environment = EnvironmentFor(files);
    command.workingFolder = files.folder + "/out";
    command.keptLines = kLostLine;
    command.limits.deadline = wall;
    command.limits.cpuSeconds = static_cast<std::uint64_t>(wall.count());
    command.limits.fileBytes = 256 * kMegabyte + 64 * size;
    return base::RunChild(command);
}

/// The last line that says something, fit for a message.
std::string LastLine(const std::string& output)
{
    constexpr std::size_t kLongest = 160;
    std::size_t end = output.find_last_not_of(" \t\r\n");
    if (end == std::string::npos)
        return {};
    const std::size_t begin = output.find_last_of("\r\n", end);
    std::string line = output.substr(begin == std::string::npos ? 0 : begin + 1, end - begin);
    if (line.size() > kLongest)
        line = line.substr(0, kLongest) + " ...";
    // One converter's bytes may be of any code page.
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c < ' ' || c > '~'; }, ' ');
    constexpr std::string_view kRefused = "refused: ";
    return line.starts_with(kRefused) ? line.substr(kRefused.size()) : line;
}

void RequireGoodEnd(const std::string& path, const std::string& name, const base::ChildResult& result,
                    std::chrono::seconds wall)
{
    using End = base::ChildResult::End;
    const std::string converter = "the DWG converter (" + name + ") ";
    const std::string remedy = "; the file may be damaged: save the drawing again, or as DXF";
    if (result.end == End::NotStarted)
        throw DrawingError(path + ": " + converter + "can't be started (" + result.reason +
                           "); \"sheetmaker doctor\" says more");
    if (result.end == End::PastDeadline)
        throw DrawingError(path + ": " + converter + "was stopped after " + std::to_string(wall.count()) + " seconds" +
                           remedy);
    if (result.end == End::Signalled)
        throw DrawingError(path + ": " + converter + "crashed (signal " + std::to_string(result.code) + ")" + remedy);
    if (result.code != 0) {
        const std::string said = LastLine(result.output);
        throw DrawingError(path + ": " + converter + "can't read this DWG" + (said.empty() ? "" : " (" + said + ")") +
                           remedy);
    }
}

/// Exit code 0 proves nothing: a whole DXF has its entities and its end.
FileBytes TakeOutput(const std::string& path, const std::string& name, const Files& files)
{
    const std::string incomplete = path + ": the DWG converter (" + name + ") gave ";
    const std::string remedy = "; the file may be damaged: save the drawing again, or as DXF";
    FileBytes dxf;
    try {
        dxf = FileBytes::Map(files.target);
    } catch (const DrawingError&) {
        throw DrawingError(incomplete + "no DXF" + remedy);
    }
    const std::string_view bytes = dxf.View();
    constexpr std::size_t kTail = 256;
    const std::string_view tail = bytes.substr(bytes.size() - std::min(bytes.size(), kTail));
    if (bytes.find("ENTITIES") == std::string_view::npos || tail.rfind("EOF") == std::string_view::npos)
        throw DrawingError(incomplete + "an incomplete DXF" + remedy);
    return dxf;
}

/// Lines "lost: KIND COUNT".
void TakeLosses(const std::string& output, FindingList& findings)
{
    for (std::size_t at = 0; at < output.size();) {
        const std::size_t end = std::min(output.find('\n', at), output.size());
        std::string_view line = std::string_view(output).substr(at, end - at);
        at = end + 1;
        if (!line.starts_with(kLostLine))
            continue;
        line.remove_prefix(std::strlen(kLostLine));
        const std::size_t blank = std::min(line.find(' '), line.size());
        const std::string_view kind = line.substr(0, blank), number = line.substr(std::min(blank + 1, line.size()));
        std::uint32_t count = 1;
        std::from_chars(number.data(), number.data() + number.size(), count);
        if (kind == "ACAD_TABLE")
            findings.Add(Damage::TablesLost, 0, count);
        else if (kind == "CORRECTIONS")
            findings.Add(Damage::NotCorrected, 0, count);
        else
            findings.Add(Damage::ProxiesLost, 0, count);
    }
}

} // namespace

FileBytes ConvertDwg(const FileBytes& bytes, const std::string& path, const DwgOptions& options, FindingList& findings)
{
    const DwgCommand command = ChooseDwgCommand(options);
    if (!command.readiness.ready)
        throw DwgConverterMissing(path + ": this is a DWG of " + DwgRelease(bytes.View()) + ", and " +
                                  command.readiness.what + "; " + (command.readiness.remedyIsCommand ? "run: " : "") +
                                  command.readiness.remedy + "; or save the drawing as DXF");
    try {
        const base::PrivateFolder folder(options.workFolder);
        const Files files(folder.Path());
        const std::uint64_t size = bytes.View().size();
        const std::chrono::seconds wall = WallLimit(options, size);
        CopyIn(path, files, bytes.View());
        const base::ChildResult result = Run(command, files, size, wall);
        RequireGoodEnd(path, command.name, result, wall);
        FileBytes dxf = TakeOutput(path, command.name, files);
        TakeLosses(result.output, findings);
        return dxf;
    } catch (const base::FolderFailure& failure) {
        throw DrawingError(path + ": " + failure.what());
    }
}

} // namespace sm::drawing
