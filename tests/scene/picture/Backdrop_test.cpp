// SPDX-License-Identifier: GPL-3.0-or-later
// Colours on a dark screen.
#include "scene/Backdrop.h"

#include <gtest/gtest.h>

namespace sm::scene {
namespace {

TEST(Backdrops, TurnLightnessAndLeaveHues)
{
    struct Row {
        const char* name;
        std::uint32_t ink, onDark;
    };
    for (const Row& row : {Row{"white is the sheet", 0xFFFFFF, 0x212121}, Row{"black", 0x000000, 0xFFFFFF},
                           Row{"red", 0xFF0000, 0xFF3030}, Row{"dark blue", 0x000080, 0x8F8FFF},
                           Row{"blue", 0x0000FF, 0x5C5CFF}, Row{"transparency stays", 0x80000000, 0x80FFFFFF}}) {
        EXPECT_EQ(InkOn(Backdrop::Dark, row.ink), row.onDark) << row.name;
        EXPECT_EQ(InkOn(Backdrop::Light, row.ink), row.ink) << row.name;
    }
}

} // namespace
} // namespace sm::scene
