// SPDX-License-Identifier: GPL-3.0-or-later
#include "ghostscript/PdfPages.h"

#include "base/files/File.h"
#include "base/files/PrivateFolder.h"
#include "ghostscript/Interpreter.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <fmt/format.h>
#include <stdexcept>
#include <string_view>

namespace sm::ghostscript {
namespace {

constexpr const char* kInput = "in.pdf";
constexpr const char* kOutput = "out.ppm";
constexpr std::uint64_t kLargestOutput = std::uint64_t{400} << 20;
constexpr std::uint64_t kMemory = std::uint64_t{2} << 30;
constexpr std::chrono::milliseconds kDeadline{60'000};
constexpr double kLargestSide = 1000; // inches

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

/// Width and height in inches from the interpreter's line about a page; none when it tells none.
PdfPages::Size SizeFrom(std::string_view line)
{
    std::array<double, 4> box{};
    if (!ReadBox(line, "CropBox:", box) && !ReadBox(line, "MediaBox:", box)) {
        return {};
    }
    const PdfPages::Size size{std::abs(box[2] - box[0]) / 72, std::abs(box[3] - box[1]) / 72};
    const std::size_t rotate = line.find("Rotate = ");
    const std::string_view turn = rotate == std::string_view::npos ? "" : line.substr(rotate + 9);
    return turn.starts_with("90") || turn.starts_with("270") ? PdfPages::Size{size.height, size.width} : size;
}

/// A file in the "raw pixmap" form.
PdfPages::Pixels ReadPixmap(const std::string& path)
{
    std::string bytes = base::ReadRegularFile(path, kLargestOutput).value_or("");
    PdfPages::Pixels pixels;
    std::array<std::int32_t, 3> numbers{}; // width, height, largest value
    const char* at = bytes.starts_with("P6") ? bytes.data() + 2 : nullptr;
    const char* const end = bytes.data() + bytes.size();
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
    bytes.erase(0, bytes.size() - size);
    pixels.rgb = std::move(bytes);
    return pixels;
}

/// What the interpreter printed about the file.
std::string Run(const std::string& program, const std::string& folder, const std::string& path,
                std::vector<std::string> arguments, const std::string& keptLines)
{
    InterpreterRun run;
    run.program = FindInterpreter(program);
    if (run.program.empty()) {
        throw std::runtime_error("can't be drawn: the program " + program +
                                 " is not there; install it: " + kInterpreterRemedy);
    }
    LinkInput(folder, kInput, path); // a file that isn't there fails the run
    run.folder = folder;
    run.arguments = std::move(arguments);
    run.readable = {kInput};
    run.input = kInput;
    run.keptLines = keptLines;
    run.limits = {kDeadline, static_cast<std::uint64_t>(kDeadline.count() / 1000 + 2), kMemory, kLargestOutput};
    const base::ChildResult result = RunInterpreter(run);
    if (result.end != base::ChildResult::End::Exited || result.code != 0) {
        throw std::runtime_error("can't be drawn: the PostScript interpreter failed on it");
    }
    return result.output;
}

} // namespace

PdfPages::Size PdfPages::SizeOf(const std::string& path, std::int32_t page) const
{
    const base::PrivateFolder folder(m_workFolder);
    const std::string line = fmt::format("Page {} MediaBox", page);
    const std::string output = Run(m_program, folder.Path(), path, {"-dNODISPLAY", "-dPDFINFO"}, line);
    const std::size_t at = output.find(line);
    const Size size =
        at == std::string::npos ? Size{} : SizeFrom(std::string_view(output).substr(at, output.find('\n', at) - at));
    if (!(size.width > 0 && size.height > 0 && size.width < kLargestSide && size.height < kLargestSide)) {
        throw std::runtime_error("can't be drawn: the file has no such page, or can't be read");
    }
    return size;
}

PdfPages::Pixels PdfPages::Show(const std::string& path, std::int32_t page, double dotsPerInch) const
{
    const base::PrivateFolder folder(m_workFolder);
    Run(m_program, folder.Path(), path,
        {"-sDEVICE=ppmraw", "-dTextAlphaBits=4", "-dGraphicsAlphaBits=4", "-dUseCropBox", "-dInterpolateControl=0",
         fmt::format("-r{:.4f}", dotsPerInch), fmt::format("-dFirstPage={}", page), fmt::format("-dLastPage={}", page),
         fmt::format("-sOutputFile={}", kOutput)},
        "");
    return ReadPixmap(folder.Path() + "/" + kOutput);
}

} // namespace sm::ghostscript
