// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of tables and of their styles share.
#pragma once

#include "drawing/dwg/objects/ObjectBench.h"

namespace sm::drawing::dwg::testing {

constexpr std::uint32_t kRed = 0xC3000001, kBlue = 0xC3000005, kByBlockColor = 0xC1000000, kNoFill = 0xC8000000;
constexpr unsigned kPicture = 0x50, kTextStyle = 0x11, kTableStyle = 0x87;

struct TableBench : ObjectBench {
    TableBench(Release release, const BitWriter& bits) : ObjectBench(release, bits)
    {
        names.entries = {{kTextStyle, "Notes"}};
    }
};

/// How contents are shown.
inline void Format(BitWriter& bits, unsigned overrides, double height, unsigned alignment)
{
    bits.BL(overrides).BL(0).BL(512).BL(0).WideT("").BD(0).BD(2).BL(alignment).Color(kBlue).H(5, kTextStyle).BD(height);
}

/// A style of a cell, row or column with margins of 0.5 at the top and 2.5 at the left.
inline void Style(BitWriter& bits, unsigned overrides, double height, unsigned alignment, std::uint32_t fill)
{
    bits.BL(1).BS(1).BL(overrides).BL(0).Color(fill).BL(1);
    Format(bits, 0, height, alignment);
    bits.BS(1).BD(0.5).BD(2.5).BD(0.5).BD(2.5).BD(4.5).BD(4.5);
    bits.BL(2);
    for (const unsigned edge : {0x20U, 2U}) // right, and what lies between cells
        bits.BL(edge).BL(0x1A).BL(1).Color(kRed).BL(40).H(5, 0).BL(1).BD(1);
}

} // namespace sm::drawing::dwg::testing
