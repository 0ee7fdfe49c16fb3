// SPDX-License-Identifier: GPL-3.0-or-later
// Blocks and entities of R9 to R12: rows of records, each of which says how long it is.
#include "dwg/file/Checksums.h"
#include "dwg/old/OldDrawing.h"
#include "dwg/old/OldRecord.h"

#include <algorithm>
#include <array>

namespace sm::drawing::dwg {

namespace {

constexpr std::uint32_t kInBlocks = 0x40000000, kInExtras = 0x80000000;
constexpr unsigned kLastType = 24;

constexpr std::array<const char*, kLastType + 1> kEntityTypeNames{
    nullptr, "LINE",     "POINT",  "CIRCLE", "SHAPE",  nullptr,     nullptr,   "TEXT",   "ARC",
    "TRACE", nullptr,    "SOLID",  nullptr,  nullptr,  "INSERT",    "ATTDEF",  "ATTRIB", "SEQEND",
    nullptr, "POLYLINE", "VERTEX", "LINE",   "3DFACE", "DIMENSION", "VIEWPORT"};

bool IsMember(OldType type)
{
    return type == OldType::Vertex || type == OldType::Attribute || type == OldType::SequenceEnd;
}

class Walker {
public:
    Walker(const OldFile& file, TagSink& sink, FindingList& findings)
        : m_file(file), m_sink(sink), m_findings(findings), m_left(2 * file.bytes.size())
    {
    }

    void PutBlocks()
    {
        const auto& records = m_file.Records(OldTable::Block);
        for (std::size_t i = 0; i < records.size(); ++i) {
            const OldRecordHead head = HeadOf(m_file, records[i]);
            const std::uint64_t at = m_file.blocks.begin + (LoadAt<std::uint32_t>(head.fields, 0) & kOldPlace);
            const std::string_view bytes = RecordAt(at);
            // Records of external blocks and of erased ones lead nowhere.
            if (bytes.empty() || ReadOldRecord(m_file, bytes).type != OldType::Block)
                continue;
            OpenBlock(head, m_file.Name(OldTable::Block, static_cast<unsigned>(i)), bytes);
            Walk({at + SizeAt(at), m_file.bytes.size()}, true);
            m_sink.EndBlock();
        }
    }

    void PutEntities()
    {
        m_sequence = false;
        Walk(m_file.entities, false);
    }

private:
    std::uint64_t SizeAt(std::uint64_t at) const { return LoadAt<std::uint16_t>(m_file.bytes, at + 2); }

    /// The record at `at` without its checksum; empty when none can start there.
    [[nodiscard]] std::string_view RecordAt(std::uint64_t at) const
    {
        const std::uint64_t size = SizeAt(at);
        const unsigned type = LoadAt<std::uint8_t>(m_file.bytes, at) & 0x7FU;
        const std::string_view record = SliceOf(m_file.bytes, at, size);
        if (type == 0 || type > kLastType || size < kOldRecordHead + m_file.ChecksumSize() || record.size() < size)
            return {};
        return record.substr(0, size - m_file.ChecksumSize());
    }

    [[nodiscard]] bool ChecksumHolds(std::uint64_t at, std::string_view record) const
    {
        return m_file.ChecksumSize() == 0 ||
               Crc16(kCrcSeed, record) == LoadAt<std::uint16_t>(m_file.bytes, at + record.size());
    }

    void OpenBlock(const OldRecordHead& head, std::string_view name, std::string_view bytes)
    {
        OldRecord record = ReadOldRecord(m_file, bytes);
        m_sink.BeginBlock();
        PutCommon(m_file, record, m_sink);
        m_sink.Text(2, name);
        m_sink.Integer(70, head.flags);
        const Vec2 base = record.fields.Point2();
        m_sink.Point(10, Vec3{base.x, base.y, record.elevation});
        if (record.Has(2))
            m_sink.Text(1, record.fields.Text());
        m_sequence = false;
    }

