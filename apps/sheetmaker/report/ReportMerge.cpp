// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/ReportMerge.h"

#include "commandline/Refusal.h"
#include "report/FileUri.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string_view>

namespace sm::app {
namespace {

using OrderedJson = nlohmann::ordered_json;

constexpr std::string_view kLineBegins = R"({"schema":)";

/// Discarded for text that is no JSON.
OrderedJson Parse(const std::string& text)
{
    return OrderedJson::parse(text, nullptr, false);
}

Refusal NoReport(const std::string& place, const std::string& why)
{
    return {kExitUsage, place + ": " + why};
}

/// The line that a byte of a text, counted from 1, stands in.
std::string LineOfByte(const std::string& text, std::size_t byte)
{
    const auto end = text.begin() + static_cast<std::ptrdiff_t>(std::min(byte > 0 ? byte - 1 : 0, text.size()));
    return std::to_string(1 + std::count(text.begin(), end, '\n'));
}

void CheckSchema(const OrderedJson& object, const std::string& place)
{
    const OrderedJson number = object.value("schema", OrderedJson());
    if (number.is_number() && number != kReportSchema)
        throw NoReport(place,
                       "a report of schema " + number.dump() + "; this program knows " + std::to_string(kReportSchema));
    if (number != kReportSchema)
        throw NoReport(place, "no report");
}

/// As sorted text, since a negative count is equal to the large one that it is read as; but 5 may stand for 5.0.
bool IsSame(const nlohmann::json& left, const nlohmann::json& right, const std::string& name)
{
    return name == "milliseconds" ? left == right : left.dump() == right.dump();
}

/// Throws Refusal unless the drawing is what this program writes: what was read of it gives the same object again.
DrawingReport Checked(const OrderedJson& drawing, const std::string& place)
{
    DrawingReport report;
    try {
        report = ReportFromJson(drawing.dump());
    } catch (const std::exception& error) {
        const std::string_view text = error.what(), reason = text.substr(text.find("] ") + 2);
        throw NoReport(place, "no report of a drawing: " + std::string(reason));
    }
    OrderedJson again = OrderedJson::parse(ToJson(report, -1));
    for (const char* path : {"drawing", "drawingUri", "pdf", "pdfUri"}) // what is relative was so elsewhere
        again[path] = drawing.at(path);
    for (const auto& [name, value] : drawing.items())
        if (!again.contains(name) || !IsSame(again.at(name), value, name))
            throw NoReport(place, "no report of a drawing: the field \"" + name + "\" is not as schema " +
                                      std::to_string(kReportSchema) + " has it");
    return report;
}

std::string WithoutBlanks(const std::string& line)
{
    const std::size_t last = line.find_last_not_of(" \t\r");
    return last == std::string::npos ? std::string() : line.substr(0, last + 1);
}

/// Whether it may be the beginning of a line of a report.
bool BeginsALine(std::string_view text)
{
    const std::size_t length = std::min(text.size(), kLineBegins.size());
    return text.substr(0, length) == kLineBegins.substr(0, length);
}

} // namespace

void ReportMerge::Add(const std::string& name, const std::string& text)
{
    std::istringstream lines(text);
    std::string line;
    std::getline(lines, line);
    if (WithoutBlanks(line) == "{") { // one object, over many lines
        try {
            AddLine(OrderedJson::parse(text).dump(), name + ":1", false);
        } catch (const OrderedJson::parse_error& error) {
            throw NoReport(name + ":" + LineOfByte(text, error.byte), "no report, or one that breaks off");
        }
        return;
    }
    lines.clear();
    lines.seekg(0);
    for (std::size_t number = 1; std::getline(lines, line); ++number)
        if (const std::string trimmed = WithoutBlanks(line); !trimmed.empty())
            AddLine(trimmed, name + ":" + std::to_string(number), lines.eof());
}

void ReportMerge::AddLine(const std::string& line, const std::string& place, bool mayBreakOff)
{
    const OrderedJson object = Parse(line);
    if (object.is_object()) {
        CheckSchema(object, place);
        if (!object.contains("drawings"))
            return AddDrawing(line, place);
        if (!object.at("drawings").is_array())
            throw NoReport(place, "no report");
        std::size_t number = 0;
        for (const OrderedJson& drawing : object.at("drawings"))
            AddDrawing(drawing.dump(), place + ": drawing " + std::to_string(++number));
        return;
    }
    // The report of a later process may go on in the line that an earlier one broke off.
    const std::size_t next = line.rfind(kLineBegins);
    const bool goesOn = next != std::string::npos && next > 0 && Parse(line.substr(next)).is_object();
    if (!BeginsALine(line) || !(goesOn || mayBreakOff))
        throw NoReport(place, "no report");
    m_remarks.push_back(place + ": a report that breaks off is left out");
    if (goesOn)
        AddLine(line.substr(next), place, false);
}

void ReportMerge::AddDrawing(const std::string& json, const std::string& place)
{
    OrderedJson drawing = Parse(json);
    if (!drawing.is_object())
        throw NoReport(place, "no report of a drawing");
    drawing.erase("schema");
    const DrawingReport report = Checked(drawing, place);
    const std::string uri = drawing.at("drawingUri");
    const auto known = uri.empty() ? m_places.end() : m_places.find(uri);
    if (known != m_places.end()) {
        m_lines[known->second] = drawing.dump();
        m_reports[known->second] = report;
        return;
    }
    if (!uri.empty())
        m_places.emplace(uri, m_lines.size());
    m_lines.push_back(drawing.dump());
    m_reports.push_back(report);
}

std::vector<std::string> ReportMerge::Untold(const std::vector<std::string>& drawings) const
{
    std::vector<std::string> untold;
    std::copy_if(drawings.begin(), drawings.end(), std::back_inserter(untold),
                 [this](const std::string& drawing) { return !m_places.contains(FileUri(drawing)); });
    return untold;
}

std::string ReportMerge::Text(ReportForm form, const std::string& program) const
{
    if (form == ReportForm::JsonLines) {
        std::string text;
        for (const std::string& line : m_lines)
            text += std::string(kLineBegins) + std::to_string(kReportSchema) + "," + line.substr(1) + "\n";
        return text;
    }
    OrderedJson whole = {{"schema", kReportSchema}, {"program", program}, {"drawings", OrderedJson::array()}};
    for (const std::string& line : m_lines)
        whole["drawings"].push_back(OrderedJson::parse(line));
    return whole.dump(2) + "\n";
}

} // namespace sm::app
