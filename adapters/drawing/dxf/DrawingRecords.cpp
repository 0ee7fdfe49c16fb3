// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text/Names.h"
#include "dxf/DxfDrawing.h"
#include "write/ReplaceFile.h"

namespace sm::drawing {

namespace {

/// The items with the application's own 1001 in front; empty when they hold nothing else.
std::vector<XDataItem> Normalised(const std::string& application, const std::vector<XDataItem>& items)
{
    std::vector<XDataItem> record{{1001, application}};
    for (const XDataItem& item : items)
        if (item.code != 1001)
            record.push_back(item);
    if (record.size() == 1)
        record.clear();
    return record;
}

void CheckItems(const std::string& path, const std::string& application, const std::vector<XDataItem>& items)
{
    if (application.empty())
        throw DrawingError(path + ": a record needs the name of its application");
    for (const XDataItem& item : items)
        if (item.code < 1000 || item.code > 1071)
            throw DrawingError(path + ": group code " + std::to_string(item.code) +
                               " can't stand in a record; use 1000 to 1071");
}

/// The bytes between the edits, with those of the edits in their places.
std::vector<std::string_view> Pieces(std::string_view file, const std::vector<Edit>& edits)
{
    std::vector<std::string_view> pieces;
    std::uint64_t at = 0;
    for (const Edit& edit : edits) {
        pieces.push_back(file.substr(at, edit.at - at));
        pieces.emplace_back(edit.bytes);
        at = edit.at + edit.removed;
    }
    pieces.push_back(file.substr(at));
    return pieces;
}

} // namespace

std::vector<XDataItem> DxfDrawing::RecordOf(const std::string& application) const
{
    const std::string folded = base::FoldCase(application);
    for (const auto& [name, items] : m_changes)
        if (base::FoldCase(name) == folded)
            return items;
    if (m_records)
        if (const auto* const items = m_records->Find(application))
            return *items;
    return StoredRecord(*m_model, application);
}

void DxfDrawing::SetRecord(const std::string& application, const std::vector<XDataItem>& items)
{
    if (!m_records)
        RequireRoot(*m_model);
    CheckItems(Path(), application, items);
    std::vector<XDataItem> record = Normalised(application, items);
    if (record == RecordOf(application))
        return;
    const std::string folded = base::FoldCase(application);
    std::erase_if(m_changes, [&](const auto& change) { return base::FoldCase(change.first) == folded; });
    m_changes[application] = std::move(record);
    m_modified = true;
}

void DxfDrawing::Save(bool keepBackup)
{
    if (!m_modified)
        return;
    if (m_isTwin)
        throw DrawingError(Path() + ": this is a second look at the drawing, which isn't saved");
    if (m_records) {
        m_records->Save(m_changes, keepBackup);
        m_modified = false;
        return;
    }
    if (m_stamp == FileStamp{})
        throw DrawingError(Path() + ": this drawing is not a file; it can't be saved");
    const std::vector<Edit> edits = PatchRecords(*m_model, m_changes);
    // The mapped bytes stay those of the file as it was read; all changes since then are written over them each time.
    m_stamp = ReplaceFile(Path(), Pieces(m_model->source.File(), edits), m_stamp, keepBackup);
    m_modified = false;
}

} // namespace sm::drawing
