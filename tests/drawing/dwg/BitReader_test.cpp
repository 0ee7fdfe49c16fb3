// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/bits/BitReader.h"

#include "drawing/dwg/BitWriter.h"

#include <gtest/gtest.h>

namespace sm::drawing::dwg {

namespace {

using namespace std::string_literals;

/// The bytes of a row of hexadecimal digits.
std::string Hex(std::string_view digits)
{
    std::string bytes;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
        bytes.push_back(static_cast<char>(std::stoi(std::string(digits.substr(i, 2)), nullptr, 16)));
    return bytes;
}

TEST(BitReader, TheFirstFieldsOfALineOf2000)
{
    const std::string bytes = Hex("320044D8C04000008072A53421");
    BitReader bits(bytes);
    EXPECT_EQ(bits.MS(), 50U);
    EXPECT_EQ(bits.BS(), 19U);
    EXPECT_EQ(bits.RL(), 355U);
    const RawHandle handle = bits.H();
    EXPECT_EQ(handle.code, 0U);
    EXPECT_EQ(handle.value, 0x1CAU);
    EXPECT_FALSE(bits.Overrun());
}

TEST(BitReader, TheFirstFieldsOfALineOf2018)
{
    const std::string bytes = Hex("2D001604C08000");
    BitReader bits(bytes);
    EXPECT_EQ(bits.MS(), 45U);
    EXPECT_EQ(bits.UMC(), 22U);
    EXPECT_EQ(bits.BOT(), 19U);
}

TEST(BitReader, ModularNumbersHaveASignInTheirLastByte)
{
    const std::string bytes = Hex("D6E50141BF4015");
    BitReader bits(bytes);
    EXPECT_EQ(bits.MC(), 29398);
    EXPECT_EQ(bits.MC(), -1);
    EXPECT_EQ(bits.MC(), -63);
    EXPECT_EQ(bits.UMC(), 21U);
}

struct ShortRow {
    const char* what;
    const char* bytes;
    std::uint16_t value;
    std::uint64_t bits; ///< that it takes
};

TEST(BitReader, ShortNumbersTakeTwoToEighteenBits)
{
    const ShortRow rows[] = {{"two bytes", "00800000", 0x0002, 18},
                             {"one byte", "7FC0", 255, 10},
                             {"zero", "80", 0, 2},
                             {"256", "C0", 256, 2}};
    for (const ShortRow& row : rows) {
        const std::string bytes = Hex(row.bytes);
        BitReader bits(bytes);
        EXPECT_EQ(bits.BS(), row.value) << row.what;
        EXPECT_EQ(bits.At(), row.bits) << row.what;
        EXPECT_FALSE(bits.Overrun()) << row.what;
    }
}

TEST(BitReader, DoublesAreOneZeroOrEightBytes)
{
    const std::string bytes = Hex("4A00000000000001F03F");
    BitReader bits(bytes);
    EXPECT_EQ(bits.BD(), 1);
    EXPECT_EQ(bits.BB(), 0U);
    BitReader zero(bytes, 4, 8);
    EXPECT_EQ(zero.BD(), 0);
}

TEST(BitReader, DefaultsKeepTheBytesThatAreNotReplaced)
{
    const std::string same = Hex("00");
    EXPECT_EQ(BitReader(same).DD(2.5), 2.5);
    // 01, then the four low bytes 00 00 00 00 moved by two bits.
    const std::string low = Hex("4000000000");
    EXPECT_EQ(BitReader(low).DD(2.5), 2.5);
    // 10, bytes 4 and 5 as 00 00, the four low ones as 0.
    const std::string middle = Hex("80000000000000");
    EXPECT_EQ(BitReader(middle).DD(2.5), 2.5);
}

TEST(BitReader, NothingIsReadBehindTheEnd)
{
    const std::string bytes = Hex("FFFF");
    BitReader bits(bytes, 4, 12);
    EXPECT_EQ(bits.Left(), 8U);
    EXPECT_EQ(bits.RS(), 0U);
    EXPECT_TRUE(bits.Overrun());
    EXPECT_EQ(bits.Left(), 0U);
    EXPECT_EQ(bits.RC(), 0U);
}

TEST(BitReader, ACountIsBoundedByTheBitsThatAreLeft)
{
    const std::string bytes = Hex("00000000");
    BitReader bits(bytes);
    EXPECT_EQ(bits.Count(16, 2), 16U);
    EXPECT_FALSE(bits.Overrun());
    EXPECT_EQ(bits.Count(17, 2), 0U);
    EXPECT_TRUE(bits.Overrun());
}

TEST(BitReader, BytesAreCopiedFromAnyBit)
{
    const std::string bytes = Hex("A4142440");
    BitReader bits(bytes, 4, 32);
    std::string copied;
    bits.Copy(3, copied);
    EXPECT_EQ(copied, "ABD");
    EXPECT_EQ(bits.At(), 28U);
    bits.Copy(1, copied);
    EXPECT_EQ(copied, "ABD");
    EXPECT_TRUE(bits.Overrun());
}

TEST(BitReader, WholeWordsAndHandlesAreReadFromAnyBit)
{
    for (unsigned shift = 0; shift < 8; ++shift) {
        testing::BitWriter written;
        written.Bits(0, shift).RL(0x55667788).RL(0x11223344).H(5, 0x8899AABBCCDDEEFF).H(4, 0x123456789ABCDE).H(2, 0);
        written.Bits(0x0102030405060708, 64).Bits(0x090A0B0C0D0E0F10, 64).Bits(0x11, 8);
        BitReader bits(written.Bytes(), shift, written.Count());
        EXPECT_EQ(bits.RLL(), 0x1122334455667788U) << shift;
        RawHandle handle = bits.H();
        EXPECT_EQ(handle.code, 5) << shift;
        EXPECT_EQ(handle.value, 0x8899AABBCCDDEEFFU) << shift;
        handle = bits.H();
        EXPECT_EQ(handle.value, 0x123456789ABCDEU) << shift;
        handle = bits.H();
        EXPECT_EQ(handle.code, 2) << shift;
        EXPECT_EQ(handle.value, 0U) << shift;
        std::string copied;
        bits.Copy(17, copied);
        EXPECT_EQ(copied, Hex("0102030405060708090A0B0C0D0E0F1011")) << shift;
        EXPECT_FALSE(bits.Overrun()) << shift;
        EXPECT_EQ(bits.RLL(), 0U) << shift;
        EXPECT_TRUE(bits.Overrun()) << shift;
    }
}

TEST(BitReader, ValuesThatNoWriterStoresFail)
{
    const std::string infinite = Hex("000000000000F07F");
    BitReader raw(infinite);
    EXPECT_EQ(raw.RD(), 0);
    EXPECT_TRUE(raw.Overrun());
    const std::string three = Hex("C0");
    BitReader bits(three);
    EXPECT_EQ(bits.BL(), 0U);
    EXPECT_TRUE(bits.Overrun());
}

} // namespace

} // namespace sm::drawing::dwg
