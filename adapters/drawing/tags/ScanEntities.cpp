// SPDX-License-Identifier: GPL-3.0-or-later
// The entities that the pass over a file finds, and the blocks that hold them.
#include "drawing/EntityKinds.h"
#include "tags/StructureScan.h"

#include <algorithm>
#include <limits>

namespace sm::drawing {

void StructureScan::OnBlockName(std::string_view name)
{
    if (name == "BLOCK") {
        EndBlock(false);
        m_found.blocks.push_back({Here(), m_found.blockEntities.size(), 0});
        m_inBlock = true;
        m_open = Open::BlockHeader;
    } else if (name == "ENDBLK") {
        EndBlock(true);
    } else {
        OnEntityName(name);
    }
}

void StructureScan::EndBlock(bool closed)
{
    if (!m_inBlock)
        return;
    if (!closed)
        m_findings.Add(Damage::BlockNotClosed, m_tags.Line());
    ScannedBlock& block = m_found.blocks.back();
    block.count = m_found.blockEntities.size() - block.first;
    m_inBlock = false;
}

bool StructureScan::JoinsSequence(std::string_view name)
{
    const bool vertex = name == "VERTEX" && m_sequence == Sequence::Polyline;
    const bool attribute = name == "ATTRIB" && m_sequence == Sequence::Insert;
    if (vertex || attribute) {
        m_sequenceStarted = true;
        return true;
    }
    if (name == "SEQEND" && m_sequence != Sequence::Ended) {
        m_sequence = Sequence::Ended;
        return true;
    }
    if (m_sequenceStarted && m_sequence != Sequence::Ended)
        m_findings.Add(Damage::MissingSequenceEnd, m_tags.Line());
    return false;
}

void StructureScan::OnEntityName(std::string_view name)
{
    if (name == "VERTEX")
        m_findings.Add(Damage::VertexWithoutPolyline, m_tags.Line());
    else if (name == "SEQEND")
        m_findings.Add(Damage::StraySequenceEnd, m_tags.Line());
    else
        OpenEntity(name);
}

void StructureScan::OpenEntity(std::string_view name)
{
    m_entity = {};
    m_entity.begin = m_tags.End();
    m_entity.line = m_tags.Line();
    m_entity.kind = KindOf(name);
    if (m_entity.kind == EntityKind::Unknown || name != KindName(m_entity.kind))
        m_entity.nameIndex = IndexOfUnknown(name);
    m_open = Open::Entity;
    m_sequenceStarted = false;
    m_sequence = Sequence::None;
    if (m_entity.kind == EntityKind::Polyline)
        m_sequence = Sequence::Polyline;
    else if (m_entity.kind == EntityKind::Insert)
        m_sequence = Sequence::Insert;
}

std::uint16_t StructureScan::IndexOfUnknown(std::string_view name)
{
    const auto known = m_unknown.find(name);
    if (known != m_unknown.end())
        return known->second;
    // Index 0 is kept for "no name of its own"; a file with more invented names than fit shares the last one.
    if (m_found.unknownNames.empty())
        m_found.unknownNames.emplace_back();
    if (m_found.unknownNames.size() > std::numeric_limits<std::uint16_t>::max())
        return std::numeric_limits<std::uint16_t>::max();
    const auto index = static_cast<std::uint16_t>(m_found.unknownNames.size());
    m_found.unknownNames.push_back(name);
    m_unknown.emplace(name, index);
    return index;
}

void StructureScan::CloseEntity()
{
    const std::uint64_t length = m_tags.Begin() - m_entity.begin;
    constexpr std::uint64_t kMost = std::numeric_limits<std::uint32_t>::max();
    if (length > kMost)
        m_findings.Add(Damage::EntityTooLong, m_entity.line);
    m_entity.length = static_cast<std::uint32_t>(std::min(length, kMost));
    if (m_inBlock)
        m_found.blockEntities.push_back(m_entity);
    else if (m_entity.paperSpace)
        m_found.paperEntities.push_back(m_entity);
    else
        m_found.modelEntities.push_back(m_entity);
}

} // namespace sm::drawing
