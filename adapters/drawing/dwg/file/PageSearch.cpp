// SPDX-License-Identifier: GPL-3.0-or-later
// Data pages by their own heads, for files whose tables are damaged.
#include "dwg/file/Bytes.h"
#include "dwg/file/Checksums.h"
#include "dwg/file/Decompress.h"
#include "dwg/file/PageTable.h"

#include <algorithm>
#include <array>
#include <map>

namespace sm::drawing::dwg {

namespace {

constexpr std::uint32_t kDataPageType = 0x4163043B, kPageMask = 0x4164536B;
/// What a page holds, decompressed, in every file seen.
constexpr std::uint32_t kUsualPageSize = 0x7400;

/// Which of its numbers is the sum over the head itself.
constexpr std::size_t kHeadSum = 6;

/// The numbers of a page's head, uncovered: the mask goes with the address.
std::array<std::uint32_t, 8> NumbersAt(std::string_view file, std::uint64_t address)
{
    std::array<std::uint32_t, 8> numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i)
        numbers[i] = LoadAt<std::uint32_t>(file, address + 4 * i) ^ kPageMask ^ static_cast<std::uint32_t>(address);
    return numbers;
}

/// The objects' section begins with this number.
constexpr std::uint32_t kObjectsMark = 0x0DCA;
/// The data section begins with the letters "jard".
constexpr std::uint32_t kDataStoreMark = 0x6472616A;

/// The list of objects begins with a chunk whose checksum is right.
bool StartsLikeMap(std::string_view begin)
{
    const std::size_t size =
        static_cast<std::size_t>(LoadAt<std::uint8_t>(begin, 0)) << 8U | LoadAt<std::uint8_t>(begin, 1);
    if (size < 4 || begin.size() < size + 2)
        return false;
    const unsigned sum =
        static_cast<unsigned>(LoadAt<std::uint8_t>(begin, size)) << 8U | LoadAt<std::uint8_t>(begin, size + 1);
    return Crc16(kCrcSeed, begin.substr(0, size)) == sum;
}

std::string NameBy(std::string_view begin)
{
    if (begin.starts_with(ViewOf(kHeaderSentinel)))
        return "AcDb:Header";
    if (begin.starts_with(ViewOf(kClassesSentinel)))
        return "AcDb:Classes";
    if (LoadAt<std::uint32_t>(begin, 0) == kObjectsMark)
        return "AcDb:AcDbObjects";
    if (LoadAt<std::uint32_t>(begin, 0) == kDataStoreMark)
        return "AcDb:AcDsPrototype_1b";
    return StartsLikeMap(begin) ? "AcDb:Handles" : std::string();
}

/// Name and compression by the first page: one that decompresses to something known.
void TellSection(std::string_view file, const FoundPage& first, Section& section)
{
    const std::string_view data = SliceOf(file, first.address + kPageHeadSize, first.head.stored);
    std::vector<char> room(kUsualPageSize);
    const std::size_t size = Decompress2004(data, room).written;
    section.name = NameBy({room.data(), size});
    section.compressed = !section.name.empty();
    if (!section.compressed)
        section.name = NameBy(data);
}

} // namespace

PageHead ReadPageHead(std::string_view file, std::uint64_t address)
{
    if (address < kFirstPage || address >= file.size() || file.size() - address < kPageHeadSize)
        return {};
    const auto [type, section, stored, onDisk, offset, offsetHigh, headSum, dataSum] = NumbersAt(file, address);
    return {section, stored, std::uint64_t{offsetHigh} << 32U | offset, headSum, dataSum, type == kDataPageType};
}

bool SumsHold(std::string_view file, std::uint64_t address, const PageHead& head)
{
    const std::string_view data = SliceOf(file, address + kPageHeadSize, head.stored);
    if (PageSum(0, data) != head.dataSum)
        return false;
    std::array<std::uint32_t, 8> numbers = NumbersAt(file, address);
    numbers[kHeadSum] = 0;
    return PageSum(head.dataSum, {reinterpret_cast<const char*>(numbers.data()), kPageHeadSize}) == head.headSum;
}

std::vector<FoundPage> SearchPages(std::string_view file)
{
    std::vector<FoundPage> found;
    for (std::uint64_t at = kFirstPage; at + kPageHeadSize <= file.size(); at += kPageGrid)
        if (const PageHead head = ReadPageHead(file, at); head.sound)
            found.push_back({at, head});
    return found;
}

std::vector<Section> SectionsOf(std::string_view file, const std::vector<FoundPage>& found)
{
    std::map<std::uint32_t, Section> byId;
    for (const FoundPage& page : found) {
        Section& section = byId[page.head.section];
        section.id = page.head.section;
        section.pageSize = kUsualPageSize;
        section.size = std::max(section.size, page.head.offset + kUsualPageSize);
        section.pages.push_back({0, page.head.offset, page.address});
        if (page.head.offset == 0)
            TellSection(file, page, section);
    }
    std::vector<Section> sections;
    for (auto& [id, section] : byId)
        sections.push_back(std::move(section));
    return sections;
}

std::uint32_t FillPages(std::vector<Section>& sections, const std::vector<FoundPage>& found)
{
    std::map<std::pair<std::uint32_t, std::uint64_t>, std::uint64_t> places;
    for (const FoundPage& page : found)
        places[{page.head.section, page.head.offset}] = page.address;
    std::uint32_t missing = 0;
    for (Section& section : sections)
        for (SectionPage& page : section.pages) {
            if (page.address != 0)
                continue;
            const auto place = places.find({section.id, page.offset});
            page.address = place != places.end() ? place->second : 0;
            missing += page.address == 0 ? 1 : 0;
        }
    return missing;
}

} // namespace sm::drawing::dwg
