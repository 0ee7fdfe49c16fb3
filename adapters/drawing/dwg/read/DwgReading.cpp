// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/read/DwgReading.h"

#include "base/text/Names.h"
#include "drawing/TextDecoder.h"
#include "dwg/file/DataStore.h"

#include <algorithm>
#include <utility>

namespace sm::drawing::dwg {

namespace {

struct TableLink {
    Table table;
    Handle HeaderLinks::*control;
};
constexpr std::array kTables{TableLink{Table::Application, &HeaderLinks::applications},
                             TableLink{Table::Linetype, &HeaderLinks::linetypes},
                             TableLink{Table::Style, &HeaderLinks::styles},
                             TableLink{Table::Layer, &HeaderLinks::layers},
                             TableLink{Table::View, &HeaderLinks::views},
                             TableLink{Table::Viewport, &HeaderLinks::viewports},
                             TableLink{Table::DimensionStyle, &HeaderLinks::dimensionStyles},
                             TableLink{Table::Block, &HeaderLinks::blocks}};

/// Tags take about that many bytes for one of the objects' stream.
constexpr std::uint64_t kGrowth = 3;

/// A sound file's tags take six times its size at most.
constexpr std::uint64_t kMostTags = 16'000'000, kMostGrowth = 12;

} // namespace

std::uint64_t MostTags(std::uint64_t fileSize)
{
    return kMostTags + kMostGrowth * fileSize;
}

namespace {

Names NamesOf(const Container& container)
{
    Names names;
    names.classes = ReadClasses(container);
    return names;
}

} // namespace

DwgReading::DwgReading(const Container& container, std::uint64_t fileSize, FindingList& findings)
    : m_container(container), m_findings(findings), m_names(NamesOf(container)),
      m_index(container, m_names.classes, findings), m_object(container, m_sink, m_names),
      m_member(container, m_sink, m_names), m_most(MostTags(fileSize))
{
    m_sink.Reserve(container.Objects().size() * kGrowth);
}

DecodedTags DwgReading::Run()
{
    CollectColors();
    const LinkedRows linked = WriteHeader(m_object, m_container);
    m_links = LinksAmong(linked);
    CollectNames();
    WriteLinked(m_object, linked);
    WriteTables();
    ReadBlocks();
    WriteBlocks();
    WriteRecords();
    WriteBodies();
    if (m_lostEntities > 0)
        m_findings.Add(Damage::EntityDamaged, 1, m_lostEntities);
    if (m_lostObjects > 0)
        m_findings.Add(Damage::ObjectDamaged, 1, m_lostObjects);
    return m_sink.Finish();
}

bool DwgReading::Open(Object& object, const IndexedObject* place)
{
    return place != nullptr && object.Open(place->offset, place->handle);
}

void DwgReading::CollectColors()
{
    for (const IndexedObject& one : m_index.All()) {
        const ObjectClass* const kind = m_index.ClassOf(one.type);
        if (kind == nullptr || kind->name != "DBCOLOR" || !Open(m_object, &one))
            continue;
        m_object.ReadObjectHead();
        Color color = m_object.CMC();
        if (!m_object.Lost())
            m_names.colors.emplace(one.handle, std::move(color));
    }
}

void DwgReading::FindTable(Table table, Handle control)
{
    const TableTypes types = TypesOf(table);
    Entries& entries = EntriesOf(table);
    const IndexedObject* place = m_index.Find(control);
    if (place == nullptr || place->type != types.control) {
        // The header is damaged: the control object is known by its type.
        const auto found = std::ranges::find(m_index.All(), types.control, &IndexedObject::type);
        place = found == m_index.All().end() ? nullptr : &*found;
    }
    if (Open(m_object, place))
        entries = ReadControl(m_object, table);
    else
        for (const IndexedObject& one : m_index.All())
            if (one.type == types.entry)
                entries.push_back(one.handle);
    for (std::size_t i = 0; i < entries.size() && table == Table::Block; ++i)
        m_blockNumbers.emplace(entries[i], i);
    std::erase_if(entries, [&](Handle handle) {
        IndexedObject* const entry = m_index.Find(handle);
        return entry == nullptr || entry->type != types.entry || std::exchange(entry->listed, true);
    });
}

void DwgReading::CollectNames()
{
    for (const TableLink& link : kTables) {
        FindTable(link.table, m_links.*link.control);
        m_names.entries.reserve(m_names.entries.size() + EntriesOf(link.table).size());
        for (const Handle handle : EntriesOf(link.table))
            if (Open(m_object, m_index.Find(handle)))
                m_names.entries.insert_or_assign(handle, ReadEntryName(m_object));
    }
    m_names.linetypes = EntriesOf(Table::Linetype);
    m_names.modelSpace = m_links.modelSpace;
    m_names.paperSpace = m_links.paperSpace;
    NameBlocks();
}

/// Anonymous blocks are stored without their numbers: they are called after their places in the table, as in a DXF.
void DwgReading::NameBlocks()
{
    for (const Handle handle : EntriesOf(Table::Block)) {
        std::string& name = m_names.entries[handle];
        const std::string folded = base::FoldCase(name);
        if (folded == "*model_space" && m_names.modelSpace == 0)
            m_names.modelSpace = handle;
        if (folded == "*paper_space" && m_names.paperSpace == 0)
            m_names.paperSpace = handle;
        const bool anonymous = name.size() == 2 && name.starts_with('*');
        if (anonymous || (folded == "*paper_space" && handle != m_names.paperSpace))
            name += std::to_string(m_blockNumbers[handle]);
    }
}

void DwgReading::WriteTables()
{
    for (const TableLink& link : kTables) {
        if (link.table == Table::Block)
            continue;
        for (const Handle handle : EntriesOf(link.table)) {
            if (!IsFull() && Open(m_object, m_index.Find(handle)))
                WriteTableEntry(m_object, link.table);
            if (m_object.Lost() && m_sink.Abandon())
                ++m_lostObjects;
            m_sink.Close();
        }
    }
}

void DwgReading::ReadBlocks()
{
    for (const Handle handle : EntriesOf(Table::Block)) {
        if (!Open(m_object, m_index.Find(handle)))
            continue;
        BlockHeader header = ReadBlockHeader(m_object);
        if (m_object.Lost()) {
            ++m_lostObjects;
            m_hasOrphans = true;
        }
        WriteBlockRecord(m_object, header);
        m_sink.Close();
        m_blocks.push_back(std::move(header));
    }
}

void DwgReading::WriteBlocks()
{
    if (m_container.MapDamaged())
        m_hasOrphans = true;
    if (m_hasOrphans)
        CollectOrphans();
    const auto isSpace = [this](const BlockHeader& block) {
        return block.handle == m_names.modelSpace || block.handle == m_names.paperSpace;
    };
    for (const BlockHeader& block : m_blocks) {
        WriteBlock(m_sink, m_names, block);
        if (!isSpace(block))
            WriteEntitiesOf(block);
        m_sink.EndBlock();
    }
    for (const BlockHeader& block : m_blocks) {
        m_inPaper = block.handle == m_names.paperSpace;
        if (isSpace(block))
            WriteEntitiesOf(block);
    }
    m_sink.Close();
    m_inPaper = false;
}

void DwgReading::WriteRecords()
{
    // A type of its own in some releases, a class in others.
    const auto isXRecord = [this](const IndexedObject& object) {
        const RecordRow* const row = m_index.RecordOf(object.type);
        return row != nullptr && row->decode == DecodeXRecord;
    };
    // The named-object dictionary comes first, as in a DXF.
    IndexedObject* const root = m_index.Find(m_links.dictionary);
    if (root != nullptr) {
        PassRecord(*root);
        root->taken = true;
    }
    for (IndexedObject& object : m_index.All())
        if (!object.taken && !isXRecord(object))
            PassRecord(object);
    for (const Handle handle : m_object.records)
        if (IndexedObject* const record = m_index.Find(handle); record != nullptr && isXRecord(*record))
            if (!std::exchange(record->taken, true))
                PassRecord(*record);
    m_sink.Close();
}

void DwgReading::PassRecord(IndexedObject& object)
{
    const RecordRow* const row = m_index.RecordOf(object.type);
    if (row == nullptr)
        return;
    if (!row->waits || !m_mayWait || m_hasOrphans) {
        WriteRecord(object, *row);
        return;
    }
    m_sink.LateObject(row->name, LateTags::kFirst + m_waiting.size());
    m_waiting.push_back(&object);
}

/// False: it is damaged, and left out.
bool DwgReading::WriteRecord(const IndexedObject& object, const RecordRow& row)
{
    if (IsFull() || !Open(m_object, &object)) {
        ++m_lostObjects;
        return false;
    }
    m_sink.Object(row.name);
    m_object.ReadObjectHead();
    m_object.WriteObjectHead();
    row.decode(m_object);
    if (m_object.Lost()) {
        m_sink.Abandon();
        ++m_lostObjects;
        return false;
    }
    m_object.WriteExtended();
    return true;
}

/// Bodies that are stored in binary form: as records of the data section, where DXF has them.
void DwgReading::WriteBodies()
{
    const auto write = [this](Handle entity, std::string_view save) {
        m_sink.Object("ACDSRECORD");
        m_sink.HandleTag(320, entity);
        m_sink.Text(2, "ASM_Data");
        m_sink.Chunks(310, save);
    };
    for (const auto& [entity, save] : m_object.bodies)
        write(entity, save);
    const BodyStore store = ReadBodies(m_container.DataStore());
    for (const auto& [entity, save] : store.bodies)
        write(entity, save);
    m_sink.Close();
}

} // namespace sm::drawing::dwg
