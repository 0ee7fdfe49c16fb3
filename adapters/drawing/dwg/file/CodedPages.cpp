// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/file/CodedPages.h"

#include "dwg/file/Bytes.h"
#include "dwg/file/ContainerBuilder.h"
#include "dwg/file/Decompress.h"

#include <algorithm>
#include <array>

namespace sm::drawing::dwg {

namespace {

constexpr std::uint64_t kCodedHeadAt = 0x80, kFirstCodedPage = 0x480;
constexpr std::uint64_t kHeadCodewords = 3, kHeadData = 32, kCodedHeadSize = 0x110;

/// What of the file's head leads to the two tables: places among its 34 numbers.
enum HeadNumber : std::uint8_t {
    kPageMapRepeat = 3,
    kPageMapAt = 7,
    kPageMapStored = 10,
    kPageMapSize = 11,
    kSectionMapStored = 22,
    kSectionMapId = 24,
    kSectionMapSize = 25,
    kSectionMapRepeat = 27
};

struct CodedPage {
    std::uint64_t offset = 0, id = 0, size = 0, stored = 0;
};

struct CodedSection {
    std::string name;
    std::uint64_t size = 0;
    bool encrypted = false;
    std::uint64_t encoding = 0;
    std::vector<CodedPage> pages;
};

struct Extent {
    std::uint64_t id = 0, address = 0, size = 0;
};

std::uint64_t RoundedUp(std::uint64_t size)
{
    return (size + 7) / 8 * 8;
}

class CodedFile {
public:
    explicit CodedFile(ContainerBuilder& builder) : m_builder(builder), m_file(builder.File()) {}

    void Open()
    {
        const std::vector<char> head = ReadHead();
        const auto number = [&](HeadNumber at) { return LoadAt<std::uint64_t>({head.data(), head.size()}, at * 8U); };
        ReadPageMap(
            ReadTable(number(kPageMapAt), number(kPageMapStored), number(kPageMapSize), number(kPageMapRepeat)));
        const Extent* const place = Find(number(kSectionMapId));
        if (place == nullptr)
            m_builder.Refuse("its table of pages is damaged; save the drawing again");
        const std::vector<char> table =
            ReadTable(place->address, number(kSectionMapStored), number(kSectionMapSize), number(kSectionMapRepeat));
        for (const CodedSection& section : SectionsIn({table.data(), table.size()}))
            PutSection(section);
    }

private:
    std::vector<char> ReadHead()
    {
        const std::string_view bytes = Deinterleave(SliceOf(m_file, kCodedHeadAt, kHeadCodewords * kCodeword),
                                                    kHeadCodewords, kTableData, m_scratch);
        const auto stored = LoadAt<std::int32_t>(bytes, 24);
        std::vector<char> head(kCodedHeadSize);
        if (stored > 0)
            Decompress2007(SliceOf(bytes, kHeadData, static_cast<std::uint64_t>(stored)), head);
        else
            std::ranges::copy(SliceOf(bytes, kHeadData, kCodedHeadSize), head.begin());
        return head;
    }

    /// A page map or section map. The repetitions that follow its first writing are left alone.
    std::vector<char> ReadTable(std::uint64_t at, std::uint64_t stored, std::uint64_t size, std::uint64_t repeat)
    {
        const std::uint64_t most = m_file.size();
        if (at >= most || stored > most || repeat > 64 || stored == 0)
            return {};
        const std::uint64_t raw = RoundedUp(stored) * std::max<std::uint64_t>(repeat, 1);
        const std::uint64_t count = std::min((raw + kTableData - 1) / kTableData, most / kCodeword + 1);
        const std::string_view words = SliceOf(m_file, kFirstCodedPage + at, count * kCodeword);
        const std::string_view bytes = SliceOf(Deinterleave(words, count, kTableData, m_scratch), 0, stored);
        // Records of 16 bytes for pages of at least 32; names and heads of sections beside them.
        std::vector<char> table = m_builder.Scratch(std::min(size, most + (64U << 10U)));
        if (stored < size)
            table.resize(Decompress2007(bytes, table).written);
        else
            std::ranges::copy(bytes.substr(0, table.size()), table.begin());
        return table;
    }

    void ReadPageMap(const std::vector<char>& table)
    {
        const std::string_view bytes(table.data(), table.size());
        std::uint64_t address = 0;
        for (std::uint64_t at = 0; at + 16 <= bytes.size() && address < m_file.size(); at += 16) {
            const auto size = LoadAt<std::uint64_t>(bytes, at);
            const auto id = LoadAt<std::int64_t>(bytes, at + 8);
            m_pages.push_back(
                {id < 0 ? 0 - static_cast<std::uint64_t>(id) : static_cast<std::uint64_t>(id), address, size});
            if (size > m_file.size())
                break;
            address += size;
        }
        std::ranges::stable_sort(m_pages, {}, &Extent::id);
    }

