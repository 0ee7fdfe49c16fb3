// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/file/PageTable.h"

#include "dwg/file/Bytes.h"
#include "dwg/file/Checksums.h"
#include "dwg/file/Decompress.h"

#include <algorithm>
#include <array>

namespace sm::drawing::dwg {

namespace {

constexpr std::uint64_t kHeadAt = 0x80, kSystemHeadSize = 20;
constexpr std::size_t kHeadSize = 0x6C, kHeadSumAt = 0x68;
constexpr std::string_view kHeadMark("AcFssFcAJMB\0", 12);
constexpr std::uint32_t kPageMapType = 0x41630E3B, kSectionMapType = 0x4163003B;

using Head = std::array<char, kHeadSize>;

/// Covers or uncovers a head: each byte with the high bits of a linear congruential row that starts at 1.
Head Masked(std::string_view bytes)
{
    Head head{};
    std::uint32_t state = 1;
    for (std::size_t i = 0; i < head.size(); ++i) {
        state = state * 0x343FD + 0x269EC3;
        const char covered = i < bytes.size() ? bytes[i] : '\0';
        head[i] = static_cast<char>(static_cast<unsigned char>(covered) ^ (state >> 16U & 0xFFU));
    }
    return head;
}

TablePlaces PlacesIn(ContainerBuilder& builder, std::uint64_t at)
{
    Head head = Masked(SliceOf(builder.File(), at, kHeadSize));
    const std::string_view bytes(head.data(), head.size());
    if (!bytes.starts_with(kHeadMark))
        return {};
    const TablePlaces places{kFirstPage + LoadAt<std::uint64_t>(bytes, 0x54), LoadAt<std::int32_t>(bytes, 0x5C), true};
    const auto sum = LoadAt<std::uint32_t>(bytes, kHeadSumAt);
    std::fill_n(head.begin() + kHeadSumAt, 4, '\0');
    if (Crc32(bytes) != sum)
        builder.TellChecksum();
    return places;
}

/// The decompressed bytes of a page map or section map; empty when there is none at `address`.
std::vector<char> ReadTable(ContainerBuilder& builder, std::uint64_t address, std::uint32_t type)
{
    const std::string_view file = builder.File();
    std::string head(SliceOf(file, address, kSystemHeadSize));
    if (head.size() < kSystemHeadSize || LoadAt<std::uint32_t>(head, 0) != type)
        return {};
    const std::string_view data = SliceOf(file, address + kSystemHeadSize, LoadAt<std::uint32_t>(head, 8));
    const auto sum = LoadAt<std::uint32_t>(head, 16);
    std::fill_n(head.begin() + 16, 4, '\0');
    if (PageSum(PageSum(0, head), data) != sum)
        builder.TellChecksum();
    // A table has at most 24 bytes for a page, and a page takes at least 32 bytes of the file.
    const std::uint64_t most = file.size() + (64U << 10U);
    std::vector<char> table = builder.Scratch(std::min<std::uint64_t>(LoadAt<std::uint32_t>(head, 4), most));
    const Decompressed done = Decompress2004(data, table);
    table.resize(done.written);
    return done.sound ? table : std::vector<char>();
}

std::string_view ViewOf(const std::vector<char>& bytes)
{
    return {bytes.data(), bytes.size()};
}

std::vector<Page> PagesIn(std::string_view table, std::uint64_t fileSize)
{
    std::vector<Page> pages;
    std::uint64_t address = kFirstPage;
    for (std::uint64_t at = 0; at + 8 <= table.size() && address < fileSize; at += 8) {
        const auto id = LoadAt<std::int32_t>(table, at);
        const auto size = LoadAt<std::int32_t>(table, at + 4);
        if (size < 0)
            break;
        if (id >= 0)
            pages.push_back({id, address});
        else
            at += 16; // a gap: its place in the tree of gaps follows
        address += static_cast<std::uint64_t>(size);
    }
    std::ranges::stable_sort(pages, {}, &Page::id);
    return pages;
}

std::uint64_t AddressOf(const std::vector<Page>& pages, std::int32_t id)
{
    const auto found = std::ranges::lower_bound(pages, id, {}, &Page::id);
    return found != pages.end() && found->id == id ? found->address : 0;
}

/// The table of that type, at `address` or else anywhere: from the end, where the last save wrote it.
std::vector<char> FindTable(ContainerBuilder& builder, std::uint64_t address, std::uint32_t type)
{
    std::vector<char> table = address != 0 ? ReadTable(builder, address, type) : std::vector<char>();
    for (std::uint64_t at = builder.File().size() / kPageGrid * kPageGrid; table.empty() && at >= kFirstPage;
         at -= kPageGrid)
        if (LoadAt<std::uint32_t>(builder.File(), at) == type)
            table = ReadTable(builder, at, type);
    return table;
}

Section SectionAt(std::string_view table, std::uint64_t at)
{
    constexpr std::uint64_t kNameAt = 0x20, kNameSize = 64;
    Section section;
    section.size = LoadAt<std::uint64_t>(table, at);
    section.pageSize = LoadAt<std::uint32_t>(table, at + 0x0C);
    section.compressed = LoadAt<std::uint32_t>(table, at + 0x14) == 2;
    section.id = LoadAt<std::uint32_t>(table, at + 0x18);
    section.encrypted = LoadAt<std::uint32_t>(table, at + 0x1C) == 1;
    const std::string_view name = SliceOf(table, at + kNameAt, kNameSize);
    section.name = name.substr(0, name.find('\0'));
    return section;
}

std::vector<Section> SectionsIn(std::string_view table, const std::vector<Page>& pages)
{
    constexpr std::uint64_t kTableHead = 20, kSectionHead = 96, kPageSize = 16;
    std::vector<Section> sections;
    std::uint64_t at = kTableHead;
    while (at + kSectionHead <= table.size()) {
        Section section = SectionAt(table, at);
        const std::uint64_t count = LoadAt<std::uint32_t>(table, at + 8);
        at += kSectionHead;
        for (std::uint64_t i = 0; i < count && at + kPageSize <= table.size(); ++i, at += kPageSize) {
            const auto id = LoadAt<std::int32_t>(table, at);
            section.pages.push_back({id, LoadAt<std::uint64_t>(table, at + 8), AddressOf(pages, id)});
        }
        sections.push_back(std::move(section));
    }
    return sections;
}

/// A page's address is right when a page of this section and place stands there.
void CheckAddresses(std::string_view file, std::vector<Section>& sections)
{
    for (Section& section : sections)
        for (SectionPage& page : section.pages)
            if (const PageHead head = ReadPageHead(file, page.address); !head.sound || head.section != section.id)
                page.address = 0;
}

bool IsWhole(const Section& section)
{
    return std::ranges::all_of(section.pages, [](const SectionPage& page) { return page.address != 0; });
}

} // namespace

TablePlaces FindTables(ContainerBuilder& builder)
{
    TablePlaces places = PlacesIn(builder, kHeadAt);
    if (places.sound)
        return places;
    builder.Tell(Damage::HeadDamaged);
    const Head mark = Masked(kHeadMark);
    const std::size_t copy = builder.File().rfind(std::string_view(mark.data(), kHeadMark.size()));
    return copy == std::string_view::npos ? places : PlacesIn(builder, copy);
}

std::vector<Section> ReadSections(ContainerBuilder& builder)
{
    const std::string_view file = builder.File();
    const TablePlaces places = FindTables(builder);
    const std::vector<char> pageMap = FindTable(builder, places.sound ? places.pageMap : 0, kPageMapType);
    const std::vector<Page> pages = PagesIn(ViewOf(pageMap), file.size());
    const std::uint64_t address = places.sound ? AddressOf(pages, places.sectionMap) : 0;
    const std::vector<char> sectionMap = FindTable(builder, address, kSectionMapType);
    std::vector<Section> sections = SectionsIn(ViewOf(sectionMap), pages);
    CheckAddresses(file, sections);
    if (!sections.empty() && std::ranges::all_of(sections, IsWhole))
        return sections;
    if (places.sound && (pageMap.empty() || sections.empty()))
        builder.Tell(Damage::HeadDamaged);
    const std::vector<FoundPage> found = SearchPages(file);
    if (sections.empty())
        return SectionsOf(file, found);
    if (const std::uint32_t missing = FillPages(sections, found); missing != 0)
        builder.Tell(Damage::PagesMissing, missing);
    return sections;
}

} // namespace sm::drawing::dwg
