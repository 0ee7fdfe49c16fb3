// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/dwg/OldFiles.h"

#include "drawing/dwg/DwgFiles.h"
#include "dwg/file/Checksums.h"

#include <cstring>

namespace sm::drawing::dwg::testing {

namespace {

/// Sizes of the records of BLOCK, LAYER, STYLE and LTYPE.
constexpr unsigned kTableSizes[3][4]{{37, 37, 194, 187}, {37, 37, 194, 187}, {45, 41, 198, 191}};
constexpr std::uint32_t kEntitiesAt[3]{0x3EF, 0x512, 0x6CF};
constexpr const char* kMagics[3]{"AC1004", "AC1006", "AC1009"};
constexpr unsigned kVariables[3]{129, 160, 205};

void Put(std::string& file, std::uint64_t place, const std::string& bytes)
{
    file.replace(place, bytes.size(), bytes);
}

} // namespace

std::string Number(double value)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return Le64(bits);
}

std::string OldFileWriter::Ended(std::string bytes) const
{
    const std::uint16_t sum = Crc16(kCrcSeed, bytes);
    return m_kind == OldKind::R11 ? bytes + Le16(sum) : bytes;
}

OldFileWriter& OldFileWriter::Record(unsigned table, unsigned flags, const std::string& name, const std::string& fields)
{
    std::string record(1, static_cast<char>(flags));
    record += name;
    record.resize(33);
    if (m_kind == OldKind::R11)
        record += Le16(0xFFFF);
    record += fields;
    record.resize(kTableSizes[static_cast<std::size_t>(m_kind)][table] - (m_kind == OldKind::R11 ? 2 : 0));
    m_tables[table].push_back(Ended(record));
    return *this;
}

std::string OldFileWriter::Framed(unsigned type, unsigned flags, unsigned layer, unsigned options,
                                  const std::string& front, const std::string& fields) const
{
    const std::string rest = Le16(layer) + Le16(options) + front + fields;
    const auto size = static_cast<unsigned>(4 + rest.size() + (m_kind == OldKind::R11 ? 2 : 0));
    return Ended(std::string{static_cast<char>(type), static_cast<char>(flags)} + Le16(size) + rest);
}

OldFileWriter& OldFileWriter::Entity(unsigned type, unsigned flags, unsigned layer, unsigned options,
                                     const std::string& front, const std::string& fields)
{
    m_entities += Framed(type, flags, layer, options, front, fields);
    return *this;
}

std::uint32_t OldFileWriter::BlockEntity(unsigned type, unsigned flags, unsigned layer, unsigned options,
                                         const std::string& front, const std::string& fields)
{
    const auto place = static_cast<std::uint32_t>(m_blocks.size());
    m_blocks += Framed(type, flags, layer, options, front, fields);
    return place;
}

std::uint32_t OldFileWriter::ExtraEntity(unsigned type, unsigned flags, unsigned layer, unsigned options,
                                         const std::string& front, const std::string& fields)
{
    const auto place = static_cast<std::uint32_t>(m_extras.size());
    m_extras += Framed(type, flags, layer, options, front, fields);
    return place;
}

OldFileWriter& OldFileWriter::Raw(const std::string& bytes)
{
    m_entities += Ended(bytes);
    return *this;
}

OldFileWriter& OldFileWriter::At(std::uint64_t place, const std::string& bytes)
{
    m_values.emplace_back(place, bytes);
    return *this;
}

std::string OldFileWriter::File() const
{
    const auto kind = static_cast<std::size_t>(m_kind);
    std::string file(kEntitiesAt[kind], '\0');
    Put(file, 0, kMagics[kind]);
    Put(file, 0x0C, std::string("\x01\x03\0\x05\0", 5) + Le16(kVariables[kind]));
    file += m_entities;
    Put(file, 0x14, Le32(kEntitiesAt[kind]) + Le32(static_cast<std::uint32_t>(file.size())));
    for (unsigned table = 0; table < 4; ++table) {
        Put(file, 0x2C + 10 * table,
            Le16(kTableSizes[kind][table]) + Le16(static_cast<unsigned>(m_tables[table].size())) + Le16(0) +
                Le32(static_cast<std::uint32_t>(file.size())));
        for (const std::string& record : m_tables[table])
            file += record;
    }
    Put(file, 0x1C,
        Le32(static_cast<std::uint32_t>(file.size())) +
            Le32(0x40000000U | static_cast<std::uint32_t>(m_blocks.size())));
    file += m_blocks;
    Put(file, 0x24,
        Le32(static_cast<std::uint32_t>(file.size())) +
            Le32(0x80000000U | static_cast<std::uint32_t>(m_extras.size())));
    file += m_extras;
    for (const auto& [place, bytes] : m_values)
        Put(file, place, bytes);
    return file;
}

} // namespace sm::drawing::dwg::testing
