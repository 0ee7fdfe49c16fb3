// SPDX-License-Identifier: GPL-3.0-or-later
// Styles of tables from bits as each generation of releases stores them.
#include "drawing/dwg/objects/TableBench.h"
#include "dwg/records/RecordDecoders.h"

#include <gtest/gtest.h>

namespace sm::drawing::dwg::testing {

namespace {

TEST(TableStyles, Of2010HaveTheirCellStylesInTheOrderOfADxf)
{
    BitWriter bits;
    bits.RC(0).WideT("Standard").BL(0).BL(101).H(5, 0);
    Style(bits, 0, 1, 1, kNoFill);
    bits.BL(4).BL(2).WideT("Table").BL(4);
    unsigned alignment = 4;
    for (const unsigned number : {1U, 2U, 3U, 101U}) { // title, header, data, one of the user's
        bits.BL(number);
        Style(bits, 0, 10.0 * number, alignment++, number == 2 ? kRed : kNoFill);
        bits.BL(number).BL(1).WideT("name");
    }
    TableBench bench(Release::R2010, bits);
    DecodeTableStyle(bench.object);
    EXPECT_FALSE(bench.object.Lost());
    EXPECT_EQ(bench.Tags(), "3=Standard 40=2.5 41=0.5 7=Notes 140=30 170=6 62=5 63=7 283=0 "
                            "7=Notes 140=10 170=4 62=5 63=7 283=0 7=Notes 140=20 170=5 62=5 63=1 283=1 ");
}

TEST(TableStyles, Of2000NameATextStyleForEachKindEvenIfItIsMissing)
{
    BitWriter bits;
    bits.T("Old").BS(0).BS(0).BD(1.5).BD(2.5).B(true).B(false);
    for (const unsigned style : {kTextStyle, 0x99U, kTextStyle}) {
        bits.H(5, style).BD(3).BS(2).Color(kByBlockColor).Color(kNoFill).B(false);
        for (int border = 0; border < 6; ++border)
            bits.BS(0).B(true).Color(kByBlockColor);
    }
    TableBench bench(Release::R2000, bits);
    DecodeTableStyle(bench.object);
    EXPECT_FALSE(bench.object.Lost());
    EXPECT_EQ(bench.Tags(), "3=Old 70=0 71=0 40=1.5 41=2.5 280=1 281=0 7=Notes 140=3 170=2 62=0 63=7 283=0 "
                            "7= 140=3 170=2 62=0 63=7 283=0 7=Notes 140=3 170=2 62=0 63=7 283=0 ");
}

} // namespace

} // namespace sm::drawing::dwg::testing
