// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/dwg/DwgFiles.h"
#include "dwg/file/Checksums.h"
#include "dwg/file/Decompress.h"

#include <gtest/gtest.h>

namespace sm::drawing::dwg::testing {
namespace {

using namespace std::string_literals;

struct DecompressRow {
    const char* name;
    std::string source;
    std::string text;
    bool sound;
};

void PrintTo(const DecompressRow& row, std::ostream* out)
{
    *out << row.name;
}

class Compression2004 : public ::testing::TestWithParam<DecompressRow> {};

TEST_P(Compression2004, IsUndone)
{
    const DecompressRow& row = GetParam();
    std::vector<char> room(64);
    const Decompressed done = Decompress2004(row.source, room);
    EXPECT_EQ(std::string(room.data(), done.written), row.text);
    EXPECT_EQ(done.sound, row.sound);
}

INSTANTIATE_TEST_SUITE_P(Rows, Compression2004,
                         ::testing::Values(DecompressRow{"Literals",
                                                         "\x01"
                                                         "abcd\x11\0\0"s,
                                                         "abcd", true},
                                           DecompressRow{"LongLiterals",
                                                         "\0\x02"
                                                         "abcdefghijklmnopqrst\x11\0\0"s,
                                                         "abcdefghijklmnopqrst", true},
                                           // Length 3, distance 4, one literal.
                                           DecompressRow{"Near",
                                                         "\x01"
                                                         "abcd\x4D\0X\x11\0\0"s,
                                                         "abcdabcX", true},
                                           // Length 6 from one byte back: it runs into itself.
                                           DecompressRow{"Overlap",
                                                         "\x01"
                                                         "abcd\x70\0\x11\0\0"s,
                                                         "abcddddddd", true},
                                           // Opcode 0x24: length 6, distance 2.
                                           DecompressRow{"TwoBytes",
                                                         "\x01"
                                                         "abcd\x24\x04\0\x11\0\0"s,
                                                         "abcdcdcdcd", true},
                                           DecompressRow{"EndsEarly",
                                                         "\x01"
                                                         "abcd\x4D"s,
                                                         "abcd", false},
                                           DecompressRow{"ReachesBeforeTheStart",
                                                         "\x01"
                                                         "abcd\x40\x10\x11\0\0"s,
                                                         "abcd", false},
                                           // Opcode 0x10 is legal, but names bytes 0x4000 and more back.
                                           DecompressRow{"FarBeforeTheStart",
                                                         "\x01"
                                                         "abcd\x12\0\0\x11\0\0"s,
                                                         "abcd", false},
                                           DecompressRow{"NothingAtAll", ""s, "", false}),
                         [](const auto& row) { return row.param.name; });

TEST(Compression2004, ReadsTheFarFormFromSixteenKilobytesOn)
{
    std::string text(0x4000, 'x');
    text.replace(0, 8, "far away");
    std::string source = Literal2004(text);
    source.resize(source.size() - 3);
    source += "\x16\0\0\x11\0\0"s; // length 8, distance 0x4000
    std::vector<char> room(text.size() + 8);
    const Decompressed done = Decompress2004(source, room);
    EXPECT_TRUE(done.sound);
    EXPECT_EQ(std::string(room.data() + text.size(), 8), "far away");
}

TEST(Compression2004, StopsWhenTheTargetIsFull)
{
    std::vector<char> room(6);
    const Decompressed done = Decompress2004("\x01"
                                             "abcd\x70\0"s,
                                             room);
    EXPECT_TRUE(done.sound);
    EXPECT_EQ(std::string(room.data(), 6), "abcddd");
}

class Compression2007 : public ::testing::TestWithParam<DecompressRow> {};

TEST_P(Compression2007, IsUndone)
{
    const DecompressRow& row = GetParam();
    std::vector<char> room(row.text.size() + (row.sound ? 0 : 8));
    const Decompressed done = Decompress2007(row.source, room);
    EXPECT_EQ(std::string(room.data(), done.written), row.text);
    EXPECT_EQ(done.sound, row.sound);
}

INSTANTIATE_TEST_SUITE_P(Rows, Compression2007,
                         ::testing::Values(
                             // Runs whose bytes stand in another order.
                             DecompressRow{"Three",
                                           "\x20\0\0\x03"
                                           "cba"s,
                                           "abc", true},
                             DecompressRow{"Seven",
                                           "\x20\0\0\x07"
                                           "gcdefba"s,
                                           "abcdefg", false},
                             DecompressRow{"Eight", "\0abcdefgh"s, "abcdefgh", true},
                             DecompressRow{"Twelve",
                                           "\x04"
                                           "efghijklabcd"s,
                                           "abcdefghijkl", false},
                             DecompressRow{"Sixteen",
                                           "\x08"
                                           "ijklmnopabcdefgh"s,
                                           "abcdefghijklmnop", false},
                             // Length 3, distance 1 + 2.
                             DecompressRow{"Reference", "\0abcdefgh\x32\0"s, "abcdefghfgh", true},
                             DecompressRow{"BeforeTheStart", "\0abcdefgh\x3F\x08"s, "abcdefgh", false}),
                         [](const auto& row) { return row.param.name; });

TEST(Checksums, AgreeWithTheirDefinitions)
{
    EXPECT_EQ(Crc16(0, "123456789"), 0xBB3D);
    EXPECT_EQ(Crc16(kCrcSeed, ""), 0xC0C1);
    EXPECT_EQ(Crc32("123456789"), 0xCBF43926U);
    EXPECT_EQ(PageSum(0, "abc"), 0x024A0126U);
    EXPECT_EQ(PageSum(PageSum(0, "a"), "bc"), 0x024A0126U);
    // Both sums are kept below 0xFFF1.
    std::string rising(70000, '\0');
    for (std::size_t i = 0; i < rising.size(); ++i)
        rising[i] = static_cast<char>(i * 7);
    EXPECT_EQ(PageSum(0, rising), 0x26DF3670U);
    EXPECT_EQ(PageSum(0x00050003, rising.substr(0, 77)), 0xE75C2505U);
    EXPECT_EQ(PageSum(0, std::string(300, '\xFF')), (std::uint32_t{0xB7E3} << 16U) | 0x2AE3U);
}

} // namespace
} // namespace sm::drawing::dwg::testing
