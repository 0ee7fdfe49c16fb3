// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/old/OldFile.h"

#include "drawing/DrawingError.h"
#include "dwg/file/Bytes.h"
#include "dwg/file/Checksums.h"
#include "tags/FileKind.h"

#include <algorithm>
#include <array>

namespace sm::drawing::dwg {

namespace {

constexpr std::uint64_t kCodePageAt = 0x3F9;
constexpr std::uint64_t kShortestFileHead = 0x3EF; // of R9, the shortest
constexpr std::size_t kNameSize = 32;
/// The top byte of an address or size marks the section it belongs to.

/// Where the place of a table is described, from which release on, and the size of its records in R9, R10 and R11.
struct TableRow {
    OldTable table;
    std::uint64_t at;
    OldRelease since;
    std::array<std::uint16_t, 3> sizes;
};
constexpr std::array kTableRows{
    TableRow{OldTable::Block, 0x2C, OldRelease::R9, {37, 37, 45}},
    TableRow{OldTable::Layer, 0x36, OldRelease::R9, {37, 37, 41}},
    TableRow{OldTable::Style, 0x40, OldRelease::R9, {194, 194, 198}},
    TableRow{OldTable::Linetype, 0x4A, OldRelease::R9, {187, 187, 191}},
    TableRow{OldTable::View, 0x54, OldRelease::R9, {91, 149, 153}},
    TableRow{OldTable::Ucs, 0x3EF, OldRelease::R10, {0, 105, 109}},
    TableRow{OldTable::Viewport, 0x500, OldRelease::R10, {0, 249, 253}},
    TableRow{OldTable::AppId, 0x512, OldRelease::R11, {0, 0, 37}},
    TableRow{OldTable::DimensionStyle, 0x522, OldRelease::R11, {0, 0, 324}},
};

class Opener {
public:
    Opener(OldFile& file, FindingList& findings) : m_file(file), m_findings(findings) {}

    void ReadHead()
    {
        const std::string_view bytes = m_file.bytes;
        m_file.release = bytes.starts_with("AC1004")   ? OldRelease::R9
                         : bytes.starts_with("AC1006") ? OldRelease::R10
                                                       : OldRelease::R11;
        m_file.variables = LoadAt<std::uint16_t>(bytes, 0x11);
        m_file.codePage =
            m_file.release == OldRelease::R9 ? std::uint16_t{0} : LoadAt<std::uint16_t>(bytes, kCodePageAt);
        m_file.entities = Bounded(LoadAt<std::uint32_t>(bytes, 0x14), LoadAt<std::uint32_t>(bytes, 0x18));
        m_file.blocks = Sized(0x1C);
        m_file.extras = Sized(0x24);
    }

    void ReadTables()
    {
        for (const TableRow& row : kTableRows)
            if (m_file.release >= row.since)
                ReadTable(row);
        NameBlocks();
    }

private:
    OldRange Bounded(std::uint64_t begin, std::uint64_t end)
    {
        const std::uint64_t size = m_file.bytes.size();
        if (begin > size || end > size || end < begin)
            m_findings.Add(Damage::SizeLies, 0);
        begin = std::min(begin, size);
        return {begin, std::clamp(end, begin, size)};
    }

    OldRange Sized(std::uint64_t at)
    {
        const std::uint64_t begin = LoadAt<std::uint32_t>(m_file.bytes, at);
        return Bounded(begin, begin + (LoadAt<std::uint32_t>(m_file.bytes, at + 4) & kOldPlace));
    }

    void ReadTable(const TableRow& row)
    {
        const std::uint64_t usual = row.sizes[static_cast<std::size_t>(m_file.release)];
        std::uint64_t size = LoadAt<std::uint16_t>(m_file.bytes, row.at);
        // Some programs write a wrong size for this one.
        if (size < usual || row.table == OldTable::Viewport)
            size = usual;
        const std::uint64_t count = LoadAt<std::uint16_t>(m_file.bytes, row.at + 2);
        const std::uint64_t begin = LoadAt<std::uint32_t>(m_file.bytes, row.at + 6);
        const auto place = static_cast<std::size_t>(row.table);
        for (std::uint64_t i = 0; i < count; ++i) {
            const std::string_view record = SliceOf(m_file.bytes, begin + i * size, size);
            if (record.size() < size) {
                m_findings.Add(Damage::SizeLies, 0);
                break;
            }
            const std::string_view plain = record.substr(0, size - m_file.ChecksumSize());
            if (m_file.ChecksumSize() != 0 && Crc16(kCrcSeed, plain) != LoadAt<std::uint16_t>(record, plain.size()) &&
                !m_findings.Has(Damage::ChecksumWrong))
                m_findings.Add(Damage::ChecksumWrong, 0);
            m_file.tables[place].push_back(plain);
            m_file.names[place].emplace_back(HeadOf(m_file, plain).name);
        }
    }

    /// Tables call anonymous blocks by their kind alone ("*D"): each gets its index for a number.
    void NameBlocks()
    {
        auto& names = m_file.names[static_cast<std::size_t>(OldTable::Block)];
        for (std::size_t i = 0; i < names.size(); ++i)
            if (names[i].size() == 2 && names[i][0] == '*')
                names[i] += std::to_string(i);
    }

    OldFile& m_file;
    FindingList& m_findings;
};

} // namespace

std::string_view OldFile::LinetypeName(unsigned index) const
{
    const bool byteWide = release != OldRelease::R11;
    if (index == (byteWide ? 0xFFU : 0x7FFFU) || index == 0xFFFF)
        return "BYLAYER";
    if (index == (byteWide ? 0xFEU : 0x7FFEU) || index == 0xFFFE)
        return "BYBLOCK";
    return Name(OldTable::Linetype, index);
}

OldRecordHead HeadOf(const OldFile& file, std::string_view record)
{
    OldRecordHead head;
    head.flags = LoadAt<std::uint8_t>(record, 0);
    head.name = SliceOf(record, 1, kNameSize);
    head.name = head.name.substr(0, head.name.find('\0'));
    head.fields = SliceOf(record, 1 + kNameSize + (file.release == OldRelease::R11 ? 2 : 0), record.size());
    return head;
}

OldFile OpenOldFile(std::string_view bytes, const std::string& path, FindingList& findings)
{
    if (bytes.size() < kShortestFileHead)
        throw DrawingError(path + ": DWG of " + DwgRelease(bytes) +
                           ": the file is cut off in its head; save the drawing again");
    OldFile file;
    file.bytes = bytes;
    Opener opener(file, findings);
    opener.ReadHead();
    opener.ReadTables();
    return file;
}

} // namespace sm::drawing::dwg
