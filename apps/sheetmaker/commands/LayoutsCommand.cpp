// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/LayoutsCommand.h"

#include "base/files/MappedFile.h"
#include "commandline/ExitCodes.h"
#include "drawing/DrawingError.h"
#include "report/LayoutJson.h"
#include "run/RunSession.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <ostream>

namespace sm::app {
namespace {

constexpr std::size_t kColumns = 6;
using Row = std::array<std::string, kColumns>;

/// At most two decimals, without zeros at the end.
std::string Millimetres(double value)
{
    char text[64];
    const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, 2).ptr;
    std::string number(text, end);
    number.erase(number.find_last_not_of('0') + 1);
    if (number.ends_with('.'))
        number.pop_back();
    return number;
}

Row RowOf(const cadhost::LayoutFacts& layout)
{
    const bool hasPaper = layout.paperWidth > 0 && layout.paperHeight > 0;
    return {(layout.active ? "* " : "  ") + layout.name,
            hasPaper ? Millimetres(layout.paperWidth) + " x " + Millimetres(layout.paperHeight) + " mm" : "none",
            layout.plotArea,
            layout.scale,
            std::to_string(layout.viewports),
            std::to_string(layout.entities)};
}

/// Characters, not bytes.
std::size_t Width(const std::string& text)
{
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xc0) != 0x80; }));
}

} // namespace

std::string LayoutTable(const std::vector<cadhost::LayoutFacts>& layouts)
{
    std::vector<Row> rows{{"  LAYOUT", "PAPER", "AREA", "SCALE", "VIEWPORTS", "ENTITIES"}};
    std::transform(layouts.begin(), layouts.end(), std::back_inserter(rows), RowOf);
    std::array<std::size_t, kColumns> widths{};
    for (const Row& row : rows)
        for (std::size_t column = 0; column < kColumns; ++column)
            widths[column] = std::max(widths[column], Width(row[column]));
    std::string table;
    for (const Row& row : rows) {
        std::string line;
        for (std::size_t column = 0; column < kColumns; ++column)
            line += row[column] + std::string(widths[column] - Width(row[column]) + 2, ' ');
        line.erase(line.find_last_not_of(' ') + 1);
        table += line + "\n";
    }
    return table;
}

namespace {

/// Names come from files: what would begin a line or steer a terminal shows as "?".
std::string OneLine(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 0x7F; }, '?');
    return text;
}

} // namespace

std::string LayoutNames(const std::vector<cadhost::LayoutFacts>& layouts)
{
    std::string lines;
    for (const cadhost::LayoutFacts& layout : layouts)
        lines += OneLine(layout.name) + "\n";
    return lines;
}

int RunLayouts(const LayoutsJob& job, const Install& install, std::ostream& out, std::ostream& err)
{
    try {
        terminal::Console console(err, false);
        DrawingReport report;
        DrawingTask task;
        task.drawing = job.drawing;
        RunSession session(task, install, console, report);
        session.Open(job.drawing);
        const std::vector<cadhost::LayoutFacts> layouts = session.LayoutFacts();
        base::MappedFile::RequireWhole();
        out << (job.json ? LayoutJson(layouts) : job.names ? LayoutNames(layouts) : LayoutTable(layouts));
        return kExitDone;
    } catch (const drawing::DwgConverterMissing& error) {
        err << "sheetmaker layouts: " << error.what() << "\n";
        return kExitToolMissing;
    } catch (const std::exception& error) {
        err << "sheetmaker layouts: " << error.what() << "\n";
        return kExitFailed;
    }
}

} // namespace sm::app
