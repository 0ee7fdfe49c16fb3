// SPDX-License-Identifier: GPL-3.0-or-later
// R2004 and R2010 to R2018: sections are cut into pages, which are compressed one by one.
#include "dwg/file/Bytes.h"
#include "dwg/file/Decompress.h"
#include "dwg/file/PageTable.h"

#include <algorithm>
#include <array>
#include <utility>

namespace sm::drawing::dwg {

namespace {

constexpr std::uint32_t kEncrypted = 1;

constexpr std::uint64_t kSmall = 4096;

class SectionReader {
public:
    explicit SectionReader(ContainerBuilder& builder) : m_builder(builder) {}

    std::string_view Read(const Section& section)
    {
        const std::uint64_t size = SizeOf(section);
        // What nearly nothing is written to is never touched; what nearly all is written to isn't cleared before.
        const bool isMostlyWritten = section.pages.size() * std::uint64_t{section.pageSize} >= size;
        const std::span<char> room = isMostlyWritten ? m_builder.Room(size) : m_builder.Zeros(size);
        SectionBytes bytes(room, isMostlyWritten ? 0 : room.size());
        for (const SectionPage& page : section.pages)
            if (page.address != 0 && !ReadPage(section, page, bytes))
                m_builder.Tell(Damage::PagesMissing);
        return bytes.Finish();
    }

private:
    /// Not more than what its pages reach to; but pages of zeros aren't written, and a small section may have no other.
    static std::uint64_t SizeOf(const Section& section)
    {
        std::uint64_t end = kSmall;
        for (const SectionPage& page : section.pages)
            if (page.offset < section.size)
                end = std::max(end, page.offset + section.pageSize);
        return std::min(end, section.size);
    }

    /// False: the page is damaged. What could be decompressed of it stays.
    bool ReadPage(const Section& section, const SectionPage& page, SectionBytes& bytes)
    {
        const std::string_view file = m_builder.File();
        const PageHead head = ReadPageHead(file, page.address);
        if (!SumsHold(file, page.address, head))
            m_builder.TellChecksum();
        const std::string_view data = SliceOf(file, page.address + kPageHeadSize, head.stored);
        if (page.offset >= bytes.Size())
            return page.offset >= section.size;
        const std::span<char> target = bytes.Page(page.offset, section.pageSize);
        const Decompressed done = section.compressed ? Decompress2004(data, target) : Copy(data, target);
        bytes.Wrote(page.offset, done.written);
        return section.compressed ? done.sound : data.size() == head.stored;
    }

    static Decompressed Copy(std::string_view data, std::span<char> target)
    {
        const std::size_t count = std::min(data.size(), target.size());
        std::ranges::copy(data.substr(0, count), target.begin());
        return {count, true};
    }

    ContainerBuilder& m_builder;
};

constexpr std::array<std::pair<std::string_view, Stream>, kStreams> kStreamNames{{
    {"AcDb:Header", Stream::Header},
    {"AcDb:Classes", Stream::Classes},
    {"AcDb:Handles", Stream::Map},
    {"AcDb:AcDbObjects", Stream::Objects},
    {"AcDb:AcDsPrototype_1b", Stream::DataStore},
    {"AcDb:SummaryInfo", Stream::Summary},
    {"AcDb:Template", Stream::Template},
}};

} // namespace

std::optional<Stream> StreamOf(std::string_view sectionName)
{
    for (const auto& [name, stream] : kStreamNames)
        if (name == sectionName)
            return stream;
    return std::nullopt;
}

void RefuseEncrypted(const ContainerBuilder& builder)
{
    builder.Refuse("it is encrypted under a password; open it in the CAD program and save it without one");
}

void OpenPages(ContainerBuilder& builder)
{
    if (builder.File().size() < 0x100)
        builder.Refuse("the file is cut off in its head; save the drawing again");
    const bool locked = (LoadAt<std::uint32_t>(builder.File(), kSecurityAt) & kEncrypted) != 0;
    SectionReader reader(builder);
    for (const Section& section : ReadSections(builder)) {
        const auto stream = StreamOf(section.name);
        if (!stream)
            continue;
        if (locked && section.encrypted)
            RefuseEncrypted(builder);
        builder.Put(*stream, reader.Read(section));
    }
}

} // namespace sm::drawing::dwg