    /// Records one behind the other, up to the end of the block or of the range. The same bytes may be named again and
    /// again by a damaged file, so what is walked in all is limited.
    void Walk(OldRange range, bool inBlock)
    {
        std::uint64_t at = range.begin;
        while (at < range.end && at < m_file.bytes.size()) {
            const std::string_view bytes = RecordAt(at);
            const std::uint64_t next = bytes.empty() ? Resume(at, range.end) : at + SizeAt(at);
            if (next - at > m_left) {
                m_findings.Add(Damage::RecordDamaged, 0);
                return;
            }
            m_left -= next - at;
            if (bytes.empty()) {
                at = next;
                continue;
            }
            if (!ChecksumHolds(at, bytes) && !m_findings.Has(Damage::ChecksumWrong))
                m_findings.Add(Damage::ChecksumWrong, 0);
            OldRecord record = ReadOldRecord(m_file, bytes);
            if (inBlock && record.type == OldType::EndBlock)
                return;
            at = next;
            if (record.type == OldType::Jump)
                Jump(record.fields.RL(), at, range);
            else if (!record.erased)
                Put(record);
        }
    }

    /// Behind bytes that are no record: where the next one with a right checksum starts.
    std::uint64_t Resume(std::uint64_t at, std::uint64_t end)
    {
        m_findings.Add(Damage::RecordDamaged, 0);
        end = std::min<std::uint64_t>(end, m_file.bytes.size());
        while (m_file.ChecksumSize() != 0 && ++at < end) {
            constexpr std::uint64_t kUsual = 4096;
            const std::string_view record = RecordAt(at);
            if (!record.empty() && record.size() <= kUsual && ChecksumHolds(at, record))
                return at;
        }
        return end;
    }

    /// Goes on elsewhere: sections know their own places by a mark.
    void Jump(std::uint32_t place, std::uint64_t& at, OldRange& range) const
    {
        const std::uint64_t size = m_file.bytes.size();
        if ((place & kInExtras) != 0)
            at = m_file.extras.begin + (place & kOldPlace);
        else if ((place & kInBlocks) != 0)
            at = m_file.blocks.begin + (place & kOldPlace);
        else
            at = place;
        if (at < range.begin || at >= range.end)
            range = {0, (place & kInExtras) != 0 ? m_file.extras.end : size};
        if ((place & (kInExtras | kInBlocks)) == 0 && at >= m_file.entities.begin && at < m_file.entities.end)
            range = m_file.entities;
    }

    void Put(OldRecord& record)
    {
        const char* const name = kEntityTypeNames[static_cast<std::size_t>(record.type)];
        if (name == nullptr)
            return;
        if (IsMember(record.type)) {
            if (!m_sequence) {
                m_findings.Add(
                    record.type == OldType::SequenceEnd ? Damage::StraySequenceEnd : Damage::VertexWithoutPolyline, 0);
                return;
            }
            m_sink.Member(name);
            m_sequence = record.type != OldType::SequenceEnd;
        } else {
            if (m_sequence)
                m_findings.Add(Damage::MissingSequenceEnd, 0);
            m_sink.Entity(name);
            if (record.paperSpace)
                m_sink.PaperSpace();
            m_sequence = record.type == OldType::Polyline || (record.type == OldType::Insert && record.hasMembers);
        }
        PutCommon(m_file, record, m_sink);
        PutOwnFields(m_file, record, m_sink);
        if (record.fields.Overrun())
            m_findings.Add(Damage::RecordDamaged, 0);
        PutExtended(m_file, record, m_sink);
    }

    const OldFile& m_file;
    TagSink& m_sink;
    FindingList& m_findings;
    std::uint64_t m_left;
    bool m_sequence = false; ///< vertices or attributes may follow
};

} // namespace

void PutBlocksAndEntities(const OldFile& file, TagSink& sink, FindingList& findings)
{
    Walker walker(file, sink, findings);
    walker.PutBlocks();
    walker.PutEntities();
}

DecodedTags ReadOldDrawing(std::string_view bytes, const std::string& path, FindingList& findings)
{
    const OldFile file = OpenOldFile(bytes, path, findings);
    TagSink sink;
    sink.Reserve(4 * bytes.size());
    PutHeader(file, sink);
    PutTables(file, sink);
    PutBlocksAndEntities(file, sink, findings);
    return sink.Finish();
}

} // namespace sm::drawing::dwg
