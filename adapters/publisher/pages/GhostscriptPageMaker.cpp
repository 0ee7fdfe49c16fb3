// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/GhostscriptPageMaker.h"

#include "base/files/File.h"
#include "base/files/Paths.h"
#include "base/process/ThisProcess.h"
#include "ghostscript/Interpreter.h"
#include "pages/GhostscriptDriver.h"
#include "pages/GhostscriptFailure.h"
#include "pages/PageFile.h"
#include "pdf/PublishStatus.h"
#include "pdf/TargetFile.h"

#include <filesystem>
#include <fmt/format.h>

namespace sm::publisher {

namespace {

constexpr std::uint64_t kAddressSpace = std::uint64_t{4} << 30;
constexpr std::uint64_t kLargestOutput = std::uint64_t{4} << 30;
constexpr const char* kOutputName = "out.pdf";
constexpr const char* kDriverName = "driver.ps";

std::string MakeNonce()
{
    const auto words = base::RandomWords();
    if (!words) {
        throw PublishFailure(PublishStatus::Internal, "The system gives no random numbers.");
    }
    return fmt::format("sm{:016x}{:016x}", (*words)[0], (*words)[1]);
}

void WriteDriver(const std::string& path, const std::string& program)
{
    std::error_code error;
    base::File file = base::File::Create(path, base::File::Rights::Private, error);
    if (!file.IsOpen()) {
        throw PublishFailure(base::IsDiskFull(error) ? PublishStatus::DiskFull : PublishStatus::WorkFolderUnusable,
                             fmt::format("{} could not be written: {}. Free some space or set TMPDIR to a folder that "
                                         "can be written.",
                                         path, error.message()));
    }
    try {
        file.Write(program);
    } catch (const std::system_error& failure) {
        throw WritingFailure(path, failure.code());
    }
}

std::uintmax_t InputBytes(const std::vector<PageSource>& pages)
{
    std::uintmax_t total = 0;
    for (const PageSource& page : pages) {
        std::error_code error;
        const base::FileFacts facts = base::FactsOf(page.psPath, error);
        if (error || !base::MayRead(page.psPath, error)) {
            FailReading(page.psPath, page.number, error.message());
        }
        total += facts.stamp.size;
    }
    return total;
}

void MakeFolder(const std::string& folder)
{
    std::error_code error;
    std::filesystem::create_directory(base::ToPath(folder), error);
    if (error) {
        throw PublishFailure(
            error == std::errc::no_space_on_device ? PublishStatus::DiskFull : PublishStatus::WorkFolderUnusable,
            fmt::format("{} could not be made: {}. Free some space or set TMPDIR to a folder that can be written.",
                        folder, error.message()));
    }
}

/// The pages' files under plain relative names, whatever characters their own paths hold.
void LinkPages(const std::vector<PageSource>& pages, const std::string& folder)
{
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const std::string reason = ghostscript::LinkInput(folder, PageFileName(i), pages[i].psPath);
        if (!reason.empty()) {
            throw PublishFailure(PublishStatus::WorkFolderUnusable,
                                 fmt::format("{}/{} could not be written: {}. Set TMPDIR to a folder that can be "
                                             "written.",
                                             folder, PageFileName(i), reason));
        }
    }
}

std::vector<std::string> Arguments(const std::vector<PageSource>& pages, const std::string& colorConversion)
{
    const PageSource& first = pages.front();
    std::vector<std::string> arguments{
        "-dNOOUTERSAVE",
        "-sDEVICE=pdfwrite",
        "-dAutoRotatePages=/None",
        "-dCompressPages=false", // the assembly compresses, several times faster
        "-dParseDSCComments=false",
        "-dParseDSCCommentsForDocInfo=false",
        "-K1500000",
        fmt::format("-r{}", UsableResolution(first.width, first.height, first.resolution)),
        fmt::format("-sOutputFile={}", kOutputName)};
    if (!colorConversion.empty()) {
        arguments.push_back(fmt::format("-sColorConversionStrategy={}", colorConversion));
    }
    return arguments;
}

class GhostscriptPageMaker : public IPageMaker {
public:
    explicit GhostscriptPageMaker(const GhostscriptOptions& options) : m_options(options) {}

    void CheckPage(const PageSource& /*page*/, const std::string& /*jobOptions*/) override { (void)Program(); }

    MadePages MakePages(const std::vector<PageSource>& pages, const std::string& jobOptions,
                        const std::string& folder) override
    {
        ghostscript::InterpreterRun run;
        run.program = Program();
        run.limits = Limits(InputBytes(pages));
        run.keptLines = MakeNonce();
        run.folder = folder;
        MakeFolder(folder);
        LinkPages(pages, folder);
        for (std::size_t i = 0; i < pages.size(); ++i) {
            run.readable.push_back(PageFileName(i));
        }
        const std::filesystem::path place = base::ToPath(folder);
        std::string settings = jobOptions;
        run.arguments = Arguments(pages, TakeColorConversion(settings));
        run.input = kDriverName;
        WriteDriver(base::ToText(place / kDriverName), DriverProgram(pages, settings, run.keptLines));
        const base::ChildResult result = ghostscript::RunInterpreter(run);
        CheckRun(result, ReadDriverOutput(result.output, run.keptLines), pages, folder,
                 base::ToText(place / kOutputName));
        return {base::ToText(place / kOutputName), nullptr};
    }

private:
    [[nodiscard]] std::string Program() const
    {
        std::string program = ghostscript::FindInterpreter(m_options.program);
        if (program.empty()) {
            FailMissingInterpreter(m_options.program);
        }
        return program;
    }

    [[nodiscard]] base::ChildLimits Limits(std::uintmax_t inputBytes) const
    {
        base::ChildLimits limits;
        const auto megabytes = static_cast<long long>(inputBytes / 1000000);
        limits.deadline = m_options.deadline + m_options.deadlinePerMegabyte * megabytes;
        limits.cpuSeconds = static_cast<std::uint64_t>(limits.deadline.count() / 1000 + 2);
        limits.memoryBytes = kAddressSpace;
        limits.fileBytes = kLargestOutput;
        return limits;
    }

    GhostscriptOptions m_options;
};

} // namespace

std::unique_ptr<IPageMaker> CreateGhostscriptPageMaker(const GhostscriptOptions& options)
{
    return std::make_unique<GhostscriptPageMaker>(options);
}

} // namespace sm::publisher
