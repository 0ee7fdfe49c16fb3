// SPDX-License-Identifier: GPL-3.0-or-later
// What is done in steps of many bytes against the same byte by byte: every length and distance, and both ends.
#include "dwg/file/Checksums.h"
#include "dwg/file/CodedPages.h"
#include "dwg/file/Decompress.h"

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace sm::drawing::dwg::testing {
namespace {

using namespace std::string_literals;

const std::string kStart = "The first forty-eight bytes, which have no order";

/// A compressed stream and what it becomes.
struct CodedStream {
    std::string source, text;

    void Repeat(std::size_t distance, std::size_t length)
    {
        for (std::size_t i = 0; i < length; ++i)
            text += text[text.size() - distance];
    }
};

char Letter(std::size_t number)
{
    return static_cast<char>('a' + number % 26);
}

/// References of two forms with none to three literals behind each.
CodedStream StreamOf2004()
{
    CodedStream stream{"\0\x1E"s + kStart, kStart}; // 0x0F + 0x1E + 3 literals
    std::size_t number = 0;
    const auto add = [&](std::string reference, std::size_t distance, std::size_t length, unsigned literals) {
        stream.Repeat(distance, length);
        for (; literals > 0; --literals) {
            reference += Letter(++number);
            stream.text += Letter(number);
        }
        stream.source += reference;
    };
    for (unsigned distance = 1; distance <= 40; ++distance) {
        const unsigned place = distance - 1;
        for (unsigned length = 3; length <= 14; ++length) {
            const unsigned literals = (distance + length) % 4;
            add({static_cast<char>((length + 1) << 4U | (place & 3U) << 2U | literals), static_cast<char>(place >> 2U)},
                distance, length, literals);
        }
        for (unsigned length = 3; length <= 33; ++length) {
            const unsigned literals = length % 4;
            add({static_cast<char>(0x20U | (length - 2)), static_cast<char>(place << 2U | literals), '\0'}, distance,
                length, literals);
        }
    }
    stream.source += "\x11\0\0"s;
    return stream;
}

/// The same with up to seven literals, which stand in the file in another order.
CodedStream StreamOf2007()
{
    const std::string orders[]{"", "0", "10", "210", "0123", "40123", "512340", "6512340"};
    CodedStream stream{"\0abcdefgh"s, "abcdefgh"};
    std::size_t number = 0;
    for (unsigned distance = 1; distance <= 40; ++distance)
        for (unsigned length = 3; length <= 14; ++length) {
            const unsigned reach = std::min<unsigned>(distance, static_cast<unsigned>(stream.text.size()));
            const std::string& order = orders[(distance + length) % 8];
            stream.source += static_cast<char>(length << 4U | ((reach - 1) & 15U));
            stream.source += static_cast<char>((reach - 1) >> 4U << 3U | order.size());
            stream.Repeat(reach, length);
            const std::size_t first = number;
            for (std::size_t i = 0; i < order.size(); ++i)
                stream.source += Letter(first + i);
            for (const char place : order)
                stream.text += Letter(first + static_cast<std::size_t>(place - '0'));
            number += order.size();
        }
    return stream;
}

using Decompress = Decompressed (*)(std::string_view, std::span<char>);

/// Into room that ends with the text, that is larger, and that cuts it anywhere near its end.
void ExpectText(const CodedStream& stream, Decompress decompress)
{
    for (const std::size_t more : {std::size_t{0}, std::size_t{1}, std::size_t{15}, std::size_t{200}}) {
        std::vector<char> room(stream.text.size() + more);
        const Decompressed done = decompress(stream.source, room);
        EXPECT_EQ(done.written, stream.text.size());
        EXPECT_EQ(std::string(room.begin(), room.end()), stream.text + std::string(more, '\0'));
    }
    for (std::size_t less = 1; less < 150; ++less) {
        std::vector<char> room(stream.text.size() - less);
        const Decompressed done = decompress(stream.source, room);
        EXPECT_TRUE(done.sound);
        EXPECT_EQ(std::string(room.begin(), room.end()), stream.text.substr(0, room.size()));
    }
}

TEST(WideSteps, Decompress2004AsSingleBytesDo)
{
    ExpectText(StreamOf2004(), Decompress2004);
}

TEST(WideSteps, Decompress2007AsSingleBytesDo)
{
    ExpectText(StreamOf2007(), Decompress2007);
}

std::string Noise(std::size_t size)
{
    std::mt19937 dice(static_cast<unsigned>(size));
    std::string bytes(size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(dice() & 0xFFU);
    return bytes;
}

TEST(WideSteps, PutCodewordsInOrderAsSingleBytesDo)
{
    for (const std::size_t data : {kTableData, kSectionData})
        for (const std::size_t count : {1U, 7U, 15U, 16U, 17U, 31U, 40U, 101U})
            for (const std::size_t cut : {0U, 1U, 300U}) {
                std::string bytes = Noise(count * kCodeword);
                bytes.resize(bytes.size() - std::min(bytes.size(), cut * 5));
                std::string expected(count * data, '\0');
                for (std::size_t i = 0; i < bytes.size() && i / count < data; ++i)
                    expected[i % count * data + i / count] = bytes[i];
                std::string room = "what was there before";
                EXPECT_TRUE(Deinterleave(bytes, count, data, room) == expected)
                    << count << " codewords, cut by " << cut * 5;
            }
}

/// By the definition: bit by bit.
std::uint16_t CrcOfBits(std::uint16_t rest, std::string_view bytes)
{
    for (const char byte : bytes) {
        rest = static_cast<std::uint16_t>(rest ^ static_cast<unsigned char>(byte));
        for (int bit = 0; bit < 8; ++bit)
            rest = static_cast<std::uint16_t>((rest & 1U) != 0 ? rest >> 1U ^ 0xA001U : rest >> 1U);
    }
    return rest;
}

TEST(WideSteps, TakeChecksumsAsSingleBitsDo)
{
    for (std::size_t size = 0; size < 50; ++size)
        EXPECT_EQ(Crc16(kCrcSeed, Noise(size)), CrcOfBits(kCrcSeed, Noise(size))) << size;
    for (const std::size_t size : {31U, 32U, 33U, 5551U, 5552U, 5553U, 20000U}) {
        std::uint32_t low = 3, high = 5;
        for (const char byte : Noise(size)) {
            low = (low + static_cast<unsigned char>(byte)) % 0xFFF1U;
            high = (high + low) % 0xFFF1U;
        }
        EXPECT_EQ(PageSum(0x00050003, Noise(size)), high << 16U | low) << size;
    }
}

} // namespace
} // namespace sm::drawing::dwg::testing
