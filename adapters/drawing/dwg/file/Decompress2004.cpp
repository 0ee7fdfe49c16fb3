// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/file/ByteStream.h"
#include "dwg/file/Decompress.h"

namespace sm::drawing::dwg {

namespace {

constexpr unsigned kEndMark = 0x11;

/// A count whose low bits did not fit: each zero byte adds 255, the first other one ends it.
std::size_t LongCount(ByteSource& source)
{
    std::size_t count = 0;
    unsigned byte = source.Next();
    while (byte == 0 && !source.CutOff()) {
        count += 0xFF;
        byte = source.Next();
    }
    return count + byte;
}

std::size_t CountIn(unsigned opcode, unsigned mask, ByteSource& source)
{
    const unsigned count = opcode & mask;
    return count != 0 ? count : LongCount(source) + mask;
}

/// How many bytes follow as they are, when the opcode says that (its high four bits are 0).
std::size_t LiteralCount(unsigned opcode, ByteSource& source)
{
    return CountIn(opcode, 0x0F, source) + 3;
}

struct Reference {
    std::size_t length = 0, distance = 0;
    unsigned literals = 0; ///< bytes that follow as they are: 0 to 3
};

Reference ReadReference(unsigned opcode, ByteSource& source)
{
    Reference found;
    if (opcode >= 0x40) {
        found.length = (opcode >> 4U) - 1;
        found.distance = ((source.Next() << 2U) | ((opcode >> 2U) & 3U)) + 1;
        found.literals = opcode & 3U;
        return found;
    }
    const bool isNear = opcode >= 0x20;
    found.length = CountIn(opcode, isNear ? 0x1F : 0x07, source) + 2;
    const unsigned low = source.Next();
    found.distance = (low >> 2U) | (source.Next() << 6U);
    found.distance += isNear ? 1 : 0x4000 + ((opcode & 8U) << 11U);
    found.literals = low & 3U;
    return found;
}

/// What a short reference and the literals behind it read and write at most, all steps being whole.
constexpr std::size_t kMostRead = 48, kMostWritten = 96;

/// The most frequent case: references and literals that tell their lengths in one byte, far from both ends. Begins
/// with `opcode` and gives the first one that is something else.
unsigned PassShort(unsigned opcode, ByteSource& source, ByteTarget& target)
{
    const auto byte = [](const char* at) { return static_cast<unsigned char>(*at); };
    while (source.Left() >= kMostRead && target.Left() >= kMostWritten && opcode > kEndMark) {
        const char* from = source.At();
        char* to = target.At();
        std::size_t length = (opcode >> 4U) - 1, distance = ((byte(from) << 2U) | ((opcode >> 2U) & 3U)) + 1;
        unsigned literals = opcode & 3U;
        if (opcode < 0x40) {
            const bool isNear = opcode >= 0x20;
            length = opcode & (isNear ? 0x1FU : 0x07U);
            if (length == 0)
                break;
            length += 2;
            literals = byte(from) & 3U;
            distance = (byte(from) >> 2U) | (byte(from + 1) << 6U);
            distance += isNear ? 1 : 0x4000 + ((opcode & 8U) << 11U);
            ++from;
        }
        ++from;
        if (distance > target.Written())
            break;
        RepeatShort(to, distance, length);
        to += length;
        std::memcpy(to, from, 4);
        target.MoveTo(to + literals);
        source.MoveTo(from + literals + 1);
        opcode = byte(from + literals);
        if (literals == 0 && opcode < 0x10) {
            target.Pass(LiteralCount(opcode, source), source);
            opcode = source.Next();
        }
    }
    return opcode;
}

} // namespace

Decompressed Decompress2004(std::string_view bytes, std::span<char> room)
{
    ByteSource source(bytes);
    ByteTarget target(room);
    unsigned opcode = source.Next();
    std::size_t literals = opcode < 0x10 ? LiteralCount(opcode, source) : 0;
    while (!source.CutOff()) {
        if (literals != 0) {
            target.Pass(literals, source);
            opcode = source.Next();
        }
        opcode = PassShort(opcode, source, target);
        if (opcode == kEndMark || target.Full()) {
            target.Finish();
            return {target.Written(), true};
        }
        if (opcode < 0x10)
            break;
        const Reference reference = ReadReference(opcode, source);
        if (source.CutOff() || !target.Repeat(reference.distance, reference.length))
            break;
        literals = reference.literals;
        if (literals == 0) {
            opcode = source.Next();
            literals = opcode < 0x10 ? LiteralCount(opcode, source) : 0;
        }
    }
    target.Finish();
    return {target.Written(), target.Full()};
}

} // namespace sm::drawing::dwg
