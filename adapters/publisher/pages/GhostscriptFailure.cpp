// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/GhostscriptFailure.h"

#include "base/files/FileFacts.h"
#include "base/files/Paths.h"
#include "base/text/Utf8.h"
#include "ghostscript/Interpreter.h"
#include "pdf/PublishStatus.h"

#include <algorithm>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>
#include <limits>

namespace sm::publisher {

namespace {

constexpr std::uintmax_t kHardlyAnyRoom = 1 << 20;
constexpr long long kFarthestPosition = 1 << 28;

/// The interpreter reports a full disk as "ioerror" without a reason.
bool RoomHasRunOut(const std::string& folder, const std::string& outputPath)
{
    std::error_code error;
    const auto room = std::filesystem::space(base::ToPath(folder), error);
    if (!error && room.available < kHardlyAnyRoom) {
        return true;
    }
    const std::uint64_t largest = base::LargestFileAllowed();
    const base::FileFacts output = base::FactsOf(outputPath, error);
    return largest != std::numeric_limits<std::uint64_t>::max() &&
           (output.kind == base::FileKind::Missing || output.stamp.size + kHardlyAnyRoom > largest);
}

[[noreturn]] void FailFullDisk(const std::string& folder)
{
    throw PublishFailure(PublishStatus::DiskFull,
                         fmt::format("The pages could not be written to the temporary folder {}: the disk is full or "
                                     "the file is larger than allowed. Free some space and save again.",
                                     folder));
}

std::string LastLine(const std::string& output)
{
    const auto end = output.find_last_not_of("\n ");
    if (end == std::string::npos) {
        return {};
    }
    const auto begin = output.rfind('\n', end) + 1; // 0 when there is only one line
    return base::ValidUtf8(output.substr(begin, std::min<std::size_t>(end - begin + 1, 200)));
}

std::string Where(const PageSource& page, long long position)
{
    const std::size_t line = LineOfPosition(page.psPath, position);
    return line == 0 ? page.psPath : fmt::format("{}, line {}", page.psPath, line);
}

[[noreturn]] void FailPage(const PageSource& page, const std::string& what, long long position = -1)
{
    throw PublishFailure(PublishStatus::PostScriptError,
                         fmt::format("Page {}: {} ({}).", page.number, what, Where(page, position)));
}

/// A program's own `stop` leaves no name; commands in "--" are the interpreter's inner ones.
std::string WhatFailed(const DriverReport::Error& error)
{
    if (error.name.empty() || error.name.starts_with('-')) {
        return "its PostScript stopped itself";
    }
    const bool nameless = error.command.empty() || error.command.starts_with("-");
    return fmt::format("its PostScript ended with the error \"{}\"{}", error.name,
                       nameless ? "" : fmt::format(" in \"{}\"", base::ValidUtf8(error.command)));
}

[[noreturn]] void FailOnError(const DriverReport& report, const std::vector<PageSource>& pages,
                              const std::string& folder, const std::string& outputPath)
{
    const DriverReport::Error& error = *report.error;
    const PageSource& page = pages[std::min(report.pagesMade.size(), pages.size() - 1)];
    if (error.inJobOptions) {
        throw PublishFailure(PublishStatus::JobOptionsUnusable,
                             fmt::format("Page {}: the PostScript interpreter refuses its job options with the error "
                                         "\"{}\". Choose other job options.",
                                         page.number, error.name));
    }
    if (error.name == "ioerror" && RoomHasRunOut(folder, outputPath)) {
        FailFullDisk(folder);
    }
    FailPage(page, WhatFailed(error), error.position);
}

[[noreturn]] void FailSignalled(const base::ChildResult& result, const std::vector<PageSource>& pages, std::size_t done)
{
    const std::size_t number = pages[std::min(done, pages.size() - 1)].number;
    if (result.outOfTime) {
        throw PublishFailure(PublishStatus::TimeLimit,
                             fmt::format("Page {}: its PostScript took more time than allowed.", number));
    }
    throw PublishFailure(PublishStatus::InterpreterKilled,
                         fmt::format("Page {}: the PostScript interpreter was ended by signal {} ({}).", number,
                                     result.code, result.reason));
}

void CheckPages(const DriverReport& report, const std::vector<PageSource>& pages)
{
    for (std::size_t i = 0; i < report.pagesMade.size() && i < pages.size(); ++i) {
        if (report.pagesMade[i] != 1) {
            FailPage(pages[i], fmt::format("its PostScript made {} pages instead of one", report.pagesMade[i]));
        }
    }
    if (report.pagesMade.size() < pages.size()) {
        FailPage(pages[report.pagesMade.size()], "its PostScript stopped the interpreter before its end");
    }
}

} // namespace

std::size_t LineOfPosition(const std::string& path, long long position)
{
    std::ifstream file(base::ToPath(path), std::ios::binary);
    if (position < 0 || position > kFarthestPosition || !file) {
        return 0;
    }
    std::size_t line = 1;
    char previous = 0;
    for (long long at = 0; at + 1 < position; ++at) {
        const int c = file.get();
        if (c == std::char_traits<char>::eof()) {
            return 0;
        }
        line += c == '\r' || (c == '\n' && previous != '\r') ? 1 : 0;
        previous = static_cast<char>(c);
    }
    return line;
}

void FailMissingInterpreter(const std::string& program)
{
    throw PublishFailure(PublishStatus::InterpreterMissing,
                         fmt::format("Ghostscript (\"{}\") is not installed: PostScript of other programs, and job "
                                     "options that turn colours or downsample pictures, need it. Install it: {}",
                                     program, ghostscript::kInterpreterRemedy));
}

void CheckRun(const base::ChildResult& result, const DriverReport& report, const std::vector<PageSource>& pages,
              const std::string& folder, const std::string& outputPath)
{
    const std::size_t done = report.pagesMade.size();
    if (result.end == base::ChildResult::End::NotStarted) {
        throw PublishFailure(PublishStatus::Internal,
                             fmt::format("Ghostscript could not be started: {}.", result.reason));
    }
    if (result.end == base::ChildResult::End::PastDeadline) {
        throw PublishFailure(PublishStatus::TimeLimit,
                             fmt::format("Page {}: its PostScript took more time than allowed.",
                                         pages[std::min(done, pages.size() - 1)].number));
    }
    if (report.error) {
        FailOnError(report, pages, folder, outputPath);
    }
    if (result.end == base::ChildResult::End::Signalled) {
        FailSignalled(result, pages, done);
    }
    if (result.code != 0 && RoomHasRunOut(folder, outputPath)) {
        FailFullDisk(folder);
    }
    if (result.code != 0 && done >= pages.size()) {
        throw PublishFailure(PublishStatus::Internal, fmt::format("Ghostscript ended with code {}: {}", result.code,
                                                                  LastLine(report.otherOutput)));
    }
    CheckPages(report, pages);
}

} // namespace sm::publisher
