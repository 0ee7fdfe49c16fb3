// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/RunReport.h"

#include "report/FileUri.h"

#include <nlohmann/json.hpp>

namespace sm::app {

using OrderedJson = nlohmann::ordered_json;

namespace {

OrderedJson SheetsToJson(const std::vector<SheetReport>& sheets)
{
    OrderedJson array = OrderedJson::array();
    for (const SheetReport& sheet : sheets)
        array.push_back({{"layout", sheet.name}, {"status", sheet.status}, {"marks", sheet.marks}});
    return array;
}

OrderedJson EntitiesToJson(const EntityCounts& counts, const std::vector<NotDrawn>& kinds)
{
    OrderedJson byKind = OrderedJson::object();
    for (const NotDrawn& kind : kinds)
        byKind[kind.kind] = kind.count;
    return {{"read", counts.read},       {"drawn", counts.drawn},           {"hidden", counts.hidden},
            {"offPage", counts.offPage}, {"notReached", counts.notReached}, {"notDrawn", counts.notDrawn},
            {"notDrawnByKind", byKind}};
}

OrderedJson DamageToJson(const std::vector<Damage>& damage)
{
    OrderedJson array = OrderedJson::array();
    for (const Damage& kind : damage)
        array.push_back(
            {{"text", kind.text}, {"count", kind.count}, {"line", kind.line}, {"contentLost", kind.contentLost}});
    return array;
}

OrderedJson AttachmentsToJson(const std::vector<AttachedFile>& attachments)
{
    OrderedJson array = OrderedJson::array();
    for (const AttachedFile& file : attachments)
        array.push_back({{"name", file.name}, {"path", file.path}, {"bytes", file.bytes}});
    return array;
}

OrderedJson ToObject(const DrawingReport& report)
{
    const RunTimes& times = report.times;
    return {{"drawing", report.drawing},
            {"drawingUri", FileUri(report.drawing == kStandardStream ? "" : report.drawing)},
            {"pdf", report.pdfPath},
            {"pdfUri", FileUri(report.pdfPath == kStandardStream ? "" : report.pdfPath)},
            {"converted", report.Converted()},
            {"failure", report.failure},
            {"exitCode", report.exitCode},
            {"saveStatus", report.saveStatus},
            {"pages", report.pages},
            {"bytes", report.pdfBytes},
            {"sheets", SheetsToJson(report.sheets)},
            {"entities", EntitiesToJson(report.entities, report.notDrawn)},
            {"damage", DamageToJson(report.damage)},
            {"substitutions", report.substitutions},
            {"remarks", report.remarks},
            {"notes", report.notes},
            {"attachments", AttachmentsToJson(report.attachments)},
            {"attachmentsLost", report.attachmentsLost},
            {"marksLost", report.marksLost},
            {"logLost", report.logLost},
            {"notToScale", report.notToScale},
            {"milliseconds",
             {{"open", times.open},
              {"plot", times.plot},
              {"pages", times.pages},
              {"assemble", times.assemble},
              {"total", times.total}}}};
}

void ReadLists(const OrderedJson& object, DrawingReport& report)
{
    for (const OrderedJson& sheet : object.at("sheets"))
        report.sheets.push_back({sheet.at("layout"), sheet.at("status"), sheet.at("marks")});
    for (const OrderedJson& kind : object.at("damage"))
        report.damage.push_back({kind.at("text"), kind.at("count"), kind.at("line"), kind.at("contentLost")});
    for (const auto& [kind, count] : object.at("entities").at("notDrawnByKind").items())
        report.notDrawn.push_back({kind, count});
    report.substitutions = object.at("substitutions").get<std::vector<std::string>>();
    report.remarks = object.at("remarks").get<std::vector<std::string>>();
    report.notes = object.at("notes").get<std::vector<std::string>>();
    for (const OrderedJson& file : object.at("attachments"))
        report.attachments.push_back({file.at("name"), file.at("path"), file.at("bytes")});
    report.attachmentsLost = object.at("attachmentsLost").get<std::vector<std::string>>();
    report.marksLost = object.at("marksLost").get<std::vector<std::string>>();
}

/// A path from both its forms: the text as it was given, unless bytes of it are gone.
std::string Name(const std::string& text, const std::string& uri)
{
    return text.find("\xef\xbf\xbd") == std::string::npos ? text : PathOfUri(uri);
}

/// Bytes that aren't UTF-8 become U+FFFD.
std::string Text(const OrderedJson& json, int indent)
{
    return json.dump(indent, ' ', false, OrderedJson::error_handler_t::replace);
}

} // namespace

std::string ToJson(const DrawingReport& report, int indent)
{
    return Text(ToObject(report), indent);
}

std::string ToJson(const std::vector<DrawingReport>& reports, const std::string& program)
{
    OrderedJson whole = {{"schema", kReportSchema}, {"program", program}, {"drawings", OrderedJson::array()}};
    for (const DrawingReport& report : reports)
        whole["drawings"].push_back(ToObject(report));
    return Text(whole, 2);
}

std::string ToJsonLine(const DrawingReport& report)
{
    OrderedJson line = {{"schema", kReportSchema}};
    line.update(ToObject(report));
    return Text(line, -1);
}

DrawingReport ReportFromJson(const std::string& json)
{
    const OrderedJson object = OrderedJson::parse(json);
    DrawingReport report;
    report.drawing = Name(object.at("drawing"), object.at("drawingUri"));
    report.pdfPath = Name(object.at("pdf"), object.at("pdfUri"));
    report.failure = object.at("failure");
    report.exitCode = object.at("exitCode");
    report.saveStatus = object.at("saveStatus");
    report.logLost = object.at("logLost");
    report.notToScale = object.at("notToScale");
    report.pages = object.at("pages");
    report.pdfBytes = object.at("bytes");
    ReadLists(object, report);
    const OrderedJson& counts = object.at("entities");
    report.entities = {counts.at("read"),    counts.at("drawn"),      counts.at("hidden"),
                       counts.at("offPage"), counts.at("notReached"), counts.at("notDrawn")};
    const OrderedJson& times = object.at("milliseconds");
    report.times = {times.at("open"), times.at("plot"), times.at("pages"), times.at("assemble"), times.at("total")};
    return report;
}

} // namespace sm::app
