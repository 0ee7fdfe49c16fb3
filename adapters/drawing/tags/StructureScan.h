// SPDX-License-Identifier: GPL-3.0-or-later
// The pass behind ScanStructure.
#pragma once

#include "tags/Structure.h"

#include <cstdint>
#include <unordered_map>

namespace sm::drawing {

class StructureScan {
public:
    StructureScan(std::string_view file, TagFormat format, std::uint64_t begin, FindingList& findings);
    Structure Run();

private:
    enum class Section : std::uint8_t { None, Header, Classes, Tables, Blocks, Entities, Objects, Data, Other };
    enum class Open : std::uint8_t { Nothing, Variable, TableEntry, Object, BlockHeader, Entity };
    enum class Sequence : std::uint8_t { None, Polyline, Insert, Ended };

    void ReadTags();
    void OnName(std::string_view name);
    void OnOther();
    void NameSection(std::string_view name);
    void OnTableName(std::string_view name);
    void OnBlockName(std::string_view name);
    void OnObjectName(std::string_view name);
    bool OnStrayName(std::string_view name);
    void OnEntityName(std::string_view name);
    bool JoinsSequence(std::string_view name);
    void EndBlock(bool closed);
    void OpenSlice(std::vector<NamedSlice>& list, Open kind, std::string_view name);
    void OpenEntity(std::string_view name);
    void CloseOpen();
    void CloseEntity();
    void Finish();
    std::uint16_t IndexOfUnknown(std::string_view name);
    [[nodiscard]] Slice Here() const;

    std::string_view m_file;
    TagFormat m_format;
    TagCursor m_tags;
    FindingList& m_findings;
    Structure m_found;
    EntityRecord m_entity;
    std::unordered_map<std::string_view, std::uint16_t> m_unknown;
    Section m_section = Section::None;
    Open m_open = Open::Nothing;
    Sequence m_sequence = Sequence::None;
    std::vector<NamedSlice>* m_openList = nullptr;
    bool m_awaitsSectionName = false;
    bool m_inBlock = false;
    bool m_sequenceStarted = false;
    bool m_ended = false;
};

} // namespace sm::drawing
