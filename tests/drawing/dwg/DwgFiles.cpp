// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/dwg/DwgFiles.h"

#include "drawing/dwg/BitWriter.h"
#include "dwg/file/Checksums.h"

namespace sm::drawing::dwg::testing {

const unsigned char kHeaderBegin[16]{0xCF, 0x7B, 0x1F, 0x23, 0xFD, 0xDE, 0x38, 0xA9,
                                     0x5F, 0x7C, 0x68, 0xB8, 0x4E, 0x6D, 0x33, 0x5F};
const unsigned char kClassesBegin[16]{0x8D, 0xA1, 0xC4, 0xB8, 0xC4, 0xA9, 0xF8, 0xC5,
                                      0xC0, 0xDC, 0xF4, 0x5F, 0xE7, 0xCF, 0xB6, 0x8A};

std::string Le16(unsigned value)
{
    return {static_cast<char>(value & 0xFFU), static_cast<char>(value >> 8U & 0xFFU)};
}

std::string Le32(std::uint32_t value)
{
    return Le16(value & 0xFFFFU) + Le16(value >> 16U);
}

std::string Le64(std::uint64_t value)
{
    return Le32(static_cast<std::uint32_t>(value)) + Le32(static_cast<std::uint32_t>(value >> 32U));
}

namespace {

std::string WithChecksum(std::string bytes)
{
    const std::uint16_t sum = Crc16(kCrcSeed, bytes);
    return std::move(bytes) + Le16(sum);
}

/// Something that is no object by itself.
std::string Filled(std::string body, std::size_t size)
{
    while (body.size() < size)
        body.push_back(static_cast<char>(0xA0U + body.size() % 7));
    return body;
}

void AppendModular(std::string& bytes, std::uint64_t value)
{
    for (; value > 0x7F; value >>= 7U)
        bytes.push_back(static_cast<char>(0x80U | (value & 0x7FU)));
    bytes.push_back(static_cast<char>(value));
}

void AppendSigned(std::string& bytes, std::int64_t signedValue)
{
    std::uint64_t value = static_cast<std::uint64_t>(signedValue < 0 ? -signedValue : signedValue);
    for (; value > 0x3F; value >>= 7U)
        bytes.push_back(static_cast<char>(0x80U | (value & 0x7FU)));
    bytes.push_back(static_cast<char>(value | (signedValue < 0 ? 0x40U : 0U)));
}

} // namespace

std::string Object2000(unsigned type, std::uint64_t handle, std::size_t size)
{
    BitWriter bits;
    bits.BS(type).RL(static_cast<std::uint32_t>(size * 8 - 8)).H(0, handle);
    return WithChecksum(Le16(static_cast<unsigned>(size)) + Filled(bits.Bytes(), size));
}

std::string Object2018(unsigned type, std::uint64_t handle, std::size_t size)
{
    BitWriter bits;
    bits.Bits(0, 2).RC(type).H(0, handle);
    return WithChecksum(Le16(static_cast<unsigned>(size)) + '\x08' + Filled(bits.Bytes(), size));
}

std::string MapOf(const std::vector<Place>& places)
{
    std::string pairs;
    Place last;
    for (const Place& place : places) {
        AppendModular(pairs, place.handle - last.handle);
        AppendSigned(pairs, static_cast<std::int64_t>(place.offset) - static_cast<std::int64_t>(last.offset));
        last = place;
    }
    const auto bigEndian = [](std::size_t value) {
        return std::string{static_cast<char>(value >> 8U & 0xFFU), static_cast<char>(value & 0xFFU)};
    };
    const auto chunk = [&](const std::string& data) {
        const std::string bytes = bigEndian(data.size() + 2) + data;
        return bytes + bigEndian(Crc16(kCrcSeed, bytes));
    };
    return chunk(pairs) + chunk({});
}

std::string Enclosed(const unsigned char (&sentinel)[16], const std::string& data, bool longSize)
{
    const std::string begin(reinterpret_cast<const char*>(sentinel), sizeof sentinel);
    std::string end = begin;
    for (char& c : end)
        c = static_cast<char>(~c);
    const std::string high = longSize ? Le32(0) : std::string();
    return begin + WithChecksum(Le32(static_cast<std::uint32_t>(data.size())) + high + data) + end;
}

Objects LinesOf2000(const std::vector<std::size_t>& sizes, std::uint64_t begin)
{
    constexpr unsigned kLine = 19;
    Objects made;
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        made.places.push_back({i + 1, begin + made.bytes.size()});
        made.bytes += Object2000(kLine, i + 1, sizes[i]);
    }
    return made;
}

Objects LinesOf2018(const std::vector<std::size_t>& sizes)
{
    constexpr unsigned kLine = 19, kMark = 0x0DCA;
    Objects made{Le32(kMark), {}};
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        made.places.push_back({i + 1, made.bytes.size()});
        made.bytes += Object2018(kLine, i + 1, sizes[i]);
    }
    return made;
}

SectionFile FileOf2000(const std::vector<std::size_t>& sizes, unsigned metric)
{
    constexpr std::uint64_t kHead = 0x19 + 5 * 9 + 2 + 16;
    const std::string header = Enclosed(kHeaderBegin, "header variables", false);
    const std::string classes = Enclosed(kClassesBegin, "classes", false);
    const std::uint64_t first = kHead + header.size() + classes.size();
    const Objects objects = LinesOf2000(sizes, first);
    const std::string map = MapOf(objects.places);
    const std::string measurement = Le16(3) + "abc" + Le16(metric);
    SectionFile file{"AC1015", objects.places, first + objects.bytes.size(), map.size(), kHead};
    file.bytes += std::string(5, '\0') + '\x0F' + '\x01' + Le32(0) + '\0' + '\0' + Le16(30) + Le32(5);
    std::uint64_t at = kHead;
    unsigned char number = 0;
    for (const std::size_t size : {header.size(), classes.size(), map.size(), std::size_t{0}, measurement.size()}) {
        if (number == 2)
            at = file.map;
        file.bytes +=
            static_cast<char>(number++) + Le32(static_cast<std::uint32_t>(at)) + Le32(static_cast<std::uint32_t>(size));
        at += size;
    }
    file.bytes = WithChecksum(file.bytes) + std::string(16, '\x95');
    file.bytes += header + classes + objects.bytes + map + measurement;
    return file;
}

std::map<std::string, std::string> SectionsOf(const Objects& objects, bool longSize)
{
    return {{"AcDb:Header", Enclosed(kHeaderBegin, "header variables", longSize)},
            {"AcDb:Classes", Enclosed(kClassesBegin, "classes", longSize)},
            {"AcDb:Handles", MapOf(objects.places)},
            {"AcDb:AcDbObjects", objects.bytes},
            {"AcDb:Template", Le16(0) + Le16(1)}};
}

} // namespace sm::drawing::dwg::testing
