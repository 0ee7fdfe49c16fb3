// SPDX-License-Identifier: GPL-3.0-or-later
// Tables from bits as each generation of releases stores them.
#include "drawing/dwg/objects/TableBench.h"
#include "dwg/entities/EntityDecoders.h"

#include <gtest/gtest.h>

namespace sm::drawing::dwg::testing {

namespace {

/// The fields of the block reference that every table begins with, from R2000 on.
void WriteReference(BitWriter& bits)
{
    bits.BD(1).BD(2).BD(0).Bits(3, 2).BD(0).BD(0).BD(0).BD(1).B(false).H(5, kPicture);
}

/// A cell up to R2007, as far as its text or block.
void BeginCell(BitWriter& bits, unsigned kind, bool hidden, unsigned columns, unsigned rows)
{
    bits.BS(kind).RC(0).B(hidden).B(false).BL(columns).BL(rows).BD(0);
}

/// Two columns and one row: 12 and 8 wide, 3 high.
void BeginOldTable(BitWriter& bits)
{
    WriteReference(bits);
    bits.BS(22).BD(1).BD(0).BD(0).BL(2).BL(1).BD(12).BD(8).BD(3).H(5, kTableStyle);
}

const std::string kHeadTags = "10=1 20=2 30=0 343=50 ";
const std::string kGridTags = "342=87 11=1 21=0 31=0 141=3 142=12 142=8 ";

TEST(DwgTables, UpTo2004HaveTextsBlocksAndAllOverrides)
{
    constexpr unsigned kAll = 0x3FFFF & ~2U;
    BitWriter bits;
    BeginOldTable(bits);
    BeginCell(bits, 1, false, 1, 1);
    bits.H(5, 0).T("Title").B(true).BL(kAll).RC(0);
    bits.BS(5).Color(kRed).Color(kBlue).H(5, kTextStyle).BD(2.5);
    for (const unsigned side : {1U, 2U, 3U, 4U}) // top, right, bottom, left
        bits.Color(0xC3000000 + side).BS(10 * side).BS(side == 4 ? 1 : 0);
    BeginCell(bits, 2, true, 2, 3);
    bits.H(5, 0x60).BD(0.5).B(true).BS(1).H(4, 0x61).BS(1).T("A7").B(false);
    TableBench bench(Release::R2004, bits);
    DecodeTable(bench.object);
    EXPECT_FALSE(bench.object.Lost());
    EXPECT_EQ(bench.Tags(), kHeadTags + kGridTags +
                                "171=1 173=0 175=1 176=1 1=Title 7=Notes 140=2.5 145=0 170=5 63=1 64=5 "
                                "69=1 279=10 65=2 275=20 66=3 276=30 68=4 278=40 288=0 "
                                "171=2 173=1 175=2 176=3 340=60 144=0.5 331=61 300=A7 145=0 ");
}

/// A value of R2007 and later.
BitWriter& Value(BitWriter& bits, unsigned flags, unsigned type)
{
    return bits.BL(flags).BL(type);
}
void Shown(BitWriter& bits, const std::string& text)
{
    bits.BL(0).WideT("").WideT(text);
}

TEST(DwgTables, Of2007ShowTheTextOfValuesOrTheStringThatAValueIs)
{
    BitWriter bits;
    BeginOldTable(bits);
    BeginCell(bits, 1, false, 1, 1);
    bits.H(5, 0).B(false).BL(0);
    Shown(Value(bits, 4, 2).BD(0.35), "35 %");
    BeginCell(bits, 1, false, 1, 1);
    bits.H(5, 0).B(true).BL(2 + 4).RC(0).B(true).Color(kRed).BL(0); // a fill, but switched off
    Shown(Value(bits, 0, 4).BL(6).RS('d').RS('r').RS('y'), "");
    TableBench bench(Release::R2007, bits);
    DecodeTable(bench.object);
    EXPECT_FALSE(bench.object.Lost());
    EXPECT_EQ(bench.Tags(), kHeadTags + kGridTags +
                                "171=1 173=0 175=1 176=1 1=35 % 145=0 "
                                "171=1 173=0 175=1 176=1 1=dry 145=0 ");
}

void NoStyle(BitWriter& bits)
{
    bits.BL(1).BS(0);
}

void BeginNewCell(BitWriter& bits, unsigned contents)
{
    bits.BL(0).WideT("").BL(0).BL(0).BL(0).BL(contents);
}

void EndRow(BitWriter& bits, double height)
{
    bits.BL(1).BD(height);
}

/// From R2013 on: two columns and two rows; those of the first are merged.
BitWriter NewTable()
{
    BitWriter bits;
    WriteReference(bits);
    bits.RC(0).H(5, 0).BL(0).BL(0).WideT("").WideT("").BL(2);
    for (const double width : {12.0, 8.0}) {
        bits.WideT("").BL(0).BL(0);
        NoStyle(bits);
        bits.BL(0).BD(width);
    }
    bits.BL(2);
    // A text of its own height and a custom value, and an empty cell that has its row's.
    bits.BL(2).BL(0).WideT("").BL(0).BL(1).WideT("sum");
    Shown(Value(bits, 0, 32).BL(24).RD(1).RD(2).RD(3), "");
    bits.BL(0).BL(1).BL(1);
    Shown(Value(bits, 6, 4).BL(4).RS('T').RS('i'), "Ti");
    bits.BL(0).BS(1);
    Format(bits, 0x80, 4, 1);
    Style(bits, 0x10 + 0x200, 9, 6, kRed);
    bits.BL(0).BL(1).BL(3).BD(5).BD(6).BL(1).H(5, 0);
    for (int i = 0; i < 10; ++i)
        bits.BD(1);
    bits.BL(0);
    BeginNewCell(bits, 0);
    NoStyle(bits);
    bits.BL(0).BL(0).BL(0).BL(0);
    Style(bits, 0x80, 7, 1, kNoFill);
    EndRow(bits, 3);
    // A block with an attribute, and two contents in one cell.
    bits.BL(2);
    BeginNewCell(bits, 1);
    bits.BL(4).H(5, 0x60).BL(1).H(4, 0x61).WideT("A7").BL(1).BS(1);
    Format(bits, 8, 4, 1);
    NoStyle(bits);
    bits.BL(0).BL(0);
    BeginNewCell(bits, 2);
    for (const char* const text : {"a", "b"}) {
        bits.BL(1);
        Shown(Value(bits, 0, 512).BL(0), text);
        bits.BL(0).BS(0);
    }
    NoStyle(bits);
    bits.BL(0).BL(0).BL(0).BL(0);
    NoStyle(bits);
    EndRow(bits, 4);
    bits.BL(0);
    NoStyle(bits);
    bits.BL(2).BL(0).BL(0).BL(0).BL(1).BL(1).BL(1).BL(9).BL(9); // the second merge lies outside
    return bits.H(5, kTableStyle).BS(6).BD(1).BD(0).BD(0);
}

const std::string kBordersOfTheStyle = "65=1 275=40 285=0 ";

TEST(DwgTables, From2010OnInheritFromRowsAndAreMergedAtTheEnd)
{
    TableBench bench(Release::R2018, NewTable());
    DecodeTable(bench.object);
    EXPECT_FALSE(bench.object.Lost());
    EXPECT_EQ(bench.Tags(), kHeadTags + "342=87 11=1 21=0 31=0 141=3 141=4 142=12 142=8 " +
                                "171=1 173=0 175=2 176=1 1=Ti 140=4 170=6 63=1 " + kBordersOfTheStyle +
                                "171=1 173=1 175=1 176=1 140=7 " + kBordersOfTheStyle +
                                "171=2 173=0 175=1 176=1 340=60 144=2 331=61 300=A7 "
                                "171=1 173=0 175=1 176=1 1=a\\Pb ");
}

BitWriter CutTable()
{
    const BitWriter whole = NewTable();
    BitWriter bits;
    BitReader reader(whole.Bytes(), 0, whole.Count());
    for (std::uint64_t i = whole.Count() / 2; i > 0; --i)
        bits.B(reader.B());
    return bits;
}

TEST(DwgTables, WhoseCellsAreDamagedAreDrawnByTheirBlock)
{
    TableBench bench(Release::R2018, CutTable());
    bench.names.entries[kPicture] = "*T1";
    DecodeTable(bench.object);
    EXPECT_FALSE(bench.object.Lost());
    EXPECT_EQ(bench.Tags(), "2=*T1 " + kHeadTags);
}

TEST(DwgTables, WhoseCellsAreDamagedAreLostWithoutABlock)
{
    TableBench bench(Release::R2018, CutTable());
    DecodeTable(bench.object);
    EXPECT_TRUE(bench.object.Lost());
}

TEST(DwgTables, OfMoreCellsThanTheirBitsAreLostAndTakeNoMemory)
{
    BitWriter bits;
    WriteReference(bits);
    bits.BS(22).BD(1).BD(0).BD(0).BL(15'000).BL(15'000);
    for (int i = 0; i < 30'000; ++i)
        bits.BD(0);
    bits.H(5, kTableStyle);
    TableBench bench(Release::R2000, bits);
    DecodeTable(bench.object);
    EXPECT_TRUE(bench.object.Lost());
}

TEST(DwgTables, KeepBoundedNumbersOfAttributes)
{
    BitWriter bits;
    BeginOldTable(bits);
    for (int cell = 0; cell < 2; ++cell) {
        BeginCell(bits, 2, false, 1, 1);
        bits.H(5, 0x60).BD(1).B(true).BS(15'000);
        for (int i = 0; i < 15'000; ++i)
            bits.H(4, 0x61).BS(1).T("");
        bits.B(false);
    }
    TableBench bench(Release::R2004, bits);
    DecodeTable(bench.object);
    EXPECT_FALSE(bench.object.Lost());
    const std::string tags = bench.Tags();
    std::size_t kept = 0;
    for (std::size_t at = tags.find(" 331="); at != std::string::npos; at = tags.find(" 331=", at + 1))
        ++kept;
    EXPECT_EQ(kept, 20'000U);
}

TEST(DwgTables, WithBitsChangedBecomeBoundedTagsOrAreLost)
{
    constexpr std::uint64_t kEach = 5;
    const BitWriter whole = NewTable();
    int lost = 0;
    for (std::uint64_t changed = 0; changed < whole.Count(); changed += kEach) {
        BitWriter bits;
        BitReader reader(whole.Bytes(), 0, whole.Count());
        for (std::uint64_t i = 0; i < whole.Count(); ++i)
            bits.B(reader.B() != (i == changed));
        TableBench bench(Release::R2018, bits);
        DecodeTable(bench.object);
        lost += bench.object.Lost() ? 1 : 0;
        EXPECT_LT(bench.Tags().size(), 2000U) << "bit " << changed;
    }
    EXPECT_GT(lost, 0);
    EXPECT_LT(lost, static_cast<int>(whole.Count() / kEach));
}

} // namespace

} // namespace sm::drawing::dwg::testing
