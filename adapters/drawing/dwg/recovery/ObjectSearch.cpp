// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/recovery/ObjectSearch.h"

#include "dwg/bits/BitReader.h"
#include "dwg/file/Bytes.h"
#include "dwg/file/Checksums.h"
#include "dwg/file/ObjectMap.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace sm::drawing::dwg {

namespace {

constexpr std::uint32_t kLastFixedType = 82, kProxyEntity = 498;
/// When the classes can't be read: more than any file has.
constexpr std::uint32_t kAnyClassEnd = 2000;
constexpr std::uint64_t kSmallest = 4, kChecksum = 2;

bool IsType(std::uint32_t type, std::uint32_t typeEnd)
{
    if (type >= kFirstClass)
        return type < (typeEnd != 0 ? typeEnd : kAnyClassEnd);
    return (type >= 1 && type <= kLastFixedType) || type >= kProxyEntity;
}

/// A search in bytes that were made to look like objects must end: so many bytes of checksums may be in vain.
std::uint64_t WorkFor(std::uint64_t size)
{
    return (std::uint64_t{16} << 20U) + 64 * size;
}

/// A large section may be written nowhere: it is all zeros, and no object begins with two of them.
constexpr std::uint64_t kEmpty = 32;
bool IsEmpty(std::string_view objects, std::uint64_t at)
{
    constexpr std::array<char, kEmpty> kZeros{};
    return objects.size() - at >= kEmpty && std::memcmp(objects.data() + at, kZeros.data(), kEmpty) == 0;
}

bool ChecksumHolds(std::string_view objects, std::uint64_t begin, std::uint64_t end)
{
    return Crc16(kCrcSeed, objects.substr(begin, end - begin)) == LoadAt<std::uint16_t>(objects, end);
}

/// With what only the search found. An object that stands where the map says stays, whatever else has its handle.
std::vector<FoundObject> Merged(const Container& container, std::uint32_t typeEnd,
                                const std::vector<FoundObject>& proven)
{
    std::vector<ObjectPlace> places = SearchObjects(container, typeEnd);
    places.insert(places.end(), proven.begin(), proven.end());
    SortPlaces(places);
    std::vector<FoundObject> all;
    all.reserve(places.size());
    for (const ObjectPlace& place : places)
        if (const std::optional<ObjectFrame> frame = FrameAt(container, place.offset, typeEnd))
            all.push_back({place, frame->type});
    return all;
}

std::uint32_t CountMissing(const std::vector<ObjectPlace>& lost, const std::vector<FoundObject>& objects)
{
    return static_cast<std::uint32_t>(std::ranges::count_if(lost, [&](const ObjectPlace& place) {
        return !std::ranges::binary_search(objects, place.handle, {}, &FoundObject::handle);
    }));
}

} // namespace

std::optional<ObjectFrame> FrameAt(const Container& container, std::uint64_t offset, std::uint32_t typeEnd)
{
    const std::string_view objects = container.Objects();
    // No object can be smaller, and a size of zero is what bytes that hold nothing look like.
    if (offset >= objects.size() || objects.size() - offset < kSmallest || LoadAt<std::uint16_t>(objects, offset) == 0)
        return std::nullopt;
    const Release release = container.FileRelease();
    BitReader bits(objects, offset * 8, objects.size() * 8);
    const std::uint64_t size = bits.MS();
    const std::uint64_t handleBits = release >= Release::R2010 ? bits.UMC() : 0;
    const std::uint64_t begin = bits.At() / 8;
    if (size < kSmallest || size > objects.size() || begin + size > objects.size() || handleBits > size * 8)
        return std::nullopt;
    ObjectFrame frame;
    frame.end = begin + size;
    frame.type = release >= Release::R2010 ? bits.BOT() : bits.BS();
    if (!IsType(frame.type, typeEnd))
        return std::nullopt;
    if (release >= Release::R2000 && release < Release::R2010 && bits.RL() > size * 8)
        return std::nullopt;
    const RawHandle own = bits.H();
    frame.handle = own.value;
    const bool sound = own.code == 0 && own.value != 0 && !bits.Overrun() && bits.At() <= frame.end * 8;
    return sound ? std::optional(frame) : std::nullopt;
}

std::vector<ObjectPlace> SearchObjects(const Container& container, std::uint32_t typeEnd)
{
    const std::string_view objects = container.Objects();
    std::vector<ObjectPlace> found;
    std::uint64_t work = WorkFor(objects.size());
    for (std::uint64_t at = 0; at < objects.size();) {
        if (IsEmpty(objects, at)) {
            at += kEmpty - 1; // the last zero may be the low byte of a size
            continue;
        }
        const std::optional<ObjectFrame> frame = FrameAt(container, at, typeEnd);
        const std::uint64_t cost = frame ? frame->end - at : 0;
        if (frame && cost <= work && frame->end + kChecksum <= objects.size() &&
            ChecksumHolds(objects, at, frame->end)) {
            found.push_back({frame->handle, at});
            at = frame->end + kChecksum;
            continue;
        }
        work -= std::min(work, cost);
        ++at;
    }
    return found;
}

std::vector<FoundObject> ProvenPlaces(const Container& container, std::uint32_t typeEnd, FindingList& findings)
{
    std::vector<FoundObject> proven;
    std::vector<ObjectPlace> lost;
    proven.reserve(container.Map().size());
    for (const ObjectPlace& place : container.Map()) {
        const std::optional<ObjectFrame> frame = FrameAt(container, place.offset, typeEnd);
        if (frame && frame->handle == place.handle)
            proven.push_back({place, frame->type});
        else
            lost.push_back(place);
    }
    if (lost.empty() && !container.MapDamaged())
        return proven;
    proven = Merged(container, typeEnd, proven);
    findings.Add(Damage::MapDamaged, 0);
    if (const std::uint32_t missing = CountMissing(lost, proven); missing != 0)
        findings.Add(Damage::ObjectMisplaced, 0, missing);
    return proven;
}

} // namespace sm::drawing::dwg
