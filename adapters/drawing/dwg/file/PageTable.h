// SPDX-License-Identifier: GPL-3.0-or-later
// R2004 and R2010 to R2018: the file as a row of pages, and which of them make up a section.
#pragma once

#include "dwg/file/ContainerBuilder.h"

namespace sm::drawing::dwg {

/// Where the first page stands, and on what multiples of bytes from there all do.
inline constexpr std::uint64_t kFirstPage = 0x100, kPageGrid = 0x20;

/// A page's bytes lie in the file from `address` on, its own header first.
struct Page {
    std::int32_t id = 0;
    std::uint64_t address = 0;
};

/// A piece of a section.
struct SectionPage {
    std::int32_t id = 0;
    std::uint64_t offset = 0;  ///< in the decompressed section
    std::uint64_t address = 0; ///< of the page; 0 when it is nowhere
};

struct Section {
    std::string name;
    std::uint64_t size = 0;
    std::uint32_t id = 0;
    std::uint32_t pageSize = 0; ///< the most that a page holds, decompressed
    bool compressed = true;
    bool encrypted = false;
    std::vector<SectionPage> pages;
};

/// What stands in front of the data of a page, unmasked.
struct PageHead {
    std::uint32_t section = 0;
    std::uint32_t stored = 0; ///< bytes that follow
    std::uint64_t offset = 0; ///< in the section
    std::uint32_t headSum = 0, dataSum = 0;
    bool sound = false; ///< there is a data page at this address
};
inline constexpr std::uint64_t kPageHeadSize = 32;
PageHead ReadPageHead(std::string_view file, std::uint64_t address);
/// Both sums of the page are right.
bool SumsHold(std::string_view file, std::uint64_t address, const PageHead& head);

/// Where the two tables of the file lie: from the masked header at 0x80, or from its copy near the end.
struct TablePlaces {
    std::uint64_t pageMap = 0;   ///< address in the file
    std::int32_t sectionMap = 0; ///< page id
    bool sound = false;
};
TablePlaces FindTables(ContainerBuilder& builder);

/// The sections with the addresses of their pages, by the tables or, where these are damaged, by the pages themselves.
std::vector<Section> ReadSections(ContainerBuilder& builder);

/// Every data page of the file that can be told by its head, found without any table.
struct FoundPage {
    std::uint64_t address = 0;
    PageHead head;
};
std::vector<FoundPage> SearchPages(std::string_view file);
/// Sections from such pages alone. Their names are told by what they begin with.
std::vector<Section> SectionsOf(std::string_view file, const std::vector<FoundPage>& found);
/// Pages that have no address get that of a page of the same section and offset. How many have none still.
std::uint32_t FillPages(std::vector<Section>& sections, const std::vector<FoundPage>& found);

} // namespace sm::drawing::dwg
