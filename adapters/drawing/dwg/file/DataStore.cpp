// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/file/DataStore.h"

#include "dwg/file/Bytes.h"

#include <algorithm>
#include <vector>

namespace sm::drawing::dwg {

namespace {

constexpr std::uint32_t kMark = 0x6472616A;      // "jard"
constexpr std::uint32_t kElsewhere = 0xBB106BB1; // instead of a length: the bytes lie in segments of their own
constexpr std::uint16_t kSegmentMark = 0xD5AC;
constexpr std::uint64_t kSegmentHead = 0x30;

bool IsBody(std::string_view bytes)
{
    return bytes.starts_with("ACIS BinaryFile") || bytes.starts_with("ASM BinaryFile");
}

class StoreReader {
public:
    explicit StoreReader(std::string_view section) : m_section(section), m_left(section.size()) {}

    BodyStore Read()
    {
        if (LoadAt<std::uint32_t>(m_section, 0) != kMark)
            return {};
        ReadSegments();
        const std::string_view index = Segment(LoadAt<std::uint32_t>(m_section, 0x28));
        const std::uint64_t count = LoadAt<std::uint32_t>(index, kSegmentHead);
        constexpr std::uint64_t kEntry = 12;
        for (std::uint64_t i = 0, at = kSegmentHead + 8; i < count && at + kEntry <= index.size(); ++i, at += kEntry)
            ReadRecord(Segment(LoadAt<std::uint32_t>(index, at)), LoadAt<std::uint32_t>(index, at + 4));
        return std::move(m_store);
    }

private:
    /// The table of segments: place and size of each, by number.
    void ReadSegments()
    {
        constexpr std::uint64_t kEntry = 12;
        const std::uint64_t table = LoadAt<std::uint32_t>(m_section, 0x18);
        const std::uint64_t count = LoadAt<std::uint32_t>(m_section, 0x20);
        std::uint64_t at = table + kSegmentHead;
        for (std::uint64_t i = 0; i < count && at + kEntry <= m_section.size(); ++i, at += kEntry)
            m_segments.push_back(
                SliceOf(m_section, LoadAt<std::uint64_t>(m_section, at), LoadAt<std::uint32_t>(m_section, at + 8)));
    }

    /// Empty when there is none of that number.
    [[nodiscard]] std::string_view Segment(std::uint32_t number) const
    {
        if (number >= m_segments.size() || LoadAt<std::uint16_t>(m_segments[number], 0) != kSegmentMark)
            return {};
        return m_segments[number];
    }

    void ReadRecord(std::string_view segment, std::uint64_t offset)
    {
        constexpr std::uint64_t kHandle = 8, kPlace = 16;
        const std::uint64_t record = kSegmentHead + offset;
        const auto handle = LoadAt<std::uint64_t>(segment, record + kHandle);
        const std::uint64_t data =
            16 * std::uint64_t{LoadAt<std::uint32_t>(segment, 0x24)} + LoadAt<std::uint32_t>(segment, record + kPlace);
        const auto length = LoadAt<std::uint32_t>(segment, data);
        const std::string_view bytes =
            length == kElsewhere ? Joined(segment, data) : SliceOf(segment, data + 4, length);
        if (handle == 0 || !IsBody(bytes) || bytes.size() > m_left)
            return;
        m_left -= bytes.size();
        m_store.bodies[handle] = bytes;
    }

    /// Pieces of the segments that the list at `at` names.
    std::string_view Joined(std::string_view segment, std::uint64_t at)
    {
        constexpr std::uint64_t kListHead = 36, kPieceHead = 32, kEntry = 8;
        const std::uint64_t total = LoadAt<std::uint64_t>(segment, at + 4);
        const std::uint64_t count = LoadAt<std::uint32_t>(segment, at + 12);
        if (total > m_left)
            return {};
        std::string bytes;
        at += kListHead;
        for (std::uint64_t i = 0; i < count && at + kEntry <= segment.size() && bytes.size() < total;
             ++i, at += kEntry) {
            const std::string_view piece = Segment(LoadAt<std::uint32_t>(segment, at));
            const auto size = LoadAt<std::uint64_t>(piece, kSegmentHead + 24);
            bytes += SliceOf(piece, kSegmentHead + kPieceHead, std::min(size, total - bytes.size()));
        }
        return m_store.joined.emplace_back(std::move(bytes));
    }

    std::string_view m_section;
    std::uint64_t m_left; ///< bytes that bodies may still take
    std::vector<std::string_view> m_segments;
    BodyStore m_store;
};

} // namespace

BodyStore ReadBodies(std::string_view section)
{
    return StoreReader(section).Read();
}

} // namespace sm::drawing::dwg
