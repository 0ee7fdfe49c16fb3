// SPDX-License-Identifier: GPL-3.0-or-later
// The kinds of damage the reader mends or skips, counted once a kind.
#pragma once

#include "drawing/Finding.h"

#include <cstdint>
#include <vector>

namespace sm::drawing {

/// Stable numbers, grouped by hundreds: 1xx the file, 2xx header and text, 3xx tables, 4xx blocks, 5xx entities,
/// 6xx objects and layouts, 7xx the conversion of a DWG, 8xx a DWG that is read natively.
enum class Damage : std::int32_t {
    NotATag = 101,
    NoEnd = 102,
    CutOffTag = 103,
    RecordOutsideSection = 104,
    TextAfterEnd = 105,
    SectionNotClosed = 106,
    NotANumber = 107,
    UnknownCodePage = 201,
    NotUtf8 = 202,
    UnknownVersion = 203,
    NamelessEntry = 301,
    SignsOfAllLayers = 302,
    DoubleEntry = 303,
    BlockWithoutName = 401,
    BlockNotClosed = 402,
    DoubleBlock = 403,
    VertexWithoutPolyline = 501,
    MissingSequenceEnd = 502,
    StraySequenceEnd = 503,
    EntityTooLong = 504,
    LayoutWithoutBlock = 601,
    TabOrder = 602,
    LayoutWithoutName = 603,
    NoLayouts = 604,
    TablesLost = 701,
    ProxiesLost = 702,
    NotCorrected = 703,
    ChecksumWrong = 801,
    PagesMissing = 802,
    NewerRelease = 803,
    MapDamaged = 804,
    SectionMissing = 805,
    SizeLies = 806,
    HeadDamaged = 807,
    ObjectMisplaced = 808,
    RecordDamaged = 809,
    EntityDamaged = 811,
    ObjectDamaged = 812,
};

class FindingList {
public:
    /// Counts one more of that kind; the first one's line is kept.
    void Add(Damage kind, std::uint32_t line, std::uint32_t count = 1);
    [[nodiscard]] bool Has(Damage kind) const;
    /// Counts all of another list.
    void Join(const FindingList& others);
    [[nodiscard]] const std::vector<Finding>& All() const { return m_findings; }

private:
    std::vector<Finding> m_findings;
};

} // namespace sm::drawing
