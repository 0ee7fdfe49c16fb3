// SPDX-License-Identifier: GPL-3.0-or-later
// Everything that is read from a drawing when it is opened. For this room only.
#pragma once

#include "tags/HeaderVariables.h"
#include "tags/Source.h"
#include "tags/Structure.h"

#include <deque>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

namespace sm::drawing {

/// A block's entities: [first, first + count) of Model::records.
struct RecordSpan {
    std::size_t first = 0, count = 0;
};

/// A dictionary of OBJECTS: names as in the file, with the handles they stand for.
struct Dictionary {
    Handle handle = 0, owner = 0;
    Slice slice;
    std::vector<std::pair<std::string_view, Handle>> entries;
    /// 0 when there is none of that name; letter case aside.
    [[nodiscard]] Handle Find(std::string_view name) const;
};

struct Model {
    explicit Model(FileBytes bytes, TagFormat format) : source(std::move(bytes), format) {}

    std::string path;
    Drawing::Source source;
    Structure structure;
    std::deque<std::string> names; ///< that `structure` refers to and the file does not hold
    FindingList findings;
    std::mutex findingsLock; ///< held where `findings` is used once the drawing has been opened
    HeaderVariables header;
    Version version = Version::Unknown;
    std::string codePage;

    std::vector<Layer> layers;
    std::vector<Linetype> linetypes;
    std::vector<TextStyle> styles;
    std::vector<NamedView> views;
    std::vector<std::string> applications;
    std::optional<ModelView> modelView;

    std::vector<Block> blocks;
    std::vector<RecordSpan> spans; ///< one for each block
    std::vector<EntityRecord> records;
    std::uint32_t modelSpace = kNoBlock, paperSpace = kNoBlock;

    std::vector<Dictionary> dictionaries; ///< the named-object dictionary first, when there is one
    bool hasRoot = false;
    std::vector<Layout> layouts;
    std::size_t activeLayout = 0;
    std::vector<PlotSettings> pageSetups;
    std::vector<ImageDefinition> images;
    std::vector<PlotStyleName> plotStyles;
    FrameSettings frames;

    [[nodiscard]] TagCursor Tags(const Slice& slice) const { return source.TagsOf(slice); }
    [[nodiscard]] std::string Text(std::string_view raw) const { return source.text->Decode(raw); }
    [[nodiscard]] const Dictionary* DictionaryOf(Handle handle) const;
    [[nodiscard]] const Dictionary* RootEntry(std::string_view name) const;
};

// The steps of reading, in this order.
void BuildHeader(Model& model);
void BuildDictionaries(Model& model);
void BuildStyles(Model& model);
void BuildLinetypes(Model& model);
void BuildPlotStyles(Model& model);
void BuildLayers(Model& model);
void BuildLayerOverrides(Model& model);
void BuildViews(Model& model);
void BuildBlocks(Model& model);
void BuildNotes(Model& model);
void BuildObjects(Model& model);
void BuildLayouts(Model& model);
void BuildDrawOrder(Model& model);

/// Calls `take(slice)` for each table entry of that kind.
template <class Take> void ForEachEntry(const Model& model, std::string_view kind, Take take)
{
    for (const NamedSlice& entry : model.structure.tableEntries)
        if (entry.name == kind)
            take(entry.slice);
}

/// Calls `take(slice)` for each object of that kind.
template <class Take> void ForEachObject(const Model& model, std::string_view kind, Take take)
{
    for (const NamedSlice& object : model.structure.objects)
        if (object.name == kind)
            take(object.slice);
}

/// Walks an entry's tags, without groups in braces; stops at extended data.
template <class Take> void ForEachTag(const Model& model, const Slice& slice, Take take)
{
    TagCursor tags = model.Tags(slice);
    bool inBraces = false;
    while (tags.Next() && tags.Code() < 1000) {
        if (tags.Code() == 102)
            inBraces = tags.Name().starts_with('{');
        else if (!inBraces)
            take(static_cast<const TagCursor&>(tags));
    }
}

/// Calls `take(tag)` for the extended data of one application.
template <class Take>
void ForEachExtended(const Model& model, const Slice& slice, std::string_view application, Take take)
{
    TagCursor tags = model.Tags(slice);
    bool mine = false;
    while (tags.Next()) {
        if (tags.Code() == 1001)
            mine = tags.Name() == application;
        else if (mine && tags.Code() >= 1000)
            take(static_cast<const TagCursor&>(tags));
    }
}

} // namespace sm::drawing
