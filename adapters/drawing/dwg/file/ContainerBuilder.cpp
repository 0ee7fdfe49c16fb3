// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/file/ContainerBuilder.h"

#include "drawing/DrawingError.h"
#include "dwg/file/Bytes.h"
#include "dwg/file/Checksums.h"
#include "dwg/file/ObjectMap.h"
#include "tags/FileKind.h"

#include <algorithm>
#include <array>
#include <new>

namespace sm::drawing::dwg {

namespace {

/// Streams grow about fivefold when they are decompressed; what goes with them (tags, the model) needs its own share.
constexpr std::uint64_t kFixedRoom = 16U << 20U;
constexpr std::uint64_t kRoomPerByte = 12;

struct Magic {
    int number; ///< behind "AC10"
    Release release;
};
constexpr std::array kReleases{Magic{12, Release::R13},   Magic{14, Release::R14},   Magic{15, Release::R2000},
                               Magic{18, Release::R2004}, Magic{21, Release::R2007}, Magic{24, Release::R2010},
                               Magic{27, Release::R2013}, Magic{32, Release::R2018}};

FileFacts FactsOf(std::string_view file)
{
    FileFacts facts;
    const auto digit = [&](std::size_t at) { return file.size() > at ? file[at] - '0' : 0; };
    const int number = 10 * digit(4) + digit(5);
    facts.release = Release::R13;
    for (const Magic& magic : kReleases)
        if (number >= magic.number)
            facts.release = magic.release;
    facts.newer = number > kReleases.back().number;
    facts.maintenance = LoadAt<std::uint8_t>(file, 0x0B);
    facts.codePage = LoadAt<std::uint16_t>(file, 0x13);
    facts.name = DwgRelease(file);
    return facts;
}

} // namespace

ContainerBuilder::ContainerBuilder(std::string_view file, const std::string& path, FindingList& findings)
    : m_file(file), m_path(path), m_findings(findings), m_left(kFixedRoom + kRoomPerByte * file.size())
{
    m_built.m_facts = FactsOf(file);
    if (m_built.m_facts.newer)
        Tell(Damage::NewerRelease);
}

void ContainerBuilder::Refuse(const std::string& what) const
{
    throw DrawingError(m_path + ": DWG of " + Facts().name + ": " + what);
}

void ContainerBuilder::TellChecksum()
{
    if (!m_findings.Has(Damage::ChecksumWrong))
        Tell(Damage::ChecksumWrong);
}

std::uint64_t ContainerBuilder::Granted(std::uint64_t size)
{
    if (size > m_left) {
        Tell(Damage::SizeLies);
        size = m_left;
    }
    m_left -= size;
    return size;
}

std::span<char> ContainerBuilder::Zeros(std::uint64_t size)
{
    // Not a vector: memory that the system gives is zero already, and most of it is written at once.
    size = Granted(size);
    return Kept(static_cast<char*>(std::calloc(std::max<std::uint64_t>(size, 1), 1)), size);
}

std::span<char> ContainerBuilder::Room(std::uint64_t size)
{
    size = Granted(size);
    return Kept(static_cast<char*>(std::malloc(std::max<std::uint64_t>(size, 1))), size);
}

std::span<char> ContainerBuilder::Kept(char* bytes, std::uint64_t size)
{
    if (bytes == nullptr)
        throw std::bad_alloc();
    m_built.m_buffers.emplace_back(bytes);
    return {bytes, static_cast<std::size_t>(size)};
}

std::vector<char> ContainerBuilder::Scratch(std::uint64_t size)
{
    return std::vector<char>(Granted(size));
}

/// What follows the sentinel, which should be the first of the section. Where it isn't, the file up to R2000 is
/// searched: then the place that the head gave was wrong.
std::string_view ContainerBuilder::Behind(std::string_view section, std::string_view sentinel)
{
    std::size_t at = section.find(sentinel);
    if (at == std::string_view::npos && Facts().release <= Release::R2000) {
        section = m_file;
        at = section.find(sentinel);
    }
    return at == std::string_view::npos ? std::string_view() : section.substr(at + sentinel.size());
}

/// The checksum stands behind the bytes whose count stands in front.
void ContainerBuilder::CheckSection(std::string_view section)
{
    const std::uint64_t sizeField = m_built.HasLongSizes() ? 8 : 4;
    const std::uint64_t end = sizeField + LoadAt<std::uint32_t>(section, 0);
    const bool whole = section.size() >= end + 2;
    if (!whole || Crc16(kCrcSeed, section.substr(0, end)) != LoadAt<std::uint16_t>(section, end))
        TellChecksum();
}

void ContainerBuilder::ReadMap()
{
    ObjectMap map = ReadObjectMap(Get(Stream::Map), m_built.m_objects.size());
    m_built.m_map = std::move(map.places);
    m_built.m_mapDamaged = !map.complete || !map.checksumsHold;
    if (!map.checksumsHold)
        TellChecksum();
}

/// A description (its length in letters leads) and the variable.
void ContainerBuilder::ReadTemplate()
{
    const std::string_view section = Get(Stream::Template);
    const std::uint64_t letter = Facts().release >= Release::R2007 ? 2 : 1;
    const std::uint64_t at = 2 + letter * LoadAt<std::uint16_t>(section, 0);
    if (section.size() >= at + 2)
        m_built.m_measurement = LoadAt<std::int16_t>(section, at);
}

Container ContainerBuilder::Finish()
{
    m_built.m_header = Behind(Get(Stream::Header), ViewOf(kHeaderSentinel));
    m_built.m_classes = Behind(Get(Stream::Classes), ViewOf(kClassesSentinel));
    for (const std::string_view section : {m_built.m_header, m_built.m_classes}) {
        if (section.empty())
            Tell(Damage::SectionMissing);
        else
            CheckSection(section);
    }
    m_built.m_objects = Get(Stream::Objects);
    m_built.m_dataStore = Get(Stream::DataStore);
    m_built.m_summary = Get(Stream::Summary);
    if (m_built.m_objects.empty())
        Refuse("its objects are missing; save the drawing again");
    ReadMap();
    ReadTemplate();
    return std::move(m_built);
}

} // namespace sm::drawing::dwg
