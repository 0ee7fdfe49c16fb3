// SPDX-License-Identifier: GPL-3.0-or-later
#include "write/RecordsFile.h"

#include "base/files/Paths.h"
#include "base/text/Names.h"
#include "drawing/TextDecoder.h"
#include "write/ReplaceFile.h"

#include <filesystem>
#include <nlohmann/json.hpp>

namespace sm::drawing {

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kFormat = "sheetmaker-pdf records";
constexpr int kVersion = 1;

[[noreturn]] void ThrowUnreadable(const std::string& path, const std::string& why)
{
    throw DrawingError(path + ": the drawing's records can't be read (" + why +
                       "); mend the file, or remove it to go on without its stamps, attachments and fields");
}

std::vector<XDataItem> ItemsFrom(const Json& list)
{
    std::vector<XDataItem> items;
    for (const Json& item : list) {
        const auto code = item.at(0).get<double>(); // the file may have any number, which no integer need hold
        if (!(code >= 1000 && code <= 1071))
            throw std::runtime_error("group code " + item.at(0).dump());
        items.push_back({static_cast<std::int16_t>(code), item.at(1).get<std::string>()});
    }
    return items;
}

RecordChanges RecordsFrom(const std::string& path, std::string_view text)
{
    try {
        const Json file = Json::parse(text);
        if (file.at("format") != kFormat || file.at("version").get<double>() > kVersion)
            throw std::runtime_error("another format");
        RecordChanges records;
        for (const auto& [application, items] : file.at("records").items())
            records[application] = ItemsFrom(items);
        return records;
    } catch (const std::exception& error) {
        ThrowUnreadable(path, error.what());
    }
}

std::string Quoted(const std::string& text)
{
    return Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
}

/// JSON with a line for each item, so that people can read and compare it.
std::string TextOf(const std::string& drawing, const RecordChanges& records)
{
    std::string text = "{\n  \"format\": " + Quoted(kFormat) + ",\n  \"version\": " + std::to_string(kVersion) +
                       ",\n  \"drawing\": " + Quoted(base::ToText(base::ToPath(drawing).filename())) +
                       ",\n  \"records\": {";
    const char* next = "\n";
    for (const auto& [application, items] : records) {
        text += next + ("    " + Quoted(application)) + ": [";
        next = "\n";
        for (const XDataItem& item : items) {
            text += next + ("      [" + std::to_string(item.code)) + ", " + Quoted(item.text) + "]";
            next = ",\n";
        }
        text += "]";
        next = ",\n";
    }
    return text + "\n  }\n}\n";
}

} // namespace

RecordsFile::RecordsFile(const std::string& drawing) : m_drawing(drawing), m_path(drawing + kRecordsEnding)
{
    std::error_code error;
    if (!std::filesystem::exists(base::ToPath(m_path), error))
        return;
    const FileBytes bytes = FileBytes::Map(m_path);
    m_stamp = bytes.Stamp();
    m_records = RecordsFrom(m_path, bytes.View());
}

const std::vector<XDataItem>* RecordsFile::Find(const std::string& application) const
{
    const std::string folded = base::FoldCase(application);
    for (const auto& [name, items] : m_records)
        if (base::FoldCase(name) == folded)
            return &items;
    return nullptr;
}

void RecordsFile::Save(const RecordChanges& changes, bool keepBackup)
{
    RecordChanges records = m_records;
    for (const auto& [application, items] : changes) {
        const std::string folded = base::FoldCase(application);
        std::erase_if(records, [&](const auto& record) { return base::FoldCase(record.first) == folded; });
        records[application] = items;
    }
    const std::string text = TextOf(m_drawing, records);
    m_stamp = ReplaceFile(m_path, {text}, m_stamp, keepBackup);
    m_records = std::move(records);
}

} // namespace sm::drawing
