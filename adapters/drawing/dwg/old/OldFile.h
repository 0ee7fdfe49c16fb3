// SPDX-License-Identifier: GPL-3.0-or-later
// Where things stand in a DWG of R9 to R12: fixed places lead to tables of records and to rows of entities.
#pragma once

#include "tags/FindingList.h"

#include <string>
#include <string_view>
#include <vector>

namespace sm::drawing::dwg {

enum class OldRelease : std::uint8_t { R9, R10, R11 };

enum class OldTable : std::uint8_t { Block, Layer, Style, Linetype, View, Ucs, Viewport, AppId, DimensionStyle };
inline constexpr std::size_t kOldTables = 9;

/// The bits of a place of four bytes that count: the highest byte says what it leads to.
inline constexpr std::uint32_t kOldPlace = 0xFFFFFF;

/// Bytes [begin, end) of the file.
struct OldRange {
    std::uint64_t begin = 0, end = 0;
};

/// The records of a table, without their checksums.
using OldRecords = std::vector<std::string_view>;

struct OldFile {
    std::string_view bytes;
    OldRelease release = OldRelease::R11;
    unsigned variables = 0; ///< how many header variables there are
    std::uint16_t codePage = 0;
    OldRange entities, blocks, extras;
    OldRecords tables[kOldTables];
    /// The names of the records by their index, blocks' own names from their BLOCK entities.
    std::vector<std::string> names[kOldTables];

    [[nodiscard]] const OldRecords& Records(OldTable table) const { return tables[static_cast<std::size_t>(table)]; }
    [[nodiscard]] const std::vector<std::string>& Names(OldTable table) const
    {
        return names[static_cast<std::size_t>(table)];
    }
    /// Empty for an index that no record has.
    [[nodiscard]] std::string_view Name(OldTable table, unsigned index) const
    {
        const auto& all = Names(table);
        return index < all.size() ? std::string_view(all[index]) : std::string_view();
    }
    /// The name of a linetype, of by layer or by block.
    [[nodiscard]] std::string_view LinetypeName(unsigned index) const;
    /// Bytes of a checksum behind each record: from R11 on.
    [[nodiscard]] std::size_t ChecksumSize() const { return release == OldRelease::R11 ? 2 : 0; }
};

/// Throws DrawingError when the file ends in its head.
OldFile OpenOldFile(std::string_view bytes, const std::string& path, FindingList& findings);

/// What stands in a table's record in front of the table's own fields: flags, name, and from R11 on a number.
struct OldRecordHead {
    std::uint8_t flags = 0;
    std::string_view name;
    std::string_view fields;
};
OldRecordHead HeadOf(const OldFile& file, std::string_view record);

} // namespace sm::drawing::dwg
