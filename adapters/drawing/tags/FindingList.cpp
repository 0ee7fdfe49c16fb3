// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/FindingList.h"

#include <algorithm>
#include <array>

namespace sm::drawing {

namespace {

struct DamageText {
    Damage kind;
    const char* text;
    bool contentLost;
};

constexpr std::array kTexts{
    DamageText{Damage::NotATag, "a line is no group code; skipped up to the next entity or section", true},
    DamageText{Damage::NoEnd, "the file ends without EOF; what is there is used", true},
    DamageText{Damage::CutOffTag, "the last group has no value; it is left out", true},
    DamageText{Damage::RecordOutsideSection, "an entry stands outside any section; it is used", false},
    DamageText{Damage::TextAfterEnd, "text follows EOF; it is ignored", false},
    DamageText{Damage::SectionNotClosed, "a section is not closed by ENDSEC; closed before the next one", false},
    DamageText{Damage::NotANumber, "a value is no number; used as far as it is one, else 0", true},
    DamageText{Damage::UnknownCodePage, "the code page is not known; read as ANSI_1252", false},
    DamageText{Damage::NotUtf8, "bytes are not UTF-8; read in the drawing's code page", false},
    DamageText{Damage::UnknownVersion, "the version is not known; read as far as it is understood", false},
    DamageText{Damage::NamelessEntry, "a table entry has no name; it is left out", true},
    DamageText{Damage::SignsOfAllLayers, "every layer is marked as off by a converter; the marks are ignored", false},
    DamageText{Damage::DoubleEntry, "a table entry's name is there already; the first one is used", false},
    DamageText{Damage::BlockWithoutName, "a block has no name; it is left out", true},
    DamageText{Damage::BlockNotClosed, "a block is not closed by ENDBLK; closed before the next one", false},
    DamageText{Damage::DoubleBlock, "a block of this name is there already; the first one is used", true},
    DamageText{Damage::VertexWithoutPolyline, "a VERTEX belongs to no POLYLINE; it is left out", true},
    DamageText{Damage::MissingSequenceEnd, "SEQEND is missing; the sequence ends before the next entity", false},
    DamageText{Damage::StraySequenceEnd, "a SEQEND closes nothing; it is ignored", false},
    DamageText{Damage::EntityTooLong, "an entity is longer than 4 GiB; its rest is left out", true},
    DamageText{Damage::LayoutWithoutBlock, "a layout's block is missing; another one stands in", true},
    DamageText{Damage::TabOrder, "two layouts have the same tab order; renumbered", false},
    DamageText{Damage::LayoutWithoutName, "a layout has no name, or one that is there already; renamed", false},
    DamageText{Damage::NoLayouts, "layouts are missing; a model and a paper layout are assumed", false},
    DamageText{Damage::TablesLost, "the DWG converter lost a table; save the drawing as DXF to see it", true},
    DamageText{Damage::ProxiesLost, "the DWG converter lost a proxy entity; save the drawing as DXF to see it", true},
    DamageText{Damage::NotCorrected, "the DWG converter's mistakes could not be corrected; layers may be wrong", true},
    DamageText{Damage::ChecksumWrong, "a checksum of the DWG does not match; its bytes are used as they are", false},
    DamageText{Damage::PagesMissing, "a page of the DWG is missing or damaged; what stood in it is left out", true},
    DamageText{Damage::NewerRelease, "the DWG is of a newer release than 2018; read as one of 2018", false},
    DamageText{Damage::MapDamaged, "the DWG's list of objects is damaged; the objects were searched for", true},
    DamageText{Damage::SectionMissing, "header variables or classes of the DWG are missing; defaults are used", true},
    DamageText{Damage::SizeLies, "a size in the DWG is more than the file can hold; cut", true},
    DamageText{Damage::HeadDamaged, "the head of the DWG is damaged; its parts were searched for", false},
    DamageText{Damage::ObjectMisplaced, "an object of the DWG is not where the list says; left out", true},
    DamageText{Damage::RecordDamaged, "a record of the DWG is damaged; left out, or used as far as it goes", true},
    DamageText{Damage::EntityDamaged, "an entity of the DWG is damaged; it is left out", true},
    DamageText{Damage::ObjectDamaged, "an object of the DWG is damaged; it is left out", true},
};

} // namespace

void FindingList::Add(Damage kind, std::uint32_t line, std::uint32_t count)
{
    const auto code = static_cast<std::int32_t>(kind);
    const auto known =
        std::find_if(m_findings.begin(), m_findings.end(), [&](const Finding& f) { return f.code == code; });
    if (known != m_findings.end()) {
        known->count += count;
        known->line = std::min(known->line, line);
        return;
    }
    const auto text = std::find_if(kTexts.begin(), kTexts.end(), [&](const DamageText& t) { return t.kind == kind; });
    m_findings.push_back({code, text->text, count, line, text->contentLost});
}

bool FindingList::Has(Damage kind) const
{
    return std::ranges::any_of(m_findings,
                               [&](const Finding& finding) { return finding.code == static_cast<std::int32_t>(kind); });
}

void FindingList::Join(const FindingList& others)
{
    for (const Finding& finding : others.m_findings)
        Add(static_cast<Damage>(finding.code), finding.line, finding.count);
}

} // namespace sm::drawing
