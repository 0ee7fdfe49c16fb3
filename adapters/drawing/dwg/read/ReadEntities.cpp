// SPDX-License-Identifier: GPL-3.0-or-later
// The entities of blocks and spaces, with their vertices and attributes.
#include "dwg/read/DwgReading.h"
#include "dwg/recovery/ObjectSearch.h"

namespace sm::drawing::dwg {

namespace {

constexpr std::uint32_t kAttribute = 2, kBlock = 4, kEndBlock = 5, kSequenceEnd = 6, kFirstVertex = 10,
                        kLastVertex = 14;

bool IsVertex(std::uint32_t type)
{
    return type >= kFirstVertex && type <= kLastVertex;
}

/// What never stands in a block of itself.
bool IsPart(std::uint32_t type)
{
    return type == kAttribute || type == kBlock || type == kEndBlock || type == kSequenceEnd || IsVertex(type);
}

} // namespace

void DwgReading::WriteEntitiesOf(const BlockHeader& block)
{
    m_object.viewports = 0;
    if (m_object.Before(Release::R2004))
        WriteChain(block);
    for (const Handle handle : block.entities) {
        IndexedObject* const entity = m_index.Find(handle);
        if (entity == nullptr)
            ++m_lostEntities;
        else if (!entity->taken)
            PassListed(*entity);
    }
    if (m_hasOrphans)
        WriteOrphans(block);
}

/// Up to R2000 each entity names the next one. A broken chain leaves entities that know their owner.
void DwgReading::WriteChain(const BlockHeader& block)
{
    Handle handle = block.first;
    bool whole = handle == 0;
    while (handle != 0) {
        IndexedObject* const entity = m_index.Find(handle);
        if (entity == nullptr || entity->taken || !PassChained(*entity))
            break;
        whole = handle == block.last;
        handle = whole ? 0 : m_object.next;
    }
    if (!whole && !m_hasOrphans) {
        CollectOrphans();
        WriteOrphans(block);
    }
}

/// Whether its tags are the same whenever they are made: viewports are counted over their block, and binary bodies
/// become records of their own.
bool DwgReading::MayWait(const IndexedObject& entity, const EntityRow* row) const
{
    if (!m_mayWait || m_hasOrphans || IsPart(entity.type))
        return false;
    if (row == nullptr) {
        const ObjectClass* const kind = m_index.ClassOf(entity.type);
        return kind != nullptr && kind->isEntity;
    }
    return row->decode != DecodeViewport && (row->decode != DecodeBody || m_object.Before(Release::R2004));
}

void DwgReading::Wait(IndexedObject& entity, const EntityRow* row)
{
    entity.taken = true;
    m_sink.LateEntity(NameOf(entity, row), LateTags::kFirst + m_waiting.size(), m_inPaper);
    m_waiting.push_back(&entity);
}

void DwgReading::PassListed(IndexedObject& entity)
{
    if (const EntityRow* const row = m_index.EntityOf(entity.type); MayWait(entity, row))
        Wait(entity, row);
    else
        WriteEntity(entity);
}

/// The same, but for its head, which leads to the next one. False: it is damaged, and left out.
bool DwgReading::PassChained(IndexedObject& entity)
{
    const EntityRow* const row = m_index.EntityOf(entity.type);
    if (!MayWait(entity, row))
        return WriteEntity(entity);
    if (!Open(m_object, &entity)) {
        entity.taken = true;
        ++m_lostEntities;
        return false;
    }
    m_object.ReadEntityHead();
    if (m_object.Lost() || (row != nullptr && row->decode == DecodeBody && HoldsBinaryBody(m_object)))
        return WriteEntity(entity);
    Wait(entity, row);
    return true;
}

std::optional<std::string_view> DwgReading::TagsOfWaiting(IndexedObject& object, LateTags::Lost& lost)
{
    m_lostEntities = m_lostObjects = 0;
    m_sink.Forget();
    const RecordRow* const row = m_index.RecordOf(object.type);
    const bool sound = row != nullptr ? WriteRecord(object, *row) : WriteEntity(object);
    lost.entities += m_lostEntities;
    lost.objects += m_lostObjects;
    return sound ? std::optional(m_sink.TakeOpen()) : std::nullopt;
}

void DwgReading::CollectOrphans()
{
    m_hasOrphans = true;
    for (const IndexedObject& one : m_index.All()) {
        const ObjectClass* const kind = m_index.ClassOf(one.type);
        const bool isEntity = one.type < kFirstClass ? m_index.EntityOf(one.type) != nullptr && !IsPart(one.type)
                                                     : kind != nullptr && kind->isEntity;
        if (one.taken || !isEntity || !Open(m_member, &one))
            continue;
        m_member.ReadEntityHead();
        if (!m_member.Lost())
            m_orphans[m_member.owner].push_back(one.handle);
    }
}

void DwgReading::WriteOrphans(const BlockHeader& block)
{
    for (const Handle handle : m_orphans[block.handle])
        if (IndexedObject* const entity = m_index.Find(handle); entity != nullptr && !entity->taken)
            WriteEntity(*entity);
}

/// Of an entity that has a row or a class.
std::string_view DwgReading::NameOf(const IndexedObject& entity, const EntityRow* row) const
{
    return row != nullptr ? row->name : std::string_view(m_index.ClassOf(entity.type)->name);
}

/// False: it is damaged, and left out.
bool DwgReading::WriteEntity(IndexedObject& entity)
{
    entity.taken = true;
    if (IsFull() || !Open(m_object, &entity)) {
        ++m_lostEntities;
        return false;
    }
    const EntityRow* const row = m_index.EntityOf(entity.type);
    const ObjectClass* const kind = m_index.ClassOf(entity.type);
    m_object.ReadEntityHead();
    if (IsPart(entity.type) || (row == nullptr && (kind == nullptr || !kind->isEntity)))
        return !m_object.Lost();
    const Handle next = m_object.next;
    WriteKnown(row, NameOf(entity, row));
    m_object.next = next;
    if (!m_object.Lost())
        return true;
    m_sink.Abandon();
    ++m_lostEntities;
    return false;
}

/// Without a row: all that can be drawn of it is its preview.
void DwgReading::WriteKnown(const EntityRow* row, std::string_view name)
{
    m_sink.Entity(name);
    if (m_inPaper)
        m_sink.PaperSpace();
    m_object.WriteEntityHead();
    if (row == nullptr || row->hasGraphics)
        m_object.WriteGraphics();
    if (row != nullptr)
        row->decode(m_object);
    if (m_object.Lost())
        return;
    if (m_object.annotation != 0 && m_object.Since(Release::R2010))
        WriteAnnotationWidth();
    m_object.WriteExtended();
    WriteMembers();
}

/// From R2010 on a leader doesn't tell any more how wide its text is.
void DwgReading::WriteAnnotationWidth()
{
    constexpr std::uint32_t kMText = 44;
    const IndexedObject* const text = m_index.Find(m_object.annotation);
    if (text == nullptr || text->type != kMText || !Open(m_member, text))
        return;
    m_member.ReadEntityHead();
    const double width = ReadMTextWidth(m_member);
    if (!m_member.Lost())
        m_sink.Real(41, width);
}

void DwgReading::WriteMembers()
{
    for (const Handle handle : m_object.members)
        if (!WriteMember(handle))
            ++m_lostEntities;
    Handle handle = m_object.firstMember;
    while (handle != 0) {
        if (!WriteMember(handle)) {
            ++m_lostEntities;
            return;
        }
        handle = handle == m_object.lastMember ? 0 : m_member.next;
    }
}

bool DwgReading::WriteMember(Handle handle)
{
    IndexedObject* const place = m_index.Find(handle);
    if (IsFull() || place == nullptr || place->taken || !IsPart(place->type) || !Open(m_member, place))
        return false;
    place->taken = true;
    m_member.ReadEntityHead();
    if (place->type != kAttribute && !IsVertex(place->type))
        return true;
    const std::size_t begin = m_sink.Size();
    m_sink.Member(IsVertex(place->type) ? "VERTEX" : "ATTRIB");
    if (IsVertex(place->type)) {
        DecodeVertex(m_member);
    } else {
        m_member.WriteEntityHead();
        DecodeAttribute(m_member);
    }
    if (m_member.Lost()) {
        (void)m_sink.Take(begin);
        return false;
    }
    if (!IsVertex(place->type))
        m_member.WriteExtended();
    return true;
}

} // namespace sm::drawing::dwg
