#include "run/UnderlayPages.h"

#include "base/files/File.h"
#include "base/files/Paths.h"
#include "base/files/PrivateFolder.h"
#include "base/process/ChildProcess.h"
#include "drawing/FindReferenced.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <fmt/format.h>
#include <stdexcept>

namespace sm::app {

namespace {

namespace fs = std::filesystem;
using render::Vec2;

constexpr const char* kInput = "in.pdf";
constexpr const char* kOutput = "out.ppm";
constexpr const char* kTemporary = "tmp";
constexpr std::uint64_t kLargestOutput = std::uint64_t{400} << 20;
constexpr std::uint64_t kMemory = std::uint64_t{2} << 30;
constexpr std::chrono::milliseconds kDeadline{60'000};

/// Four numbers behind `key` and a bracket: lower-left and upper-right corner.
bool ReadBox(std::string_view line, std::string_view key, std::array<double, 4>& box)
{
    const std::size_t at = line.find(key);
    if (at == std::string_view::npos) {
        return false;
    }
    const char* from = line.data() + at + key.size();
    const char* const end = line.data() + line.size();
    for (double& value : box) {
        while (from != end && (*from == ' ' || *from == '[')) {
            ++from;
        }
        const auto [next, error] = std::from_chars(from, end, value);
        if (error != std::errc()) {
            return false;
        }
        from = next;
    }
    return true;
}

/// Width and height in inches from the interpreter's line about a page; {0, 0} when it tells none.
Vec2 SizeFrom(std::string_view line)
{
    std::array<double, 4> box{};
    if (!ReadBox(line, "CropBox:", box) && !ReadBox(line, "MediaBox:", box)) {
        return {};
    }
    const Vec2 size{std::abs(box[2] - box[0]) / 72, std::abs(box[3] - box[1]) / 72};
    const std::size_t rotate = line.find("Rotate = ");
    const std::string_view turn = rotate == std::string_view::npos ? "" : line.substr(rotate + 9);
    return turn.starts_with("90") || turn.starts_with("270") ? Vec2{size.y, size.x} : size;
}

/// A file in the "raw pixmap" form.
render::IPageRasterizer::Pixels ReadPixmap(const std::string& path)
{
    auto bytes = base::ReadRegularFile(path, kLargestOutput);
    render::IPageRasterizer::Pixels pixels;
    std::array<std::int32_t, 3> numbers{}; // width, height, largest value
    const char* at = bytes && bytes->starts_with("P6") ? bytes->data() + 2 : nullptr;
    const char* const end = bytes ? bytes->data() + bytes->size() : nullptr;
    for (std::size_t i = 0; at != nullptr && at < end && i < numbers.size();) {
        if (*at == '#') {
            at = std::find(at, end, '\n');
        } else if (*at == ' ' || *at == '\n') {
            ++at;
        } else {
            const auto [next, error] = std::from_chars(at, end, numbers[i++]);
            at = error == std::errc() ? next : nullptr;
        }
    }
    const auto size =
        static_cast<std::uint64_t>(std::max(numbers[0], 0)) * static_cast<std::uint64_t>(std::max(numbers[1], 0)) * 3;
    if (at == nullptr || numbers[2] != 255 || size == 0 || static_cast<std::uint64_t>(end - at) != size + 1) {
        throw std::runtime_error("can't be drawn: the PostScript interpreter made no picture of it");
    }
    pixels.width = numbers[0];
    pixels.height = numbers[1];
    bytes->erase(0, bytes->size() - size);
    pixels.rgb = std::move(*bytes);
    return pixels;
}

class UnderlayPages final : public render::IPageRasterizer {
public:
    explicit UnderlayPages(std::string program) : m_program(std::move(program)) {}

    Vec2 SizeOf(const std::string& path, std::int32_t page) override
    {
        const base::PrivateFolder folder("");
        const std::string line = fmt::format("Page {} ", page);
        const std::string output = Run(folder.Path(), path, {"-dNODISPLAY", "-dPDFINFO"}, line + "MediaBox");
        const std::size_t at = output.find(line + "MediaBox");
        const Vec2 size = at == std::string::npos
                              ? Vec2{}
                              : SizeFrom(std::string_view(output).substr(at, output.find('\n', at) - at));
        if (!(size.x > 0 && size.y > 0 && size.x < 1000 && size.y < 1000)) {
            throw std::runtime_error("can't be drawn: the file has no such page, or can't be read");
        }
        return size;
    }

    Pixels Show(const std::string& path, std::int32_t page, double dotsPerInch) override
    {
        const base::PrivateFolder folder("");
        const std::vector<std::string> arguments{"-sDEVICE=ppmraw",
                                                 "-dTextAlphaBits=4",
                                                 "-dGraphicsAlphaBits=4",
                                                 "-dUseCropBox",
                                                 "-dInterpolateControl=0",
                                                 fmt::format("-r{:.4f}", dotsPerInch),
                                                 fmt::format("-dFirstPage={}", page),
                                                 fmt::format("-dLastPage={}", page),
                                                 fmt::format("-sOutputFile={}", kOutput)};
        Run(folder.Path(), path, arguments, "");
        return ReadPixmap(folder.Path() + "/" + kOutput);
    }

private:
    /// What the interpreter printed about the file.
    std::string Run(const std::string& folder, const std::string& path, const std::vector<std::string>& arguments,
                    const std::string& keptLines) const
    {
        base::ChildCommand command;
        command.program = base::FindProgram(m_program);
        if (command.program.empty()) {
            throw std::runtime_error("can't be drawn: the program " + m_program +
                                     " is not there; install it with: apt-get install ghostscript");
        }
        std::error_code error;
        fs::create_symlink(fs::absolute(path, error), base::ToPath(folder) / kInput, error);
        fs::create_directory(base::ToPath(folder) / kTemporary, error);
        command.arguments = {"-q", "-dBATCH", "-dNOPAUSE", "-dSAFER"};
        command.arguments.insert(command.arguments.end(), arguments.begin(), arguments.end());
        command.arguments.emplace_back(fmt::format("--permit-file-read={}", kInput));
        command.arguments.emplace_back(kInput);
        command.environment = Environment();
        command.workingFolder = folder;
        command.keptLines = keptLines;
        command.limits = {kDeadline, static_cast<std::uint64_t>(kDeadline.count() / 1000 + 2), kMemory, kLargestOutput};
        const base::ChildResult result = base::RunChild(command);
        if (result.end != base::ChildResult::End::Exited || result.code != 0) {
            throw std::runtime_error("can't be drawn: the PostScript interpreter failed on it");
        }
        return result.output;
    }

    static std::vector<std::string> Environment()
    {
        std::vector<std::string> environment{fmt::format("TMPDIR={}", kTemporary), "LC_ALL=C.UTF-8"};
        for (const char* name : {"PATH", "HOME", "XDG_CACHE_HOME"}) {
            if (const char* value = std::getenv(name)) {
                environment.push_back(fmt::format("{}={}", name, value));
            }
        }
        return environment;
    }

    std::string m_program;
};

} // namespace

std::shared_ptr<render::IPageRasterizer> CreateUnderlayPages(const std::string& program)
{
    return std::make_shared<UnderlayPages>(program);
}

} // namespace sm::app
