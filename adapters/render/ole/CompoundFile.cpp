// SPDX-License-Identifier: GPL-3.0-or-later
#include "ole/CompoundFile.h"

#include "ole/LittleEndian.h"

#include <algorithm>

namespace sm::render {

namespace {

constexpr std::uint32_t kLastSector = 0xFFFFFFFA; ///< above it: ends of chains, free sectors and the like
// Places in the header, and in an entry of the directory.
constexpr std::uint64_t kSectorShift = 30, kSmallShift = 32, kTableSectors = 44, kCfbDirectory = 48, kSmallLimit = 56,
                        kSmallTable = 60, kMoreTable = 68, kCfbTable = 76;
constexpr std::uint32_t kInHeader = 109;
constexpr std::uint64_t kCfbEntry = 128, kCfbNameLength = 64, kCfbKind = 66, kCfbStart = 116, kCfbSize = 120;
constexpr unsigned kStreamKind = 2, kRootKind = 5;

void AppendNumbers(std::string_view bytes, std::vector<std::uint32_t>& numbers)
{
    for (std::uint64_t at = 0; at + 4 <= bytes.size(); at += 4) {
        numbers.push_back(U32(bytes, at));
    }
}

} // namespace

CompoundFile::CompoundFile(std::string_view bytes) : m_bytes(bytes)
{
    const unsigned shift = U16(bytes, kSectorShift), small = U16(bytes, kSmallShift);
    constexpr unsigned kFewest = 7, kMost = 20;
    if (shift < kFewest || shift > kMost || small < 4 || small > shift) {
        return;
    }
    m_sectorSize = 1U << shift;
    m_smallSize = 1U << small;
    m_smallLimit = U32(bytes, kSmallLimit);
    ReadSectorTable();
    AppendNumbers(Chain(U32(bytes, kSmallTable), bytes.size()), m_smallNext);
    ReadDirectory();
}

/// Sector 0 begins behind the header, which fills one.
std::string_view CompoundFile::Sector(std::uint32_t index) const
{
    return Part(m_bytes, (std::uint64_t{index} + 1) * m_sectorSize, m_sectorSize);
}

void CompoundFile::ReadSectorTable()
{
    std::vector<std::uint32_t> sectors;
    AppendNumbers(Part(m_bytes, kCfbTable, std::uint64_t{kInHeader} * 4), sectors);
    const std::uint64_t most = m_bytes.size() / m_sectorSize;
    std::uint32_t more = U32(m_bytes, kMoreTable);
    for (std::uint64_t i = 0; i < most && more <= kLastSector; ++i) { // the last number leads on
        AppendNumbers(Sector(more), sectors);
        if (sectors.empty() || Sector(more).size() < m_sectorSize) {
            break;
        }
        more = sectors.back();
        sectors.pop_back();
    }
    sectors.resize(std::min<std::uint64_t>({sectors.size(), U32(m_bytes, kTableSectors), most}));
    for (const std::uint32_t sector : sectors) {
        AppendNumbers(Sector(sector), m_next);
    }
}

std::string CompoundFile::Chain(std::uint32_t start, std::uint64_t limit) const
{
    std::string bytes;
    for (std::size_t i = 0; i <= m_next.size() && start < m_next.size() && bytes.size() < limit; ++i) {
        bytes += Sector(start);
        start = m_next[start];
    }
    bytes.resize(std::min<std::uint64_t>(bytes.size(), limit));
    return bytes;
}

std::string CompoundFile::SmallChain(std::uint32_t start, std::uint64_t size) const
{
    std::string bytes;
    for (std::size_t i = 0; i <= m_smallNext.size() && start < m_smallNext.size() && bytes.size() < size; ++i) {
        bytes += Part(m_smallSectors, std::uint64_t{start} * m_smallSize, m_smallSize);
        start = m_smallNext[start];
    }
    bytes.resize(std::min<std::uint64_t>(bytes.size(), size));
    return bytes;
}

void CompoundFile::ReadDirectory()
{
    const std::string entries = Chain(U32(m_bytes, kCfbDirectory), m_bytes.size());
    for (std::uint64_t at = 0; at + kCfbEntry <= entries.size(); at += kCfbEntry) {
        const std::string_view entry = Part(entries, at, kCfbEntry);
        const unsigned kind = static_cast<unsigned char>(entry[kCfbKind]);
        const std::uint64_t size = std::min<std::uint64_t>(UnsignedAt(entry, kCfbSize, 8), m_bytes.size());
        if (kind == kRootKind) {
            m_smallSectors = Chain(U32(entry, kCfbStart), size);
        }
        if (kind != kStreamKind) {
            continue;
        }
        Stream stream{{}, U32(entry, kCfbStart), size};
        for (std::uint64_t i = 0; i + 2 < std::min<std::uint64_t>(U16(entry, kCfbNameLength), kCfbNameLength); i += 2) {
            stream.name += entry[i]; // the names that are asked for are ASCII
        }
        m_streams.push_back(std::move(stream));
    }
}

std::string CompoundFile::StreamOf(std::string_view name) const
{
    const auto found =
        std::find_if(m_streams.begin(), m_streams.end(), [&](const Stream& s) { return s.name == name; });
    if (found == m_streams.end()) {
        return {};
    }
    return found->size < m_smallLimit ? SmallChain(found->start, found->size) : Chain(found->start, found->size);
}

} // namespace sm::render
