// SPDX-License-Identifier: GPL-3.0-or-later
#include "write/RecordPatch.h"

#include "base/text/Names.h"
#include "write/AppIdPatch.h"

#include <algorithm>
#include <utility>

namespace sm::drawing {

namespace {

/// The bytes of one application's groups in the dictionary; an application may stand there more than once.
std::vector<Edit> RangesOf(const Model& model, const std::string& application)
{
    std::vector<Edit> ranges;
    const std::string folded = base::FoldCase(application);
    TagCursor tags = model.Tags(model.dictionaries.front().slice);
    bool mine = false;
    while (tags.Next()) {
        if (tags.Code() == 1001) {
            mine = base::FoldCase(model.Text(tags.Name())) == folded;
            if (mine)
                ranges.push_back({tags.Begin(), 0, {}});
        }
        if (mine)
            ranges.back().removed = tags.End() - ranges.back().at;
    }
    return ranges;
}

std::string RecordBytes(const Model& model, const std::vector<XDataItem>& items)
{
    TagWriter writer(StyleOf(model), *model.source.text);
    for (const XDataItem& item : items)
        writer.Write(item.code, item.text);
    return writer.Bytes();
}

/// The line end that is missing when the file stops with the dictionary's last line.
std::string LineEndAtFileEnd(const Model& model, const Slice& root)
{
    const std::string_view file = model.source.File();
    const bool open = root.begin + root.length == file.size() && file.back() != '\n' && file.back() != '\r';
    return open && model.source.format == TagFormat::Ascii ? StyleOf(model).lineEnd : std::string();
}

/// `lineEnd`: what the first record behind all others begins with, where the line before it stays and has no end.
void PatchRecord(const Model& model, std::vector<Edit> ranges, const std::vector<XDataItem>& items,
                 std::string& lineEnd, std::vector<Edit>& edits)
{
    if (ranges.empty()) {
        const Slice& root = model.dictionaries.front().slice;
        ranges.push_back({root.begin + root.length, 0, std::exchange(lineEnd, {})});
    }
    ranges.front().bytes += RecordBytes(model, items);
    edits.insert(edits.end(), ranges.begin(), ranges.end());
}

bool ReachesFileEnd(const Model& model, const std::vector<Edit>& ranges)
{
    return !ranges.empty() && ranges.back().at + ranges.back().removed == model.source.File().size();
}

} // namespace

void RequireRoot(const Model& model)
{
    if (model.hasRoot)
        return;
    throw DrawingError(model.path + ": the drawing has no named-object dictionary to keep records in; " +
                       "save it as DXF of release 2000 or later");
}

std::vector<XDataItem> StoredRecord(const Model& model, const std::string& application)
{
    std::vector<XDataItem> items;
    if (!model.hasRoot)
        return items;
    const std::string folded = base::FoldCase(application);
    TagCursor tags = model.Tags(model.dictionaries.front().slice);
    bool mine = false;
    while (tags.Next()) {
        if (tags.Code() == 1001)
            mine = base::FoldCase(model.Text(tags.Name())) == folded;
        const bool again = tags.Code() == 1001 && !items.empty();
        if (mine && !again && tags.Code() >= 1000 && tags.Code() <= 1071)
            items.push_back({static_cast<std::int16_t>(tags.Code()), ItemText(tags, *model.source.text)});
    }
    return items;
}

std::vector<Edit> PatchRecords(const Model& model, const RecordChanges& changes)
{
    RequireRoot(model);
    std::map<std::string, std::vector<Edit>> ranges;
    std::string lineEnd = LineEndAtFileEnd(model, model.dictionaries.front().slice);
    for (const auto& [application, items] : changes) {
        ranges[application] = RangesOf(model, application);
        if (ReachesFileEnd(model, ranges[application]))
            lineEnd.clear(); // the line goes
    }
    std::vector<Edit> edits;
    std::vector<std::string> applications;
    for (const auto& [application, items] : changes) {
        PatchRecord(model, std::move(ranges[application]), items, lineEnd, edits);
        if (!items.empty())
            applications.push_back(application);
    }
    RegisterApplications(model, applications, edits);
    std::stable_sort(edits.begin(), edits.end(), [](const Edit& a, const Edit& b) { return a.at < b.at; });
    return edits;
}

} // namespace sm::drawing
