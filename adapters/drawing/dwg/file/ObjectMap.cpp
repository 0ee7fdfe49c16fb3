// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/file/ObjectMap.h"

#include "dwg/file/Bytes.h"
#include "dwg/file/Checksums.h"

#include <algorithm>

namespace sm::drawing::dwg {

namespace {

/// Numbers of seven bits a byte, low ones first; the high bit says that more follow.
class ModularReader {
public:
    explicit ModularReader(std::string_view bytes) : m_bytes(bytes) {}

    [[nodiscard]] bool AtEnd() const { return m_at >= m_bytes.size(); }
    /// The last number reached behind the end.
    [[nodiscard]] bool CutOff() const { return m_cutOff; }

    std::uint64_t Unsigned()
    {
        const auto [last, shift] = Leading();
        return m_value | Shifted(last, shift);
    }

    /// In the last byte bit 6 is the sign.
    std::int64_t Signed()
    {
        const auto [last, shift] = Leading();
        const std::uint64_t value = m_value | Shifted(last & 0x3FU, shift);
        const auto plain = static_cast<std::int64_t>(value & 0x7FFFFFFFFFFFFFFFU);
        return (last & 0x40U) != 0 ? -plain : plain;
    }

private:
    static std::uint64_t Shifted(std::uint64_t value, unsigned shift) { return shift < 64 ? value << shift : 0; }

    /// Gathers all bytes but the last, and gives that with its place.
    std::pair<std::uint64_t, unsigned> Leading()
    {
        m_value = 0;
        for (unsigned shift = 0; m_at < m_bytes.size(); shift += 7) {
            const std::uint64_t byte = static_cast<unsigned char>(m_bytes[m_at++]);
            if ((byte & 0x80U) == 0)
                return {byte, shift};
            m_value |= Shifted(byte & 0x7FU, shift);
        }
        m_cutOff = true;
        return {0, 0};
    }

    std::string_view m_bytes;
    std::size_t m_at = 0;
    std::uint64_t m_value = 0;
    bool m_cutOff = false;
};

/// False: a number is cut off, or a place lies outside.
bool ReadChunk(std::string_view pairs, std::uint64_t end, std::vector<ObjectPlace>& places)
{
    ModularReader reader(pairs);
    ObjectPlace place;
    bool sound = true;
    while (!reader.AtEnd()) {
        const std::uint64_t step = reader.Unsigned();
        place.offset += static_cast<std::uint64_t>(reader.Signed());
        place.handle += step;
        if (reader.CutOff())
            return false;
        const bool inside = place.offset < end;
        if (step != 0 && inside)
            places.push_back(place);
        sound = sound && (inside || step == 0);
    }
    return sound;
}

std::uint16_t BigEndian(std::string_view bytes, std::uint64_t at)
{
    const auto value = LoadAt<std::uint16_t>(bytes, at);
    return static_cast<std::uint16_t>((value << 8U) | (value >> 8U));
}

} // namespace

void SortPlaces(std::vector<ObjectPlace>& places)
{
    const auto before = [](const ObjectPlace& a, const ObjectPlace& b) { return a.handle < b.handle; };
    if (!std::ranges::is_sorted(places, before))
        std::ranges::stable_sort(places, before);
    std::size_t kept = 0;
    for (std::size_t i = 0; i < places.size(); ++i)
        if (i + 1 == places.size() || places[i].handle != places[i + 1].handle)
            places[kept++] = places[i];
    places.resize(kept);
}

ObjectMap ReadObjectMap(std::string_view bytes, std::uint64_t end)
{
    constexpr std::size_t kSizeField = 2, kChecksum = 2;
    ObjectMap map;
    bool sound = true;
    while (bytes.size() >= kSizeField) {
        const std::size_t size = BigEndian(bytes, 0);
        if (size <= kSizeField) {
            map.complete = sound && size == kSizeField;
            break;
        }
        sound = ReadChunk(SliceOf(bytes, kSizeField, size - kSizeField), end, map.places) && sound;
        if (bytes.size() < size + kChecksum)
            break;
        map.checksumsHold = map.checksumsHold && Crc16(kCrcSeed, bytes.substr(0, size)) == BigEndian(bytes, size);
        bytes.remove_prefix(size + kChecksum);
    }
    SortPlaces(map.places);
    return map;
}

} // namespace sm::drawing::dwg
