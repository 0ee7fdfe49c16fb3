// SPDX-License-Identifier: GPL-3.0-or-later
// What the readers of single entities need of a drawing. For this room only.
#pragma once

#include "drawing/Drawing.h"
#include "tags/FileBytes.h"
#include "tags/NameTable.h"
#include "tags/Structure.h"
#include "tags/UnreadNumbers.h"

#include <mutex>
#include <unordered_map>
#include <vector>

namespace sm::drawing {

/// Entities and objects whose tags are made when they are asked for: those of a DWG.
class LateTags {
public:
    struct Lost {
        std::uint32_t entities = 0, objects = 0;
    };
    /// The `begin` of a record or slice from here on stands for one of them; its length is unknown.
    static constexpr std::uint64_t kFirst = std::uint64_t{1} << 63U;

    LateTags() = default;
    LateTags(const LateTags&) = delete;
    LateTags& operator=(const LateTags&) = delete;
    virtual ~LateTags() = default;
    /// Where the tags lie in Source::File(), for good. May be asked by several threads. An entity that turns out to be
    /// damaged is an invisible one, an object then has no tags.
    virtual Slice TagsOf(std::uint64_t begin) = 0;
    [[nodiscard]] virtual Handle HandleOf(std::uint64_t begin) const = 0;
    /// How many turned out to be damaged since it was asked last.
    virtual Lost TakeLost() = 0;
};

class Drawing::Source {
public:
    Source(FileBytes fileBytes, TagFormat tagFormat) : bytes(std::move(fileBytes)), format(tagFormat) {}

    FileBytes bytes;
    TagFormat format;
    std::unique_ptr<LateTags> late; ///< null: all tags are there
    std::unique_ptr<TextDecoder> text;
    NameTable layers, linetypes, styles, blocks;
    std::unordered_map<Handle, std::uint32_t> layerOfHandle;
    std::unordered_map<Handle, std::uint32_t> styleOfHandle, linetypeOfHandle, blockOfHandle;
    /// Dimension styles by name: into `dimensionStyles`. Their values are read with the entities that use them.
    NameTable dimensionStyleNames;
    std::vector<Slice> dimensionStyles;
    /// The MLEADERSTYLE, MLINESTYLE and TABLESTYLE objects; those of multilines also by name.
    std::unordered_map<Handle, Slice> noteStyles;
    NameTable multilineStyleNames;
    std::vector<Slice> multilineStyles;
    /// The FIELD objects, and the dictionaries that lead to them: empty in a drawing without fields.
    std::unordered_map<Handle, Slice> fields, dictionaries;

    /// The objects of the kinds that are read; set once, before entities are read.
    const std::vector<NamedSlice>* objectList = nullptr;
    /// An object by its handle; null when it is of a kind that isn't read. May be asked by several threads.
    [[nodiscard]] const NamedSlice* FindObject(Handle handle) const;
    [[nodiscard]] bool HasSpatialFilters() const;
    /// Forms of annotative entities for their scales.
    [[nodiscard]] bool HasContextData() const;
    /// What the file's data section (ACDSDATA, from R2013) holds for an entity.
    [[nodiscard]] const std::vector<NamedSlice>& DataRecordsOf(Handle entity) const;

    /// What its cursors met; shared by all threads.
    mutable UnreadNumbers unreadNumbers;

    [[nodiscard]] std::string_view File() const { return bytes.View(); }
    /// The record with the place and length of its tags.
    [[nodiscard]] EntityRecord Located(EntityRecord record) const
    {
        if (record.begin >= LateTags::kFirst && late != nullptr) {
            const Slice slice = late->TagsOf(record.begin);
            record.begin = slice.begin;
            record.length = static_cast<std::uint32_t>(slice.length);
        }
        return record;
    }
    [[nodiscard]] TagCursor TagsOf(const Slice& slice) const
    {
        const bool waits = slice.begin >= LateTags::kFirst && late != nullptr;
        TagCursor tags = sm::drawing::TagsOf(File(), format, waits ? late->TagsOf(slice.begin) : slice);
        tags.Tell(unreadNumbers);
        return tags;
    }
    [[nodiscard]] TagCursor TagsOf(const EntityRecord& record) const { return TagsOfLocated(Located(record)); }
    /// The same for one that `Located` answered.
    [[nodiscard]] TagCursor TagsOfLocated(const EntityRecord& record) const
    {
        TagCursor tags(File(), format, record.begin, record.length, record.line + 1);
        tags.Tell(unreadNumbers);
        return tags;
    }
    /// 0, "ByLayer" or "Standard" for names that aren't there.
    [[nodiscard]] std::uint32_t LayerOf(std::string_view raw) const { return layers.Find(raw, *text).value_or(0); }
    [[nodiscard]] std::uint32_t LinetypeOf(std::string_view raw) const
    {
        return linetypes.Find(raw, *text).value_or(0);
    }
    [[nodiscard]] std::uint32_t StyleOf(std::string_view raw) const { return styles.Find(raw, *text).value_or(0); }
    [[nodiscard]] std::uint32_t BlockOfHandle(Handle handle) const
    {
        const auto found = blockOfHandle.find(handle);
        return found == blockOfHandle.end() ? kNoBlock : found->second;
    }
    [[nodiscard]] std::uint32_t LinetypeOfHandle(Handle handle) const
    {
        const auto found = linetypeOfHandle.find(handle);
        return found == linetypeOfHandle.end() ? 0 : found->second;
    }
    [[nodiscard]] std::uint32_t StyleOfHandle(Handle handle) const
    {
        const auto found = styleOfHandle.find(handle);
        return found == styleOfHandle.end() ? 0 : found->second;
    }
    [[nodiscard]] std::uint32_t BlockOf(std::string_view raw) const
    {
        return blocks.Find(raw, *text).value_or(kNoBlock);
    }

private:
    void IndexObjects() const;
    mutable std::once_flag m_objectsOnce;
    mutable std::unordered_map<Handle, std::vector<NamedSlice>> m_objects, m_dataRecords;
    mutable bool m_hasFilters = false, m_hasContexts = false;
};

} // namespace sm::drawing
