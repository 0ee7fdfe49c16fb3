// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text/Keywords.h"

#include <gtest/gtest.h>

namespace sm::base {
namespace {

TEST(Ascii, LeavesOtherLetters)
{
    EXPECT_EQ(LowerAscii("TXT.SHX Ä"), "txt.shx Ä");
    EXPECT_EQ(UpperAscii("ansi_1252 ä"), "ANSI_1252 ä");
    EXPECT_TRUE(SameAscii("DOS850", "dos850"));
    EXPECT_FALSE(SameAscii("Ä", "ä"));
    EXPECT_FALSE(SameAscii("ab", "abc"));
    EXPECT_EQ(LowerAscii('['), '[');
    EXPECT_EQ(LowerAscii('@'), '@');
}

} // namespace
} // namespace sm::base
