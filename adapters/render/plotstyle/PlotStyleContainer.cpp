// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/File.h"
#include "plotstyle/PlotStyleText.h"
#include "render/PlotStyleTable.h"

#include <algorithm>

namespace sm::render {

namespace {

constexpr std::size_t kLargestTable = 8 << 20;
constexpr const char* kTable = "a plot style table";

} // namespace

void FailPlotStyle(const std::string& path, std::int32_t line, const std::string& what)
{
    const std::string place = line > 0 ? ", line " + std::to_string(line) : std::string();
    std::string oneLine = what; // values that it quotes may have several lines
    std::replace_if(
        oneLine.begin(), oneLine.end(), [](char c) { return c >= 0 && c < ' '; }, ' ');
    throw PlotStyleError(path + place + ": " + oneLine + ". Save the plot style table again or choose another one.");
}

PlotStyleContent UnpackPlotStyleFile(std::string_view bytes, const std::string& path)
{
    if (bytes.size() > kLargestTable) {
        FailPlotStyle(path, 0, "the file is larger than 8 MB");
    }
    const std::string_view head = IsPlotFile(bytes) ? bytes.substr(0, bytes.find('\n')) : std::string_view();
    const bool byColor = head.find("CTB") != std::string_view::npos;
    if (!head.empty() && !byColor && head.find("STB") == std::string_view::npos) {
        FailPlotStyle(path, 1, "the file is no plot style table");
    }
    try {
        return {ParsePlotFileText(UnpackPlotFile(bytes, kTable), kTable), !head.empty(), byColor};
    } catch (const PlotFileFault& fault) {
        FailPlotStyle(path, fault.Line(), fault.what());
    }
}

PlotStyleTable ReadPlotStyleTable(const std::string& path)
{
    std::error_code error;
    const base::FileFacts facts = base::FactsOf(path, error);
    const bool tooLarge = facts.kind == base::FileKind::File && facts.stamp.size > kLargestTable;
    if (tooLarge) {
        FailPlotStyle(path, 0, "the file is larger than 8 MB");
    }
    const std::optional<std::string> bytes = base::ReadRegularFile(path, kLargestTable);
    if (!bytes || bytes->empty()) {
        FailPlotStyle(path, 0, bytes ? "the file is empty" : "the file can't be read");
    }
    return ParsePlotStyleTable(*bytes, path);
}

} // namespace sm::render
