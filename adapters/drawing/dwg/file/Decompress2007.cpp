// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/file/ByteStream.h"
#include "dwg/file/Decompress.h"

#include <array>
#include <utility>

namespace sm::drawing::dwg {

namespace {

constexpr std::size_t kBlock = 32;

/// `count` bytes from `from` on.
struct Run {
    std::uint8_t from = 0, count = 0;
};
using Runs = std::array<Run, 8>;

/// In which order the bytes of a literal run of fewer than 32 stand in the file: the places in the run, one row a
/// length.
constexpr std::array<Runs, kBlock> kOrders{{
    {},
    {{{0, 1}}},
    {{{1, 1}, {0, 1}}},
    {{{2, 1}, {1, 1}, {0, 1}}},
    {{{0, 4}}},
    {{{4, 1}, {0, 4}}},
    {{{5, 1}, {1, 4}, {0, 1}}},
    {{{6, 1}, {5, 1}, {1, 4}, {0, 1}}},
    {{{0, 8}}},
    {{{8, 1}, {0, 8}}},
    {{{9, 1}, {1, 8}, {0, 1}}},
    {{{10, 1}, {9, 1}, {1, 8}, {0, 1}}},
    {{{8, 4}, {0, 8}}},
    {{{12, 1}, {8, 4}, {0, 8}}},
    {{{13, 1}, {9, 4}, {1, 8}, {0, 1}}},
    {{{14, 1}, {13, 1}, {9, 4}, {1, 8}, {0, 1}}},
    {{{8, 8}, {0, 8}}},
    {{{9, 8}, {8, 1}, {0, 8}}},
    {{{17, 1}, {9, 8}, {1, 8}, {0, 1}}},
    {{{18, 1}, {17, 1}, {16, 1}, {8, 8}, {0, 8}}},
    {{{16, 4}, {8, 8}, {0, 8}}},
    {{{20, 1}, {16, 4}, {8, 8}, {0, 8}}},
    {{{21, 1}, {20, 1}, {16, 4}, {8, 8}, {0, 8}}},
    {{{22, 1}, {21, 1}, {20, 1}, {16, 4}, {8, 8}, {0, 8}}},
    {{{16, 8}, {8, 8}, {0, 8}}},
    {{{17, 8}, {16, 1}, {8, 8}, {0, 8}}},
    {{{25, 1}, {17, 8}, {16, 1}, {8, 8}, {0, 8}}},
    {{{26, 1}, {25, 1}, {17, 8}, {16, 1}, {8, 8}, {0, 8}}},
    {{{24, 4}, {16, 8}, {8, 8}, {0, 8}}},
    {{{28, 1}, {24, 4}, {16, 8}, {8, 8}, {0, 8}}},
    {{{29, 1}, {28, 1}, {24, 4}, {16, 8}, {8, 8}, {0, 8}}},
    {{{30, 1}, {26, 4}, {18, 8}, {10, 8}, {2, 8}, {1, 1}, {0, 1}}},
}};

/// Whole blocks stand in the file in this order of their quarters.
constexpr Runs kWholeBlock{{{24, 8}, {16, 8}, {8, 8}, {0, 8}}};

/// Copies a run of `Count` bytes in its order: a few moves of known size each.
template <std::size_t Count> void CopyOrdered(char* to, const char* from)
{
    constexpr const Runs& kOrder = Count == kBlock ? kWholeBlock : kOrders[Count % kBlock];
    [&]<std::size_t... I>(std::index_sequence<I...>)
    {
        ((std::memcpy(to, from + kOrder[I].from, kOrder[I].count), to += kOrder[I].count), ...);
    }
    (std::make_index_sequence<kOrder.size()>());
}

using CopyRun = void (*)(char*, const char*);
constexpr auto kCopies = []<std::size_t... Count>(std::index_sequence<Count...>)
{
    return std::array<CopyRun, sizeof...(Count)>{CopyOrdered<Count>...};
}
(std::make_index_sequence<kBlock + 1>());

/// A run of at most a block. Fewer bytes, or less room, and it ends early.
void PutOrdered(std::size_t count, ByteSource& source, ByteTarget& target)
{
    const std::string_view bytes = source.Take(count);
    char whole[kBlock]{}, ordered[kBlock];
    if (char* const room = bytes.size() == count ? target.Claim(count) : nullptr) {
        kCopies[count](room, bytes.data());
        return;
    }
    bytes.copy(whole, bytes.size());
    kCopies[count](ordered, whole);
    target.Put({ordered, bytes.size()});
}

void CopyLiterals(std::size_t count, ByteSource& source, ByteTarget& target)
{
    for (; count >= kBlock && source.Left() >= kBlock && target.Left() >= kBlock; count -= kBlock)
        CopyOrdered<kBlock>(target.Claim(kBlock), source.Take(kBlock).data());
    for (; count >= kBlock && !source.CutOff() && !target.Full(); count -= kBlock)
        PutOrdered(kBlock, source, target);
    if (count < kBlock)
        PutOrdered(count, source, target);
}

/// A run of that many literals has its length in the bytes that follow.
constexpr std::size_t kLong = 0x17;

std::size_t LiteralRun(unsigned opcode, ByteSource& source)
{
    std::size_t count = opcode + 8;
    if (count != kLong)
        return count;
    unsigned more = source.Next();
    count += more;
    if (more != 0xFF)
        return count;
    do {
        more = source.Next();
        more |= source.Next() << 8U;
        count += more;
    } while (more == 0xFFFF && !source.CutOff());
    return count;
}

struct CodedReference {
    std::size_t length = 0, distance = 0;
    unsigned opcode = 0; ///< its last byte: the low bits say how many literals follow
};

/// The long form, whose distance takes two bytes.
CodedReference ReadFar(unsigned opcode, ByteSource& source)
{
    CodedReference found;
    found.distance = source.Next();
    found.distance |= static_cast<std::size_t>(source.Next()) << 8U;
    found.length = opcode & 7U;
    if ((opcode & 8U) == 0) {
        found.opcode = source.Next();
        found.length += found.opcode & 0xF8U;
        return found;
    }
    ++found.distance;
    found.length += static_cast<std::size_t>(source.Next()) << 3U;
    found.opcode = source.Next();
    found.length += ((found.opcode & 0xF8U) << 8U) + 0x100;
    return found;
}

CodedReference ReadCodedReference(unsigned opcode, ByteSource& source)
{
    const unsigned kind = opcode >> 4U;
    if (kind == 2)
        return ReadFar(opcode, source);
    CodedReference found;
    if (kind >= 3) {
        found.length = kind;
        found.opcode = source.Next();
        found.distance = (opcode & 15U) + ((found.opcode & 0xF8U) << 1U) + 1;
        return found;
    }
    found.distance = source.Next();
    found.opcode = source.Next();
    if (kind == 0) {
        found.length = (opcode & 15U) + 0x13 + ((found.opcode >> 3U) & 0x10U);
        found.distance += ((found.opcode & 0x78U) << 5U) + 1;
    } else {
        found.length = (opcode & 15U) + 3;
        found.distance += ((found.opcode & 0xF8U) << 5U) + 1;
    }
    return found;
}

/// What a short reference and the literals behind it read and write at most, all steps being whole.
constexpr std::size_t kStepReads = 32, kStepWrites = 96;

/// The most frequent case: short references and literals, far from both ends. Begins with `opcode` and gives the first
/// one that is something else.
unsigned PassShortCoded(unsigned opcode, ByteSource& source, ByteTarget& target)
{
    while (source.Left() >= kStepReads && target.Left() >= kStepWrites) {
        const char* from = source.At();
        const auto byte = [from](int at) { return static_cast<unsigned char>(from[at]); };
        const unsigned kind = opcode >> 4U;
        if (kind == 2)
            break;
        unsigned last = byte(0);
        std::size_t length = kind, distance = (opcode & 15U) + ((last & 0xF8U) << 1U) + 1;
        if (kind < 2) {
            last = byte(1);
            length = (opcode & 15U) + (kind == 0 ? 0x13 + ((last >> 3U) & 0x10U) : 3);
            distance = byte(0) + ((last & (kind == 0 ? 0x78U : 0xF8U)) << 5U) + 1;
            ++from;
        }
        ++from;
        if (distance > target.Written())
            break;
        char* to = target.At();
        RepeatShort(to, distance, length);
        to += length;
        std::size_t literals = last & 7U;
        if (literals == 0) {
            opcode = static_cast<unsigned char>(*from++);
            if (opcode >= 0x10) {
                opcode = opcode >= 0xF0 ? opcode & 15U : opcode;
                source.MoveTo(from);
                target.MoveTo(to);
                continue;
            }
            literals = opcode + 8;
        }
        if (literals == kLong) {
            source.MoveTo(from);
            target.MoveTo(to);
            CopyLiterals(LiteralRun(opcode, source), source, target);
            opcode = source.Next();
            continue;
        }
        kCopies[literals](to, from);
        target.MoveTo(to + literals);
        opcode = static_cast<unsigned char>(from[literals]);
        source.MoveTo(from + literals + 1);
    }
    return opcode;
}

/// References up to the next literal run: gives its length, 0 at the end. False in `sound`: one names nothing.
std::size_t CopyReferences(ByteSource& source, ByteTarget& target, bool& sound)
{
    unsigned opcode = source.Next();
    while (!target.Full()) {
        opcode = PassShortCoded(opcode, source, target);
        const CodedReference reference = ReadCodedReference(opcode, source);
        sound = !source.CutOff() && target.Repeat(reference.distance, reference.length);
        if (!sound || source.AtEnd())
            return 0;
        if (const std::size_t literals = reference.opcode & 7U; literals != 0)
            return literals;
        opcode = source.Next();
        if (opcode < 0x10)
            return LiteralRun(opcode, source);
        if (opcode >= 0xF0)
            opcode &= 15U;
    }
    return 0;
}

} // namespace

Decompressed Decompress2007(std::string_view bytes, std::span<char> room)
{
    ByteSource source(bytes);
    ByteTarget target(room);
    const unsigned opcode = source.Next();
    std::size_t literals = 0;
    if ((opcode & 0xF0U) == 0x20) {
        source.Take(2);
        literals = source.Next() & 7U;
    }
    if (literals == 0)
        literals = LiteralRun(opcode, source);
    bool sound = true;
    while (sound && literals != 0 && !source.AtEnd() && !target.Full()) {
        CopyLiterals(literals, source, target);
        literals = source.AtEnd() ? 0 : CopyReferences(source, target, sound);
    }
    target.Finish();
    return {target.Written(), target.Full()};
}

} // namespace sm::drawing::dwg
