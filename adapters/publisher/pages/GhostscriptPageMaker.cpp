#include "pages/GhostscriptPageMaker.h"

#include "base/files/File.h"
#include "base/files/Paths.h"
#include "base/process/ChildProcess.h"
#include "base/process/ThisProcess.h"
#include "pages/GhostscriptDriver.h"
#include "pages/GhostscriptFailure.h"
#include "pdf/PublishStatus.h"
#include "pdf/TargetFile.h"

#include <filesystem>
#include <fmt/format.h>

namespace sm::publisher {

namespace {

constexpr std::uint64_t kAddressSpace = std::uint64_t{4} << 30;
constexpr std::uint64_t kLargestFile = std::uint64_t{4} << 30;
constexpr const char* kOutputName = "out.pdf";
constexpr const char* kDriverName = "driver.ps";
constexpr const char* kTemporaryName = "tmp";

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
            throw PublishFailure(PublishStatus::PostScriptMissing,
                                 fmt::format("Page {}: the PostScript file {} can't be read: {}. Plot the sheet again.",
                                             page.number, page.psPath, error.message()));
        }
        total += facts.stamp.size;
    }
    return total;
}

/// The pages' files under plain relative names, whatever characters their own paths hold.
void LinkPages(const std::vector<PageSource>& pages, const std::filesystem::path& folder)
{
    for (std::size_t i = 0; i < pages.size(); ++i) {
        std::error_code error;
        std::filesystem::create_symlink(std::filesystem::absolute(base::ToPath(pages[i].psPath), error),
                                        folder / PageFileName(i), error);
        if (error) {
            throw PublishFailure(PublishStatus::WorkFolderUnusable,
                                 fmt::format("{} could not be written: {}. Set TMPDIR to a folder that can be written.",
                                             base::ToText(folder / PageFileName(i)), error.message()));
        }
    }
}

std::vector<std::string> Environment()
{
    std::vector<std::string> environment{fmt::format("TMPDIR={}", kTemporaryName), "LC_ALL=C.UTF-8"};
    for (const char* name : {"PATH", "HOME", "XDG_CACHE_HOME"}) {
        if (const auto value = base::Variable(name)) {
            environment.push_back(fmt::format("{}={}", name, *value));
        }
    }
    return environment;
}

std::vector<std::string> Arguments(const std::vector<PageSource>& pages, const std::string& colorConversion)
{
    const PageSource& first = pages.front();
    std::vector<std::string> arguments{
        "-q",
        "-dBATCH",
        "-dNOPAUSE",
        "-dSAFER",
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
    for (std::size_t i = 0; i < pages.size(); ++i) {
        arguments.push_back(fmt::format("--permit-file-read={}", PageFileName(i)));
    }
    arguments.emplace_back(kDriverName);
    return arguments;
}

class GhostscriptPageMaker : public IPageMaker {
public:
    explicit GhostscriptPageMaker(const GhostscriptOptions& options) : m_options(options) {}

    MadePages MakePages(const std::vector<PageSource>& pages, const std::string& jobOptions,
                        const std::string& folder) override
    {
        base::ChildCommand command;
        command.program = base::FindProgram(m_options.program);
        if (command.program.empty()) {
            FailMissingInterpreter(m_options.program);
        }
        const std::uintmax_t bytes = InputBytes(pages);
        const std::string nonce = MakeNonce();
        const std::filesystem::path place = base::ToPath(folder);
        LinkPages(pages, place);
        std::error_code error;
        std::filesystem::create_directory(place / kTemporaryName, error);
        std::string settings = jobOptions;
        command.arguments = Arguments(pages, TakeColorConversion(settings));
        WriteDriver(base::ToText(place / kDriverName), DriverProgram(pages, settings, nonce));
        command.environment = Environment();
        command.workingFolder = folder;
        command.keptLines = nonce;
        command.limits = Limits(bytes);
        const base::ChildResult result = base::RunChild(command);
        CheckRun(result, ReadDriverOutput(result.output, nonce), pages, folder, base::ToText(place / kOutputName));
        return {base::ToText(place / kOutputName), nullptr};
    }

private:
    [[nodiscard]] base::ChildLimits Limits(std::uintmax_t inputBytes) const
    {
        base::ChildLimits limits;
        const auto megabytes = static_cast<long long>(inputBytes / 1000000);
        limits.deadline = m_options.deadline + m_options.deadlinePerMegabyte * megabytes;
        limits.cpuSeconds = static_cast<std::uint64_t>(limits.deadline.count() / 1000 + 2);
        limits.memoryBytes = kAddressSpace;
        limits.fileBytes = kLargestFile;
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
