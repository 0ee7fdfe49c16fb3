// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/StructureScan.h"

#include "drawing/EntityKinds.h"

#include <algorithm>
#include <array>

namespace sm::drawing {

namespace {

constexpr std::array<std::string_view, 14> kTableEntries{"LAYER", "LTYPE",        "STYLE",       "VIEW",     "VPORT",
                                                         "APPID", "BLOCK_RECORD", "DIMSTYLE",    "UCS",      "VX",
                                                         "TABLE", "ENDTAB",       "VPORTHEADER", "VIEWPORTS"};

constexpr std::array<std::string_view, 24> kReadObjects{"DICTIONARY",
                                                        "ACDBDICTIONARYWDFLT",
                                                        "LAYOUT",
                                                        "PLOTSETTINGS",
                                                        "SORTENTSTABLE",
                                                        "IMAGEDEF",
                                                        "RASTERVARIABLES",
                                                        "WIPEOUTVARIABLES",
                                                        "PDFDEFINITION",
                                                        "DWFDEFINITION",
                                                        "DGNDEFINITION",
                                                        "PDFUNDERLAYDEFINITION",
                                                        "DICTIONARYVAR",
                                                        "MLEADERSTYLE",
                                                        "MLINESTYLE",
                                                        "TABLESTYLE",
                                                        "FIELD",
                                                        "ACDBPLACEHOLDER",
                                                        "DWFUNDERLAYDEFINITION",
                                                        "DGNUNDERLAYDEFINITION",
                                                        "XRECORD",
                                                        "SPATIAL_FILTER",
                                                        "SCALE",
                                                        "ACDSRECORD"};

/// How an annotative entity looks at one of its scales: one kind of object for each kind of entity.
bool IsContextData(std::string_view name)
{
    return name.ends_with("CONTEXTDATA_CLASS");
}

template <class List> bool Contains(const List& list, std::string_view name)
{
    return std::find(list.begin(), list.end(), name) != list.end();
}

} // namespace

TagCursor TagsOf(std::string_view file, TagFormat format, const Slice& slice)
{
    return {file, format, slice.begin, slice.length, slice.line + 1};
}

Structure ScanStructure(std::string_view file, TagFormat format, std::uint64_t begin, FindingList& findings)
{
    return StructureScan(file, format, begin, findings).Run();
}

StructureScan::StructureScan(std::string_view file, TagFormat format, std::uint64_t begin, FindingList& findings)
    : m_file(file), m_format(format), m_tags(file, format, begin, file.size(), 1), m_findings(findings)
{
}

Structure StructureScan::Run()
{
    m_found.begin = m_tags.Begin();
    // Most entities take 150 to 250 bytes; growing later costs copies of the whole list.
    m_found.modelEntities.reserve(m_file.size() / 512);
    ReadTags();
    Finish();
    return std::move(m_found);
}

void StructureScan::ReadTags()
{
    for (;;) {
        while (!m_ended && m_tags.Next()) {
            ++m_found.tags;
            const int code = m_tags.Code();
            if (code == 0)
                OnName(m_tags.Name());
            else if (m_open != Open::Entity)
                OnOther();
            else if (code == 67)
                m_entity.paperSpace = m_entity.paperSpace || m_tags.Integer() == 1;
        }
        if (m_ended || !m_tags.Damaged())
            return;
        CloseOpen();
        const std::uint32_t line = m_tags.Line() + 1;
        const std::string_view rest = m_file.substr(m_tags.Begin());
        if (m_tags.Resynchronise() || !Trimmed(rest).empty())
            m_findings.Add(Damage::NotATag, line);
    }
}

void StructureScan::OnOther()
{
    const int code = m_tags.Code();
    if (code == 2 && m_awaitsSectionName) {
        NameSection(m_tags.Name());
    } else if (code == 9 && m_section == Section::Header) {
        CloseOpen();
        OpenSlice(m_found.variables, Open::Variable, m_tags.Name());
    } else if (code == 999 && m_found.comment.empty()) {
        m_found.comment = m_tags.Name();
    }
}

void StructureScan::NameSection(std::string_view name)
{
    m_awaitsSectionName = false;
    if (name == "HEADER")
        m_section = Section::Header;
    else if (name == "CLASSES")
        m_section = Section::Classes;
    else if (name == "TABLES")
        m_section = Section::Tables;
    else if (name == "BLOCKS")
        m_section = Section::Blocks;
    else if (name == "ENTITIES")
        m_section = Section::Entities;
    else if (name == "OBJECTS")
        m_section = Section::Objects;
    else if (name == "ACDSDATA")
        m_section = Section::Data;
    else
        m_section = Section::Other;
    m_found.hasObjects = m_found.hasObjects || m_section == Section::Objects;
}

void StructureScan::OnName(std::string_view name)
{
    if (m_open == Open::Entity && m_sequence != Sequence::None && JoinsSequence(name))
        return;
    CloseOpen();
    if (name == "SECTION") {
        if (m_section != Section::None)
            m_findings.Add(Damage::SectionNotClosed, m_tags.Line());
        EndBlock(m_section == Section::None);
        m_section = Section::None;
        m_awaitsSectionName = true;
        return;
    }
    m_awaitsSectionName = false;
    if (name == "ENDSEC") {
        EndBlock(false);
        m_section = Section::None;
    } else if (name == "EOF") {
        m_ended = true;
    } else if (m_section == Section::Entities) {
        OnEntityName(name);
    } else if (m_section == Section::Blocks) {
        OnBlockName(name);
    } else if (m_section == Section::Tables) {
        OnTableName(name);
    } else if (m_section == Section::Objects || m_section == Section::Data) {
        OnObjectName(name);
    } else if (OnStrayName(name)) {
        m_findings.Add(Damage::RecordOutsideSection, m_tags.Line());
    }
}

bool StructureScan::OnStrayName(std::string_view name)
{
    if (m_section == Section::Classes || m_section == Section::Header)
        return false;
    if (name == "BLOCK" || name == "ENDBLK" || m_inBlock)
        OnBlockName(name);
    else if (Contains(kTableEntries, name))
        OnTableName(name);
    else if (Contains(kReadObjects, name))
        OnObjectName(name);
    else if (m_section == Section::None && (KindOf(name) != EntityKind::Unknown || name == "VERTEX"))
        OnEntityName(name);
    else
        return false;
    return true;
}

void StructureScan::OnTableName(std::string_view name)
{
    if (name != "TABLE" && name != "ENDTAB")
        OpenSlice(m_found.tableEntries, Open::TableEntry, name);
}

void StructureScan::OnObjectName(std::string_view name)
{
    if (Contains(kReadObjects, name) || IsContextData(name))
        OpenSlice(m_found.objects, Open::Object, name);
}

Slice StructureScan::Here() const
{
    return {m_tags.End(), 0, m_tags.Line()};
}

void StructureScan::OpenSlice(std::vector<NamedSlice>& list, Open kind, std::string_view name)
{
    list.push_back({name, Here()});
    m_openList = &list;
    m_open = kind;
}

void StructureScan::CloseOpen()
{
    if (m_open == Open::Entity)
        CloseEntity();
    else if (m_open == Open::BlockHeader)
        m_found.blocks.back().header.length = m_tags.Begin() - m_found.blocks.back().header.begin;
    else if (m_open != Open::Nothing)
        m_openList->back().slice.length = m_tags.Begin() - m_openList->back().slice.begin;
    m_open = Open::Nothing;
}

void StructureScan::Finish()
{
    CloseOpen();
    EndBlock(false);
    if (m_tags.CutOff())
        m_findings.Add(Damage::CutOffTag, m_tags.Line() + 1);
    if (!m_ended)
        m_findings.Add(Damage::NoEnd, m_tags.Line());
    else if (!Trimmed(m_file.substr(m_tags.End())).empty())
        m_findings.Add(Damage::TextAfterEnd, m_tags.Line() + 1);
}

} // namespace sm::drawing