    [[nodiscard]] const Extent* Find(std::uint64_t id) const
    {
        const auto found = std::ranges::lower_bound(m_pages, id, {}, &Extent::id);
        return found != m_pages.end() && found->id == id ? &*found : nullptr;
    }

    static std::vector<CodedSection> SectionsIn(std::string_view table)
    {
        constexpr std::uint64_t kSectionHead = 64, kPageSize = 56;
        std::vector<CodedSection> sections;
        std::uint64_t at = 0;
        while (at + kSectionHead <= table.size()) {
            const auto number = [&](std::uint64_t index) { return LoadAt<std::uint64_t>(table, at + 8 * index); };
            CodedSection section{{}, number(0), number(2) == 1, number(6), {}};
            const std::uint64_t nameSize = number(4), count = number(7);
            at += kSectionHead;
            // Names are ASCII in two bytes a letter.
            for (const char c : SliceOf(table, at, nameSize))
                if (c != '\0')
                    section.name += c;
            at += std::min<std::uint64_t>(nameSize, table.size() - at);
            for (std::uint64_t i = 0; i < count && at + kPageSize <= table.size(); ++i, at += kPageSize)
                section.pages.push_back({number(0), number(2), number(3), number(4)});
            sections.push_back(std::move(section));
        }
        return sections;
    }

    void PutSection(const CodedSection& section)
    {
        const auto stream = StreamOf(section.name);
        if (!stream)
            return;
        if (section.encrypted && (LoadAt<std::uint32_t>(m_file, kSecurityAt) & 1U) != 0)
            RefuseEncrypted(m_builder);
        std::uint64_t end = 0;
        for (const CodedPage& page : section.pages)
            if (page.offset < section.size)
                end = std::max(end, page.offset + std::min(page.size, section.size - page.offset));
        SectionBytes bytes(m_builder.Room(end));
        for (const CodedPage& page : section.pages)
            if (page.offset < bytes.Size() && !ReadPage(section, page, bytes))
                m_builder.Tell(Damage::PagesMissing);
        m_builder.Put(*stream, bytes.Finish());
    }

    /// Codewords by the section's encoding; where that is neither of the two known, by the size that they would take.
    static bool IsCoded(const CodedSection& section, const CodedPage& page, std::uint64_t onDisk, std::uint64_t count)
    {
        constexpr std::uint64_t kPlain = 1, kCoded = 4, kGrid = 32;
        if (section.encoding == kPlain || section.encoding == kCoded)
            return section.encoding == kCoded;
        return page.stored != page.size || onDisk == (count * kCodeword + kGrid - 1) / kGrid * kGrid;
    }

    static Decompressed Copied(std::string_view bytes, std::span<char> room)
    {
        const std::size_t count = std::min(bytes.size(), room.size());
        std::ranges::copy(bytes.substr(0, count), room.begin());
        return {count, true};
    }

    bool ReadPage(const CodedSection& section, const CodedPage& page, SectionBytes& target)
    {
        const Extent* const place = Find(page.id);
        if (place == nullptr || place->address >= m_file.size() || page.stored > m_file.size())
            return false;
        const std::string_view disk = SliceOf(m_file, kFirstCodedPage + place->address, place->size);
        const std::uint64_t count = (RoundedUp(page.stored) + kSectionData - 1) / kSectionData;
        const bool coded = IsCoded(section, page, place->size, count);
        const bool whole = disk.size() >= (coded ? count * kCodeword : page.stored);
        const std::string_view data = coded ? Deinterleave(disk, count, kSectionData, m_scratch) : disk;
        const std::string_view bytes = SliceOf(data, 0, page.stored);
        const std::span<char> room = target.Page(page.offset, page.size);
        const Decompressed done = page.stored < page.size ? Decompress2007(bytes, room) : Copied(bytes, room);
        target.Wrote(page.offset, done.written);
        return done.sound && whole;
    }

    ContainerBuilder& m_builder;
    std::string_view m_file;
    std::vector<Extent> m_pages; ///< by id
    std::string m_scratch;       ///< the data of the page or table that is being read
};

} // namespace

void OpenCodedPages(ContainerBuilder& builder)
{
    if (builder.File().size() < kFirstCodedPage)
        builder.Refuse("the file is cut off in its head; save the drawing again");
    CodedFile(builder).Open();
}

} // namespace sm::drawing::dwg
