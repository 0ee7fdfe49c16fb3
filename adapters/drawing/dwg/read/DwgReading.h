// SPDX-License-Identifier: GPL-3.0-or-later
// The steps of reading a DWG. For this room only.
#pragma once

#include "dwg/objects/Rows.h"
#include "dwg/read/ObjectIndex.h"
#include "dwg/tables/BlockHeader.h"
#include "dwg/tables/TableEntries.h"
#include "tags/Source.h"

#include <array>

namespace sm::drawing::dwg {

/// Bytes that the tags of a file of that size may take.
std::uint64_t MostTags(std::uint64_t fileSize);

class DwgReading {
public:
    /// `fileSize` bounds what the tags may take.
    DwgReading(const Container& container, std::uint64_t fileSize, FindingList& findings);
    /// Entities and objects whose tags are the same whenever they are made may wait until they are asked for, where
    /// nothing was found damaged so far; else all are decoded at once. Called before Run.
    void LetThemWait() { m_mayWait = m_findings.All().empty(); }
    /// Once. Nothing is told to `findings` afterwards.
    DecodedTags Run();

    /// Those that wait, by LateTags::kFirst and their place in this list; after Run.
    [[nodiscard]] const std::vector<IndexedObject*>& Waiting() const { return m_waiting; }
    /// The tags of one of them, until the next is asked for; nothing when it is damaged. `lost` is raised by it and by
    /// its damaged parts.
    std::optional<std::string_view> TagsOfWaiting(IndexedObject& object, LateTags::Lost& lost);
    [[nodiscard]] bool IsRecord(const IndexedObject& object) const { return m_index.RecordOf(object.type) != nullptr; }

private:
    using Entries = std::vector<Handle>;

    void CollectColors();
    void CollectNames();
    void FindTable(Table table, Handle control);
    void NameBlocks();
    void WriteTables();
    void ReadBlocks();
    void WriteBlocks();
    void WriteEntitiesOf(const BlockHeader& block);
    void WriteChain(const BlockHeader& block);
    void WriteOrphans(const BlockHeader& block);
    void CollectOrphans();
    void PassListed(IndexedObject& entity);
    bool PassChained(IndexedObject& entity);
    [[nodiscard]] bool MayWait(const IndexedObject& entity, const EntityRow* row) const;
    void Wait(IndexedObject& entity, const EntityRow* row);
    bool WriteEntity(IndexedObject& entity);
    [[nodiscard]] std::string_view NameOf(const IndexedObject& entity, const EntityRow* row) const;
    void WriteKnown(const EntityRow* row, std::string_view name);
    void WriteAnnotationWidth();
    void WriteMembers();
    bool WriteMember(Handle handle);
    void WriteRecords();
    void PassRecord(IndexedObject& object);
    bool WriteRecord(const IndexedObject& object, const RecordRow& row);
    void WriteBodies();
    [[nodiscard]] bool Open(Object& object, const IndexedObject* place);
    /// Long names on many entities would make a small file large: no more is written then.
    [[nodiscard]] bool IsFull() const { return m_sink.Size() > m_most; }
    Entries& EntriesOf(Table table) { return m_entries[static_cast<std::size_t>(table)]; }

    const Container& m_container;
    FindingList& m_findings;
    TagSink m_sink;
    Names m_names;
    ObjectIndex m_index;
    Object m_object, m_member;
    HeaderLinks m_links;
    std::array<Entries, static_cast<std::size_t>(Table::Count)> m_entries;
    std::unordered_map<Handle, std::size_t> m_blockNumbers; ///< places in the table of blocks
    std::vector<BlockHeader> m_blocks;
    std::unordered_map<Handle, Entries> m_orphans; ///< entities by owner, when a chain is broken
    std::vector<IndexedObject*> m_waiting;
    bool m_mayWait = false;
    bool m_hasOrphans = false;
    bool m_inPaper = false; ///< what is written belongs to the active paper space
    std::uint64_t m_most;   ///< bytes of tags
    std::uint32_t m_lostEntities = 0, m_lostObjects = 0;
};

} // namespace sm::drawing::dwg
