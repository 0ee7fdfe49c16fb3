// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Model.h"

namespace sm::drawing {

namespace {

struct NamedEntry {
    std::string_view rawName;
    Handle handle = 0;
};

NamedEntry ReadEntry(const Model& model, const Slice& slice)
{
    NamedEntry entry;
    ForEachTag(model, slice, [&](const TagCursor& tag) {
        if (tag.Code() == 2 && entry.rawName.empty())
            entry.rawName = tag.Name();
        else if (tag.Code() == 5 && entry.handle == 0)
            entry.handle = tag.HandleValue();
    });
    return entry;
}

void AddNamed(Model& model, std::string_view rawName, const Slice& slice, NameTable& names, std::vector<Slice>& slices)
{
    names.Add(rawName, model.Text(rawName), static_cast<std::uint32_t>(slices.size()));
    slices.push_back(slice);
}

} // namespace

void BuildNotes(Model& model)
{
    Drawing::Source& source = model.source;
    for (std::uint32_t i = 0; i < model.linetypes.size(); ++i)
        if (model.linetypes[i].handle != 0)
            source.linetypeOfHandle.emplace(model.linetypes[i].handle, i);
    ForEachEntry(model, "DIMSTYLE", [&](const Slice& slice) {
        AddNamed(model, ReadEntry(model, slice).rawName, slice, source.dimensionStyleNames, source.dimensionStyles);
    });
    for (const char* kind : {"MLEADERSTYLE", "TABLESTYLE"})
        ForEachObject(model, kind,
                      [&](const Slice& slice) { source.noteStyles.emplace(ReadEntry(model, slice).handle, slice); });
    ForEachObject(model, "MLINESTYLE", [&](const Slice& slice) {
        const NamedEntry entry = ReadEntry(model, slice);
        source.noteStyles.emplace(entry.handle, slice);
        AddNamed(model, entry.rawName, slice, source.multilineStyleNames, source.multilineStyles);
    });
}

} // namespace sm::drawing
